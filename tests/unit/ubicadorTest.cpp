#include <gmock/gmock.h>

#include "pruebaVisor.h"

namespace sorvanel {
namespace {

using enum GestoRaton;

// Displays are placed by pointing at the grid: 4 rows of 1, 1 to 3 placed on the first three.
class Ubicador : public PruebaVisor {
protected:
    // The middle of a cell; of row 0, nowhere.
    Punto en(int fila) {
        const auto celda = mesa.parrilla().getCell(static_cast<std::int16_t>(fila), 1);
        return celda ? Punto{celda->x + celda->ancho / 2, celda->y + celda->alto / 2} : Punto{-1, -1};
    }
    bool pulsar(int fila) { return dialogo.alUsarRaton(GestoRaton::pulsar, en(fila)); }
    // As a hand does it, by way of another cell; ended by that.
    void arrastrar(int de, int a, GestoRaton fin = soltar) {
        pulsar(de);
        for (const int fila : {2, a}) dialogo.alUsarRaton(llevar, en(fila));
        dialogo.alUsarRaton(fin, en(a));
    }
    void clic(int fila) { arrastrar(fila, fila); }
    std::string plazas(int cuantos) {
        std::string todas;
        for (int n = 1; n <= cuantos; ++n) {
            const std::string suya = clave(n, "Ubicacion");
            todas += (n > 1 ? " " : "") + (suya.empty() ? "-" : suya.substr(0, 1));
            const ControlComun* const campo = v().control(Id::txUbi, n);
            EXPECT_TRUE(campo == nullptr || !campo->seVe || caja(Id::txUbi, n).texto() == suya) << n;
        }
        return todas;
    }
    // What the mark says; empty while none is seen.
    std::string marca() {
        const SuperficieDoble* const letrero = formulario.superficie(Id::picMarca, 4);
        return letrero != nullptr && letrero->visible() ? letrero->textoLeyenda() : "";
    }
};

TEST_F(Ubicador, elClicSitaYElArrastreMueveOIntercambia) {
    const struct {
        int elegido, de, a;  // 0: nothing selected, or outside the grid
        GestoRaton fin;
        const char *plazas, *marca;
        int queda;  // selected afterwards, with the focus in its row
    } casos[] = {{4, 4, 4, soltar, "1 2 3 4", "", 4},
                 {1, 4, 4, soltar, "4 2 3 -", "", 1},
                 {0, 4, 4, soltar, "1 2 3 -", "", 0},
                 {4, 4, 1, soltar, "1 2 3 -", "", 4},
                 {4, 4, 4, perder, "1 2 3 -", "", 4},
                 {4, 2, 2, soltar, "1 2 3 -", "", 2},
                 {0, 1, 4, soltar, "4 2 3 -", "Mover #1 aquí", 1},
                 {4, 1, 3, soltar, "3 2 1 -", "Intercambiar #1 y #3", 1},
                 {4, 3, 1, soltar, "3 2 1 -", "Intercambiar #3 y #1", 3},
                 {4, 1, 3, perder, "1 2 3 -", "Intercambiar #1 y #3", 1},
                 {4, 1, 0, soltar, "1 2 3 -", "", 1},
                 {4, 0, 4, soltar, "1 2 3 -", "", 4}};
    for (const auto& c : casos) {
        SCOPED_TRACE(&c - casos);
        abrirCon(4);
        if (c.elegido != 0) caja(Id::txEtq, c.elegido).irA();
        e.ini();
        pulsar(c.de);
        dialogo.alUsarRaton(llevar, en(2));
        dialogo.alUsarRaton(llevar, en(c.a));
        EXPECT_EQ(marca(), c.marca);
        const int escritos = e.archivos.reemplazos;
        dialogo.alUsarRaton(c.fin, en(c.a));
        EXPECT_EQ(plazas(4), c.plazas);
        e.ini();
        EXPECT_EQ(e.archivos.reemplazos - escritos, plazas(4) == "1 2 3 -" ? 0 : 1) << "one operation, one file";
        EXPECT_EQ(marca(), "");
        EXPECT_TRUE(c.queda == 0 ? conFoco(Id::botNvo) : conFoco(c.elegido == 0 ? Id::txPort : Id::txEtq, c.queda));
        for (int n = 1; n <= 3; ++n) EXPECT_TRUE(uno(n).ubicado());
        EXPECT_EQ(uno(4).ubicado(), clave(4, "Ubicacion") != "");
    }
}

// Six scales: a click, a port and a caption for each. One that is not complete yet is placed elsewhere instead.
TEST_F(Ubicador, unoTrasOtroSinMasQueSusCeldas) {
    abrir("[RETICULA]\r\nFilasColumnas=4x1\r\n");
    const struct {
        int celda;
        const char *port, *plazas;
    } pasos[] = {{1, "", "1"}, {2, "3001", "2"}, {3, "3002", "2 3"}, {4, "", "2 3 4"}, {1, "", "2 3 1"}};
    int cuantos = 0;
    for (const auto& p : pasos) {
        clic(p.celda);
        cuantos = mesa.visores().cuantos();
        EXPECT_EQ(plazas(cuantos), p.plazas);
        EXPECT_TRUE(conFoco(Id::txPort, cuantos));
        if (*p.port != '\0') caja(Id::txPort, cuantos).reescribir(p.port);
    }
    // Selected again it is moved, as any other is.
    caja(Id::txPort, 3).reescribir("3003");
    caja(Id::txEtq, 1).irA();
    caja(Id::txEtq, 3).irA();
    clic(4);
    EXPECT_EQ(plazas(3), "2 3 4");
}

TEST_F(Ubicador, unCampoInvalidoElEscapeOUnDesliceNoMuevenNada) {
    abrirCon(10);
    caja(Id::txPort, 4).reescribir("3001");
    EXPECT_FALSE(pulsar(4));
    EXPECT_EQ(avisos(), PORT_MAL);
    EXPECT_TRUE(conFoco(Id::txPort, 4));
    // A valid one is an entry all the same.
    caja(Id::txPort, 4).reescribir("4000");
    clic(4);
    EXPECT_EQ(clave(4, "Port") + plazas(4), "40001 2 3 4");
    // Escape ends the drag, and no more than that; so does what would close the tool or take the display away.
    const std::function<void()> ENTRETANTO[] = {[&] { caja(Id::txPort, 1).pulsar(Tecla::escape); },
                                                [&] { v().pedirCierre(); },
                                                [&] { v().boton(Id::botElim)->pulsarDesdeFuera(); },
                                                [&] {
                                                    Monitor otro = mesa.pantalla().monitor();
                                                    otro.twipsPorPixelX = otro.twipsPorPixelY = 12;
                                                    dialogo.seguirMonitor(otro);
                                                }};
    for (const auto& entretanto : ENTRETANTO) {
        pulsar(1);
        dialogo.alUsarRaton(llevar, en(3));
        entretanto();
        EXPECT_FALSE(dialogo.alUsarRaton(llevar, en(3)));
        EXPECT_EQ(marca(), "");
        dialogo.alUsarRaton(soltar, en(3));
        ASSERT_TRUE(dialogo.cargado());
        EXPECT_EQ(plazas(4), "1 2 3 4");
    }
    // Over the line between two cells the hand slips a little.
    const auto celda = *mesa.parrilla().getCell(1, 1);
    const Punto filo{celda.x + 300, celda.abajo() - 15};
    dialogo.alUsarRaton(GestoRaton::pulsar, filo);
    dialogo.alUsarRaton(llevar, {filo.x, filo.y + 90});
    dialogo.alUsarRaton(soltar, {filo.x, filo.y + 90});
    EXPECT_EQ(plazas(4), "1 2 3 4");
    // A display that is off the page brings its page along.
    v().boton(Id::imBajar)->pulsar();
    ASSERT_EQ(pagina(), "3 a 10");
    clic(1);
    EXPECT_EQ(pagina(), "1 a 8");
}

// Under the bar there is nothing to point at; and a cell too small for its display takes it away, which is said.
TEST_F(Ubicador, loQueNoSeVeNoSePulsaYLoQueNoCabeSeDice) {
    abrirCon(4, "anchoEtiqueta=100\r\n");
    caja(Id::txPort, 4).irA();
    Parrilla& parrilla = mesa.parrilla();
    parrilla.Height(mesa.pantalla().Height() - parrilla.Top());
    EXPECT_FALSE(dialogo.alUsarRaton(GestoRaton::pulsar, {en(4).x, mesa.altoSobreBarra() + 15}));
    parrilla.Height(aTwips(40));
    arrastrar(2, 4);
    EXPECT_EQ(plazas(4), "1 4 3 -");
    EXPECT_EQ(avisos(), "Visor #2: La celda no permite la ubicación");
}

// The cells say which they are as long as the tool is open, in a colour that is seen.
TEST_F(Ubicador, lasCeldasDicenCualSon) {
    for (const auto& [fondo, tinta] : {std::pair("808080", "#000000"), {"A00000", "#FFFFFF"}, {"FFFFFF", "#000000"}}) {
        diario.clear();
        abrir(std::string("[RETICULA]\r\nFilasColumnas=2x1\r\ncolorFondo=") + fondo + "\r\n[VISOR_1]\r\nPort=1\r\n");
        const auto hay = [&](const char* celda) {
            return testing::Contains(
                testing::AllOf(testing::HasSubstr("imprimirEn"), testing::HasSubstr(celda), testing::HasSubstr(tinta)));
        };
        EXPECT_THAT(diario, hay("\"1,1\""));
        diario.clear();
        caja(Id::txPort, 1).irA();
        clic(2);
        clic(1);
        EXPECT_THAT(diario, hay("\"2,1\"")) << "where it was, it is written again";
        dialogo.Descargar(false);
        const auto ultima = std::find_if(diario.rbegin(), diario.rend(), [](const std::string& linea) {
            return linea.find("imprimir") != std::string::npos || linea.find("limpiar") != std::string::npos;
        });
        EXPECT_THAT(*ultima, testing::HasSubstr("limpiar")) << "nothing of it is left";
    }
}

}  // namespace
}  // namespace sorvanel
