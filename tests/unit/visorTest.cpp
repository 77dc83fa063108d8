#include "display/visor.h"

#include <gtest/gtest.h>

#include "doubles/compartidoDoble.h"
#include "doubles/entornoDoble.h"
#include "doubles/superficieDoble.h"
#include "doubles/ventanaDoble.h"

namespace sorvanel {
namespace {

const std::string TESSEL = "[VISOR_1]\r\nPort=3001\r\nEtiqueta=Tolva\r\nUbicacion=2,1\r\n";
const std::string PAVONA = "[VISOR_1]\r\nProtocolo=Pavona\r\nPort=1203\r\nUbicacion=1,1\r\n";

struct Banco {
    EntornoDoble e;
    CompartidoDoble compartido;
    SuperficieDoble lienzo, picCap, picRep;
    VentanaDoble ventana;
    std::unique_ptr<Parrilla> parrilla;
    std::unique_ptr<visor> v;

    // The display of section 1 of that file, on a grid of 4 by 2 unless the file says otherwise.
    explicit Banco(const std::string& ini, bool definido = true) {
        e.ini(ini.find("[RETICULA]") == std::string::npos ? "[RETICULA]\r\nFilasColumnas=4x2\r\n" + ini : ini);
        parrilla = std::make_unique<Parrilla>(e.com, e.pantalla());
        parrilla->definir(lienzo, ventana);
        v = std::make_unique<visor>(e.com, e.fabrica, e.reloj, compartido);
        v->cargarComo(1);
        if (definido) v->definir(*parrilla, picCap, picRep);
    }
    void arrancar() {
        v->ubicar(0, 0);
        v->Run(true);
    }
    std::string clave(const std::string& nombre) { return e.valor("VISOR_1", nombre); }
    std::string leyenda() { return picRep.dicho(); }
    ZocaloDoble* puerto(std::int32_t n) { return e.fabrica.enPuerto(n); }
};

TEST(visor, leeYMudaSuSeccionConSusLimites) {
    const std::map<std::string, std::vector<std::pair<std::string, std::string>>> claves = {
        {"Ubicacion", {{"2,3", "2,3"}, {"10,2", ""}, {"2, 3", ""}, {"2;3", ""}, {"0,3", ""}}},
        {"Protocolo", {{"PAVONA", "Pavona"}, {"otro", "Tessel"}}},
        {"anchoEtiqueta", {{"9", "6"}, {"-9", "0"}, {"abc", ""}, {"99999", ""}, {"0", "0"}}},
        {"ajusteEtiqueta", {{"3", "2"}, {"-1", "0"}}},
        {"fondoEtiqueta", {{"rojo", ""}, {"0", "000000"}}},
        {"textoEtiqueta", {{"ff", "0000FF"}}},
        {"textoPeso", {{"FF000001", "000001"}}},
        {"ratioAlturas", {{"0.5", "0,5"}, {"medio", ""}}},
        {"Origen", {{"10.0.0.7", "10.0.0.7"}, {"la tolva", "la tolva"}, {"", ""}}},
        {"Port", {{"12abc", "12"}, {"abc", "0"}, {"99999999999", "0"}}},
        {"ModoBulk", {{"9", "9"}, {"x", "4"}}}};
    for (const auto& [clave, casos] : claves) {
        for (const auto& [valor, queda] : casos) {
            Banco b("[VISOR_1]\r\n" + clave + "=" + valor + "\r\n", false);
            EXPECT_TRUE(b.v->guardarComo(5));
            EXPECT_EQ(b.e.valor("VISOR_5", clave), queda) << clave << " " << valor;
        }
    }
    Banco b("[VISOR_1]\r\nPort=3001\r\nEtiqueta=Tolva\r\nfondoPeso=00FF00\r\nratioAlturas=0,5\r\n", false);
    b.v->guardarComo(5);
    EXPECT_EQ(b.e.ini(),
              "[RETICULA]\r\nFilasColumnas=4x2\r\n[VISOR_5]\r\nProtocolo=Tessel\r\nModoBulk=4\r\nPort=3001\r\n"
              "Etiqueta=Tolva\r\nformatoPeso=\r\nfondoPeso=00FF00\r\nratioAlturas=0,5\r\n");
}

TEST(visor, seNumeraDeUnoASesentaYCuatroYUnaSolaVez) {
    EntornoDoble e;
    CompartidoDoble compartido;
    visor v(e.com, e.fabrica, e.reloj, compartido);
    v.port(3001);
    EXPECT_EQ(e.ini(), "");
    v.modoBulk(7);
    EXPECT_EQ(e.valor("VISOR_0", "ModoBulk"), "5") << "without a number it is section 0";
    for (const auto n : std::initializer_list<std::int16_t>{0, -1, 65})
        EXPECT_FALSE(v.cargarComo(n) || v.guardarComo(n)) << n;
    EXPECT_TRUE(v.guardarComo(64));
    EXPECT_EQ(e.valor("VISOR_0", "ModoBulk"), "");
    EXPECT_EQ(e.valor("VISOR_64", "Port"), "3001");
    EXPECT_FALSE(v.cargarComo(1));
    EXPECT_FALSE(v.guardarComo(64)) << "it is that one already";
    v.modoBulk(-1);
    EXPECT_EQ(e.valor("VISOR_64", "ModoBulk"), "0");
}

TEST(visor, losValoresPropiosVencenALosDelDiseno) {
    Banco b(
        "[VISORES]\r\nanchoEtiqueta=3\r\najusteEtiqueta=0\r\nfondoEtiqueta=1\r\ntextoEtiqueta=2\r\nfondoPeso=3\r\n"
        "textoPeso=4\r\nformatoPeso=0.0\r\nratioAlturas=0,5\r\n[VISOR_1]\r\nPort=1\r\n",
        false);
    visor& v = *b.v;
    const auto esperar = [&](const auto& efectivos) {
        const AspectoVisor a = v.aspecto();
        EXPECT_EQ(std::tuple(a.anchoEtiqueta, a.ajusteEtiqueta, a.fondoEtiqueta, a.textoEtiqueta, a.fondoPeso,
                             a.textoPeso, a.formato, a.ratioAlturas),
                  efectivos);
        EXPECT_EQ(std::tuple(v.anchoEtiquetaEfv(), v.ajusteEtiquetaEfv(), v.colorFondoEtiquetaEfv(),
                             v.colorTextoEtiquetaEfv(), v.colorFondoPesoEfv(), v.colorTextoPesoEfv(),
                             v.formatoPesoEfv(), a.ratioAlturas),
                  efectivos);
    };
    const std::tuple comunes(3, 0, 1, 2, 3, 4, std::string("0.0"), 0.5F);
    esperar(comunes);
    v.anchoEtiqueta(9), v.ajusteEtiqueta(1), v.formatoPeso("0.00"), v.ratioAlturas(2.5F);
    v.colorFondoEtiqueta(5), v.colorTextoEtiqueta(6), v.colorFondoPeso(7), v.colorTextoPeso(0x7F000008);
    esperar(std::tuple(6, 1, 5, 6, 7, 8, std::string("0.00"), 2.5F));
    for (const FilaRasgo& fila : RASGOS) v.propio(fila.rasgo, {});
    esperar(comunes);
    EXPECT_EQ(v.anchoEtiqueta(), std::nullopt);
}

TEST(visor, soloSeEncajaDeNuevoDondeCambianLasMedidas) {
    const std::tuple<Rasgo, ValorRasgo, bool> casos[] = {
        {Rasgo::anchoEtiqueta, 5, true},   {Rasgo::formatoPeso, "0.000", true},  {Rasgo::ratioAlturas, 0.2F, true},
        {Rasgo::ajusteEtiqueta, 0, false}, {Rasgo::colorFondoPeso, ROJO, false}, {Rasgo::colorTextoPeso, ROJO, false}};
    for (const auto& [rasgo, valor, encaja] : casos) {
        Banco b(TESSEL);
        b.arrancar();
        b.picCap.olvidar();
        b.v->propio(rasgo, valor);
        const auto& lineas = b.picCap.lineas();
        EXPECT_FALSE(lineas.empty());
        EXPECT_EQ(std::any_of(lineas.begin(), lineas.end(), [](auto& l) { return l.starts_with("colocar"); }), encaja)
            << filaDe(rasgo).clave;
    }
}

TEST(visor, cadaNegativaAUbicarTieneSuTexto) {
    const struct {
        std::string ini;
        bool definido;
        std::int16_t fila, columna;
        const char* error;
    } casos[] = {
        {TESSEL, false, 0, 0, "El visor #1 no ha sido previamente definido"},
        {TESSEL, true, 5, 0, "Visor #1: Ubicación no compatible con la retícula"},
        {TESSEL, true, 0, 3, "Visor #1: Ubicación no compatible con la retícula"},
        {"[VISOR_1]\r\nPort=1\r\n", true, 0, 0, "Visor #1: Ubicación no compatible con la retícula"},
        {"[RETICULA]\r\nDimensiones=0,01;0,01\r\n" + PAVONA, true, 0, 0, "Visor #1: La celda no permite la ubicación"}};
    for (const auto& c : casos) {
        Banco b(c.ini, c.definido);
        const auto antes = b.v->ubicacion();
        EXPECT_FALSE(b.v->ubicar(c.fila, c.columna));
        EXPECT_EQ(b.v->ultimoerror(), c.error);
        EXPECT_EQ(b.v->ubicacion(), antes);
        EXPECT_FALSE(b.v->ubicado() || b.picRep.visible());
    }
    Banco bueno(TESSEL);
    EXPECT_TRUE(bueno.v->ubicar(0, 2));
    EXPECT_EQ(bueno.v->ultimoerror(), "");
    EXPECT_EQ(bueno.v->ubicacion(), (Ubicacion{2, 2}));
    EXPECT_TRUE(bueno.picRep.visible() && bueno.picCap.visible());
    EXPECT_EQ(bueno.picCap.lugar().derecha(), bueno.picRep.lugar().x) << "side by side";
    bueno.v->desubicar();
    EXPECT_FALSE(bueno.v->ubicado() || bueno.picRep.visible());
    bueno.v->Run(true);
    EXPECT_FALSE(bueno.v->Run());
    EXPECT_EQ(bueno.v->ultimoerror(), "El visor #1 está desubicado");
}

TEST(visor, unaTramaRepetidaPintaUnaVezYUnaMalaNinguna) {
    Banco b(TESSEL);
    b.arrancar();
    ZocaloDoble& zocalo = *b.puerto(3001);
    const auto pintado = [&] { return b.picRep.lineas().size(); };
    zocalo.llegar("XNZ+00012345\r");
    std::size_t antes = pintado();
    EXPECT_EQ(b.leyenda(), "12");
    for (const char* inutil : {"XNZ+00012345\r", "XNZ-00012345\r", "XNZ+0001234\r", "\nXNZ+00099999\r", "?\r"}) {
        zocalo.llegar(inutil);
        EXPECT_EQ(pintado(), antes) << inutil;
    }
    b.e.reloj.avanzar(1000);
    EXPECT_EQ(b.leyenda(), "sin datos");
    antes = pintado();
    b.e.reloj.avanzar(3000);
    EXPECT_EQ(pintado(), antes) << "silence that goes on paints nothing";
    zocalo.llegar("XNZ+00012345\r");
    EXPECT_EQ(b.leyenda(), "12") << "after silence the same frame paints again";
    b.v->Run(false);
    EXPECT_EQ(b.puerto(3001), nullptr);
    EXPECT_FALSE(b.v->frWsk_refrescoPeso("XNZ+00055000")) << "not running: not heard";
    EXPECT_EQ(b.leyenda(), "");
}

TEST(visor, traeDelEnlaceCompartidoElGrupoDeSuModo) {
    const std::string carga = "XCD+00001000+00002000-00003000+00004000+00005000+--------";
    const struct {
        std::string modo;
        std::int16_t primero, segundo;
        std::string carga;
        bool tomada;
        const char* leyenda;
    } casos[] = {{"0", 12, 3, carga, true, "1, en carga, en descarga"},
                 {"4", 12, 3, carga, true, "5, en carga, en descarga"},
                 {"5", 12, 3, carga, false, "sin datos"},
                 {"99", 12, 3, carga, false, "sin datos"},  // bounded where it is used
                 {"2", 12, 3, carga, false, ""},            // a negative group is no frame
                 {"0", 3, 12, carga, false, ""},
                 {"0", 0, 0, carga, false, ""},
                 {"0", 0, 0, "", false, "sin datos"},
                 {"0", 12, 3, "", false, "sin datos"},
                 {"0", 12, 3, "XCD", false, ""},
                 {"0", 3, 12, "", false, ""}};
    for (const auto& c : casos) {
        Banco b(PAVONA + "ModoBulk=" + c.modo + "\r\n");
        b.arrancar();
        EXPECT_EQ(b.v->mmTCP_refrescoPeso(c.primero, c.segundo, c.carga), c.tomada);
        EXPECT_EQ(b.leyenda(), c.leyenda) << c.modo << " " << c.primero << "/" << c.segundo;
    }
}

TEST(visor, saludaAlEnlaceCompartidoUnaVezYSeDespide) {
    Banco b(PAVONA);
    b.v->protocolo(2);
    EXPECT_EQ(b.compartido.usuarios, 1);
    b.arrancar();
    EXPECT_EQ(b.compartido.enMarchas.size(), 1U);
    b.v->protocolo(1);
    EXPECT_EQ(b.v->protocolo(), 2) << "not while it runs";
    b.v->Run(false);
    EXPECT_TRUE(b.compartido.enMarchas.empty());
    b.v->protocolo(7);
    EXPECT_EQ(b.compartido.usuarios, 0);
    EXPECT_EQ(b.clave("Protocolo"), "Tessel");
    b.v->protocolo(2);
    b.arrancar();
    b.v.reset();
    EXPECT_EQ(b.compartido.usuarios, 0);
    EXPECT_TRUE(b.compartido.enMarchas.empty()) << "nothing of it may be left behind";
}

TEST(visor, elPuertoSeCambiaTambienEnMarcha) {
    Banco b(TESSEL + "[VISOR_2]\r\nPort=3002\r\n");
    b.e.fabrica.red().ocupados = {3003};
    b.arrancar();
    b.puerto(3001)->llegar("XNZ+00012345\r");
    for (const std::int32_t negado : {-1, 100000, 3002}) {
        b.v->port(negado);
        EXPECT_EQ(b.v->port(), 3001) << negado;
        EXPECT_EQ(b.leyenda(), "12");
    }
    b.v->port(3004);
    EXPECT_EQ(b.clave("Port"), "3004");
    EXPECT_NE(b.puerto(3004), nullptr);
    EXPECT_EQ(b.leyenda(), "") << "the old port's weight is not the new one's";
    b.v->port(3003);
    EXPECT_EQ(b.v->ultimoerror(), "Port 3003 inadecuado. Posiblemente en uso");
    EXPECT_TRUE(b.v->Run());
    EXPECT_EQ(b.leyenda(), "sin datos");
}

TEST(visor, siNoPuedeArrancarDiceQueNoHayDatosHastaQuePuedaOSePare) {
    for (const std::string& familia : {TESSEL, PAVONA}) {
        Banco b(familia);
        const auto dejar = [&](bool libre) {
            b.compartido.arranca = libre;
            b.e.fabrica.red().ocupados = libre ? std::set<std::int32_t>{} : std::set{3001};
        };
        dejar(false);
        b.arrancar();
        EXPECT_FALSE(b.v->Run());
        EXPECT_EQ(b.leyenda(), "sin datos");
        const std::size_t pintado = b.picRep.lineas().size();
        b.v->Run(true);
        EXPECT_EQ(b.picRep.lineas().size(), pintado) << "the same is not painted again";
        b.picRep.fallarEn(3);
        EXPECT_ANY_THROW(b.v->reubicar());
        b.v->reubicar();
        EXPECT_EQ(b.leyenda(), "sin datos");
        b.v->Run(false);
        EXPECT_EQ(b.leyenda(), "") << "nobody asks any more";
        b.v->Run(true);
        EXPECT_EQ(b.leyenda(), "sin datos");
        dejar(true);
        b.v->Run(true);
        EXPECT_TRUE(b.v->Run());
        EXPECT_EQ(b.leyenda(), "");
    }
}

TEST(visor, trasDiezSegundosDicePorQueNoHayDatos) {
    Banco b(TESSEL);
    b.arrancar();
    const auto& palabras = b.picRep.textoLeyenda();
    const auto esperar = [&](int segundos, const std::string& dicho) {
        b.e.reloj.avanzar(segundos * 1000);
        EXPECT_EQ(palabras, dicho);
    };
    const std::string linea = "Sin datos desde 10:42 · UDP 3001";
    esperar(1, "Tolva: sin datos");
    b.e.reloj.local = {23, 11, 9, 0};  // since when, not what time it is
    esperar(8, "Tolva: sin datos");
    b.picRep.olvidar();
    esperar(1, "Tolva: sin datos. " + linea);
    const auto pintada = [&](const std::string& texto) {
        return std::count_if(b.picRep.lineas().begin(), b.picRep.lineas().end(), [&](const std::string& l) {
            return l.starts_with("imprimir ") && l.find('"' + texto + '"') != std::string::npos;
        });
    };
    EXPECT_EQ(pintada(linea), 1);
    b.v->reubicar();
    EXPECT_EQ(pintada(linea), 2) << "it goes with the dashes";
    esperar(23 * 3600, "Tolva: sin datos. " + linea);
    EXPECT_EQ(pintada(linea), 2) << "painted once";
    esperar(3600, "Tolva: sin datos. Sin datos desde 22/11 10:42 · UDP 3001");
    b.puerto(3001)->llegar("XNZ+00012345\r");
    EXPECT_EQ(palabras, "Tolva: 12");
    esperar(1, "Tolva: sin datos");
    b.v->Run(false);
    b.v->Run(true);
    esperar(9, "Tolva: sin datos");
    b.v->Run(false);
    b.v->Run(true);
    b.e.reloj.local = {22, 11, 10, 42};
    b.e.reloj.saltar(180'000);
    esperar(1, "Tolva: sin datos. Sin datos desde 10:39 · UDP 3001");
}

TEST(visor, elMotivoDelSilencioSigueAlEnlace) {
    using enum MotivoSilencio;
    const std::string placas = "Protocolo=Pavona\r\n[VISOR_3]\r\nPort=3001\r\nUbicacion=1,1\r\n";
    const std::tuple<std::string, MotivoSilencio, const char*> casos[] = {
        {PAVONA + "Origen=tal\r\n", callado, "Sin datos desde 10:42 · 12/3"},
        {PAVONA, sinRespuesta, "El concentrador no responde · desde 10:42"},
        {PAVONA, noOido, "Dirección 12/3 no oída · desde 10:42"},
        {PAVONA, sinArrancar, "Host o port del concentrador no válidos"},
        {TESSEL, sinArrancar, "Port 3001 en uso por otro programa"},
        {TESSEL + "[VISOR_2]\r\nPort=3001\r\n" + placas, sinArrancar, "El visor #3 tiene el mismo port 3001"},
        {"[VISOR_1]\r\nPort=3002\r\nUbicacion=1,1\r\n", sinArrancar, "Port 3002 no disponible"},
        {"[VISOR_1]\r\nPort=0\r\nUbicacion=1,1\r\n", callado, "Sin port"},
        {"[VISOR_1]\r\nPort=0\r\nProtocolo=Pavona\r\nUbicacion=1,1\r\n", noOido, "Sin dirección"},
        {"[VISOR_1]\r\nPort=70000\r\nUbicacion=1,1\r\n", sinArrancar, "Port 70000 no válido"},
        {"[VISOR_1]\r\nPort=3004\r\nOrigen=tal\r\nUbicacion=1,1\r\n", sinArrancar, "Origen no es una dirección"},
        {"[VISOR_1]\r\nPort=3004\r\nOrigen=10.0.0.7\r\nUbicacion=1,1\r\n", otroEquipo,
         "Sin datos desde 10:42 · UDP 3004, llega de otro equipo"}};
    for (const auto& [ini, motivo, texto] : casos) {
        Banco b(ini);
        b.compartido.arranca = motivo != sinArrancar;
        b.compartido.porque = motivo;
        b.e.fabrica.red().ocupados = {3001};
        b.e.fabrica.red().vedados = {3002};
        b.arrancar();
        for (int s = 0; s <= 10 && b.v->Run(); ++s) {
            b.v->mmTCP_refrescoPeso(0, 0, "");
            if (b.puerto(3004) != nullptr) b.puerto(3004)->llegar("XNZ+00012345\r");
            b.e.reloj.avanzar(1000);
        }
        EXPECT_NE(b.picRep.textoLeyenda().find(std::string("sin datos. ") + texto), std::string::npos)
            << b.picRep.textoLeyenda();
        const std::string_view solo = std::string_view(texto).substr(0, std::string_view(texto).find(" · desde"));
        const std::string_view delRegistro =
            motivo == otroEquipo ? "UDP 3004, llega de otro equipo" : "12/3, sin lectura";
        EXPECT_EQ(b.v->motivoDicho(), solo.starts_with("Sin datos") ? delRegistro : solo);
    }
}

TEST(visor, unOrigenQueNoEsDireccionNoDejaArrancarYSeNombra) {
    const auto mal = [](const std::string& dicho) { return "Origen no es una dirección: «" + dicho + "»"; };
    const std::pair<std::string, std::string> casos[] = {{"\" 192.168.1.40\"", ""},
                                                         {"a@b", mal("a@b")},
                                                         {"\"  \"", mal("  ")},
                                                         {"x" + std::string(24, '\xF1'), mal("xñññññññññññññññññññ…")}};
    for (const auto& [texto, error] : casos) {
        Banco b(TESSEL + "Origen=" + texto + "\r\n");
        b.arrancar();
        EXPECT_EQ(b.v->ultimoerror(), error);
        EXPECT_EQ(b.v->Run(), error.empty());
        EXPECT_EQ(b.leyenda(), error.empty() ? "" : "sin datos");
    }
}

TEST(visor, laEtiquetaYLaUbicacionSeNieganOSeSiguen) {
    Banco b(TESSEL + "[VISOR_2]\r\nPort=3002\r\nUbicacion=1,1\r\nEtiqueta=Silo\r\n");
    b.arrancar();
    for (const auto& [pedida, queda] : {std::pair{"Silo", "Tolva"}, {"silo", "silo"}, {"", ""}}) {
        b.v->caption(pedida);
        EXPECT_EQ(b.clave("Etiqueta") + b.picCap.textoLeyenda(), std::string(queda) + queda);
    }
    b.v->frWsk_refrescoPeso("XNZ+00012345");
    for (const Ubicacion negada : {Ubicacion{1, 1}, {5, 1}, {1, 3}, {0, 1}, {-1, -1}}) {
        b.v->ubicacion(negada);
        EXPECT_EQ(b.v->ubicacion(), (Ubicacion{2, 1}));
    }
    const Rectangulo antes = b.picRep.lugar();
    b.v->ubicacion(Ubicacion{4, 2});
    EXPECT_EQ(b.clave("Ubicacion"), "4,2");
    EXPECT_NE(b.picRep.lugar(), antes);
    EXPECT_EQ(b.leyenda(), "12") << "what it shows moves along";
    b.v->ubicacion(std::nullopt);
    EXPECT_FALSE(b.picRep.visible());
    b.v->ubicacion(Ubicacion{1, 2});
    EXPECT_TRUE(b.picRep.visible()) << "a new place shows at once";
    EXPECT_EQ(b.leyenda(), "") << "a weight from before would be stale";
}

}  // namespace
}  // namespace sorvanel
