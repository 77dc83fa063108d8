#include <gtest/gtest.h>

#include "harness/programa.h"
#include "harness/red.h"

namespace sorvanel::pruebas {
namespace {

// The system's double-click time, milliseconds, for programs that start while it lives.
class DobleClic : private SinCopia {
public:
    explicit DobleClic(UINT nuevo) { SetDoubleClickTime(nuevo); }
    ~DobleClic() { SetDoubleClickTime(m_antes); }

private:
    const UINT m_antes = GetDoubleClickTime();
};

class Marcha : public testing::Test {
protected:
    // The focus goes round the visible buttons; it stops on the one that is wanted.
    bool enfocar(IdControl boton) {
        const HWND buscado = programa.control(boton);
        for (int vuelta = 0; vuelta < 8 && foco(programa.ventana()) != buscado; ++vuelta) {
            const HWND antes = foco(programa.ventana());
            teclear(programa.ventana(), VK_TAB);
            esperar([&] { return foco(programa.ventana()) != antes; }, 500);
        }
        return foco(programa.ventana()) == buscado;
    }
    // What is sent now is seen, and so all that was done before has been, too.
    bool lee(int peso) {
        return insistir([&] { indicador.enviar(puerto, trama(peso * 1000)); },
                        [&] { return programa.peso(1) == std::to_string(peso); });
    }

    int puerto = puertosLibres();
    Programa programa{Configuracion().reticula(1, 1).visor(puerto, 1, 1)};
    EmisorUDP indicador;
};

// The second press of a hand that was quick meets what has just taken the button's place.
TEST_F(Marcha, UnSegundoClicNoPulsaLoQueOcupaElSitioDelPrimero) {
    const DobleClic largo(5000);
    ASSERT_TRUE(programa.marchar());
    EXPECT_TRUE(lee(6));
    ASSERT_TRUE(programa.pausar());
    EXPECT_TRUE(programa.lee(1, "")) << "no weight stays as if it were live";
    programa.pulsar(IdControl::botRun);  // this one takes its time
    ASSERT_TRUE(programa.esperarVisible(IdControl::botPau));
    pulsar(programa.control(IdControl::botPau));
    EXPECT_TRUE(lee(7));
    EXPECT_TRUE(programa.seVe(IdControl::botPau));
    pulsar(programa.control(IdControl::botOff));
    EXPECT_EQ(programa.proceso().esperarFin(PLAZO), 0U) << "elsewhere a press is a press";
}

TEST_F(Marcha, PausaMarchaYCierreConElTeclado) {
    ASSERT_TRUE(programa.marchar());
    ASSERT_TRUE(enfocar(IdControl::botPau));
    teclear(programa.ventana(), VK_RETURN);
    ASSERT_TRUE(programa.esperarVisible(IdControl::botRun));
    ASSERT_TRUE(enfocar(IdControl::botRun));
    teclear(programa.ventana(), VK_SPACE);
    ASSERT_TRUE(programa.esperarVisible(IdControl::botPau));
    ASSERT_TRUE(enfocar(IdControl::botOff));
    teclear(programa.ventana(), VK_RETURN);
    EXPECT_EQ(programa.proceso().esperarFin(PLAZO), 0U);
}

TEST_F(Marcha, ElCursorNoSaleDeLaBarra) {
    ASSERT_TRUE(programa.marchar());
    const RECT barra = lugar(programa.control(IdControl::picBot));
    const RECT visor = lugar(programa.control(IdControl::picRep, 1));
    const int x = (visor.left + visor.right) / 2, medio = (visor.top + visor.bottom) / 2;
    const int alto = barra.bottom - barra.top;
    POINT cursor{};
    for (const auto& [desde, hasta] :
         {std::pair<int, int>{medio, barra.top}, {barra.bottom - 1, barra.top + 3 * alto / 4}}) {
        // Again now and then: a move that the system still had under way may have come between.
        const auto mover = [&] {
            SetCursorPos(x, barra.top + alto / 2);
            SetCursorPos(x, desde);
        };
        EXPECT_TRUE(insistir(mover, [&] { return GetCursorPos(&cursor) && std::abs(cursor.y - hasta) <= 1; }))
            << cursor.y << " instead of " << hasta;
        EXPECT_NEAR(cursor.x, x, 1);
    }
    ASSERT_TRUE(programa.pausar());
    SetCursorPos(x, medio);
    EXPECT_FALSE(esperar([&] { return GetCursorPos(&cursor) && cursor.y != medio; }, 300))
        << "paused, the cursor is free";
}

// Whatever another editor made of the file, and what the program does not know in it, stays byte for byte.
TEST_F(Marcha, UnaJornadaNoTocaElArchivo) {
    const std::string ini =
        "; puesto por la f\xE1"
        "brica\r\n\r\n[visor_1]\n  PORT = " +
        std::to_string(puerto) +
        "\nEtiqueta=\"  Ca\xF1\xF3n  \"\nubicacion=1,1\nClaveAjena=7\n\n[AJENA]\nx=y\n[reticula]\r\n"
        "filascolumnas=1x1\r\n;fin\r\n[VISOR_1]\r\n";
    programa.escribirINI(ini);
    ASSERT_TRUE(programa.marchar());
    EXPECT_EQ(programa.texto(IdControl::picCap, 1), "  Cañón  ");
    EXPECT_TRUE(lee(9));
    ASSERT_TRUE(programa.pausar());
    programa.pulsar(IdControl::botRun);
    ASSERT_TRUE(programa.esperarVisible(IdControl::botPau));
    EXPECT_TRUE(programa.terminar());
    EXPECT_EQ(programa.leerINI(), ini);
    EXPECT_FALSE(programa.hayCopia());
}

}  // namespace
}  // namespace sorvanel::pruebas
