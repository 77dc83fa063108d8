#include "dialogs/cfgVisor.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "dialogs/textosVisor.h"
#include "doubles/dialogoDoble.h"
#include "doubles/entornoDoble.h"
#include "doubles/mesaDoble.h"

namespace sorvanel {
namespace {

using Id = IdControl;

constexpr const char* PORT_MAL = "Valor de 'port' posiblemente duplicado";
constexpr const char* ETIQUETA_MAL = "Contenido de 'etiqueta' posiblemente duplicado";
constexpr const char* UBICACION_MAL = "La ubicación entrada no es correcta o está duplicada";
constexpr const char* RESERVADO = "\xC2\xA0";  // a no-break space

// So many displays, on 4 rows of 1; the first three are placed on rows 1 to 3.
std::string visores(int cuantos, const std::string& del1 = {}) {
    std::string ini = "[RETICULA]\r\nFilasColumnas=4x1\r\n";
    for (int n = 1; n <= cuantos; ++n) {
        const std::string s = std::to_string(n);
        ini += "[VISOR_" + s + "]\r\nPort=" + std::to_string(3000 + n) + "\r\nEtiqueta=V" + s + "\r\n";
        if (n <= 3) ini += "Ubicacion=" + s + ",1\r\n";
        if (n == 1) ini += del1;
    }
    return ini;
}

class CfgVisor : public ::testing::Test {
protected:
    EntornoDoble e;
    FabricaDialogosDoble fabrica;
    MesaDoble mesa{e};
    cfgVisor dialogo{e.entorno, fabrica, mesa};

    void abrir(const std::string& ini) {
        dialogo.Descargar(true);
        e.avisos.textos.clear();
        e.ini(ini);
        dialogo.Mostrar();
        e.cola.ejecutar();
        ASSERT_NE(fabrica.dialogo(Id::cfgVisor), nullptr);
    }
    FormularioDialogoDoble& v() { return *fabrica.dialogo(Id::cfgVisor); }
    CajaTextoDoble& caja(Id id, int n = 0) { return *v().caja(id, n); }
    std::string clave(int n, const char* c) { return e.valor("VISOR_" + std::to_string(n), c); }
    visor& uno(int n) { return *mesa.visores().uno(static_cast<std::int16_t>(n)); }
    bool conFoco(Id id, int n = 0) { return v().foco() == numero(id, n); }

    // What was posted is shown now, as one text.
    std::string avisos() {
        EXPECT_TRUE(e.avisos.textos.empty()) << "never from where the focus is moving";
        e.cola.ejecutar();
        std::string todos;
        for (const std::string& t : std::exchange(e.avisos.textos, {})) todos += t;
        for (const std::string& t : std::exchange(e.avisos.informaciones, {})) todos += t;
        return todos;
    }
    // "3 a 10": the rows that are seen.
    std::string pagina() {
        std::vector<int> vistas;
        for (int n = 1; n <= 64; ++n) {
            const ControlComun* c = v().control(Id::txPort, n);
            if (c != nullptr && c->seVe) vistas.push_back(n);
        }
        if (vistas.empty()) return "0 a 0";
        EXPECT_EQ(vistas.back() - vistas.front() + 1, static_cast<int>(vistas.size()));
        return std::to_string(vistas.front()) + " a " + std::to_string(vistas.back());
    }
    void TearDown() override {
        EXPECT_EQ(e.avisos.textos, std::vector<std::string>{});
        if (dialogo.cargado()) {
            EXPECT_EQ(v().estado().focosPerdidos, 0) << "the keyboard was left nowhere";
            EXPECT_EQ(v().estado().clavesRepetidas, 0);
        }
    }
};

// ---- what is typed ----

TEST_F(CfgVisor, cadaCajaTomaLoSuyoTecleadoYPegado) {
    struct Caso {
        Id id;
        bool pavona;
        const char *tecleado, *queda;
    };
    const std::string dosPalabras = std::string("a") + RESERVADO + "b" + RESERVADO;
    const Caso casos[] = {
        {Id::txPort, true, "12.3", "12/3"},
        {Id::txPort, true, "1-.,_:;/2a ", "1///////2"},
        {Id::txPort, false, "12.3", "123"},
        {Id::txPort, false, "-+1/2,e5:_;", "125"},
        {Id::txUbi, false, "3;2", "3,2"},
        {Id::txUbi, true, "1,.;:_-+=/2 x", "1,,,,,,,,,2"},
        {Id::txEtq, false, "a b ", dosPalabras.c_str()},
        {Id::txEtq, false, "ñ€;-1", "ñ€;-1"},
    };
    for (const Caso& c : casos) {
        for (const bool pegado : {false, true}) {
            SCOPED_TRACE(std::string(c.tecleado) + (pegado ? " pegado" : ""));
            abrir(visores(1, c.pavona ? "Protocolo=Pavona\r\n" : ""));
            caja(c.id, 1).reescribir("");
            pegado ? caja(c.id, 1).pegar(c.tecleado) : caja(c.id, 1).escribir(c.tecleado);
            EXPECT_EQ(caja(c.id, 1).texto(), c.queda);
        }
    }
}

TEST_F(CfgVisor, unCampoSeGuardaOSeRechazaYConservaElTextoYElFoco) {
    const struct {
        Id id;
        bool pavona;
        const char *clave, *habia, *motivo;
        std::vector<std::string> textos;  // "typed>shown>saved"; what is refused has one part only
    } casos[] = {
        // clang-format off
        {Id::txPort, false, "Port", "3001", PORT_MAL,
         {"3009>3009>3009", "3001>3001>3001", "007>7>7", ">>0", "3002", "100000", "99999999999999999999"}},
        {Id::txPort, true, "Port", "3001", PORT_MAL,
         {"12/3>12/3>1203", "12/345>15/45>1545", "1203>12/3>1203", "5/>5/0>500", ">0/0>0", "30/2", "1/2/3", "1000/0"}},
        {Id::txEtq, false, "Etiqueta", "V1", ETIQUETA_MAL, {"v2>v2>v2", ">>", "V2"}},
        {Id::txUbi, false, "Ubicacion", "1,1", UBICACION_MAL,
         {"4,1>4,1>4,1", "04,01>4,1>4,1", ">>", "5,1", "4,2", "0,1", "2,1", "4", "4,1,1", "4,", "65540,1"}},
        // clang-format on
    };
    const auto probar = [&](const auto& c, const std::string& partes, int modo) {
        SCOPED_TRACE(partes + " modo " + std::to_string(modo));
        const std::size_t uno = partes.find('>'), dos = partes.rfind('>');
        const bool valido = uno != std::string::npos;
        const std::string texto = partes.substr(0, uno);
        abrir(visores(2, c.pavona ? "Protocolo=Pavona\r\nModoBulk=4\r\n" : ""));
        caja(c.id, 1).reescribir(texto);
        // 0 Enter, 1 another control by the mouse, 2 an arrow, 3 closing after a click on the main window.
        const bool ido = modo == 1   ? caja(Id::txEtq, 2).irA()
                         : modo != 3 ? caja(c.id, 1).pulsar(modo == 0 ? Tecla::intro : Tecla::abajo)
                                     : (v().estado().foco = nullptr, dialogo.Descargar(false));
        EXPECT_EQ(ido, valido || modo == 0 || modo == 2);
        EXPECT_EQ(avisos(), valido ? "" : c.motivo);
        EXPECT_EQ(clave(1, c.clave), valido ? partes.substr(dos + 1) : c.habia);
        EXPECT_EQ(dialogo.cargado(), modo != 3 || !valido);
        if (!dialogo.cargado()) return;
        EXPECT_EQ(caja(c.id, 1).texto(), valido ? partes.substr(uno + 1, dos - uno - 1) : texto);
        EXPECT_EQ(conFoco(c.id, 1), modo == 0 || !valido);
    };
    for (const auto& c : casos) {
        for (const std::string& partes : c.textos) {
            for (const int modo : {0, 1, 2, 3}) probar(c, partes, modo);
        }
    }
    // A place that the grid no longer has.
    abrir("[RETICULA]\r\nFilasColumnas=2x1\r\n[VISOR_1]\r\nPort=1\r\nUbicacion=3,1\r\n");
    EXPECT_TRUE(caja(Id::txUbi, 1).irA());
    EXPECT_FALSE(caja(Id::txEtq, 1).irA());
    EXPECT_EQ(avisos(), UBICACION_MAL);
}

TEST_F(CfgVisor, laEtiquetaConservaSusBlancosYSeVeEnteraEnLaSugerencia) {
    abrir(visores(1));
    const std::string corta = caja(Id::txEtq, 1).textoSugerencia, larga = std::string(40, 'm');
    caja(Id::txEtq, 1).reescribir("Silo 2");
    EXPECT_EQ(caja(Id::txEtq, 1).textoSugerencia, corta);
    caja(Id::txEtq, 1).pulsar(Tecla::intro);
    const std::string ini = e.ini();
    EXPECT_NE(ini.find("Etiqueta=Silo\xA0"
                       "2\r\n"),
              std::string::npos);
    abrir(ini);
    EXPECT_EQ(caja(Id::txEtq, 1).texto(), std::string("Silo") + RESERVADO + "2");
    EXPECT_TRUE(caja(Id::txUbi, 1).irA()) << "and is valid as it is";
    caja(Id::txEtq, 1).reescribir(larga);
    EXPECT_EQ(caja(Id::txEtq, 1).textoSugerencia, larga);
    caja(Id::txEtq, 1).pulsar(Tecla::escape);
    EXPECT_EQ(caja(Id::txEtq, 1).textoSugerencia, corta);
}

TEST_F(CfgVisor, escapeDevuelveLoQueHabia) {
    abrir(visores(1, "Protocolo=Pavona\r\n"));
    EXPECT_EQ(caja(Id::txPort, 1).texto(), "30/1");
    for (const auto& [id, vuelve] : {std::pair(Id::txPort, "3001"), {Id::txEtq, "V1"}, {Id::txUbi, "1,1"}}) {
        caja(id, 1).reescribir("77");
        EXPECT_TRUE(caja(id, 1).pulsar(Tecla::escape));
        EXPECT_EQ(caja(id, 1).texto(), vuelve);
        EXPECT_TRUE(conFoco(id, 1));
        caja(id, 1).pulsar(Tecla::intro);
    }
    EXPECT_EQ(caja(Id::txPort, 1).texto(), "30/1") << "the plain number was read as one part";
    EXPECT_EQ(clave(1, "Port"), "3001");
}

// ---- the keyboard in the rows ----

TEST_F(CfgVisor, lasFlechasVanDeCampoEnCampoYDeFilaEnFila) {
    abrir(visores(9));
    caja(Id::txPort, 8).irA();
    caja(Id::txPort, 8).cursor(2);
    EXPECT_FALSE(caja(Id::txPort, 8).pulsar(Tecla::derecha)) << "within the text";
    caja(Id::txPort, 8).cursor(4);
    const Id campos[] = {Id::txPort, Id::lstModo, Id::txEtq, Id::txUbi};
    const auto ir = [&](Id id, int n, Tecla tecla) {
        EXPECT_TRUE(conFoco(id, n)) << numero(id, n);
        EXPECT_TRUE(id == Id::lstModo ? v().lista(id, n)->pulsar(tecla) : caja(id, n).pulsar(tecla));
    };
    for (int i = 0; i < 4; ++i) ir(campos[i], 8, Tecla::derecha);
    for (int i = 3; i >= 0; --i) ir(campos[i], 8, Tecla::izquierda);
    for (const Id campo : campos) {
        SCOPED_TRACE(numero(campo));
        v().control(campo, 8)->irA();
        ir(campo, 8, Tecla::abajo);
        EXPECT_EQ(pagina(), "2 a 9");
        ir(campo, 9, Tecla::abajo);
        for (int n = 9; n > 1; --n) ir(campo, n, Tecla::arriba);
        EXPECT_EQ(pagina(), "1 a 8");
        ir(campo, 1, Tecla::arriba);
        EXPECT_TRUE(conFoco(campo, 1)) << "the first one";
    }
}

TEST_F(CfgVisor, laFilaElegidaSeDistingueYSeEligeTambienConElRaton) {
    abrir(visores(3));
    const Color otra = v().marco(Id::frVis, 1)->fondo;
    EXPECT_FALSE(v().boton(Id::botElim)->activo) << "nothing is selected";
    const auto esperar = [&](Id foco, int n) {
        EXPECT_TRUE(conFoco(foco, n));
        for (int i = 1; i <= 3; ++i) {
            for (const Id id : {Id::frVis, Id::txPort, Id::lstModo, Id::txEtq, Id::txUbi}) {
                EXPECT_EQ(v().control(id, i)->fondo == otra, i != n) << numero(id, i);
            }
        }
    };
    v().rotulo(Id::lbVis, 2)->pulsar();
    esperar(Id::txPort, 2);
    EXPECT_TRUE(v().boton(Id::botElim)->activo);
    caja(Id::txUbi, 1).irA();
    esperar(Id::txUbi, 1);
    v().marco(Id::frVis, 3)->pulsar();
    esperar(Id::txUbi, 3);
    v().lista(Id::lstModo, 2)->irA();
    esperar(Id::lstModo, 2);
}

// ---- pages ----

TEST_F(CfgVisor, abreIgualDeDeprisaConSesentaYCuatroYPagina) {
    const struct {
        int cuantos;
        const char *pagina, *texto, *despues, *fin;
    } casos[] = {
        {0, "0 a 0", "Sin visores", "0 a 0", "0 a 0"},
        {1, "1 a 1", "1 visor", "1 a 1", "1 a 1"},
        {8, "1 a 8", "8 visores", "1 a 8", "1 a 8"},
        {9, "1 a 8", "Visores 1 a 8 de 9", "2 a 9", "2 a 9"},
        {64, "1 a 8", "Visores 1 a 8 de 64", "9 a 16", "57 a 64"},
    };
    int creadosConOcho = 0;
    for (const auto& c : casos) {
        SCOPED_TRACE(c.cuantos);
        abrir(visores(c.cuantos));
        EXPECT_EQ(pagina(), c.pagina);
        EXPECT_EQ(v().rotulo(Id::lbPag)->texto(), c.texto);
        if (c.cuantos == 8) creadosConOcho = v().estado().controlesCreados;
        if (c.cuantos > 8) {
            EXPECT_EQ(v().estado().controlesCreados, creadosConOcho);
        }
        EXPECT_EQ(v().imagen(Id::imBajar)->pulsar(), c.cuantos > 8);
        EXPECT_EQ(pagina(), c.despues);
        EXPECT_TRUE(conFoco(Id::botNvo)) << "nothing was selected, so nothing is";
        for (int i = 0; i < 9; ++i) v().imagen(Id::imBajar)->pulsar();
        EXPECT_EQ(pagina(), c.fin);
        for (int i = 0; i < 9; ++i) v().imagen(Id::imSubir)->pulsar();
        EXPECT_EQ(pagina(), c.pagina);
    }
}

TEST_F(CfgVisor, alPaginarLaEleccionQuedaALaVistaSalvoCampoInvalido) {
    abrir(visores(20));
    caja(Id::txEtq, 3).irA();
    EXPECT_TRUE(v().imagen(Id::imBajar)->pulsar());
    EXPECT_EQ(pagina(), "9 a 16");
    EXPECT_TRUE(conFoco(Id::txEtq, 9)) << "the same field, in the nearest row";
    caja(Id::txEtq, 9).reescribir("V1");
    EXPECT_TRUE(v().imagen(Id::imSubir)->pulsar());
    EXPECT_EQ(avisos(), ETIQUETA_MAL);
    EXPECT_EQ(pagina(), "9 a 16");
    EXPECT_TRUE(conFoco(Id::txEtq, 9));
    caja(Id::txEtq, 9).pulsar(Tecla::escape);
    v().imagen(Id::imSubir)->pulsarConTeclado();
    EXPECT_EQ(pagina(), "1 a 8");
    EXPECT_TRUE(conFoco(Id::imSubir)) << "it can be pressed again";
    v().boton(Id::botElim)->pulsar();
    EXPECT_EQ(clave(8, "Etiqueta"), "V9") << "what was highlighted was deleted, not what was out of sight";
    EXPECT_EQ(clave(9, "Etiqueta"), "V10");
}

// ---- making and deleting ----

TEST_F(CfgVisor, unoNuevoQuedaALaVistaYConElFoco) {
    for (const int habia : {0, 7, 8, 20}) {
        SCOPED_TRACE(habia);
        abrir(visores(habia));
        ASSERT_TRUE(v().boton(Id::botNvo)->pulsar());
        const int n = habia + 1;
        EXPECT_EQ(pagina(), std::to_string(std::max(n - 7, 1)) + " a " + std::to_string(n));
        EXPECT_TRUE(conFoco(Id::txPort, n));
        EXPECT_EQ(caja(Id::txPort, n).texto() + clave(n, "Port"), "0");
        caja(Id::txPort, n).escribir("4000");
        caja(Id::txUbi, n).reescribir("4,1");
        caja(Id::txUbi, n).pulsar(Tecla::intro);
        EXPECT_TRUE(uno(n).ubicado()) << "it is seen at once";
        EXPECT_TRUE(mesa.peso(n).visible());
        EXPECT_EQ(clave(n, "Port"), "4000");
    }
    abrir(visores(64));
    v().boton(Id::botNvo)->pulsar();
    EXPECT_EQ(avisos(), "No se pueden definir más de 64 visores");
    EXPECT_EQ(mesa.visores().cuantos(), 64);
    EXPECT_EQ(pagina(), "1 a 8");
}

TEST_F(CfgVisor, eliminarQuitaElElegidoYRenumera) {
    const struct {
        int cuantos, elegido;
        const char* pagina;
        int foco;  // 0: the button for a new one
    } casos[] = {
        {3, 2, "1 a 2", 2}, {3, 3, "1 a 2", 2}, {1, 1, "0 a 0", 0}, {12, 12, "5 a 11", 11}, {12, 5, "5 a 11", 5}};
    for (const auto& c : casos) {
        SCOPED_TRACE(std::to_string(c.cuantos) + "/" + std::to_string(c.elegido));
        abrir(visores(c.cuantos));
        if (c.cuantos > 8) v().imagen(Id::imBajar)->pulsar();
        caja(Id::txEtq, c.elegido).irA();
        ASSERT_TRUE(v().boton(Id::botElim)->pulsar());
        EXPECT_EQ(pagina(), c.pagina);
        EXPECT_TRUE(c.foco == 0 ? conFoco(Id::botNvo) : conFoco(Id::txPort, c.foco));
        EXPECT_EQ(v().boton(Id::botElim)->activo, c.foco != 0);
        EXPECT_EQ(v().control(Id::txPort, c.cuantos), nullptr);
        EXPECT_EQ(e.ini().find("[VISOR_" + std::to_string(c.cuantos) + "]"), std::string::npos);
        for (int n = 1; n < c.cuantos; ++n) {
            const std::string antes = "V" + std::to_string(n < c.elegido ? n : n + 1);
            EXPECT_EQ(clave(n, "Etiqueta"), antes);
            if (v().control(Id::txEtq, n) != nullptr && v().control(Id::txEtq, n)->seVe) {
                EXPECT_EQ(caja(Id::txEtq, n).texto(), antes);
            }
        }
    }
    // A row that was made for another display, seen again.
    abrir(visores(10));
    v().imagen(Id::imBajar)->pulsar();
    caja(Id::txPort, 3).irA();
    v().boton(Id::botElim)->pulsar();
    for (int n = 3; n > 1; --n) caja(Id::txPort, n).pulsar(Tecla::arriba);
    EXPECT_EQ(caja(Id::txPort, 1).texto() + caja(Id::txPort, 4).texto(), "30013005");
}

// Also where the press comes before the focus has moved, or without it.
TEST_F(CfgVisor, unCampoInvalidoNoDejaHacerNadaMas) {
    const std::function<void()> intentos[] = {
        [&] { v().boton(Id::botElim)->pulsar(); },          [&] { v().boton(Id::botElim)->pulsarDesdeFuera(); },
        [&] { v().boton(Id::botNvo)->pulsarDesdeFuera(); }, [&] { v().imagen(Id::imBajar)->pulsar(); },
        [&] { v().imagen(Id::imPtc, 1)->pulsar(); },        [&] { v().rotulo(Id::lbVis, 1)->pulsar(); },
    };
    for (const auto& intento : intentos) {
        SCOPED_TRACE(&intento - intentos);
        abrir(visores(9));
        caja(Id::txPort, 2).reescribir("3001");
        intento();
        EXPECT_EQ(avisos(), PORT_MAL);
        EXPECT_TRUE(conFoco(Id::txPort, 2));
        EXPECT_EQ(caja(Id::txPort, 2).texto(), "3001");
        EXPECT_EQ(mesa.visores().cuantos(), 9);
        EXPECT_EQ(pagina(), "1 a 8");
        EXPECT_EQ(uno(1).protocolo(), PROTOCOLO_TESSEL);
    }
    EXPECT_TRUE(dialogo.Descargar(true)) << "discarding asks nothing";
    EXPECT_EQ(clave(2, "Port"), "3002");
    EXPECT_EQ(avisos(), "");
}

// ---- the link ----

TEST_F(CfgVisor, cambiarDeFamiliaVaciaElPortYMuestraLaConexionComun) {
    abrir(visores(2));
    const auto familia = [&] { return v().imagen(Id::imPtc, 1)->textoNombre; };
    const float alto = v().medidas.alto, ancho = v().medidas.ancho;
    EXPECT_FALSE(v().control(Id::frPav)->seVe || v().control(Id::txPavHost)->seVe);
    EXPECT_EQ(familia(), "Visor 1: familia Tessel");
    caja(Id::txEtq, 2).irA();
    ASSERT_TRUE(v().imagen(Id::imPtc, 1)->pulsar());
    EXPECT_EQ(caja(Id::txPort, 1).texto(), "");
    EXPECT_TRUE(conFoco(Id::txPort, 1));
    EXPECT_EQ(clave(1, "Protocolo"), "Pavona");
    EXPECT_EQ(clave(1, "Port"), "3001") << "until another is entered";
    EXPECT_EQ(v().imagen(Id::imPtc, 1)->imagen, Dibujo::pavona);
    EXPECT_EQ(familia(), "Visor 1: familia Pavona");
    EXPECT_TRUE(v().control(Id::lbPav, 1)->seVe && !v().control(Id::lbPav, 2)->seVe);
    EXPECT_TRUE(v().control(Id::frPav)->seVe && v().control(Id::txPavPort)->seVe);
    EXPECT_GT(v().medidas.alto, alto) << "there is room for the shared connection only while it is needed";
    EXPECT_EQ(v().medidas.ancho, ancho);
    EXPECT_EQ(mesa.compartido.usuarios, 1);
    caja(Id::txPort, 1).escribir("12.3");
    EXPECT_TRUE(caja(Id::txPavHost).irA());
    EXPECT_EQ(clave(1, "Port"), "1203");
    // What its own port says does not matter: it is emptied.
    caja(Id::txPort, 1).reescribir("30/2");
    ASSERT_TRUE(v().imagen(Id::imPtc, 1)->pulsar());
    EXPECT_EQ(clave(1, "Protocolo"), "Tessel");
    EXPECT_FALSE(v().control(Id::frPav)->seVe || v().control(Id::lbPav, 1)->seVe);
    EXPECT_EQ(v().medidas.alto, alto);
    EXPECT_TRUE(conFoco(Id::txPort, 1));
}

TEST_F(CfgVisor, elModoSeGuardaAlElegirlo) {
    abrir(visores(2, "ModoBulk=9\r\n"));
    EXPECT_EQ(v().lista(Id::lstModo, 1)->indice(), 5) << "bounded where it is shown";
    v().lista(Id::lstModo, 1)->elegir(5);
    EXPECT_EQ(clave(1, "ModoBulk"), "5");
    for (const int modo : {0, 5, 2}) {
        v().lista(Id::lstModo, 2)->elegir(modo);
        EXPECT_EQ(clave(2, "ModoBulk"), std::to_string(modo));
    }
}

TEST_F(CfgVisor, laConexionComunSeGuardaACadaCambio) {
    abrir(visores(1, "Protocolo=Pavona\r\n"));
    EXPECT_EQ(caja(Id::txPavHost).texto() + ":" + caja(Id::txPavPort).texto(), "localhost:9084");
    caja(Id::txPavHost).reescribir("  báscula 1 ");
    EXPECT_EQ(e.valor("PAVONA", "Host"), "báscula 1");
    const struct {
        const char *teclas, *queda, *guarda;
    } casos[] = {{"0908x5", "09085", "9085"}, {"", "", "0"}, {"-1.5", "15", "15"}};
    for (const auto& c : casos) {
        caja(Id::txPavPort).reescribir(c.teclas);
        EXPECT_EQ(caja(Id::txPavPort).texto(), c.queda);
        EXPECT_EQ(e.valor("PAVONA", "Port"), c.guarda);
    }
    abrir(visores(1, "Protocolo=Pavona\r\n[PAVONA]\r\nHost=h\r\nPort=7\r\n"));
    EXPECT_EQ(caja(Id::txPavHost).texto() + ":" + caja(Id::txPavPort).texto(), "h:7");
    caja(Id::txEtq, 1).irA();
    v().boton(Id::botElim)->pulsar();
    EXPECT_FALSE(v().control(Id::frPav)->seVe) << "the last of that family is gone";
}

// ---- the particular design ----

constexpr Id CASILLAS[] = {Id::ckWid, Id::ckAdj, Id::ckTxEt, Id::ckFdEt, Id::ckTxPe, Id::ckFdPe, Id::ckFmt, Id::ckRat};
constexpr Id PROPIOS[] = {Id::lbWidEt,     Id::lstAjte,     Id::frColorTxEt, Id::frColorFdEt,
                          Id::frColorTxPe, Id::frColorFdPe, Id::txFmt,       Id::txRatio};
constexpr const char* CLAVES[] = {"anchoEtiqueta", "ajusteEtiqueta", "textoEtiqueta", "fondoEtiqueta",
                                  "textoPeso",     "fondoPeso",      "formatoPeso",   "ratioAlturas"};
constexpr const char* VALORES[] = {"5", "1", "0000FF", "00FF00", "123456", "ABCDEF", "0.0", "0,45"};
constexpr const char* COMUNES[] = {"2", "2", "FFFFFF", "FF0000", "000000", "FFFFFF", "####0", "0,95"};

class PanelParticular : public CfgVisor {
protected:
    // What the panel shows of a property, as the file writes it.
    std::string muestra(std::size_t i) {
        if (auto* lista = v().lista(PROPIOS[i])) return std::to_string(lista->indice());
        if (auto* color = v().color(PROPIOS[i])) return comun::Long2RGB(color->color());
        if (auto* rotulo = v().rotulo(PROPIOS[i])) return rotulo->texto();
        const std::string texto = caja(PROPIOS[i]).texto();
        return PROPIOS[i] == Id::txRatio ? "0," + texto : texto;
    }
    std::string todosPropios() {
        std::string ini;
        for (std::size_t i = 0; i < std::size(CLAVES); ++i) ini += std::string(CLAVES[i]) + "=" + VALORES[i] + "\r\n";
        return ini;
    }
    void abrirPanel(int n) { ASSERT_TRUE(v().imagen(Id::imFoco, n)->pulsar()); }
    void esperarPanel(bool propios, const char* const* valores) {
        for (std::size_t i = 0; i < std::size(CASILLAS); ++i) {
            EXPECT_EQ(v().casilla(CASILLAS[i])->marcada(), propios) << CLAVES[i];
            EXPECT_EQ(v().control(PROPIOS[i])->seVe, propios) << CLAVES[i];
            EXPECT_EQ(muestra(i), valores[i]) << CLAVES[i];
        }
    }
    void esperarClaves(const char* const* valores) {
        for (std::size_t i = 0; i < std::size(CLAVES); ++i) {
            EXPECT_EQ(clave(1, CLAVES[i]), valores != nullptr ? valores[i] : "") << CLAVES[i];
        }
    }
};

TEST_F(PanelParticular, cargaLoPropioYDondeNoHayLoComun) {
    abrir(visores(2, todosPropios()));
    const float ancho = v().control(Id::frVis, 1)->lugar.ancho;
    const float ventana = v().medidas.ancho;
    abrirPanel(1);
    EXPECT_GT(v().medidas.ancho, v().control(Id::frDise)->lugar.ancho + ventana) << "the window makes room for it";
    esperarPanel(true, VALORES);
    EXPECT_GT(v().control(Id::frVis, 1)->lugar.ancho, ancho);
    caja(Id::txEtq, 2).irA();
    esperarPanel(false, COMUNES);
    EXPECT_EQ(v().control(Id::frVis, 1)->lugar.ancho, ancho) << "the panel has gone with the focus";
    EXPECT_GT(v().control(Id::frVis, 2)->lugar.ancho, ancho);
    esperarClaves(VALORES);
}

TEST_F(PanelParticular, loMarcadoSeGuardaAlCerrarloOAlPasarAOtroYNoAlCerrarLaVentana) {
    for (const int modo : {0, 1, 2}) {
        SCOPED_TRACE(modo);
        abrir(visores(2, todosPropios()));
        abrirPanel(1);
        for (const Id id : CASILLAS) v().casilla(id)->pulsar();
        EXPECT_FALSE(v().control(Id::txRatio)->seVe || v().control(Id::botColTxEt)->seVe);
        esperarClaves(VALORES);  // only shown or hidden
        if (modo == 0) v().imagen(Id::imDesf)->pulsar();
        if (modo == 1) caja(Id::txPort, 2).irA();
        if (modo == 2) v().imagen(Id::imUnload)->pulsar();
        esperarClaves(modo == 2 ? VALORES : nullptr);
    }
    abrir(visores(1));
    abrirPanel(1);
    v().casilla(Id::ckWid)->pulsar();
    abrirPanel(1);
    EXPECT_EQ(clave(1, "anchoEtiqueta"), "2") << "opened where it is open";
    v().casilla(Id::ckWid)->pulsar();
    for (const Id id : CASILLAS) v().casilla(id)->pulsar();
    v().imagen(Id::imDesf)->pulsarConTeclado();
    EXPECT_TRUE(conFoco(Id::txPort, 1)) << "not left on what is gone";
    EXPECT_FALSE(v().control(Id::ckWid)->seVe);
    EXPECT_LT(v().medidas.ancho, v().control(Id::frDise)->lugar.derecha());
    esperarClaves(COMUNES);
}

TEST_F(PanelParticular, mirarloNoEscribeNada) {
    const struct {
        const char *guardado, *muestra, *redondeado;
    } casos[] = {
        {"0,955", "95,5", "96"}, {"0,104", "10,4", "10"}, {"0,57", "57", "57"}, {"0,3333333", "33,33333", "33"}};
    for (const auto& c : casos) {
        SCOPED_TRACE(c.guardado);
        abrir(visores(2, std::string("ratioAlturas=") + c.guardado + "\r\n" + todosPropios()));
        const int antes = e.archivos.reemplazos;
        for (const int n : {1, 2, 1}) abrirPanel(n);
        EXPECT_EQ(caja(Id::txRatio).texto(), c.muestra);
        abrirPanel(2);
        abrirPanel(1);
        caja(Id::txRatio).irA();
        v().casilla(Id::ckRat)->irA();
        EXPECT_EQ(caja(Id::txRatio).texto(), c.redondeado) << "finer than the box tells";
        v().imagen(Id::imDesf)->pulsar();
        e.perfil.volcar();
        EXPECT_EQ(e.archivos.reemplazos, antes);
        EXPECT_EQ(clave(1, "ratioAlturas"), c.guardado);
    }
}

TEST_F(PanelParticular, cadaCambioEsDelVisorAlMomentoYSeVeEnLaMuestra) {
    abrir(visores(1));
    abrirPanel(1);
    for (const Id id : CASILLAS) v().casilla(id)->pulsar();
    for (int i = 0; i < 6; ++i) v().imagen(Id::imWidEtP)->pulsar();
    EXPECT_EQ(clave(1, "anchoEtiqueta") + v().rotulo(Id::lbWidEt)->texto(), "66");
    const auto unidad = [&] {
        auto& pic = *v().superficie(Id::picEjVis);
        return pic.medir("0").ancho;
    };
    EXPECT_FLOAT_EQ(v().superficie(Id::picEjEtq)->lugar().ancho, 7 * unidad());
    for (int i = 0; i < 9; ++i) v().imagen(Id::imWidEtM)->pulsar();
    EXPECT_EQ(clave(1, "anchoEtiqueta") + v().rotulo(Id::lbWidEt)->texto(), "00");
    v().lista(Id::lstAjte)->elegir(0);
    EXPECT_EQ(clave(1, "ajusteEtiqueta"), "0");
    caja(Id::txFmt).reescribir("\"Kg\" 0,00");
    EXPECT_EQ(uno(1).formatoPeso(), "\"Kg\" 0,00");
    EXPECT_EQ(v().superficie(Id::picEjVis)->textoLeyenda(), "Kg 9999.00");
    caja(Id::txFmt).reescribir("");
    EXPECT_EQ(v().superficie(Id::picEjVis)->textoLeyenda(), "9999") << "the shared format again";
    const struct {
        const char *teclas, *guarda, *queda;
    } ratios[] = {{"4x5", "0,45", "45"}, {"057", "0,57", "57"}, {"", "0,57", "57"}, {"1000", "1", "100"}};
    for (const auto& r : ratios) {
        caja(Id::txRatio).reescribir(r.teclas);
        EXPECT_EQ(clave(1, "ratioAlturas"), r.guarda);
        v().casilla(Id::ckRat)->irA();
        EXPECT_EQ(caja(Id::txRatio).texto(), r.queda);
    }
}

TEST_F(PanelParticular, losColoresEmpiezanConElEfectivoYCanceladosNoEscriben) {
    const struct {
        Id boton, marco, casilla;
    } casos[] = {{Id::botColTxEt, Id::frColorTxEt, Id::ckTxEt},
                 {Id::botColFdEt, Id::frColorFdEt, Id::ckFdEt},
                 {Id::botColTxPe, Id::frColorTxPe, Id::ckTxPe},
                 {Id::botColFdPe, Id::frColorFdPe, Id::ckFdPe}};
    abrir(visores(1));
    abrirPanel(1);
    for (std::size_t i = 0; i < std::size(casos); ++i) {
        const auto& c = casos[i];
        const char* const nombre = CLAVES[i + 2];
        SCOPED_TRACE(nombre);
        v().casilla(c.casilla)->pulsar();
        v().boton(c.boton)->pulsar();
        const Color comun_ = fabrica.eleccion.coloresIniciales.back();
        EXPECT_EQ(comun::Long2RGB(comun_), COMUNES[i + 2]);
        EXPECT_EQ(clave(1, nombre), "") << "cancelled";
        for (const Color elegido : {comun_, 0x405060, 0x102030}) {
            fabrica.eleccion.colores.push_back(elegido);
            elegido == 0x102030 ? v().color(c.marco)->pulsar() : v().boton(c.boton)->pulsar();
            EXPECT_EQ(clave(1, nombre), comun::Long2RGB(elegido)) << "be it the shared one";
            EXPECT_EQ(v().color(c.marco)->color(), elegido);
        }
    }
    EXPECT_EQ(v().superficie(Id::picEjVis)->colorFondo(), 0x102030);
    EXPECT_EQ(v().superficie(Id::picEjEtq)->colorFondo(), 0x102030);
}

TEST_F(PanelParticular, elSelectorConservaElCampoYAbiertoNoSeElimina) {
    abrir(visores(3));
    abrirPanel(2);
    v().boton(Id::botElim)->pulsar();
    EXPECT_EQ(avisos(), "Debe cerrar la ventana de diseño particular");
    EXPECT_EQ(mesa.visores().cuantos(), 3);
    const struct {
        Id conFoco, queda;
    } casos[] = {{Id::txPort, Id::txPort},
                 {Id::txEtq, Id::txEtq},
                 {Id::txUbi, Id::txUbi},
                 {Id::lstModo, Id::txPort},
                 {Id::txFmt, Id::txPort}};
    for (const auto& c : casos) {
        SCOPED_TRACE(numero(c.conFoco));
        const bool delPanel = c.conFoco == Id::txFmt;
        abrirPanel(1);
        if (delPanel && !v().casilla(Id::ckFmt)->marcada()) v().casilla(Id::ckFmt)->pulsar();
        ASSERT_TRUE(v().control(c.conFoco, delPanel ? 0 : 1)->irA());
        abrirPanel(3);
        EXPECT_TRUE(conFoco(c.queda, 3)) << v().foco();
        v().imagen(Id::imDesf)->pulsar();
        EXPECT_TRUE(conFoco(c.queda, 3));
    }
    // Closed by the mouse, it takes the focus from nowhere but itself.
    abrirPanel(3);
    v().boton(Id::botNvo)->irA();
    v().imagen(Id::imDesf)->pulsar();
    EXPECT_TRUE(conFoco(Id::botNvo));
    // A field that is not valid keeps the focus, and the panel comes back to it.
    caja(Id::txPort, 2).reescribir("3001");
    abrirPanel(3);
    EXPECT_EQ(avisos(), PORT_MAL);
    EXPECT_TRUE(conFoco(Id::txPort, 2));
    EXPECT_GT(v().control(Id::frVis, 2)->lugar.ancho, v().control(Id::frVis, 3)->lugar.ancho);
}

// ---- what is seen ----

TEST_F(PanelParticular, cabeEnUnaPantallaEstrechaYElTecladoVaFilaAFila) {
    abrir(visores(10, "Protocolo=Pavona\r\n" + todosPropios()));
    caja(Id::txPort, 8).pulsar(Tecla::abajo);
    abrirPanel(3);
    for (const Id id : CASILLAS) v().casilla(id)->pulsar();
    EXPECT_LE(v().medidas.ancho, aTwips(950)) << "half of 1920 pixels, for a scale of 200 %";
    EXPECT_GE(caja(Id::txEtq, 3).lugar.ancho, v().medir("Báscula de camión").ancho + aTwips(12));
    const auto orden = v().recorrido();
    const Id fila[] = {Id::imPtc, Id::txPort, Id::lstModo, Id::txEtq, Id::txUbi, Id::imFoco};
    ASSERT_GT(orden.size(), 48U);
    for (int i = 0; i < 48; ++i) EXPECT_EQ(orden[static_cast<std::size_t>(i)]->clave(), numero(fila[i % 6], 2 + i / 6));
}

TEST_F(CfgVisor, loQueNoSeVeNoOcupaSitio) {
    abrir(visores(8));
    const auto derecha = [&](Id id, int n = 0) { return v().control(id, n)->lugar.derecha(); };
    EXPECT_EQ(derecha(Id::lbPag), derecha(Id::frTodo));
    EXPECT_LT(v().control(Id::lstModo, 1)->lugar.x - derecha(Id::txPort, 1), aTwips(10));
    v().boton(Id::botNvo)->pulsar();
    EXPECT_LT(derecha(Id::lbPag), v().control(Id::imSubir)->lugar.x);
    EXPECT_EQ(derecha(Id::imBajar), derecha(Id::frTodo));
}

TEST_F(CfgVisor, volverAAbrirEmpiezaDeNuevo) {
    abrir(visores(9));
    v().imagen(Id::imFoco, 8)->pulsar();
    caja(Id::txPort, 8).pulsar(Tecla::abajo);
    v().pedirCierre();
    dialogo.Mostrar();
    EXPECT_EQ(pagina(), "1 a 1") << "seen first, completed then";
    e.cola.ejecutar();
    EXPECT_EQ(pagina(), "1 a 8");
    EXPECT_FALSE(v().control(Id::ckWid)->seVe);
    EXPECT_FALSE(v().boton(Id::botElim)->pulsar()) << "nothing is selected";
}

}  // namespace
}  // namespace sorvanel
