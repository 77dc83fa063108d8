#include <gtest/gtest.h>

#include "display/ctrlVis.h"
#include "display/visor.h"
#include "doubles/compartidoDoble.h"
#include "doubles/entornoDoble.h"
#include "doubles/superficieDoble.h"
#include "doubles/ventanaDoble.h"

namespace sorvanel {
namespace {

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
        parrilla = std::make_unique<Parrilla>(e.entorno);
        parrilla->definir(lienzo, ventana);
        v = std::make_unique<visor>(e.entorno, compartido);
        v->cargarComo(1);
        if (definido) v->definir(*parrilla, picCap, picRep);
    }
    void arrancar() {
        v->ubicar(0, 0);
        v->Run(true);
        picRep.olvidar();
    }
    std::string clave(const char* nombre) { return e.valor("VISOR_1", nombre); }
};

constexpr const char* BASICO = "[VISOR_1]\r\nPort=3001\r\nEtiqueta=Tolva\r\nUbicacion=2,1\r\n";

TEST(visor, leeLaSeccionConSusLimites) {
    struct Caso {
        const char* linea;
        std::function<std::string(const visor&)> leido;
        const char* esperado;
    };
    const auto ubicacion = [](const visor& v) {
        const auto u = v.ubicacion();
        return u ? std::to_string(u->fila) + "," + std::to_string(u->columna) : "no";
    };
    const auto entero = [](auto valor) { return valor ? std::to_string(*valor) : "no"; };
    const auto ancho = [&](const visor& v) { return entero(v.anchoEtiqueta()); };
    const auto fondo = [&](const visor& v) { return entero(v.colorFondoPeso()); };
    const auto ratio = [](const visor& v) { return v.ratioAlturas() ? std::to_string(*v.ratioAlturas()) : "no"; };
    const auto protocolo = [](const visor& v) { return std::to_string(v.protocolo()); };
    const auto port = [](const visor& v) { return std::to_string(v.port()); };
    const auto modo = [](const visor& v) { return std::to_string(v.modoBulk()); };
    const Caso casos[] = {
        {"Ubicacion=2,3", ubicacion, "2,3"},
        {"Ubicacion=10,2", ubicacion, "no"},
        {"Ubicacion=2, 3", ubicacion, "no"},
        {"Ubicacion=2;3", ubicacion, "no"},
        {"Ubicacion=0,3", ubicacion, "no"},
        {"Protocolo=PAVONA", protocolo, "2"},
        {"Protocolo=otro", protocolo, "1"},
        {"anchoEtiqueta=9", ancho, "6"},
        {"anchoEtiqueta=-9", ancho, "0"},
        {"anchoEtiqueta=abc", ancho, "no"},
        {"anchoEtiqueta=99999", ancho, "no"},
        {"anchoEtiqueta=0", ancho, "0"},
        {"fondoPeso=00FF00", fondo, "65280"},
        {"fondoPeso=verde", fondo, "no"},
        {"fondoPeso=", fondo, "no"},
        {"ratioAlturas=0,5", ratio, "0.500000"},
        {"ratioAlturas=0.5", ratio, "0.500000"},
        {"ratioAlturas=medio", ratio, "no"},
        {"Port=12abc", port, "12"},
        {"Port=abc", port, "0"},
        {"Port=99999999999", port, "0"},
        {"ModoBulk=9", modo, "9"},
        {"ModoBulk=x", modo, "4"},
        {"Etiqueta=x", modo, "4"},
    };
    for (const Caso& caso : casos) {
        Banco b(std::string("[VISOR_1]\r\n") + caso.linea + "\r\n", false);
        EXPECT_EQ(caso.leido(*b.v), caso.esperado) << caso.linea;
    }
}

TEST(visor, seNumeraDeUnoASesentaYCuatroYUnaSolaVez) {
    EntornoDoble e;
    CompartidoDoble compartido;
    visor v(e.entorno, compartido);
    for (const auto n : std::initializer_list<std::int16_t>{0, -1, 65}) {
        EXPECT_FALSE(v.cargarComo(n));
        EXPECT_FALSE(v.guardarComo(n));
    }
    EXPECT_FALSE(v.identificado());
    EXPECT_TRUE(v.cargarComo(64));
    EXPECT_FALSE(v.cargarComo(1));
    EXPECT_FALSE(v.guardarComo(64)) << "it is that one already";
    EXPECT_EQ(e.ini(), "");
}

TEST(visor, guardarComoMudaLaSeccion) {
    Banco b("[VISOR_1]\r\nPort=3001\r\nEtiqueta=Tolva\r\nfondoPeso=00FF00\r\nratioAlturas=0,5\r\n", false);
    EXPECT_TRUE(b.v->guardarComo(5));
    EXPECT_EQ(b.e.ini(),
              "[RETICULA]\r\nFilasColumnas=4x2\r\n[VISOR_5]\r\nProtocolo=Tessel\r\nModoBulk=4\r\nPort=3001\r\n"
              "Etiqueta=Tolva\r\nformatoPeso=\r\nfondoPeso=00FF00\r\nratioAlturas=0,5\r\n");
}

TEST(visor, unVisorSinNumeroGuardaEnLaSeccionCeroHastaQueLoTiene) {
    EntornoDoble e;
    CompartidoDoble compartido;
    visor v(e.entorno, compartido);
    v.port(3001);
    v.caption("Tolva");
    EXPECT_EQ(e.valor("VISOR_0", "Port"), "");
    v.modoBulk(7);
    EXPECT_EQ(e.valor("VISOR_0", "ModoBulk"), "5");
    v.guardarComo(1);
    EXPECT_EQ(e.valor("VISOR_0", "ModoBulk"), "");
    EXPECT_EQ(e.valor("VISOR_1", "Etiqueta"), "Tolva");
    v.modoBulk(-1);
    EXPECT_EQ(e.valor("VISOR_1", "ModoBulk"), "0");
}

TEST(visor, losValoresPropiosVencenALosDelDiseno) {
    Banco b("[VISORES]\r\nanchoEtiqueta=3\r\nformatoPeso=0.0\r\nfondoPeso=0000FF\r\n[VISOR_1]\r\nPort=1\r\n", false);
    EXPECT_EQ(b.v->anchoEtiquetaEfv(), 3);
    EXPECT_EQ(b.v->formatoPesoEfv(), "0.0");
    EXPECT_EQ(b.v->colorFondoPesoEfv(), ROJO);
    EXPECT_EQ(b.v->colorFondoEtiquetaEfv(), 0xFF0000) << "the default is pure blue";
    b.v->anchoEtiqueta(9);
    b.v->formatoPeso("0.00");
    b.v->colorFondoPeso(NEGRO);
    EXPECT_EQ(b.v->anchoEtiquetaEfv(), 6);
    EXPECT_EQ(b.v->formatoPesoEfv(), "0.00");
    EXPECT_EQ(b.v->colorFondoPesoEfv(), NEGRO);
    EXPECT_EQ(b.clave("fondoPeso"), "000000");
    b.v->anchoEtiqueta(std::nullopt);
    b.v->formatoPeso("");
    b.v->colorFondoPeso(std::nullopt);
    EXPECT_EQ(b.v->anchoEtiquetaEfv(), 3);
    EXPECT_EQ(b.v->formatoPesoEfv(), "0.0");
    EXPECT_EQ(b.v->colorFondoPesoEfv(), ROJO);
    EXPECT_EQ(b.e.ini().find("fondoPeso=000000"), std::string::npos);
}

TEST(visor, cadaNegativaAUbicarTieneSuTexto) {
    struct Caso {
        const char* ini;
        bool definido;
        int fila, columna;
        const char* error;
    };
    const char* diminuta = "[RETICULA]\r\nDimensiones=0,01;0,01\r\n[VISOR_1]\r\nPort=1\r\nUbicacion=1,1\r\n";
    const Caso casos[] = {
        {BASICO, false, 0, 0, "El visor #1 no ha sido previamente definido"},
        {BASICO, true, 5, 0, "Visor #1: Ubicación no compatible con la retícula"},
        {BASICO, true, 0, 3, "Visor #1: Ubicación no compatible con la retícula"},
        {"[VISOR_1]\r\nPort=1\r\n", true, 0, 0, "Visor #1: Ubicación no compatible con la retícula"},
        {diminuta, true, 0, 0, "Visor #1: La celda no permite la ubicación"},
    };
    for (const Caso& c : casos) {
        Banco b(c.ini, c.definido);
        const auto antes = b.v->ubicacion();
        EXPECT_FALSE(b.v->ubicar(static_cast<std::int16_t>(c.fila), static_cast<std::int16_t>(c.columna)));
        EXPECT_EQ(b.v->ultimoerror(), c.error);
        EXPECT_EQ(b.v->ubicacion(), antes);
        EXPECT_FALSE(b.v->ubicado());
        EXPECT_FALSE(b.picRep.visible());
    }
    Banco bueno(BASICO);
    EXPECT_TRUE(bueno.v->ubicar(0, 2));
    EXPECT_EQ(bueno.v->ultimoerror(), "");
    EXPECT_EQ(bueno.v->ubicacion(), (Ubicacion{2, 2}));
    EXPECT_TRUE(bueno.picRep.visible());
    EXPECT_TRUE(bueno.picCap.visible());
    EXPECT_EQ(bueno.picCap.lugar().derecha(), bueno.picRep.lugar().x) << "side by side";
    bueno.v->desubicar();
    EXPECT_FALSE(bueno.v->ubicado());
    EXPECT_FALSE(bueno.picRep.visible());
}

TEST(visor, elArranqueQueFallaDiceCualFue) {
    Banco tessel(BASICO);
    tessel.v->Run(true);
    EXPECT_EQ(tessel.v->ultimoerror(), "El visor #1 está desubicado");
    tessel.e.fabrica.red().ocupados = {3001};
    tessel.v->ubicar(0, 0);
    tessel.v->Run(true);
    EXPECT_FALSE(tessel.v->Run());
    EXPECT_EQ(tessel.v->ultimoerror(), "Error en reconexión TCP/IP");

    Banco pavona("[VISOR_1]\r\nProtocolo=Pavona\r\nPort=1203\r\nUbicacion=1,1\r\n");
    pavona.compartido.arranca = false;
    pavona.v->ubicar(0, 0);
    pavona.v->Run(true);
    EXPECT_FALSE(pavona.v->Run());
    EXPECT_EQ(pavona.v->ultimoerror(), "Port 1203 inadecuado. Posiblemente en uso");
}

TEST(visor, unaTramaRepetidaPintaUnaVezYUnaMalaNinguna) {
    Banco b(BASICO);
    b.arrancar();
    ZocaloDoble& zocalo = *b.e.fabrica.enPuerto(3001);
    zocalo.llegar("XNZ+00012345\r");
    const std::size_t pintado = b.picRep.lineas().size();
    EXPECT_GT(pintado, 0U);
    EXPECT_EQ(b.picRep.textoLeyenda(), "12");
    for (const char* inutil : {"XNZ+00012345\r", "XNZ-00012345\r", "XNZ+0001234\r", "\nXNZ+00099999\r", "?\r"}) {
        zocalo.llegar(inutil);
        EXPECT_EQ(b.picRep.lineas().size(), pintado) << inutil;
    }
    b.e.reloj.avanzar(1000);
    EXPECT_EQ(b.picRep.textoLeyenda(), "-----");
    const std::size_t guiones = b.picRep.lineas().size();
    b.e.reloj.avanzar(3000);
    EXPECT_EQ(b.picRep.lineas().size(), guiones) << "silence that goes on paints nothing";
    zocalo.llegar("XNZ+00012345\r");
    EXPECT_GT(b.picRep.lineas().size(), guiones) << "after silence the same frame paints again";
}

TEST(visor, pausarBorraElPesoYCierraElPuerto) {
    Banco b(BASICO);
    b.arrancar();
    b.e.fabrica.enPuerto(3001)->llegar("XNZ+00012345\r");
    b.v->Run(false);
    EXPECT_EQ(b.picRep.textoLeyenda(), "");
    EXPECT_EQ(b.e.fabrica.enPuerto(3001), nullptr);
    EXPECT_FALSE(b.v->frWsk_refrescoPeso("XNZ+00055000")) << "not running: not heard";
    EXPECT_EQ(b.picRep.textoLeyenda(), "");
}

TEST(visor, traeDelEnlaceCompartidoElGrupoDeSuModo) {
    const std::string carga = "XCD+00001000+00002000-00003000+00004000+00005000+00006000";
    struct Caso {
        const char* modo;
        int primero, segundo;
        std::string carga;
        bool tomada;
        const char* leyenda;
    };
    const Caso casos[] = {
        {"0", 12, 3, carga, true, "1 C D"},  {"5", 12, 3, carga, true, "6 C D"}, {"4", 12, 3, carga, true, "5 C D"},
        {"99", 12, 3, carga, true, "6 C D"},  // bounded where it is used
        {"2", 12, 3, carga, false, ""},       // a negative group is no frame
        {"0", 3, 12, carga, false, ""},      {"0", 0, 0, carga, false, ""},      {"0", 0, 0, "", false, "-----"},
        {"0", 12, 3, "", false, "-----"},    {"0", 12, 3, "XCD", false, ""},
    };
    for (const Caso& c : casos) {
        Banco b(std::string("[VISOR_1]\r\nProtocolo=Pavona\r\nPort=1203\r\nUbicacion=1,1\r\nModoBulk=") + c.modo +
                "\r\n");
        b.arrancar();
        EXPECT_EQ(b.compartido.enMarchas.size(), 1U);
        EXPECT_EQ(b.v->mmTCP_refrescoPeso(static_cast<std::int16_t>(c.primero), static_cast<std::int16_t>(c.segundo),
                                          c.carga),
                  c.tomada);
        EXPECT_EQ(b.picRep.textoLeyenda(), c.leyenda) << c.modo << " " << c.primero << "/" << c.segundo;
    }
}

TEST(visor, saludaAlEnlaceCompartidoUnaVezYSeDespide) {
    Banco b("[VISOR_1]\r\nProtocolo=Pavona\r\nPort=1203\r\nUbicacion=1,1\r\n");
    EXPECT_EQ(b.compartido.usuarios, 1);
    b.v->protocolo(2);
    EXPECT_EQ(b.compartido.usuarios, 1);
    b.arrancar();
    b.v->protocolo(1);
    EXPECT_EQ(b.v->protocolo(), 2) << "not while it runs";
    b.v->Run(false);
    EXPECT_TRUE(b.compartido.enMarchas.empty());
    b.v->protocolo(7);
    EXPECT_EQ(b.v->protocolo(), 1);
    EXPECT_EQ(b.compartido.usuarios, 0);
    EXPECT_EQ(b.clave("Protocolo"), "Tessel");
    b.v->protocolo(2);
    b.arrancar();
    b.v.reset();
    EXPECT_EQ(b.compartido.usuarios, 0);
    EXPECT_TRUE(b.compartido.enMarchas.empty()) << "nothing of it may be left behind";
}

TEST(visor, elPuertoSeCambiaTambienEnMarcha) {
    Banco b(std::string(BASICO) + "[VISOR_2]\r\nPort=3002\r\n");
    b.e.fabrica.red().ocupados = {3003};
    b.arrancar();
    b.e.fabrica.enPuerto(3001)->llegar("XNZ+00012345\r");
    for (const std::int32_t negado : {-1, 100000, 3002}) {
        b.v->port(negado);
        EXPECT_EQ(b.v->port(), 3001) << negado;
        EXPECT_EQ(b.picRep.textoLeyenda(), "12");
    }
    b.v->port(3004);
    EXPECT_EQ(b.clave("Port"), "3004");
    EXPECT_NE(b.e.fabrica.enPuerto(3004), nullptr);
    EXPECT_EQ(b.picRep.textoLeyenda(), "") << "the old port's weight is not the new one's";
    b.v->port(3003);
    EXPECT_EQ(b.v->ultimoerror(), "Port 3003 inadecuado. Posiblemente en uso");
    EXPECT_TRUE(b.v->Run());
}

TEST(visor, laUbicacionSeNiegaOSeSigue) {
    Banco b(std::string(BASICO) + "[VISOR_2]\r\nPort=3002\r\nUbicacion=1,1\r\n");
    b.arrancar();
    b.v->frWsk_refrescoPeso("XNZ+00012345");
    for (const Ubicacion negada : {Ubicacion{1, 1}, {5, 1}, {1, 3}, {0, 1}, {-1, -1}}) {
        b.v->ubicacion(negada);
        EXPECT_EQ(b.v->ubicacion(), (Ubicacion{2, 1}));
    }
    const Rectangulo antes = b.picRep.lugar();
    b.v->ubicacion(Ubicacion{4, 2});
    EXPECT_EQ(b.clave("Ubicacion"), "4,2");
    EXPECT_NE(b.picRep.lugar(), antes);
    EXPECT_EQ(b.picRep.textoLeyenda(), "12") << "what it shows moves along";
    b.v->ubicacion(std::nullopt);
    EXPECT_EQ(b.clave("Ubicacion"), "");
    EXPECT_EQ(b.clave("Etiqueta"), "Tolva");
    EXPECT_FALSE(b.picRep.visible());
    b.v->ubicacion(Ubicacion{1, 2});
    EXPECT_TRUE(b.picRep.visible()) << "a new place shows at once";
    EXPECT_EQ(b.picRep.textoLeyenda(), "") << "a weight from before would be stale";
}

TEST(visor, trasUnCambioDePantallaMuestraLoMismoOSeQuita) {
    Banco b(BASICO);
    b.arrancar();
    b.v->frWsk_refrescoPeso("XNZ+00012345");
    const auto redisponer = [&](int ancho, int alto) {
        b.e.monitores.lista[0].area = {0, 0, ancho, alto};
        b.parrilla->recargar();
        b.v->reubicar();
    };
    redisponer(1920, 1080);
    EXPECT_EQ(b.picRep.textoLeyenda(), "12");
    EXPECT_EQ(b.picRep.lugar().derecha(), b.parrilla->getCell(2, 1)->derecha());
    redisponer(64, 64);
    EXPECT_FALSE(b.picRep.visible());
    EXPECT_FALSE(b.v->frWsk_refrescoPeso("XNZ+00099000"));
    redisponer(1920, 1080);
    EXPECT_TRUE(b.picRep.visible());
    EXPECT_EQ(b.picRep.textoLeyenda(), "") << "the weight from before must not come back as live";
    EXPECT_TRUE(b.v->frWsk_refrescoPeso("XNZ+00099000"));
    EXPECT_EQ(b.picRep.textoLeyenda(), "99");
}

TEST(visor, laEtiquetaRepetidaSeNiega) {
    Banco b(std::string(BASICO) + "[VISOR_2]\r\nPort=3002\r\nEtiqueta=Silo\r\n");
    b.v->ubicar(0, 0);
    b.v->caption("Silo");
    EXPECT_EQ(b.v->caption(), "Tolva");
    b.v->caption("silo");
    EXPECT_EQ(b.clave("Etiqueta"), "silo");
    EXPECT_EQ(b.picCap.textoLeyenda(), "silo");
    b.v->caption("");
    EXPECT_EQ(b.v->caption(), "");
}

TEST(ctrlVis, preguntaALoGuardado) {
    EntornoDoble e;
    e.ini(
        "[VISOR_1]\r\nPort=3001\r\nModoBulk=2\r\nEtiqueta=  Tolva \r\nUbicacion=2,1\r\n"
        "[VISOR_2]\r\nPort=0\r\nUbicacion=0,0\r\n[VISOR_4]\r\nPort=3004\r\n");
    const ctrlVis c(e.entorno);
    EXPECT_TRUE(c.portExiste(3001, 2));
    EXPECT_FALSE(c.portExiste(3001, 4)) << "another bulk mode may share the port";
    EXPECT_FALSE(c.portExiste(0, 4));
    EXPECT_FALSE(c.portExiste(3004, 4)) << "behind a gap";
    EXPECT_TRUE(c.etiquetaExiste("Tolva"));
    EXPECT_FALSE(c.etiquetaExiste("TOLVA"));
    EXPECT_FALSE(c.etiquetaExiste(""));
    EXPECT_TRUE(c.ubicacionExiste(" 2,1 "));
    EXPECT_FALSE(c.ubicacionExiste("0,0"));
    EXPECT_FALSE(c.ubicacionExiste(""));
}

}  // namespace
}  // namespace sorvanel
