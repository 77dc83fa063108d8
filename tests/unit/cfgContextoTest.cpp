#include "dialogs/cfgContexto.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "doubles/dialogoDoble.h"
#include "doubles/entornoDoble.h"
#include "doubles/mesaDoble.h"

namespace sorvanel {
namespace {

class CfgContexto : public ::testing::Test {
protected:
    EntornoDoble e;
    FabricaDialogosDoble fabrica;
    MesaDoble mesa{e};
    cfgContexto dialogo{e.entorno, fabrica, mesa};

    void abrir(const std::string& ini = {}) {
        e.ini(ini);
        dialogo.Mostrar();
        ASSERT_NE(fabrica.dialogo(IdControl::cfgContexto), nullptr);
    }
    FormularioDialogoDoble& v() { return *fabrica.dialogo(IdControl::cfgContexto); }
    void pulsar(IdControl id, int veces = 1) {
        for (int i = 0; i < veces; ++i) ASSERT_TRUE(v().imagen(id)->pulsar());
    }
    std::string reticula(const std::string& clave) { return e.valor("RETICULA", clave); }
    std::string visores(const std::string& clave) { return e.valor("VISORES", clave); }

    // What was done since is the grid painted and then the bar, so that it is not left covered.
    void esperarPintado(const std::string& que) {
        const auto& d = mesa.diario;
        const auto barra = std::find(d.begin(), d.end(), "refrescarBarra");
        const auto pintada =
            std::find_if(d.begin(), d.end(), [](const std::string& l) { return l.starts_with("lienzo: caja"); });
        EXPECT_LT(pintada, barra) << que;
        EXPECT_NE(barra, d.end()) << que;
        mesa.diario.clear();
    }
};

TEST_F(CfgContexto, cadaValorSePintaYGuardaYNoPasaDeSusLimites) {
    struct Caso {
        const char* ini;
        IdControl valor, mas, menos;
        const char *seccion, *clave;
        const char *alAbrir, *unoMas;  // as the label and the file have them
        const char *arriba, *abajo;
        const char *archivoArriba, *archivoAbajo;
    };
    const Caso casos[] = {
        {"[RETICULA]\r\nFilasColumnas=3x2\r\n", IdControl::lbRow, IdControl::imRwP, IdControl::imRwM, "RETICULA",
         "FilasColumnas", "3", "4x2", "8", "1", "8x2", "1x2"},
        {"[RETICULA]\r\nFilasColumnas=3x2\r\n", IdControl::lbCol, IdControl::imCoP, IdControl::imCoM, "RETICULA",
         "FilasColumnas", "2", "3x3", "8", "1", "3x8", "3x1"},
        {"[RETICULA]\r\ngruesoHorizontal=5\r\n", IdControl::lbGrH, IdControl::imGrHP, IdControl::imGrHM, "RETICULA",
         "gruesoHorizontal", "5", "6", "32", "0", "32", "0"},
        {"[RETICULA]\r\ngruesoVertical=7\r\n", IdControl::lbGrV, IdControl::imGrVP, IdControl::imGrVM, "RETICULA",
         "gruesoVertical", "7", "8", "32", "0", "32", "0"},
        {"[VISORES]\r\nanchoEtiqueta=3\r\n", IdControl::lbWidEt, IdControl::imWidEtP, IdControl::imWidEtM, "VISORES",
         "anchoEtiqueta", "3", "4", "6", "0", "6", "0"},
    };
    for (const Caso& c : casos) {
        SCOPED_TRACE(numero(c.valor));
        abrir(c.ini);
        EXPECT_EQ(v().rotulo(c.valor)->texto(), c.alAbrir);
        mesa.diario.clear();
        pulsar(c.mas);
        EXPECT_EQ(e.valor(c.seccion, c.clave), c.unoMas);
        if (c.seccion == std::string("RETICULA")) esperarPintado(c.clave);
        pulsar(c.mas, 40);
        EXPECT_EQ(v().rotulo(c.valor)->texto(), c.arriba);
        EXPECT_EQ(e.valor(c.seccion, c.clave), c.archivoArriba);
        mesa.diario.clear();
        pulsar(c.mas);
        EXPECT_TRUE(mesa.diario.empty()) << "a press at the bound does nothing";
        pulsar(c.menos, 40);
        EXPECT_EQ(v().rotulo(c.valor)->texto(), c.abajo);
        EXPECT_EQ(e.valor(c.seccion, c.clave), c.archivoAbajo);
        EXPECT_TRUE(v().imagen(c.mas)->repite && v().imagen(c.menos)->repite);
        EXPECT_TRUE(dialogo.Descargar(false));
    }
}

TEST_F(CfgContexto, losMonitoresSeCuentanAlPulsar) {
    abrir();
    const Monitor primero = e.monitores.lista[0];
    pulsar(IdControl::imMoP);
    pulsar(IdControl::imMoM);
    EXPECT_EQ(v().rotulo(IdControl::lbMon)->texto(), "1");
    EXPECT_EQ(e.valor("MONITORES", "EnUso"), "") << "nothing was chosen";

    const Monitor segundo{{1024, 0, 2944, 1080}, {1024, 0, 2944, 1040}, false, "\\\\.\\DISPLAY2", 10, 10};
    e.monitores.lista.push_back(segundo);
    pulsar(IdControl::imMoP, 3);
    EXPECT_EQ(v().rotulo(IdControl::lbMon)->texto(), "2");
    EXPECT_EQ(e.valor("MONITORES", "EnUso"), "2");
    EXPECT_EQ(v().centrado, segundo) << "the tool goes where the window went";
    // Told again, as the window does, it stays where the operator may have dragged it.
    const int veces = v().vecesCentrado;
    dialogo.seguirMonitor(segundo);
    EXPECT_EQ(v().vecesCentrado, veces);

    e.monitores.lista.pop_back();
    pulsar(IdControl::imMoP);
    EXPECT_EQ(v().rotulo(IdControl::lbMon)->texto(), "2") << "as stored, though it is not there";
    pulsar(IdControl::imMoM, 2);
    EXPECT_EQ(v().rotulo(IdControl::lbMon)->texto(), "1");
    EXPECT_EQ(v().centrado, primero);
}

TEST_F(CfgContexto, losColoresSeEligenConElBotonYConElMarco) {
    struct Caso {
        IdControl boton, marco;
        const char *seccion, *clave;
    };
    const Caso casos[] = {
        {IdControl::botColFdo, IdControl::frColorFdo, "RETICULA", "colorFondo"},
        {IdControl::botColRet, IdControl::frColorRet, "RETICULA", "colorReticula"},
        {IdControl::botColorApp, IdControl::frColorApp, "RETICULA", "colorAplicacion"},
        {IdControl::botColTxEt, IdControl::frColorTxEt, "VISORES", "textoEtiqueta"},
        {IdControl::botColFdEt, IdControl::frColorFdEt, "VISORES", "fondoEtiqueta"},
        {IdControl::botColTxPe, IdControl::frColorTxPe, "VISORES", "textoPeso"},
        {IdControl::botColFdPe, IdControl::frColorFdPe, "VISORES", "fondoPeso"},
    };
    for (const Caso& c : casos) {
        SCOPED_TRACE(c.clave);
        const std::string ini = std::string("[") + c.seccion + "]\r\n" + c.clave + "=102030\r\n";
        abrir(ini);
        EXPECT_EQ(v().color(c.marco)->color(), 0x102030);
        EXPECT_TRUE(v().boton(c.boton)->pulsar());
        EXPECT_EQ(e.ini(), ini) << "cancelled";
        EXPECT_EQ(fabrica.eleccion.coloresIniciales.back(), 0x102030);

        mesa.diario.clear();
        fabrica.eleccion.colores = {0xABCDEF, 0x000001};
        EXPECT_TRUE(v().boton(c.boton)->pulsar());
        EXPECT_EQ(e.valor(c.seccion, c.clave), "ABCDEF");
        EXPECT_EQ(v().color(c.marco)->color(), 0xABCDEF);
        if (c.seccion == std::string("RETICULA")) esperarPintado(c.clave);
        EXPECT_TRUE(v().color(c.marco)->pulsar());
        EXPECT_EQ(fabrica.eleccion.coloresIniciales.back(), 0xABCDEF);
        EXPECT_EQ(e.valor(c.seccion, c.clave), "000001");
        EXPECT_TRUE(dialogo.Descargar(false));
    }
}

TEST_F(CfgContexto, transparenteEscondeElColorYLoDevuelve) {
    abrir("[RETICULA]\r\ncolorAplicacion=0000FF\r\n");
    const auto sePuedeElegir = [&] {
        return v().boton(IdControl::botColorApp)->seVe && v().color(IdControl::frColorApp)->seVe;
    };
    CasillaMarcaDoble* casilla = v().casilla(IdControl::ckTrpa);
    EXPECT_FALSE(casilla->marcada());
    EXPECT_TRUE(sePuedeElegir());
    mesa.diario.clear();
    EXPECT_TRUE(casilla->pulsar());
    EXPECT_EQ(reticula("colorAplicacion"), "Transparente");
    EXPECT_EQ(mesa.parrilla().colorAplicacion(), -1);
    EXPECT_FALSE(v().boton(IdControl::botColorApp)->seVe || v().color(IdControl::frColorApp)->seVe);
    esperarPintado("transparente");
    EXPECT_TRUE(casilla->pulsar());
    EXPECT_EQ(reticula("colorAplicacion"), "0000FF");
    EXPECT_TRUE(sePuedeElegir());
    dialogo.Descargar(false);

    abrir("[RETICULA]\r\ncolorAplicacion=Transparente\r\n");
    casilla = v().casilla(IdControl::ckTrpa);
    EXPECT_TRUE(casilla->marcada());
    EXPECT_FALSE(sePuedeElegir());
    EXPECT_TRUE(casilla->pulsar());
    EXPECT_EQ(reticula("colorAplicacion"), "FFFFFF") << "there was no colour to come back to";
}

TEST_F(CfgContexto, elRatioEnseñaLoQueElDiseñoAcepto) {
    struct Caso {
        bool pegado;
        const char *entra, *enLaCaja, *alSalir, *archivo;
    };
    const Caso casos[] = {
        {false, "45", "45", "45", "0,45"},   {false, "4a.5,-", "45", "45", "0,45"},
        {true, " 4x5 ", "45", "45", "0,45"}, {false, "100", "100", "95", ""},
        {false, "10", "10", "95", ""},       {false, "0", "0", "95", ""},
        {false, "", "", "95", ""},           {false, "11", "11", "11", "0,11"},
        {false, "99", "99", "99", "0,99"},   {false, "1234", "123", "12", "0,12"},
        {true, "1234", "123", "95", ""},
    };
    for (const Caso& c : casos) {
        SCOPED_TRACE(std::string(c.entra) + (c.pegado ? " pasted" : ""));
        abrir();
        CajaTextoDoble* caja = v().caja(IdControl::txRatio);
        EXPECT_EQ(caja->texto(), "95");
        caja->reescribir("");
        EXPECT_TRUE(c.pegado ? caja->pegar(c.entra) : caja->escribir(c.entra));
        EXPECT_EQ(caja->texto(), c.enLaCaja);
        EXPECT_EQ(visores("ratioAlturas"), c.archivo);
        EXPECT_TRUE(v().lista(IdControl::lstAjte)->irA());
        EXPECT_EQ(caja->texto(), c.alSalir);
        dialogo.Descargar(false);
    }
}

TEST_F(CfgContexto, ajusteYFormatoSeAplicanAlMomento) {
    abrir("[VISORES]\r\najusteEtiqueta=1\r\nformatoPeso=##0.00\r\n");
    ListaDoble* lista = v().lista(IdControl::lstAjte);
    EXPECT_EQ(lista->textos, (std::vector<std::string>{"Izquierda", "Derecha", "Centro"}));
    EXPECT_EQ(lista->indice(), 1);
    EXPECT_EQ(v().caja(IdControl::txFmt)->texto(), "##0.00");
    EXPECT_TRUE(lista->elegir(2));
    EXPECT_EQ(visores("ajusteEtiqueta"), "2");
    EXPECT_TRUE(v().caja(IdControl::txFmt)->escribir("0"));
    EXPECT_EQ(visores("formatoPeso"), "0##0.00");
    EXPECT_TRUE(v().caja(IdControl::txFmt)->reescribir("0,0 kg"));
    EXPECT_EQ(visores("formatoPeso"), "0,0 kg");
    EXPECT_EQ(v().superficie(IdControl::picEjVis)->textoLeyenda(), "9999.0 kg");
}

}  // namespace
}  // namespace sorvanel
