#include "dialogs/cfgContexto.h"

#include <algorithm>
#include <array>

#include "doubles/pruebaDialogo.h"

namespace sorvanel {
namespace {

class CfgContexto : public PruebaDialogo<cfgContexto, Id::cfgContexto> {
protected:
    void abrirCon(const std::string& seccion, const std::string& linea) {
        abrir("[" + seccion + "]\r\n" + linea + "\r\n");
        diario.clear();
    }
    std::string reticula(const std::string& clave) { return e.valor("RETICULA", clave); }
    std::string visores(const std::string& clave) { return e.valor("VISORES", clave); }

    // What was done since is the grid painted and then the bar, so that it is not left covered.
    void esperarPintado(const std::string& que) {
        const auto refrescada = std::find(diario.begin(), diario.end(), "refrescar");
        const auto pintada = std::find_if(diario.begin(), diario.end(), [](auto& l) { return l.starts_with("caja"); });
        EXPECT_LT(pintada, refrescada) << que;
        EXPECT_NE(refrescada, diario.end()) << que;
        diario.clear();
    }
};

TEST_F(CfgContexto, cadaValorSePintaYGuardaYNoPasaDeSusLimites) {
    const struct {
        Id valor, mas, menos;
        const char* clave;
        std::array<const char*, 4> vistos, guardados;  // as it opens, one more, at the upper bound, at the lower one
    } casos[] = {{Id::lbRow, Id::imRwP, Id::imRwM, "FilasColumnas", {"3", "4", "8", "1"}, {"3x2", "4x2", "8x2", "1x2"}},
                 {Id::lbCol, Id::imCoP, Id::imCoM, "FilasColumnas", {"2", "3", "8", "1"}, {"3x2", "3x3", "3x8", "3x1"}},
                 {Id::lbGrH, Id::imGrHP, Id::imGrHM, "gruesoHorizontal", {"5", "6", "32", "0"}, {"5", "6", "32", "0"}},
                 {Id::lbGrV, Id::imGrVP, Id::imGrVM, "gruesoVertical", {"7", "8", "32", "0"}, {"7", "8", "32", "0"}}};
    for (const auto& c : casos) {
        SCOPED_TRACE(numero(c.valor));
        abrirCon("RETICULA", std::string(c.clave) + "=" + c.guardados[0]);
        for (std::size_t i = 0; i < 4; ++i) {
            if (i > 0) pulsar(i == 3 ? c.menos : c.mas, i == 1 ? 1 : 40);
            EXPECT_EQ(v().rotulo(c.valor)->texto(), c.vistos[i]);
            EXPECT_EQ(reticula(c.clave), c.guardados[i]);
            if (i > 0) esperarPintado(c.clave);
        }
        pulsar(c.menos);
        EXPECT_TRUE(diario.empty()) << "a press at the bound does nothing";
        EXPECT_TRUE(v().boton(c.mas)->repite && v().boton(c.menos)->repite);
    }
}

TEST_F(CfgContexto, losMonitoresSeRecorrenSegunVienenYSeVan) {
    abrir();
    const Monitor primero = e.monitores.lista[0];
    const auto mostrado = [&] { return v().rotulo(Id::lbMon)->texto(); };
    pulsar(Id::imMoP);
    pulsar(Id::imMoM);
    EXPECT_EQ(mostrado() + e.valor("MONITORES", "EnUso"), "1") << "nothing was chosen";

    const Monitor segundo{{1024, 0, 2944, 1080}, {1024, 0, 2944, 1040}, false, "\\\\.\\DISPLAY2", 10, 10};
    e.monitores.lista.push_back(segundo);
    mesa.seguirMonitores(false);
    pulsar(Id::imMoP, 3);
    EXPECT_EQ(mostrado() + e.valor("MONITORES", "EnUso"), "22");
    EXPECT_EQ(formulario.cubierto, segundo);
    EXPECT_EQ(v().centrado, (RectPixel{1024, 0, 2944, 1032})) << "the tool goes where the window went, above its bar";
    EXPECT_EQ(barra.lugar().derecha(), 1920 * 10) << "and so does the bar";

    e.monitores.lista.pop_back();
    mesa.seguirMonitores(false);
    pulsar(Id::imMoP);
    EXPECT_EQ(mostrado(), "2") << "as stored, though it is not there";
    pulsar(Id::imMoM, 2);
    EXPECT_EQ(mostrado(), "1");
    EXPECT_EQ(v().centrado, primero.trabajo);

    // One whose data cannot be had is passed over, there and back.
    e.monitores.lista = {primero, Monitor{}, segundo, Monitor{}};
    mesa.seguirMonitores(false);
    pulsar(Id::imMoP, 3);
    EXPECT_EQ(mostrado(), "3");
    pulsar(Id::imMoM);
    EXPECT_EQ(mostrado(), "1");
}

TEST_F(CfgContexto, losColoresSeEligenConElBotonYConElMarco) {
    const std::tuple<Id, Id, const char*> casos[] = {{Id::botColFdo, Id::frColorFdo, "colorFondo"},
                                                     {Id::botColRet, Id::frColorRet, "colorReticula"},
                                                     {Id::botColorApp, Id::frColorApp, "colorAplicacion"}};
    for (const auto& [boton, marco, clave] : casos) {
        probarColor(boton, marco, "RETICULA", clave);
        fabrica.eleccion.colores = {ROJO};
        diario.clear();
        pulsar(boton);
        esperarPintado(clave);
    }
    probarColor(Id::botColFdPe, Id::frColorFdPe, "VISORES", "fondoPeso");
}

TEST_F(CfgContexto, transparenteEscondeElColorYLoDevuelve) {
    const std::pair<const char*, const char*> casos[] = {
        {"0000FF", "0000FF"}, {"Transparente", "FFFFFF"}};  // there was no colour to come back to
    for (const auto& [guardado, vuelve] : casos) {
        abrirCon("RETICULA", std::string("colorAplicacion=") + guardado);
        CasillaMarcaDoble* casilla = v().casilla(Id::ckTrpa);
        const auto esperar = [&](const char* color, bool transparente) {
            EXPECT_EQ(casilla->marcada(), transparente);
            EXPECT_EQ(reticula("colorAplicacion"), color);
            EXPECT_EQ(mesa.parrilla().colorAplicacion() == -1, transparente);
            EXPECT_EQ(v().boton(Id::botColorApp)->seVe, !transparente);
            EXPECT_EQ(v().color(Id::frColorApp)->seVe, !transparente);
        };
        if (!casilla->marcada()) {
            esperar(guardado, false);
            v().control(Id::frColorApp)->irA();
            EXPECT_TRUE(casilla->pulsarDesdeFuera());
            EXPECT_EQ(v().foco(), numero(Id::ckTrpa)) << "not left on what is hidden";
            esperarPintado("transparente");
        }
        esperar("Transparente", true);
        EXPECT_TRUE(casilla->pulsar());
        esperar(vuelve, false);
    }
}

TEST_F(CfgContexto, elRatioEnseñaLoQueElDiseñoAcepto) {
    const struct {
        const char *entra, *enLaCaja, *alSalir, *archivo;
    } casos[] = {
        {"4a.5,-", "45", "45", "0,45"}, {"100", "100", "95", ""},   {"10", "10", "95", ""},       {"", "", "95", ""},
        {"11", "11", "11", "0,11"},     {"99", "99", "99", "0,99"}, {"1234", "123", "12", "0,12"}};
    for (const auto& c : casos) {
        SCOPED_TRACE(c.entra);
        abrir();
        CajaTextoDoble* caja = v().caja(Id::txRatio);
        EXPECT_EQ(caja->texto(), "95");
        caja->reescribir(c.entra);
        EXPECT_EQ(caja->texto(), c.enLaCaja);
        EXPECT_EQ(visores("ratioAlturas"), c.archivo);
        EXPECT_TRUE(v().lista(Id::lstAjte)->irA());
        EXPECT_EQ(caja->texto(), c.alSalir);
    }
}

TEST_F(CfgContexto, elDiseñoSeAplicaAlMomento) {
    abrir("[VISORES]\r\najusteEtiqueta=1\r\nratioAlturas=20\r\n");
    EXPECT_EQ(v().lista(Id::lstAjte)->indice(), 1);
    EXPECT_EQ(v().caja(Id::txRatio)->texto(), "999") << "all that the box has room for";
    EXPECT_TRUE(v().lista(Id::lstAjte)->elegir(2) && v().caja(Id::txFmt)->reescribir("0,0 kg"));
    EXPECT_EQ(visores("ajusteEtiqueta") + visores("formatoPeso"), "20,0 kg");
    EXPECT_EQ(v().superficie(Id::picEjVis)->textoLeyenda(), "9999.0 kg");
    for (const char* dicho : {"Sí", "No"}) {
        EXPECT_TRUE(v().casilla(Id::ckEncima)->pulsar());
        EXPECT_EQ(visores("etiquetaEncima"), dicho);
        const Rectangulo etiqueta = v().superficie(Id::picEjEtq)->lugar(), peso = v().superficie(Id::picEjVis)->lugar();
        EXPECT_EQ(etiqueta.x == peso.x && etiqueta.ancho == peso.ancho && etiqueta.abajo() == peso.y, *dicho == 'S');
        EXPECT_EQ(etiqueta.derecha() == peso.x && etiqueta.alto == peso.alto, *dicho == 'N');
    }
}

}  // namespace
}  // namespace sorvanel
