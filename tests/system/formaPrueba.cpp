#include <gtest/gtest.h>

#include "harness/pantalla.h"
#include "harness/programa.h"
#include "harness/red.h"
#include "platform/color.h"

namespace sorvanel::pruebas {
namespace {

constexpr Color DE_DETRAS = rgb(0x20, 0xC0, 0x40);
constexpr int RESERVA = 32;  // pixels below what the grid's height is a part of

// A quarter in from the left and from the top, half as wide and as high.
RECT zonaParrilla(const RECT& monitor) {
    const LONG ancho = monitor.right - monitor.left;
    const LONG alto = monitor.bottom - monitor.top;
    return {ancho / 4, alto / 4, ancho * 3 / 4, alto / 4 + (alto - RESERVA) / 2};
}

std::string transparente(std::size_t monitor, const std::string& color, const char* mensaje) {
    return Configuracion()
        .reticula(1, 1)
        .clave("Posicion", "0,25;0,25")
        .clave("Dimensiones", "0,5;0,5")
        .clave("colorAplicacion", color)
        .visor(puertosLibres(), 1, 1)
        .seccion("MONITORES")
        .clave("EnUso", std::to_string(monitor))
        .seccion("MENSAJE")
        .clave("EnUso", mensaje)
        .clave("Texto", "Hola")
        .clave("Font", "Arial,20");
}

bool clicLlega(const Telon& telon, int x, int y) {
    const int antes = telon.clics();
    clicEnPantalla(x, y);
    return esperar([&] { return telon.clics() > antes; }, 1000);
}

class Forma : public testing::TestWithParam<std::size_t> {};

// On the second monitor with the message's strip.
TEST_P(Forma, TransparenteQuedanLaReticulaYLoDeAbajoYConColorTodo) {
    const bool conMensaje = GetParam() == 2;
    const char* mensaje = conMensaje ? "Si" : "No";
    ASSERT_LE(GetParam(), monitores().size());
    const RECT monitor = monitores()[GetParam() - 1].area;
    const Telon telon(monitor, DE_DETRAS);
    Programa programa(transparente(GetParam(), "Transparente", mensaje));
    ASSERT_TRUE(programa.marchar());

    const RECT parrilla = zonaParrilla(monitor);
    RECT abajo = lugar(programa.control(IdControl::picBot));
    EXPECT_EQ(abajo.right - abajo.left, monitor.right - monitor.left);
    if (conMensaje) abajo.top = lugar(programa.control(IdControl::picMsg)).top;
    const int franja = abajo.top;

    // Left of the grid and right below it one sees what lies behind, on the grid the grid.
    const int x = monitor.left + parrilla.left;
    const int y = monitor.top + parrilla.bottom;
    EXPECT_TRUE(esperar([&] {
        const Fotografia foto({x - 20, y - 20, x + 20, y + 20});
        return foto.cuantos(DE_DETRAS) == 40 * 40 - 20 * 20;
    }));
    ASSERT_TRUE(programa.pausar());  // then the cursor may leave the bar
    // First where it must not get through: a window that is clicked may come to the front.
    EXPECT_FALSE(clicLlega(telon, x, franja + 3)) << "through what stands below";
    EXPECT_TRUE(clicLlega(telon, x, franja - 3));
    EXPECT_TRUE(clicLlega(telon, x - 20, y - 20));
    EXPECT_FALSE(clicLlega(telon, x + 20, y - 20)) << "through the grid";

    programa.pulsar(IdControl::botCfg);
    ASSERT_TRUE(programa.esperarVisible(IdControl::botOk));
    programa.escribirINI(transparente(GetParam(), "1177DD", mensaje));
    programa.pulsar(IdControl::botOk);
    ASSERT_TRUE(programa.esperarVisible(IdControl::botRun));
    EXPECT_TRUE(esperar([&] { return Fotografia({x - 9, y - 9, x, y}).cuantos(rgb(0xDD, 0x77, 0x11)) == 9 * 9; }));
    EXPECT_FALSE(clicLlega(telon, x - 20, y - 20));
}

INSTANTIATE_TEST_SUITE_P(Monitores, Forma, testing::Values(1, 2));

}  // namespace
}  // namespace sorvanel::pruebas
