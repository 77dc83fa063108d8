#include <gmock/gmock.h>

#include "harness/configuracion.h"
#include "harness/emisorUDP.h"
#include "harness/esperar.h"
#include "harness/programa.h"
#include "harness/trama.h"
#include "harness/ventana.h"

namespace sorvanel::pruebas {
namespace {

// The system's double-click time, milliseconds, for programs that start while it lives.
class DobleClic {
public:
    explicit DobleClic(UINT nuevo) { SetDoubleClickTime(nuevo); }
    ~DobleClic() { SetDoubleClickTime(m_antes); }
    DobleClic(const DobleClic&) = delete;
    DobleClic& operator=(const DobleClic&) = delete;

private:
    const UINT m_antes = GetDoubleClickTime();
};

class Marcha : public testing::Test {
protected:
    Marcha() { programa.arrancar(); }
    void SetUp() override { ASSERT_TRUE(programa.esperarVisible(IdControl::botPau)); }

    // The focus goes round the visible buttons; it stops on the one that is wanted.
    bool enfocar(IdControl boton) {
        const HWND buscado = programa.control(boton);
        for (int vuelta = 0; vuelta < 8; ++vuelta) {
            GUITHREADINFO hilo{};
            hilo.cbSize = sizeof hilo;
            GetGUIThreadInfo(GetWindowThreadProcessId(programa.ventana(), nullptr), &hilo);
            if (hilo.hwndFocus == buscado) return true;
            teclear(programa.ventana(), VK_TAB);
            const HWND antes = hilo.hwndFocus;
            esperar(
                [&] {
                    GetGUIThreadInfo(GetWindowThreadProcessId(programa.ventana(), nullptr), &hilo);
                    return hilo.hwndFocus != antes;
                },
                500);
        }
        return false;
    }

    int puerto = puertosLibres();
    Programa programa{Configuracion().reticula(1, 1).visor(puerto, 1, 1)};
    EmisorUDP indicador;
};

TEST_F(Marcha, PausaYMarchaConElRaton) {
    indicador.enviar(puerto, trama(7000));
    ASSERT_TRUE(programa.esperarTexto(IdControl::picRep, 1, "7"));
    programa.pulsar(IdControl::botPau);
    ASSERT_TRUE(programa.esperarVisible(IdControl::botRun));
    EXPECT_TRUE(programa.esperarVisible(IdControl::botCfg));
    EXPECT_TRUE(programa.esperarVisible(IdControl::botOff));
    EXPECT_TRUE(programa.esperarOculto(IdControl::botPau));
    EXPECT_TRUE(programa.esperarTexto(IdControl::picRep, 1, ""));  // no weight stays as if it were live
    programa.pulsar(IdControl::botRun);
    ASSERT_TRUE(programa.esperarVisible(IdControl::botPau));
    EXPECT_TRUE(programa.esperarOculto(IdControl::botCfg));
    indicador.enviar(puerto, trama(7000));
    EXPECT_TRUE(programa.esperarTexto(IdControl::picRep, 1, "7"));
    programa.pulsar(IdControl::botOff);
    EXPECT_EQ(programa.proceso().esperarFin(PLAZO), 0U);
}

// The second press of a hand that was quick meets what has just taken the button's place.
TEST_F(Marcha, UnSegundoClicNoPulsaLoQueOcupaElSitioDelPrimero) {
    EXPECT_TRUE(programa.terminar());
    const DobleClic largo(5000);
    programa.arrancar();
    ASSERT_TRUE(programa.esperarVisible(IdControl::botPau));
    const auto clic = [&](IdControl boton) { pulsar(programa.control(boton)); };
    // What was sent after the press is seen: so the press was, too.
    const auto atendido = [&](int peso) {
        return esperar([&] {
            indicador.enviar(puerto, trama(peso * 1000));
            return programa.texto(IdControl::picRep, 1) == std::to_string(peso);
        });
    };
    programa.pulsar(IdControl::botPau);
    ASSERT_TRUE(programa.esperarVisible(IdControl::botRun));
    programa.pulsar(IdControl::botRun);  // this one takes its time
    ASSERT_TRUE(programa.esperarVisible(IdControl::botPau));
    clic(IdControl::botPau);
    EXPECT_TRUE(atendido(7));
    EXPECT_TRUE(programa.seVe(IdControl::botPau));
    clic(IdControl::botOff);
    EXPECT_EQ(programa.proceso().esperarFin(PLAZO), 0U) << "elsewhere a press is a press";
}

TEST_F(Marcha, PausaMarchaYCierreConElTeclado) {
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
    const RECT barra = lugar(programa.control(IdControl::picBot));
    const RECT visor = lugar(programa.control(IdControl::picRep, 1));
    const int x = (visor.left + visor.right) / 2;
    struct Caso {
        int desde;
        int hasta;
    };
    const int altoBarra = barra.bottom - barra.top;
    const Caso casos[] = {{(visor.top + visor.bottom) / 2, barra.top},
                          {barra.bottom - 1, barra.top + 3 * altoBarra / 4}};
    for (const Caso& caso : casos) {
        SCOPED_TRACE(caso.desde);
        POINT cursor{};
        // Again now and then: a move that the system still had under way may have come between.
        const auto mover = [&] {
            SetCursorPos(x, barra.top + altoBarra / 2);
            SetCursorPos(x, caso.desde);
            return esperar([&] { return GetCursorPos(&cursor) && std::abs(cursor.y - caso.hasta) <= 1; }, 500);
        };
        EXPECT_TRUE(esperar(mover)) << cursor.y << " instead of " << caso.hasta;
        EXPECT_NEAR(cursor.x, x, 1);
    }
    programa.pulsar(IdControl::botPau);
    ASSERT_TRUE(programa.esperarVisible(IdControl::botRun));
    SetCursorPos(x, casos[0].desde);
    POINT cursor{};
    EXPECT_FALSE(esperar([&] { return GetCursorPos(&cursor) && cursor.y != casos[0].desde; }, 300))
        << "paused, the cursor is free";
    EXPECT_TRUE(programa.terminar());
}

// What the file holds and the program does not know stays as it is, byte for byte.
TEST(Ajustes, UnaJornadaNoTocaElArchivo) {
    const int puerto = puertosLibres();
    const std::string ini =
        "; puesto por la f\xE1"
        "brica\r\n\r\n[visor_1]\r\n  PORT = " +
        std::to_string(puerto) +
        "\r\nubicacion=1,1\r\nEtiqueta=\"  Ca\xF1\xF3n  \"\r\nClaveAjena=7\r\n\r\n[AJENA]\r\nx=y\r\n"
        "[reticula]\r\nfilascolumnas=1x1\r\n;fin";
    Programa programa(ini);
    programa.arrancar();
    ASSERT_TRUE(programa.esperarVisible(IdControl::botPau));
    EXPECT_EQ(programa.texto(IdControl::picCap, 1), "  Cañón  ");
    EmisorUDP indicador;
    indicador.enviar(puerto, trama(9000));
    EXPECT_TRUE(programa.esperarTexto(IdControl::picRep, 1, "9"));
    programa.pulsar(IdControl::botPau);
    programa.pulsar(IdControl::botRun);
    ASSERT_TRUE(programa.esperarVisible(IdControl::botPau));
    EXPECT_TRUE(programa.terminar());
    EXPECT_EQ(programa.leerINI(), ini);
    EXPECT_EQ(programa.leerCopia(), "");
}

}  // namespace
}  // namespace sorvanel::pruebas
