#include <gmock/gmock.h>

#include "pruebaVisor.h"

namespace sorvanel {
namespace {

constexpr const char* UBICACION_MAL = "La ubicación entrada no es correcta o está duplicada";

// The rows of the displays and their fields.
class CamposVisor : public PruebaVisor {};

TEST_F(CamposVisor, cadaCajaTomaLoSuyo) {
    const std::tuple<Id, const char*, const char*, const char*> casos[] = {
        {Id::txPort, "Pavona", "1-.,_:;/2a ", "1///////2"},
        {Id::txPort, "Tessel", "-+1/2,e5:_;", "125"},
        {Id::txUbi, "Pavona", "1,.;:_-+=/2 x", "1,,,,,,,,,2"},
        {Id::txEtq, "Tessel", "ñ€;-1 b ", "ñ€;-1\u00A0b\u00A0"}};
    for (const auto& [id, familia, tecleado, queda] : casos) {
        abrirCon(1, std::string("Protocolo=") + familia + "\r\n");
        caja(id, 1).reescribir(tecleado);
        EXPECT_EQ(caja(id, 1).texto(), queda);
    }
}

TEST_F(CamposVisor, unCampoSeGuardaOSeRechazaYConservaElTextoYElFoco) {
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
        abrirCon(2, c.pavona ? "Protocolo=Pavona\r\nModoBulk=4\r\n" : "");
        const std::string antes = caja(c.id, 1).texto();
        caja(c.id, 1).reescribir("7");
        EXPECT_TRUE(caja(c.id, 1).pulsar(Tecla::escape) && conFoco(c.id, 1));
        EXPECT_EQ(caja(c.id, 1).texto() + clave(1, c.clave), std::string(c.habia) + c.habia);
        EXPECT_TRUE(caja(Id::txEtq, 2).irA());
        EXPECT_EQ(caja(c.id, 1).texto(), antes) << "in its family's form again";
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
}

TEST_F(CamposVisor, soloLoTecleadoEsUnaEntrada) {
    // A place that the grid no longer has: only who types it again is told.
    abrir("[RETICULA]\r\nFilasColumnas=2x1\r\n[VISOR_1]\r\nPort=1\r\nUbicacion=3,1\r\n");
    EXPECT_TRUE(caja(Id::txUbi, 1).irA() && caja(Id::txEtq, 1).irA());
    caja(Id::txUbi, 1).reescribir("3,1");
    EXPECT_FALSE(caja(Id::txEtq, 1).irA());
    EXPECT_EQ(avisos(), UBICACION_MAL);
    caja(Id::txUbi, 1).pulsar(Tecla::escape);
    EXPECT_TRUE(caja(Id::txEtq, 1).irA());
    EXPECT_EQ(clave(1, "Ubicacion"), "3,1");

    // The family toggled, each time something typed or not; the box after it, then the port in the file.
    const struct {
        bool pavona;
        std::vector<const char*> tecleado;
        const char *queda, *guarda;
    } casos[] = {{false, {"", "", ""}, "", "3001"},   {true, {"", "", "", ""}, "30/1", "3001"},
                 {false, {"5", ""}, "3001", "3001"},  {false, {"", "5"}, "", "3001"},
                 {false, {"", "5<"}, "3001", "3001"}, {false, {"", "5>"}, "", "5"},
                 {false, {"", "5>", ""}, "0/5", "5"}};
    for (const auto& c : casos) {
        for (const bool cerrando : {false, true}) {
            SCOPED_TRACE(std::to_string(&c - casos) + (cerrando ? " closing" : " leaving"));
            abrirCon(2, c.pavona ? "Protocolo=Pavona\r\n" : "");
            for (std::string teclas : c.tecleado) {
                const bool entrado = teclas.ends_with('>'), borrado = teclas.ends_with('<');
                if (entrado || borrado) teclas.pop_back();
                if (!teclas.empty()) caja(Id::txPort, 1).reescribir(teclas);
                if (borrado) caja(Id::txPort, 1).reescribir("");
                if (entrado) caja(Id::txPort, 1).pulsar(Tecla::intro);
                ASSERT_TRUE(v().boton(Id::imPtc, 1)->pulsar());
            }
            EXPECT_EQ(caja(Id::txPort, 1).texto(), c.queda);
            EXPECT_TRUE(cerrando ? dialogo.Descargar(false) : caja(Id::txPort, 2).irA());
            EXPECT_EQ(clave(1, "Port"), c.guarda);
        }
    }
}

TEST_F(CamposVisor, laEtiquetaConservaSusBlancosYSeVeEnteraEnLaSugerencia) {
    abrirCon(1);
    const std::string corta = caja(Id::txEtq, 1).textoSugerencia, larga = std::string(40, 'm');
    caja(Id::txEtq, 1).reescribir("Silo 2");
    EXPECT_EQ(caja(Id::txEtq, 1).textoSugerencia, corta);
    caja(Id::txEtq, 1).pulsar(Tecla::intro);
    EXPECT_EQ(clave(1, "Etiqueta"), "Silo\u00A02");
    EXPECT_TRUE(caja(Id::txUbi, 1).irA()) << "and is valid as it is";
    caja(Id::txEtq, 1).reescribir(larga);
    EXPECT_EQ(caja(Id::txEtq, 1).textoSugerencia, larga);
    caja(Id::txEtq, 1).pulsar(Tecla::escape);
    EXPECT_EQ(caja(Id::txEtq, 1).textoSugerencia, corta);
}

TEST_F(CamposVisor, loQueNoSirveSeVeYLaSugerenciaLoDice) {
    abrirCon(2);
    EXPECT_THAT(caja(Id::txUbi, 1).textoSugerencia, testing::HasSubstr("(filas 1 a 4, columna 1)"));
    const CajaTextoDoble& port = caja(Id::txPort, 1);
    const std::string ayuda = port.textoSugerencia;
    const Color otro = caja(Id::txPort, 1).fondo;
    const auto esperar = [&](bool marcado) {
        EXPECT_EQ(port.textoSugerencia.find("65535") != std::string::npos, marcado);
        EXPECT_EQ(port.textoSugerencia == ayuda, !marcado);
        EXPECT_EQ(v().rotulo(Id::lbVis, 1)->texto(), marcado ? "! 1" : "#1") << "not by a colour alone";
        EXPECT_EQ(port.fondo == otro || port.fondo == caja(Id::txEtq, 1).fondo, !marcado);
    };
    for (const auto& [texto, marcado] : {std::pair("65535", false), {"65536", true}, {"", false}, {"99999", true}}) {
        caja(Id::txPort, 1).reescribir(texto);
        esperar(marcado);
    }
    caja(Id::txEtq, 2).irA();
    esperar(true);
    v().boton(Id::imPtc, 1)->pulsar();
    esperar(false);
    caja(Id::txPort, 1).reescribir("900/99");
    esperar(false);
}

TEST_F(CamposVisor, lasFlechasVanDeCampoEnCampoYDeFilaEnFila) {
    abrirCon(9);
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

TEST_F(CamposVisor, laFilaElegidaSeDistingueYSeEligeTambienConElRaton) {
    abrirCon(3);
    const Color otra = v().marco(Id::frVis, 1)->fondo;
    EXPECT_FALSE(v().boton(Id::botElim)->activo) << "nothing is selected";
    const ControlComun* const filo = v().control(Id::lbElegida);
    EXPECT_FALSE(filo->seVe);
    const std::tuple<std::function<bool()>, Id, int> casos[] = {
        {[&] { return v().rotulo(Id::lbVis, 2)->pulsar(); }, Id::txPort, 2},
        {[&] { return caja(Id::txUbi, 1).irA(); }, Id::txUbi, 1},
        {[&] { return v().marco(Id::frVis, 3)->pulsar(); }, Id::txUbi, 3},
        {[&] { return v().lista(Id::lstModo, 2)->irA(); }, Id::lstModo, 2}};
    for (const auto& [acto, foco, n] : casos) {
        EXPECT_TRUE(acto() && conFoco(foco, n) && v().boton(Id::botElim)->activo);
        const Rectangulo fila = v().control(Id::frVis, n)->lugar;
        EXPECT_TRUE(filo->seVe && filo->lugar == (Rectangulo{fila.x, fila.y, 60, fila.alto})) << "not only a tint";
        EXPECT_EQ(v().boton(Id::botElim)->escrito, "Eliminar visor #" + std::to_string(n));
        for (int i = 1; i <= 3; ++i) {
            for (const Id id : {Id::frVis, Id::txPort, Id::lstModo, Id::txEtq, Id::txUbi})
                EXPECT_EQ(v().control(id, i)->fondo == otra, i != n) << numero(id, i);
        }
    }
}

TEST_F(CamposVisor, cambiarDeFamiliaVaciaElPortYMuestraLaConexionComun) {
    abrirCon(2);
    const float alto = v().medidas.alto;
    const auto esperar = [&](const std::string& familia, Dibujo dibujo, bool pavona) {
        EXPECT_EQ(clave(1, "Protocolo"), familia);
        EXPECT_EQ(v().boton(Id::imPtc, 1)->textoNombre, "Visor 1: familia " + familia);
        EXPECT_EQ(v().boton(Id::imPtc, 1)->imagen, dibujo);
        for (const auto& [id, n] : {std::pair(Id::lbPav, 1), {Id::frPav, 0}, {Id::txPavHost, 0}, {Id::txPavPort, 0}})
            EXPECT_EQ(v().control(id, n)->seVe, pavona);
        EXPECT_FALSE(v().control(Id::lbPav, 2)->seVe);
        EXPECT_EQ(v().lista(Id::lstModo, 1)->tenue, !pavona) << "what a family does not use looks so";
        EXPECT_EQ(v().medidas.alto > alto, pavona) << "room for the shared connection only while it is needed";
        EXPECT_EQ(compartido.usuarios, pavona ? 1 : 0);
        EXPECT_EQ(caja(Id::txPort, 1).texto(), "");
        EXPECT_TRUE(conFoco(Id::txPort, 1));
    };
    caja(Id::txEtq, 2).irA();
    ASSERT_TRUE(v().boton(Id::imPtc, 1)->pulsar());
    esperar("Pavona", Dibujo::pavona, true);
    EXPECT_EQ(clave(1, "Port"), "3001") << "until another is entered";
    caja(Id::txPort, 1).escribir("12.3");
    EXPECT_TRUE(caja(Id::txPavHost).irA());
    EXPECT_EQ(clave(1, "Port"), "1203");
    // What its own port says does not matter: it is emptied.
    caja(Id::txPort, 1).reescribir("30/2");
    ASSERT_TRUE(v().boton(Id::imPtc, 1)->pulsar());
    esperar("Tessel", Dibujo::tessel, false);
}

TEST_F(CamposVisor, elModoSeGuardaAlElegirlo) {
    abrirCon(2, "ModoBulk=9\r\n");
    EXPECT_EQ(v().lista(Id::lstModo, 1)->indice(), 5) << "bounded where it is shown";
    EXPECT_TRUE(v().lista(Id::lstModo, 1)->elegir(5) && v().lista(Id::lstModo, 2)->elegir(0));
    EXPECT_EQ(clave(1, "ModoBulk") + clave(2, "ModoBulk"), "50");
}

TEST_F(CamposVisor, laConexionComunSeGuardaACadaCambio) {
    abrirCon(1, "Protocolo=Pavona\r\n");
    EXPECT_EQ(caja(Id::txPavHost).texto() + ":" + caja(Id::txPavPort).texto(), "localhost:9084");
    caja(Id::txPavHost).reescribir("  báscula 1 ");
    EXPECT_EQ(e.valor("PAVONA", "Host"), "báscula 1");
    for (const auto& [teclas, queda] : {std::pair("0908x5", "09085 9085"), {"", " 0"}, {"-1.5", "15 15"}}) {
        caja(Id::txPavPort).reescribir(teclas);
        EXPECT_EQ(caja(Id::txPavPort).texto() + " " + e.valor("PAVONA", "Port"), queda);
    }
    abrirCon(1, "Protocolo=Pavona\r\n[PAVONA]\r\nHost=h\r\nPort=7\r\n");
    EXPECT_EQ(caja(Id::txPavHost).texto() + ":" + caja(Id::txPavPort).texto(), "h:7");
    caja(Id::txEtq, 1).irA();
    v().boton(Id::botElim)->pulsar();
    EXPECT_FALSE(v().control(Id::frPav)->seVe) << "the last of that family is gone";
}

}  // namespace
}  // namespace sorvanel
