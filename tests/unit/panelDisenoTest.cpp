#include "pruebaVisor.h"

namespace sorvanel {
namespace {

// A property of the design that a display may have of its own.
struct Propiedad {
    Id casilla, propio;
    const char *clave, *valor, *comun;
};
constexpr Propiedad PROPIEDADES[] = {{Id::ckWid, Id::lbWidEt, "anchoEtiqueta", "5", "2"},
                                     {Id::ckAdj, Id::lstAjte, "ajusteEtiqueta", "1", "2"},
                                     {Id::ckTxEt, Id::frColorTxEt, "textoEtiqueta", "0000FF", "FFFFFF"},
                                     {Id::ckFdEt, Id::frColorFdEt, "fondoEtiqueta", "00FF00", "FF0000"},
                                     {Id::ckTxPe, Id::frColorTxPe, "textoPeso", "123456", "000000"},
                                     {Id::ckFdPe, Id::frColorFdPe, "fondoPeso", "ABCDEF", "FFFFFF"},
                                     {Id::ckFmt, Id::txFmt, "formatoPeso", "0.0", "####0"},
                                     {Id::ckRat, Id::txRatio, "ratioAlturas", "0,45", "0,95"}};
constexpr auto VALOR = &Propiedad::valor, COMUN = &Propiedad::comun;

// The panel with the design of one display.
class PanelDiseno : public PruebaVisor {
protected:
    // What the panel shows of a property, as the file writes it.
    std::string muestra(Id propio) {
        if (auto* lista = v().lista(propio)) return std::to_string(lista->indice());
        if (auto* color = v().color(propio)) return comun::Long2RGB(color->color());
        if (auto* rotulo = v().rotulo(propio)) return rotulo->texto();
        return (propio == Id::txRatio ? "0," : "") + caja(propio).texto();
    }
    std::string todosPropios() {
        std::string ini;
        for (const Propiedad& p : PROPIEDADES) ini += std::string(p.clave) + "=" + p.valor + "\r\n";
        return ini;
    }
    void abrirPanel(int n) { ASSERT_TRUE(v().boton(Id::imFoco, n)->pulsar()); }
    void marcarTodo() {
        for (const Propiedad& p : PROPIEDADES) v().casilla(p.casilla)->pulsar();
    }
    void esperarPanel(bool propios, const char* Propiedad::*valor) {
        for (const Propiedad& p : PROPIEDADES) {
            EXPECT_EQ(v().casilla(p.casilla)->marcada(), propios) << p.clave;
            EXPECT_EQ(v().control(p.propio)->seVe, propios) << p.clave;
            EXPECT_EQ(muestra(p.propio), p.*valor) << p.clave;
        }
    }
    void esperarClaves(const char* Propiedad::*valor) {
        for (const Propiedad& p : PROPIEDADES)
            EXPECT_EQ(clave(1, p.clave), valor != nullptr ? p.*valor : "") << p.clave;
    }
};

TEST_F(PanelDiseno, cargaLoPropioYDondeNoHayLoComun) {
    abrirCon(2, todosPropios());
    const float ancho = v().control(Id::frVis, 1)->lugar.ancho;
    const float ventana = v().medidas.ancho;
    abrirPanel(1);
    EXPECT_GT(v().medidas.ancho, v().control(Id::frDise)->lugar.ancho + ventana) << "the window makes room for it";
    esperarPanel(true, VALOR);
    EXPECT_GT(v().control(Id::frVis, 1)->lugar.ancho, ancho);
    caja(Id::txEtq, 2).irA();
    esperarPanel(false, COMUN);
    EXPECT_EQ(v().control(Id::frVis, 1)->lugar.ancho, ancho) << "the panel has gone with the focus";
    EXPECT_GT(v().control(Id::frVis, 2)->lugar.ancho, ancho);
    esperarClaves(VALOR);
}

TEST_F(PanelDiseno, loMarcadoSeGuardaAlCerrarloOAlPasarAOtroYNoAlCerrarLaVentana) {
    for (const int modo : {0, 1, 2, 3}) {
        SCOPED_TRACE(modo);
        abrirCon(2, todosPropios());
        abrirPanel(1);
        marcarTodo();
        EXPECT_FALSE(v().control(Id::txRatio)->seVe || v().control(Id::botColTxEt)->seVe);
        esperarClaves(VALOR);  // only shown or hidden
        if (modo == 0) v().boton(Id::imDesf)->pulsar();
        if (modo == 1) caja(Id::txPort, 2).irA();
        if (modo == 2) v().boton(Id::imUnload)->pulsar();
        if (modo == 3) caja(Id::txEtq, 1).irA();
        esperarClaves(modo == 2 ? VALOR : nullptr);
    }
    // Hidden while the keyboard stands there.
    abrirCon(1, todosPropios());
    abrirPanel(1);
    for (const auto& [casilla, propio] : {std::pair(Id::ckWid, Id::imWidEtP),
                                          {Id::ckFdPe, Id::frColorFdPe},
                                          {Id::ckFmt, Id::txFmt},
                                          {Id::ckAdj, Id::lstAjte}}) {
        v().control(propio)->irA();
        v().casilla(casilla)->pulsarDesdeFuera();
        EXPECT_TRUE(conFoco(casilla)) << numero(propio);
    }
    abrirCon(1);
    abrirPanel(1);
    v().casilla(Id::ckWid)->pulsar();
    abrirPanel(1);
    EXPECT_EQ(clave(1, "anchoEtiqueta"), "2") << "opened where it is open";
    v().casilla(Id::ckWid)->pulsar();
    marcarTodo();
    v().boton(Id::imDesf)->pulsarConTeclado();
    EXPECT_TRUE(conFoco(Id::txPort, 1)) << "not left on what is gone";
    EXPECT_FALSE(v().control(Id::ckWid)->seVe);
    EXPECT_LT(v().medidas.ancho, v().control(Id::frDise)->lugar.derecha());
    esperarClaves(COMUN);
}

TEST_F(PanelDiseno, mirarloNoEscribeNada) {
    const struct {
        const char *guardado, *muestra, *redondeado;
    } casos[] = {{"0,955", "95,5", "96"}, {"0,57", "57", "57"}, {"0,3333333", "33,33333", "33"}};
    for (const auto& c : casos) {
        SCOPED_TRACE(c.guardado);
        abrirCon(2, std::string("ratioAlturas=") + c.guardado + "\r\n" + todosPropios());
        const int antes = e.archivos.reemplazos;
        for (const int n : {1, 2, 1}) abrirPanel(n);
        EXPECT_EQ(caja(Id::txRatio).texto(), c.muestra);
        caja(Id::txRatio).irA();
        v().casilla(Id::ckRat)->irA();
        EXPECT_EQ(caja(Id::txRatio).texto(), c.redondeado) << "finer than the box tells";
        v().boton(Id::imDesf)->pulsar();
        e.perfil.volcar();
        EXPECT_EQ(e.archivos.reemplazos, antes);
        EXPECT_EQ(clave(1, "ratioAlturas"), c.guardado);
    }
}

TEST_F(PanelDiseno, cadaCambioEsDelVisorAlMomentoYSeVeEnLaMuestra) {
    abrirCon(1);
    abrirPanel(1);
    marcarTodo();
    pulsar(Id::imWidEtP, 6);
    EXPECT_EQ(clave(1, "anchoEtiqueta") + v().rotulo(Id::lbWidEt)->texto(), "66");
    SuperficieDoble &peso = *v().superficie(Id::picEjVis), &etiqueta = *v().superficie(Id::picEjEtq);
    EXPECT_FLOAT_EQ(etiqueta.lugar().ancho, 7 * peso.medir("0").ancho);
    pulsar(Id::imWidEtM, 9);
    EXPECT_EQ(clave(1, "anchoEtiqueta") + v().rotulo(Id::lbWidEt)->texto(), "00");
    v().lista(Id::lstAjte)->elegir(0);
    EXPECT_EQ(clave(1, "ajusteEtiqueta"), "0");
    caja(Id::txFmt).reescribir("\"Kg\" 0,00");
    EXPECT_EQ(uno(1).formatoPeso(), "\"Kg\" 0,00");
    EXPECT_EQ(peso.textoLeyenda(), "Kg 9999.00");
    caja(Id::txFmt).reescribir("");
    EXPECT_EQ(peso.textoLeyenda(), "9999") << "the shared format again";
    for (const auto& [teclas, queda] :
         {std::pair("4x5", "0,45 45"), {"057", "0,57 57"}, {"57", "0,57 57"}, {"", "0,57 57"}, {"1000", "1 100"}}) {
        caja(Id::txRatio).reescribir(teclas);
        const std::string guarda = clave(1, "ratioAlturas");
        v().casilla(Id::ckRat)->irA();
        EXPECT_EQ(guarda + " " + caja(Id::txRatio).texto(), queda);
    }
}

TEST_F(PanelDiseno, losColoresEmpiezanConElEfectivoYCanceladosNoEscriben) {
    constexpr Id BOTONES[] = {Id::botColTxEt, Id::botColFdEt, Id::botColTxPe, Id::botColFdPe};
    abrirCon(1);
    abrirPanel(1);
    for (std::size_t i = 0; i < std::size(BOTONES); ++i) {
        const Propiedad& p = PROPIEDADES[i + 2];
        SCOPED_TRACE(p.clave);
        v().casilla(p.casilla)->pulsar();
        v().boton(BOTONES[i])->pulsar();
        EXPECT_EQ(comun::Long2RGB(fabrica.eleccion.colorInicial), p.comun);
        EXPECT_EQ(clave(1, p.clave), "") << "cancelled";
        for (const Color elegido : {fabrica.eleccion.colorInicial, 0x102030}) {
            fabrica.eleccion.colores.push_back(elegido);
            v().boton(BOTONES[i])->pulsar();
            EXPECT_EQ(clave(1, p.clave), comun::Long2RGB(elegido)) << "be it the shared one";
        }
    }
    EXPECT_EQ(v().superficie(Id::picEjVis)->colorFondo(), 0x102030);
    EXPECT_EQ(v().superficie(Id::picEjEtq)->colorFondo(), 0x102030);
}

TEST_F(PanelDiseno, elSelectorConservaElCampoYAbiertoNoSeElimina) {
    abrirCon(3);
    abrirPanel(2);
    v().boton(Id::botElim)->pulsar();
    EXPECT_EQ(avisos(), "Debe cerrar la ventana de diseño particular");
    EXPECT_EQ(mesa.visores().cuantos(), 3);
    v().casilla(Id::ckFmt)->pulsar();
    for (const Id campo : {Id::txUbi, Id::lstModo, Id::txFmt}) {
        const bool delPanel = campo == Id::txFmt, deTexto = campo == Id::txUbi;
        abrirPanel(1);
        if (delPanel) v().casilla(Id::ckFmt)->pulsar();
        ASSERT_TRUE(v().control(campo, delPanel ? 0 : 1)->irA());
        abrirPanel(3);
        EXPECT_TRUE(conFoco(deTexto ? campo : Id::txPort, 3)) << v().foco();
    }
    // Closed by the mouse, it takes the focus from nowhere but itself.
    v().boton(Id::botNvo)->irA();
    v().boton(Id::imDesf)->pulsar();
    EXPECT_TRUE(conFoco(Id::botNvo));
    // A field that is not valid keeps the focus, and the panel comes back to it.
    caja(Id::txPort, 2).reescribir("3001");
    abrirPanel(3);
    EXPECT_EQ(avisos(), PORT_MAL);
    EXPECT_TRUE(conFoco(Id::txPort, 2));
    EXPECT_GT(v().control(Id::frVis, 2)->lugar.ancho, v().control(Id::frVis, 3)->lugar.ancho);
}

TEST_F(PanelDiseno, cabeEnUnaPantallaEstrecha) {
    abrirCon(10, "Protocolo=Pavona\r\n" + todosPropios());
    abrirPanel(3);
    marcarTodo();
    EXPECT_LE(v().medidas.ancho, aTwips(950)) << "half of 1920 pixels, for a scale of 200 %";
    EXPECT_GE(caja(Id::txEtq, 3).lugar.ancho, v().medir("Báscula de camión").ancho + aTwips(12));
}

TEST_F(PanelDiseno, elDisenoSeCopiaDeUnVisorAOtro) {
    // The one has all of its own, the other one value of its own.
    abrirCon(3, todosPropios());
    e.valor("VISOR_2", "anchoEtiqueta", "1");
    dialogo.Descargar(false);
    dialogo.Mostrar();
    e.cola.ejecutar();
    abrirPanel(2);
    EXPECT_FALSE(v().boton(Id::botPegar)->pulsar()) << "nothing was copied";
    v().boton(Id::botCopiar)->pulsar();
    abrirPanel(1);
    v().casilla(Id::ckFmt)->pulsar();
    v().boton(Id::botPegar)->pulsar();
    // What is not the one's own is not the other's either; at once, on the screen and in the file.
    for (const Propiedad& p : PROPIEDADES) {
        const bool suyo = p.propio == Id::lbWidEt;
        EXPECT_EQ(clave(1, p.clave), suyo ? "1" : "") << p.clave;
        EXPECT_EQ(v().casilla(p.casilla)->marcada(), suyo) << p.clave;
    }
    EXPECT_EQ(uno(1).anchoEtiquetaEfv(), 1);
    // As the panel says, also before it is stored.
    v().casilla(Id::ckRat)->pulsar();
    caja(Id::txRatio).reescribir("45");
    v().boton(Id::botCopiar)->pulsar();
    abrirPanel(3);
    EXPECT_NE(v().boton(Id::botPegar)->textoSugerencia.find("#1"), std::string::npos);
    v().boton(Id::botPegar)->pulsar();
    EXPECT_EQ(clave(3, "anchoEtiqueta") + clave(3, "ratioAlturas"), "10,45");
}

// At hand in the choice of a colour: those of the shared design, of all else and of the displays, each once.
TEST_F(PanelDiseno, aManoEstanLosColoresEnUso) {
    abrirCon(2, todosPropios());
    e.com.abrir("RETICULA").escribir("colorReticula", "010203");
    e.com.abrir("MENSAJE").escribir("Color", "040506,FFFFFF");
    abrirPanel(1);
    v().boton(Id::botColTxPe)->pulsar();
    std::string colores;
    for (const Color color : fabrica.eleccion.aMano) colores += comun::Long2RGB(color) + ' ';
    EXPECT_EQ(colores, "FF0000 FFFFFF 000000 808080 010203 040506 00FF00 0000FF ABCDEF 123456 ");
    EXPECT_EQ(coloresEnUso(e.com, 3).size(), 3U);
}

}  // namespace
}  // namespace sorvanel
