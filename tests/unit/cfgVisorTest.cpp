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
        e.avisos.informaciones.clear();
        e.ini(ini);
        dialogo.Mostrar();
        ASSERT_NE(fabrica.dialogo(Id::cfgVisor), nullptr);
    }
    FormularioDialogoDoble& v() { return *fabrica.dialogo(Id::cfgVisor); }
    CajaTextoDoble& caja(Id id, int n = 0) { return *v().caja(id, n); }
    std::string clave(int n, const char* c) { return e.valor("VISOR_" + std::to_string(n), c); }
    visor& uno(int n) { return *mesa.visores().uno(static_cast<std::int16_t>(n)); }
    bool conFoco(Id id, int n = 0) { return v().foco() == numero(id, n); }

    // What was posted is shown now.
    std::vector<std::string> avisos() {
        EXPECT_TRUE(e.avisos.textos.empty()) << "never from where the focus is moving";
        e.cola.ejecutar();
        return std::exchange(e.avisos.textos, {});
    }
    std::vector<std::string> informaciones() {
        EXPECT_TRUE(e.avisos.informaciones.empty());
        e.cola.ejecutar();
        return std::exchange(e.avisos.informaciones, {});
    }
    // "3 a 10": the rows that are seen.
    std::string pagina() {
        int primera = 0, ultima = 0, cuantas = 0;
        for (int n = 1; n <= 64; ++n) {
            const ControlComun* c = v().control(Id::txPort, n);
            if (c == nullptr || !c->seVe) continue;
            primera = primera == 0 ? n : primera;
            ultima = n;
            ++cuantas;
            EXPECT_TRUE(v().control(Id::frVis, n)->seVe);
        }
        EXPECT_EQ(cuantas, ultima == 0 ? 0 : ultima - primera + 1);
        return std::to_string(primera) + " a " + std::to_string(ultima);
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
    struct Caso {
        Id id;
        bool pavona;
        const char *texto, *motivo;  // empty: valid
        const char *muestra, *guarda;
    };
    const Caso casos[] = {
        {Id::txPort, false, "3009", "", "3009", "3009"},
        {Id::txPort, false, "3001", "", "3001", "3001"},  // its own
        {Id::txPort, false, "007", "", "7", "7"},
        {Id::txPort, false, "", "", "", "0"},
        {Id::txPort, false, "3002", PORT_MAL, "3002", "3001"},
        {Id::txPort, false, "100000", PORT_MAL, "100000", "3001"},
        {Id::txPort, false, "99999999999999999999", PORT_MAL, "99999999999999999999", "3001"},
        {Id::txPort, true, "12/3", "", "12/3", "1203"},
        {Id::txPort, true, "12/345", "", "15/45", "1545"},
        {Id::txPort, true, "1203", "", "12/3", "1203"},
        {Id::txPort, true, "5/", "", "5/0", "500"},
        {Id::txPort, true, "", "", "0/0", "0"},
        {Id::txPort, true, "30/2", PORT_MAL, "30/2", "3001"},
        {Id::txPort, true, "1/2/3", PORT_MAL, "1/2/3", "3001"},
        {Id::txPort, true, "1000/0", PORT_MAL, "1000/0", "3001"},
        {Id::txEtq, false, "v2", "", "v2", "v2"},
        {Id::txEtq, false, "", "", "", ""},
        {Id::txEtq, false, "V2", ETIQUETA_MAL, "V2", "V1"},
        {Id::txUbi, false, "4,1", "", "4,1", "4,1"},
        {Id::txUbi, false, "04,01", "", "4,1", "4,1"},
        {Id::txUbi, false, "", "", "", ""},
        {Id::txUbi, false, "5,1", UBICACION_MAL, "5,1", "1,1"},
        {Id::txUbi, false, "4,2", UBICACION_MAL, "4,2", "1,1"},
        {Id::txUbi, false, "0,1", UBICACION_MAL, "0,1", "1,1"},
        {Id::txUbi, false, "2,1", UBICACION_MAL, "2,1", "1,1"},  // display 2's
        {Id::txUbi, false, "4", UBICACION_MAL, "4", "1,1"},
        {Id::txUbi, false, "4,1,1", UBICACION_MAL, "4,1,1", "1,1"},
        {Id::txUbi, false, "4,", UBICACION_MAL, "4,", "1,1"},
        {Id::txUbi, false, "65540,1", UBICACION_MAL, "65540,1", "1,1"},
    };
    for (const Caso& c : casos) {
        // 0 Enter, 1 another control by the mouse, 2 an arrow, 3 closing.
        for (const int modo : {0, 1, 2, 3}) {
            SCOPED_TRACE(std::string(c.texto) + " modo " + std::to_string(modo));
            const bool valido = *c.motivo == '\0';
            abrir(visores(2, c.pavona ? "Protocolo=Pavona\r\nModoBulk=4\r\n" : ""));
            caja(c.id, 1).reescribir(c.texto);
            EXPECT_NE(clave(1, "Port"), "3009") << "nothing is written before the field is left";
            switch (modo) {
                case 0:
                    EXPECT_TRUE(caja(c.id, 1).pulsar(Tecla::intro));
                    break;
                case 1:
                    EXPECT_EQ(caja(Id::txEtq, 2).irA(), valido);
                    break;
                case 2:
                    EXPECT_TRUE(caja(c.id, 1).pulsar(Tecla::abajo));
                    break;
                default:
                    v().estado().foco = nullptr;  // the main window was clicked
                    EXPECT_EQ(dialogo.Descargar(false), valido);
            }
            EXPECT_EQ(avisos(), valido ? std::vector<std::string>{} : std::vector<std::string>{c.motivo});
            const char* nombre = c.id == Id::txPort ? "Port" : c.id == Id::txEtq ? "Etiqueta" : "Ubicacion";
            EXPECT_EQ(clave(1, nombre), c.guarda);
            EXPECT_EQ(dialogo.cargado(), modo != 3 || !valido);
            if (!dialogo.cargado()) continue;
            EXPECT_EQ(caja(c.id, 1).texto(), c.muestra);
            EXPECT_EQ(conFoco(c.id, 1), modo == 0 || !valido);
        }
    }
}

TEST_F(CfgVisor, unaUbicacionQueYaNoEstaEnLaParrillaNoSeDaPorBuena) {
    abrir("[RETICULA]\r\nFilasColumnas=2x1\r\n[VISOR_1]\r\nPort=1\r\nUbicacion=3,1\r\n");
    EXPECT_EQ(caja(Id::txUbi, 1).texto(), "3,1");
    EXPECT_TRUE(caja(Id::txUbi, 1).irA());
    EXPECT_FALSE(caja(Id::txEtq, 1).irA());
    EXPECT_EQ(avisos(), std::vector<std::string>{UBICACION_MAL});
    caja(Id::txUbi, 1).reescribir("2,1");
    EXPECT_TRUE(caja(Id::txEtq, 1).irA());
    EXPECT_EQ(clave(1, "Ubicacion"), "2,1");
}

TEST_F(CfgVisor, unaEtiquetaConBlancoSobreviveAlArchivo) {
    abrir(visores(1));
    caja(Id::txEtq, 1).reescribir("Silo 2");
    caja(Id::txEtq, 1).pulsar(Tecla::intro);
    const std::string ini = e.ini();
    EXPECT_NE(ini.find("Etiqueta=Silo\xA0"
                       "2\r\n"),
              std::string::npos);
    abrir(ini);
    EXPECT_EQ(caja(Id::txEtq, 1).texto(), std::string("Silo") + RESERVADO + "2");
    EXPECT_TRUE(caja(Id::txUbi, 1).irA()) << "and is valid as it is";
}

TEST_F(CfgVisor, escapeDevuelveLoQueHabia) {
    abrir(visores(1, "Protocolo=Pavona\r\n"));
    EXPECT_EQ(caja(Id::txPort, 1).texto(), "30/1");
    const struct {
        Id id;
        const char* vuelve;
    } casos[] = {{Id::txPort, "3001"}, {Id::txEtq, "V1"}, {Id::txUbi, "1,1"}};
    for (const auto& c : casos) {
        caja(c.id, 1).reescribir("77");
        EXPECT_TRUE(caja(c.id, 1).pulsar(Tecla::escape));
        EXPECT_EQ(caja(c.id, 1).texto(), c.vuelve);
        EXPECT_TRUE(conFoco(c.id, 1));
        caja(c.id, 1).pulsar(Tecla::intro);
    }
    EXPECT_EQ(caja(Id::txPort, 1).texto(), "30/1") << "the plain number was read as one part";
    EXPECT_EQ(clave(1, "Port"), "3001");
}

// ---- the keyboard in the rows ----

TEST_F(CfgVisor, lasFlechasVanDeCampoEnCampoYDeFilaEnFila) {
    abrir(visores(9));
    auto& port = caja(Id::txPort, 8);
    port.irA();
    port.cursor(2);
    EXPECT_FALSE(port.pulsar(Tecla::derecha)) << "within the text";
    port.cursor(4);
    const Id campos[] = {Id::txPort, Id::lstModo, Id::txEtq, Id::txUbi};
    const auto pulsar = [&](Id id, int n, Tecla tecla) {
        return id == Id::lstModo ? v().lista(id, n)->pulsar(tecla) : caja(id, n).pulsar(tecla);
    };
    for (int i = 0; i < 4; ++i) {
        EXPECT_TRUE(conFoco(campos[i], 8)) << i;
        EXPECT_TRUE(pulsar(campos[i], 8, Tecla::derecha));
    }
    EXPECT_TRUE(conFoco(Id::txUbi, 8)) << "there is no further field";
    for (int i = 3; i >= 0; --i) {
        EXPECT_TRUE(conFoco(campos[i], 8)) << i;
        EXPECT_TRUE(pulsar(campos[i], 8, Tecla::izquierda));
    }
    EXPECT_TRUE(conFoco(Id::txPort, 8));
    for (const Id campo : campos) {
        SCOPED_TRACE(numero(campo));
        v().control(campo, 8)->irA();
        EXPECT_EQ(pagina(), "1 a 8");
        EXPECT_TRUE(pulsar(campo, 8, Tecla::abajo));
        EXPECT_TRUE(conFoco(campo, 9));
        EXPECT_EQ(pagina(), "2 a 9");
        EXPECT_TRUE(pulsar(campo, 9, Tecla::abajo));
        EXPECT_TRUE(conFoco(campo, 9)) << "the last one";
        for (int n = 9; n > 1; --n) EXPECT_TRUE(pulsar(campo, n, Tecla::arriba));
        EXPECT_EQ(pagina(), "1 a 8");
        EXPECT_TRUE(pulsar(campo, 1, Tecla::arriba));
        EXPECT_TRUE(conFoco(campo, 1)) << "the first one";
    }
}

TEST_F(CfgVisor, laFilaElegidaSeDistingue) {
    abrir(visores(3));
    const Color otra = v().marco(Id::frVis, 1)->fondo;
    for (const int n : {2, 3, 1}) {
        v().lista(Id::lstModo, n)->irA();
        for (int i = 1; i <= 3; ++i) {
            for (const Id id : {Id::frVis, Id::txPort, Id::lstModo, Id::txEtq, Id::txUbi}) {
                EXPECT_EQ(v().control(id, i)->fondo == otra, i != n) << numero(id, i);
            }
        }
    }
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
    EXPECT_EQ(caja(Id::txPort, 60).texto(), "3060");
}

TEST_F(CfgVisor, alPaginarLaEleccionQuedaALaVistaSalvoCampoInvalido) {
    abrir(visores(20));
    caja(Id::txEtq, 3).irA();
    EXPECT_TRUE(v().imagen(Id::imBajar)->pulsar());
    EXPECT_EQ(pagina(), "9 a 16");
    EXPECT_TRUE(conFoco(Id::txEtq, 9)) << "the same field, in the nearest row";
    caja(Id::txEtq, 9).reescribir("V1");
    EXPECT_TRUE(v().imagen(Id::imSubir)->pulsar());
    EXPECT_EQ(avisos(), std::vector<std::string>{ETIQUETA_MAL});
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
        EXPECT_EQ(caja(Id::txPort, n).texto(), "");
        EXPECT_EQ(v().lista(Id::lstModo, n)->indice(), 4);
        EXPECT_EQ(clave(n, "Port"), "0");
        caja(Id::txPort, n).escribir("4000");
        caja(Id::txUbi, n).reescribir("4,1");
        caja(Id::txUbi, n).pulsar(Tecla::intro);
        EXPECT_TRUE(uno(n).ubicado()) << "it is seen at once";
        EXPECT_TRUE(mesa.peso(n).visible());
        EXPECT_EQ(clave(n, "Port"), "4000");
    }
}

TEST_F(CfgVisor, noHayMasDeSesentaYCuatro) {
    abrir(visores(64));
    caja(Id::txPort, 5).irA();
    v().boton(Id::botNvo)->pulsar();
    EXPECT_EQ(informaciones(), std::vector<std::string>{"No se pueden definir más de 64 visores"});
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
    abrir(visores(2));
    EXPECT_TRUE(v().boton(Id::botElim)->pulsar());
    EXPECT_EQ(mesa.visores().cuantos(), 2) << "none was selected";
    // A row that was made for another display, seen again.
    abrir(visores(10));
    v().imagen(Id::imBajar)->pulsar();
    caja(Id::txPort, 3).irA();
    v().boton(Id::botElim)->pulsar();
    for (int n = 3; n > 1; --n) caja(Id::txPort, n).pulsar(Tecla::arriba);
    EXPECT_EQ(caja(Id::txPort, 1).texto() + caja(Id::txPort, 4).texto(), "30013005");
}

TEST_F(CfgVisor, unCampoInvalidoNoDejaPulsarLosBotones) {
    abrir(visores(2));
    caja(Id::txPort, 1).reescribir("3002");
    EXPECT_FALSE(v().boton(Id::botElim)->pulsar());
    EXPECT_EQ(avisos(), std::vector<std::string>{PORT_MAL});
    EXPECT_EQ(mesa.visores().cuantos(), 2);
    EXPECT_TRUE(dialogo.Descargar(true)) << "discarding asks nothing";
    EXPECT_EQ(clave(1, "Port"), "3001");
    EXPECT_TRUE(avisos().empty());
}

// ---- the link ----

TEST_F(CfgVisor, cambiarDeFamiliaVaciaElPortYMuestraLaConexionComun) {
    abrir(visores(2));
    EXPECT_FALSE(v().control(Id::frPav)->seVe || v().control(Id::txPavHost)->seVe);
    caja(Id::txEtq, 2).irA();
    ASSERT_TRUE(v().imagen(Id::imPtc, 1)->pulsar());
    EXPECT_EQ(caja(Id::txPort, 1).texto(), "");
    EXPECT_TRUE(conFoco(Id::txPort, 1));
    EXPECT_EQ(clave(1, "Protocolo"), "Pavona");
    EXPECT_EQ(clave(1, "Port"), "3001") << "until another is entered";
    EXPECT_EQ(v().imagen(Id::imPtc, 1)->imagen, Dibujo::pavona);
    EXPECT_TRUE(v().control(Id::lbPav, 1)->seVe && !v().control(Id::lbPav, 2)->seVe);
    EXPECT_TRUE(v().control(Id::frPav)->seVe && v().control(Id::txPavPort)->seVe);
    EXPECT_EQ(mesa.compartido.usuarios, 1);
    caja(Id::txPort, 1).escribir("12.3");
    EXPECT_TRUE(caja(Id::txPavHost).irA());
    EXPECT_EQ(clave(1, "Port"), "1203");
    ASSERT_TRUE(v().imagen(Id::imPtc, 1)->pulsar());
    EXPECT_EQ(clave(1, "Protocolo"), "Tessel");
    EXPECT_FALSE(v().control(Id::frPav)->seVe || v().control(Id::lbPav, 1)->seVe);
    EXPECT_TRUE(conFoco(Id::txPort, 1));
    caja(Id::txPort, 1).escribir("1.2");
    caja(Id::txPort, 1).pulsar(Tecla::intro);
    EXPECT_EQ(clave(1, "Port"), "12");
}

TEST_F(CfgVisor, elModoSeGuardaAlElegirlo) {
    abrir(visores(2, "ModoBulk=9\r\n"));
    EXPECT_EQ(v().lista(Id::lstModo, 1)->indice(), 5) << "bounded where it is shown";
    EXPECT_EQ(v().lista(Id::lstModo, 1)->textos,
              (std::vector<std::string>{"Peso carga", "Acumulado", "Suma", "Suma en carga (1)", "Suma en carga (2)",
                                        "Suma en descarga"}));
    for (const int modo : {0, 5, 2}) {
        v().lista(Id::lstModo, 2)->elegir(modo);
        EXPECT_EQ(clave(2, "ModoBulk"), std::to_string(modo));
    }
    // Two displays may share a port when they show different readings of it.
    caja(Id::txPort, 2).reescribir("3001");
    caja(Id::txPort, 2).pulsar(Tecla::intro);
    EXPECT_EQ(clave(2, "Port"), "3001");
}

TEST_F(CfgVisor, laConexionComunSeGuardaACadaCambio) {
    abrir(visores(1, "Protocolo=Pavona\r\n"));
    EXPECT_EQ(caja(Id::txPavHost).texto() + ":" + caja(Id::txPavPort).texto(), "localhost:9084");
    caja(Id::txPavHost).reescribir("báscula 1");
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
    bool abierto() { return v().control(Id::ckWid)->seVe; }
};

TEST_F(PanelParticular, cargaLoPropioYDondeNoHayLoComun) {
    abrir(visores(2, todosPropios()));
    EXPECT_FALSE(abierto());
    const float ancho = v().control(Id::frVis, 1)->lugar.ancho;
    const float ventana = v().medidas.ancho;
    abrirPanel(1);
    EXPECT_GT(v().medidas.ancho, v().control(Id::frDise)->lugar.ancho + ventana) << "the window makes room for it";
    for (std::size_t i = 0; i < std::size(CASILLAS); ++i) {
        EXPECT_TRUE(v().casilla(CASILLAS[i])->marcada() && v().control(PROPIOS[i])->seVe) << CLAVES[i];
        EXPECT_EQ(muestra(i), VALORES[i]) << CLAVES[i];
    }
    EXPECT_GT(v().control(Id::frVis, 1)->lugar.ancho, ancho);
    caja(Id::txEtq, 2).irA();
    for (std::size_t i = 0; i < std::size(CASILLAS); ++i) {
        EXPECT_FALSE(v().casilla(CASILLAS[i])->marcada() || v().control(PROPIOS[i])->seVe) << CLAVES[i];
        EXPECT_EQ(muestra(i), COMUNES[i]) << CLAVES[i];
    }
    EXPECT_EQ(v().control(Id::frVis, 1)->lugar.ancho, ancho) << "the panel has gone with the focus";
    EXPECT_GT(v().control(Id::frVis, 2)->lugar.ancho, ancho);
    for (std::size_t i = 0; i < std::size(CASILLAS); ++i) EXPECT_EQ(clave(1, CLAVES[i]), VALORES[i]) << CLAVES[i];
}

TEST_F(PanelParticular, loMarcadoSeGuardaAlCerrarloOAlPasarAOtroYNoAlCerrarLaVentana) {
    for (const int modo : {0, 1, 2}) {
        SCOPED_TRACE(modo);
        abrir(visores(2, todosPropios()));
        abrirPanel(1);
        for (std::size_t i = 0; i < std::size(CASILLAS); ++i) {
            v().casilla(CASILLAS[i])->pulsar();
            EXPECT_FALSE(v().control(PROPIOS[i])->seVe);
            EXPECT_EQ(clave(1, CLAVES[i]), VALORES[i]) << "only shown or hidden";
        }
        if (modo == 0) {
            EXPECT_TRUE(v().imagen(Id::imDesf)->pulsar());
        }
        if (modo == 1) caja(Id::txPort, 2).irA();
        if (modo == 2) {
            EXPECT_TRUE(v().imagen(Id::imUnload)->pulsar());
        }
        for (std::size_t i = 0; i < std::size(CASILLAS); ++i) {
            EXPECT_EQ(clave(1, CLAVES[i]), modo == 2 ? VALORES[i] : "") << CLAVES[i];
        }
        if (modo == 0) {
            EXPECT_FALSE(abierto());
            EXPECT_LT(v().medidas.ancho, v().control(Id::frDise)->lugar.derecha());
        }
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
    for (std::size_t i = 0; i < std::size(CASILLAS); ++i) EXPECT_EQ(clave(1, CLAVES[i]), COMUNES[i]) << CLAVES[i];
}

TEST_F(PanelParticular, mirarloNoEscribeNada) {
    const std::string ini = visores(2, "ratioAlturas=0,955\r\n" + todosPropios());
    abrir(ini);
    const int antes = e.archivos.reemplazos;
    for (const int n : {1, 2, 1}) abrirPanel(n);
    EXPECT_EQ(caja(Id::txRatio).texto(), "95,5");
    caja(Id::txRatio).irA();
    v().casilla(Id::ckRat)->irA();
    EXPECT_EQ(caja(Id::txRatio).texto(), "96") << "finer than the box tells";
    v().imagen(Id::imDesf)->pulsar();
    e.perfil.volcar();
    EXPECT_EQ(e.archivos.reemplazos, antes);
    EXPECT_EQ(clave(1, "ratioAlturas"), "0,955");
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
    } ratios[] = {{"4x5", "0,45", "45"}, {"057", "0,57", "57"}, {"", "0", "0"}, {"1000", "1", "100"}};
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
        std::size_t i;
    } casos[] = {{Id::botColTxEt, Id::frColorTxEt, Id::ckTxEt, 2},
                 {Id::botColFdEt, Id::frColorFdEt, Id::ckFdEt, 3},
                 {Id::botColTxPe, Id::frColorTxPe, Id::ckTxPe, 4},
                 {Id::botColFdPe, Id::frColorFdPe, Id::ckFdPe, 5}};
    abrir(visores(1));
    abrirPanel(1);
    for (const auto& c : casos) {
        SCOPED_TRACE(CLAVES[c.i]);
        v().casilla(c.casilla)->pulsar();
        v().boton(c.boton)->pulsar();
        EXPECT_EQ(comun::Long2RGB(fabrica.eleccion.coloresIniciales.back()), COMUNES[c.i]);
        EXPECT_EQ(clave(1, CLAVES[c.i]), "");
        for (const bool porMarco : {false, true}) {
            const Color elegido = porMarco ? 0x102030 : 0x405060;
            fabrica.eleccion.colores.push_back(elegido);
            porMarco ? v().color(c.marco)->pulsar() : v().boton(c.boton)->pulsar();
            EXPECT_EQ(clave(1, CLAVES[c.i]), comun::Long2RGB(elegido));
            EXPECT_EQ(v().color(c.marco)->color(), elegido);
            if (c.casilla == Id::ckFdPe) {
                EXPECT_EQ(v().superficie(Id::picEjVis)->colorFondo(), elegido);
            }
            if (c.casilla == Id::ckFdEt) {
                EXPECT_EQ(v().superficie(Id::picEjEtq)->colorFondo(), elegido);
            }
        }
        v().color(c.marco)->pulsar();
        EXPECT_EQ(fabrica.eleccion.coloresIniciales.back(), 0x102030);
    }
}

TEST_F(PanelParticular, conEllaAbiertaNoSeElimina) {
    abrir(visores(2));
    abrirPanel(2);
    v().boton(Id::botElim)->pulsar();
    EXPECT_EQ(informaciones(), std::vector<std::string>{"Debe cerrar la ventana de diseño particular"});
    EXPECT_EQ(mesa.visores().cuantos(), 2);
    EXPECT_TRUE(abierto());
}

TEST_F(PanelParticular, elSelectorConservaElCampo) {
    abrir(visores(3));
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
    // A field that is not valid keeps the focus, and the panel comes back to it.
    caja(Id::txPort, 2).reescribir("3001");
    abrirPanel(3);
    EXPECT_EQ(avisos(), std::vector<std::string>{PORT_MAL});
    EXPECT_TRUE(conFoco(Id::txPort, 2));
    EXPECT_GT(v().control(Id::frVis, 2)->lugar.ancho, v().control(Id::frVis, 3)->lugar.ancho);
}

// ---- what is seen ----

bool seTocan(const Rectangulo& a, const Rectangulo& b) {
    return a.x < b.derecha() - 1 && b.x < a.derecha() - 1 && a.y < b.abajo() - 1 && b.y < a.abajo() - 1;
}

TEST_F(PanelParticular, nadaSeSolapaYElTecladoVaComoLaVista) {
    abrir(visores(10, "Protocolo=Pavona\r\n" + todosPropios()));
    caja(Id::txPort, 8).pulsar(Tecla::abajo);
    abrirPanel(3);
    for (const Id id : CASILLAS) v().casilla(id)->pulsar();
    std::vector<const ControlComun*> vistos;
    for (ControlComun* c : v().estado().creados) {
        if (!c->seVe || dynamic_cast<MarcoDoble*>(c) != nullptr) continue;
        if (const auto* r = dynamic_cast<RotuloDoble*>(c); r != nullptr && r->texto().empty()) continue;
        EXPECT_FALSE(c->lugar.vacio()) << c->clave();
        EXPECT_LE(c->lugar.derecha(), v().medidas.ancho) << c->clave();
        EXPECT_LE(c->lugar.abajo(), v().medidas.alto) << c->clave();
        for (const ControlComun* o : vistos)
            EXPECT_FALSE(seTocan(c->lugar, o->lugar)) << c->clave() << " " << o->clave();
        vistos.push_back(c);
    }
    const auto orden = v().recorrido();
    const Id fila[] = {Id::imPtc, Id::txPort, Id::lstModo, Id::txEtq, Id::txUbi, Id::imFoco};
    std::vector<int> esperado;
    for (int n = 2; n <= 9; ++n) {
        for (const Id id : fila) esperado.push_back(numero(id, n));
    }
    ASSERT_GT(orden.size(), esperado.size());
    for (std::size_t i = 0; i < esperado.size(); ++i) EXPECT_EQ(orden[i]->clave(), esperado[i]);
    for (const ControlComun* c : orden) EXPECT_FALSE(c->textoNombre.empty()) << c->clave();
    EXPECT_EQ(orden.back()->clave(), numero(Id::imUnload));
    EXPECT_LE(v().medidas.ancho, aTwips(1000)) << "it fits a small screen";
}

TEST_F(CfgVisor, cerrarLoQuitaTodoYVolverAAbrirEmpiezaDeNuevo) {
    abrir(visores(9));
    v().imagen(Id::imFoco, 8)->pulsar();
    caja(Id::txPort, 8).pulsar(Tecla::abajo);
    v().pedirCierre();
    EXPECT_FALSE(dialogo.cargado());
    EXPECT_EQ(std::count(mesa.diario.begin(), mesa.diario.end(), "desmontarMesa"), 1);
    dialogo.Mostrar();
    EXPECT_EQ(pagina(), "1 a 8");
    EXPECT_FALSE(v().control(Id::ckWid)->seVe);
    EXPECT_TRUE(v().boton(Id::botElim)->pulsar());
    EXPECT_EQ(mesa.visores().cuantos(), 9) << "nothing is selected";
}

}  // namespace
}  // namespace sorvanel
