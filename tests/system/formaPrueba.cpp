#include <gmock/gmock.h>

#include <memory>

#include "harness/configuracion.h"
#include "harness/emisorUDP.h"
#include "harness/esperar.h"
#include "harness/fotografia.h"
#include "harness/monitores.h"
#include "harness/programa.h"
#include "harness/telon.h"
#include "harness/ventana.h"
#include "platform/color.h"

namespace sorvanel::pruebas {
namespace {

constexpr Color DE_DETRAS = rgb(0x20, 0xC0, 0x40);
constexpr int RESERVA = 32;  // pixels below what the grid's height is a part of

struct BorrarRegion {
    using pointer = HRGN;
    void operator()(HRGN region) const { DeleteObject(region); }
};
using Region = std::unique_ptr<HRGN, BorrarRegion>;

Region unir(const RECT& a, const RECT& b) {
    Region total(CreateRectRgnIndirect(&a));
    const Region otra(CreateRectRgnIndirect(&b));
    CombineRgn(total.get(), total.get(), otra.get(), RGN_OR);
    return total;
}

bool tieneForma(HWND ventana) {
    const Region suya(CreateRectRgn(0, 0, 0, 0));
    return GetWindowRgn(ventana, suya.get()) != ERROR;
}

bool esSuForma(HWND ventana, HRGN esperada) {
    const Region suya(CreateRectRgn(0, 0, 0, 0));
    return GetWindowRgn(ventana, suya.get()) != ERROR && EqualRgn(suya.get(), esperada);
}

// What a control covers, counted from the corner of its main window.
RECT dentro(const Programa& programa, IdControl control) {
    RECT zona = lugar(programa.control(control));
    const RECT ventana = lugar(programa.ventana());
    OffsetRect(&zona, -ventana.left, -ventana.top);
    return zona;
}

// A quarter in from the left and from the top, half as wide and as high.
RECT zonaParrilla(const RECT& monitor) {
    const LONG ancho = monitor.right - monitor.left;
    const LONG alto = monitor.bottom - monitor.top;
    return {ancho / 4, alto / 4, ancho * 3 / 4, alto / 4 + (alto - RESERVA) / 2};
}

std::string transparente(std::size_t monitor, const std::string& color = "Transparente", const char* mensaje = "No") {
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

class Forma : public testing::Test {
protected:
    void arrancar(const std::string& ini) {
        programa.escribirINI(ini);
        programa.arrancar();
        ASSERT_TRUE(programa.esperarVisible(IdControl::botPau));
    }

    // Paused, the cursor may leave the bar.
    void pausar() {
        programa.pulsar(IdControl::botPau);
        ASSERT_TRUE(programa.esperarVisible(IdControl::botRun));
    }

    bool clicLlega(const Telon& telon, int x, int y) {
        const int antes = telon.clics();
        clicEnPantalla(x, y);
        return esperar([&] { return telon.clics() > antes; }, 1000);
    }

    Programa programa;
};

class FormaEnMonitor : public Forma, public testing::WithParamInterface<std::size_t> {};

TEST_P(FormaEnMonitor, TransparenteQuedanLaReticulaYLaBarra) {
    const std::vector<MonitorVisto> todos = monitores();
    ASSERT_LE(GetParam(), todos.size());
    const RECT monitor = todos[GetParam() - 1].area;
    const Telon telon(monitor, DE_DETRAS);
    arrancar(transparente(GetParam()));

    const RECT parrilla = zonaParrilla(monitor);
    const RECT barra = dentro(programa, IdControl::picBot);
    EXPECT_EQ(barra.right - barra.left, monitor.right - monitor.left);
    const Region esperada = unir(parrilla, barra);
    EXPECT_TRUE(esperar([&] { return esSuForma(programa.ventana(), esperada.get()); }));

    // Left of the grid and right below it one sees what lies behind, on the grid the grid.
    const int x = monitor.left + parrilla.left;
    const int y = monitor.top + parrilla.bottom;
    EXPECT_TRUE(esperar([&] {
        const Fotografia foto({x - 20, y - 20, x + 20, y + 20});
        return foto.cuantos(DE_DETRAS) == 40 * 40 - 20 * 20;
    }));
    pausar();
    EXPECT_TRUE(clicLlega(telon, x - 20, y - 20));
    EXPECT_TRUE(clicLlega(telon, x + 20, y + 20));
    EXPECT_FALSE(clicLlega(telon, x + 20, y - 20)) << "through the grid";
    EXPECT_TRUE(programa.terminar());
}

INSTANTIATE_TEST_SUITE_P(Monitores, FormaEnMonitor, testing::Values(1, 2));

TEST_F(Forma, LaFranjaDelMensajeSeConserva) {
    const RECT monitor = monitores()[0].area;
    const Telon telon(monitor, DE_DETRAS);
    arrancar(transparente(1, "tran", "Si"));
    ASSERT_TRUE(programa.esperarVisible(IdControl::picMsg));
    RECT abajo = dentro(programa, IdControl::picBot);
    const RECT franja = dentro(programa, IdControl::picMsg);
    EXPECT_EQ(franja.bottom, abajo.top);
    abajo.top = franja.top;
    const Region esperada = unir(zonaParrilla(monitor), abajo);
    EXPECT_TRUE(esperar([&] { return esSuForma(programa.ventana(), esperada.get()); }));
    pausar();
    const int x = monitor.left + 40;
    const int y = monitor.top + franja.top;
    // First where it must not get through: a window that is clicked may come to the front.
    EXPECT_FALSE(clicLlega(telon, x, y + 3)) << "through the strip";
    EXPECT_TRUE(clicLlega(telon, x, y - 3));
    EXPECT_TRUE(programa.terminar());
}

TEST_F(Forma, ConColorEsEnteraOtraVez) {
    const RECT monitor = monitores()[0].area;
    const Telon telon(monitor, DE_DETRAS);
    arrancar(transparente(1));
    ASSERT_TRUE(esperar([&] { return tieneForma(programa.ventana()); }));
    pausar();
    programa.pulsar(IdControl::botCfg);
    ASSERT_TRUE(programa.esperarVisible(IdControl::botOk));
    programa.escribirINI(transparente(1, "1177DD"));
    programa.pulsar(IdControl::botOk);
    ASSERT_TRUE(programa.esperarVisible(IdControl::botRun));
    EXPECT_TRUE(esperar([&] { return !tieneForma(programa.ventana()); }));
    const int x = monitor.left + 30;
    const int y = monitor.top + 30;
    EXPECT_TRUE(esperar([&] { return Fotografia({x, y, x + 9, y + 9}).cuantos(rgb(0xDD, 0x77, 0x11)) == 81; }));
    EXPECT_FALSE(clicLlega(telon, x, y));
    EXPECT_TRUE(programa.terminar());
}

}  // namespace
}  // namespace sorvanel::pruebas
