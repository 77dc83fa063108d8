#include "pruebaVisor.h"

namespace sorvanel {
namespace {

// Which rows are seen, and how they become more and fewer.
class PaginaVisores : public PruebaVisor {};

TEST_F(PaginaVisores, abreIgualDeDeprisaConSesentaYCuatroYPagina) {
    const struct {
        int cuantos;
        const char *pagina, *texto, *despues, *fin;
    } casos[] = {{0, "0 a 0", "Sin visores", "0 a 0", "0 a 0"},
                 {1, "1 a 1", "1 visor", "1 a 1", "1 a 1"},
                 {8, "1 a 8", "8 visores", "1 a 8", "1 a 8"},
                 {9, "1 a 8", "Visores 1 a 8 de 9", "2 a 9", "2 a 9"},
                 {64, "1 a 8", "Visores 1 a 8 de 64", "9 a 16", "57 a 64"}};
    for (const auto& c : casos) {
        SCOPED_TRACE(c.cuantos);
        abrirCon(c.cuantos);
        EXPECT_EQ(pagina(), c.pagina);
        EXPECT_EQ(v().rotulo(Id::lbPag)->texto(), c.texto);
        EXPECT_LT(v().estado().controlesCreados, 200) << "no more for 64";
        EXPECT_EQ(v().boton(Id::imBajar)->pulsar(), c.cuantos > 8);
        EXPECT_EQ(pagina(), c.despues);
        EXPECT_TRUE(conFoco(Id::botNvo)) << "nothing was selected, so nothing is";
        for (int i = 0; i < 9; ++i) v().boton(Id::imBajar)->pulsar();
        EXPECT_EQ(pagina(), c.fin);
        for (int i = 0; i < 9; ++i) v().boton(Id::imSubir)->pulsar();
        EXPECT_EQ(pagina(), c.pagina);
        // What is not seen takes no room.
        const float fin = v().control(Id::frTodo)->lugar.derecha();
        EXPECT_EQ(v().control(Id::lbPag)->lugar.derecha() == fin, c.cuantos <= 8);
    }
}

TEST_F(PaginaVisores, alPaginarLaEleccionQuedaALaVista) {
    abrirCon(20);
    caja(Id::txEtq, 3).irA();
    EXPECT_TRUE(v().boton(Id::imBajar)->pulsar());
    EXPECT_EQ(pagina(), "9 a 16");
    EXPECT_TRUE(conFoco(Id::txEtq, 9)) << "the same field, in the nearest row";
    v().boton(Id::imSubir)->pulsarConTeclado();
    EXPECT_EQ(pagina(), "1 a 8");
    EXPECT_TRUE(conFoco(Id::imSubir)) << "it can be pressed again";
    v().boton(Id::botElim)->pulsar();
    EXPECT_EQ(clave(8, "Etiqueta"), "V9") << "what was highlighted was deleted, not what was out of sight";
    EXPECT_EQ(clave(9, "Etiqueta"), "V10");
}

// Whatever has the focus goes with the page, and before the page's own buttons do.
TEST_F(PaginaVisores, loQueSeEscondeCedeElFoco) {
    const Id DE_FILA[] = {Id::imPtc, Id::txPort, Id::lstModo, Id::txEtq, Id::txUbi, Id::imFoco};
    for (const Id id : DE_FILA) {
        for (const bool elegida : {false, true}) {
            SCOPED_TRACE(numero(id, elegida));
            abrirCon(20);
            if (elegida) caja(Id::txPort, 2).irA();
            v().control(id, 3)->irA();
            v().boton(Id::imBajar)->pulsar();
            EXPECT_TRUE(conFoco(id, 9)) << v().foco();
            v().boton(Id::imBajar)->pulsar();
            v().boton(Id::imSubir)->pulsar();
            EXPECT_TRUE(conFoco(id, 12)) << v().foco();
        }
    }
    for (const Id boton : {Id::imSubir, Id::imBajar}) {
        abrirCon(9);
        v().boton(Id::imBajar)->pulsar();
        caja(Id::txPort, 9).irA();
        v().boton(Id::botElim)->pulsar();
        ASSERT_EQ(pagina(), "2 a 8");
        v().boton(boton)->irA();
        v().boton(Id::imSubir)->pulsarDesdeFuera();
        EXPECT_EQ(pagina(), "1 a 8");
        EXPECT_TRUE(conFoco(Id::botNvo)) << v().foco();
    }
}

TEST_F(PaginaVisores, unoNuevoQuedaALaVistaYConElFoco) {
    for (const int habia : {0, 8, 20}) {
        SCOPED_TRACE(habia);
        abrirCon(habia);
        ASSERT_TRUE(v().boton(Id::botNvo)->pulsar());
        const int n = habia + 1;
        EXPECT_EQ(pagina(), std::to_string(std::max(n - 7, 1)) + " a " + std::to_string(n));
        EXPECT_TRUE(conFoco(Id::txPort, n));
        EXPECT_EQ(caja(Id::txPort, n).texto() + clave(n, "Port"), "0");
        caja(Id::txPort, n).escribir("4000");
        caja(Id::txUbi, n).reescribir("4,1");
        caja(Id::txUbi, n).pulsar(Tecla::intro);
        EXPECT_TRUE(uno(n).ubicado()) << "it is seen at once";
        EXPECT_TRUE(puesto(n));
        EXPECT_EQ(clave(n, "Port"), "4000");
    }
    // It closes a gap in the file: what stands behind that is there again.
    abrir("[RETICULA]\r\nFilasColumnas=4x1\r\n[VISOR_1]\r\nPort=1\r\n[VISOR_3]\r\nPort=3\r\nUbicacion=3,1\r\n");
    v().boton(Id::botNvo)->pulsar();
    EXPECT_EQ(pagina(), "1 a 3");
    EXPECT_TRUE(conFoco(Id::txPort, 2));
    EXPECT_EQ(caja(Id::txPort, 3).texto(), "3");
    EXPECT_TRUE(uno(3).ubicado() && puesto(3));
    // Made at once, before the others are placed.
    v().pedirCierre();
    dialogo.Mostrar();
    v().boton(Id::botNvo)->pulsar();
    EXPECT_TRUE(puesto(3));
    abrirCon(64);
    v().boton(Id::botNvo)->pulsar();
    EXPECT_EQ(avisos(), "No se pueden definir más de 64 visores");
    EXPECT_EQ(mesa.visores().cuantos(), 64);
    EXPECT_EQ(pagina(), "1 a 8");
}

TEST_F(PaginaVisores, eliminarQuitaElElegidoYRenumera) {
    const struct {
        int cuantos, elegido;
        const char* pagina;
        int foco;  // 0: the button for a new one
    } casos[] = {
        {3, 2, "1 a 2", 2}, {3, 3, "1 a 2", 2}, {1, 1, "0 a 0", 0}, {12, 12, "5 a 11", 11}, {10, 3, "3 a 9", 3}};
    for (const auto& c : casos) {
        SCOPED_TRACE(std::to_string(c.cuantos) + "/" + std::to_string(c.elegido));
        abrirCon(c.cuantos);
        if (c.cuantos > 8) v().boton(Id::imBajar)->pulsar();
        caja(Id::txEtq, c.elegido).irA();
        ASSERT_TRUE(v().boton(Id::botElim)->pulsar());
        EXPECT_EQ(pagina(), c.pagina);
        EXPECT_TRUE(c.foco == 0 ? conFoco(Id::botNvo) : conFoco(Id::txPort, c.foco));
        EXPECT_EQ(v().boton(Id::botElim)->activo, c.foco != 0);
        EXPECT_EQ(v().control(Id::txPort, c.cuantos), nullptr);
        EXPECT_FALSE(puesto(c.cuantos)) << "nothing of it is left on the screen";
        // Also in a row that was made for another display, seen again.
        for (int i = 0; i < 5; ++i) v().boton(Id::imSubir)->pulsar();
        for (int n = 1; n < c.cuantos; ++n) {
            const std::string antes = "V" + std::to_string(n < c.elegido ? n : n + 1);
            EXPECT_EQ(clave(n, "Etiqueta"), antes);
            if (n <= 8) {
                EXPECT_EQ(caja(Id::txEtq, n).texto(), antes);
            }
        }
    }
}

// Also where the press comes before the focus has moved, or without it.
TEST_F(PaginaVisores, unCampoInvalidoNoDejaHacerNadaMas) {
    const std::function<void()> intentos[] = {
        [&] { v().boton(Id::botElim)->pulsar(); },          [&] { v().boton(Id::botElim)->pulsarDesdeFuera(); },
        [&] { v().boton(Id::botNvo)->pulsarDesdeFuera(); }, [&] { v().boton(Id::imBajar)->pulsar(); },
        [&] { v().boton(Id::imPtc, 1)->pulsar(); },         [&] { v().rotulo(Id::lbVis, 1)->pulsar(); }};
    for (const auto& intento : intentos) {
        SCOPED_TRACE(&intento - intentos);
        abrirCon(9);
        caja(Id::txPort, 2).reescribir("3001");
        intento();
        EXPECT_EQ(avisos(), PORT_MAL);
        EXPECT_TRUE(conFoco(Id::txPort, 2));
        EXPECT_EQ(caja(Id::txPort, 2).texto(), "3001");
        EXPECT_EQ(mesa.visores().cuantos(), 9);
        EXPECT_EQ(pagina(), "1 a 8");
        EXPECT_EQ(uno(1).protocolo(), FAMILIA_TESSEL.protocolo);
    }
    EXPECT_TRUE(dialogo.Descargar(true)) << "discarding asks nothing";
    EXPECT_EQ(clave(2, "Port"), "3002");
    EXPECT_EQ(avisos(), "");
}

TEST_F(PaginaVisores, volverAAbrirEmpiezaDeNuevo) {
    abrirCon(9);
    v().boton(Id::imFoco, 8)->pulsar();
    caja(Id::txPort, 8).pulsar(Tecla::abajo);
    v().pedirCierre();
    dialogo.Mostrar();
    EXPECT_EQ(pagina(), "1 a 1") << "seen first, completed then";
    e.cola.ejecutar();
    EXPECT_EQ(pagina(), "1 a 8");
    EXPECT_FALSE(v().control(Id::ckWid)->seVe);
    for (const Id boton : {Id::imBajar, Id::imSubir}) v().boton(boton)->pulsar();
    EXPECT_FALSE(v().boton(Id::botElim)->pulsar()) << "nothing is selected";
}

}  // namespace
}  // namespace sorvanel
