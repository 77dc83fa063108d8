#include <gmock/gmock.h>

#include <algorithm>
#include <optional>
#include <utility>

#include "harness/configuracion.h"
#include "harness/emisorUDP.h"
#include "harness/esperar.h"
#include "harness/fotografia.h"
#include "harness/programa.h"
#include "harness/ventana.h"
#include "platform/color.h"

namespace sorvanel::pruebas {
namespace {

constexpr Color FONDO = rgb(0x10, 0x20, 0x30);
constexpr const char* COLORES = "302010,00D0E0";

// One display, so that the program runs by itself, and the band.
std::string conMensaje(const std::string& texto, const std::string& velocidad, const std::string& fuente = "Arial,40",
                       const std::string& enUso = "Si") {
    return Configuracion()
        .reticula(1, 1)
        .visor(puertosLibres(), 1, 1)
        .seccion("MENSAJE")
        .clave("EnUso", enUso)
        .clave("Texto", texto)
        .clave("Font", fuente)
        .clave("Color", COLORES)
        .clave("Velocidad", velocidad);
}

// With the mark that says UTF-8.
std::string enUTF8(const std::string& ini) {
    return "\xEF\xBB\xBF" + ini;
}

class Mensaje : public testing::Test {
protected:
    void arrancar(const std::string& ini) {
        programa.emplace();
        programa->escribirINI(ini);
        programa->arrancar();
        ASSERT_TRUE(programa->esperarVisible(IdControl::botPau));
    }

    HWND franja() const { return programa->control(IdControl::picMsg); }
    Fotografia foto() const { return Fotografia(franja()); }

    static int tinta(const Fotografia& foto) { return foto.ancho() * foto.alto() - foto.cuantos(FONDO); }

    static bool hayTinta(const Fotografia& foto, int columna) {
        for (int y = 0; y < foto.alto(); ++y)
            if (foto.en(columna, y) != FONDO) return true;
        return false;
    }

    // The leftmost column that is not background; the width when there is none.
    static int borde(const Fotografia& foto) {
        int x = 0;
        while (x < foto.ancho() && !hayTinta(foto, x)) ++x;
        return x;
    }

    // How far to the left what `antes` shows stands in `despues`; nothing when it is not the same picture moved.
    static std::optional<int> desplazamiento(const Fotografia& antes, const Fotografia& despues) {
        const int pasos = borde(antes) - borde(despues);
        if (pasos < 0) return std::nullopt;
        for (int x = borde(antes); x < antes.ancho(); ++x)
            for (int y = 0; y < antes.alto(); ++y)
                if (antes.en(x, y) != despues.en(x - pasos, y)) return std::nullopt;
        return pasos;
    }

    // Its ground is on the screen, not what was there before it.
    static bool pintada(const Fotografia& foto) { return foto.cuantos(FONDO) > foto.ancho() * foto.alto() / 2; }

    // The band once it says something and two looks at it are equal.
    Fotografia quieta() const {
        Fotografia ultima = foto();
        EXPECT_TRUE(esperar([&] {
            const Fotografia anterior = std::exchange(ultima, foto());
            return pintada(ultima) && tinta(ultima) > 0 && ultima == anterior;
        })) << "nothing is drawn, or it moves";
        return ultima;
    }

    std::optional<Programa> programa;
};

TEST_F(Mensaje, CorreHaciaLaIzquierda) {
    arrancar(conMensaje("Bienvenidos a la planta", "4"));
    ASSERT_TRUE(esperar([&] { return pintada(foto()); }));
    const int ancho = foto().ancho();
    // In from the right edge: what is painted moves, and is not painted anew elsewhere.
    Fotografia primera = foto();
    ASSERT_TRUE(esperar([&] { return borde(primera = foto()) < ancho * 9 / 10; }));
    const ULONGLONG inicio = GetTickCount64();
    ASSERT_GT(borde(primera), ancho / 2);
    Fotografia segunda = primera;
    ASSERT_TRUE(esperar([&] { return borde(segunda = foto()) < ancho / 3; }));
    const auto milisegundos = static_cast<int>(GetTickCount64() - inicio);
    const std::optional<int> pixeles = desplazamiento(primera, segunda);
    ASSERT_TRUE(pixeles.has_value());
    // 4 pixels each 10 ms; how long a look takes, and what a busy machine adds, is not known.
    EXPECT_GT(*pixeles * 10, milisegundos * 4 / 2);
    EXPECT_LT(*pixeles * 10, milisegundos * 4 * 3 / 2);
    // Out at the left, and in again at the right.
    EXPECT_TRUE(esperar([&] { return borde(foto()) == 0; }));
    EXPECT_TRUE(esperar([&] { return borde(foto()) > ancho / 2; }, 2 * PLAZO));
    EXPECT_TRUE(programa->terminar());
}

TEST_F(Mensaje, AVelocidadCeroSeQuedaQuieto) {
    for (const char* velocidad : {"0", "-3"}) {
        arrancar(conMensaje("Silo cerrado", velocidad));
        const Fotografia primera = quieta();
        EXPECT_LT(borde(primera), primera.alto() / 3) << "not at the left edge";
        EXPECT_FALSE(hayTinta(primera, primera.ancho() - 1));
        EXPECT_FALSE(esperar([&] { return foto() != primera; }, 300)) << "it moves";
        EXPECT_EQ(programa->texto(IdControl::picMsg), "Silo cerrado");
        EXPECT_TRUE(programa->terminar());
    }
}

TEST_F(Mensaje, CadaLetraDelMundoSePinta) {
    const auto vista = [this](const std::string& ini, const std::string& esperado) {
        arrancar(ini);
        EXPECT_EQ(programa->texto(IdControl::picMsg), esperado);
        Fotografia resultado = quieta();
        EXPECT_GT(tinta(resultado), 20);
        EXPECT_TRUE(programa->terminar());
        return resultado;
    };
    const Fotografia n = vista(conMensaje("n", "0"), "n");
    // In the operator's own coding and in UTF-8 alike; it begins as an "n" and has more ink.
    const Fotografia ene = vista(conMensaje("\xF1", "0", "Arial,40", "S\xED"), "ñ");
    EXPECT_TRUE(vista(enUTF8(conMensaje("ñ", "0")), "ñ") == ene);
    EXPECT_GT(tinta(ene), tinta(n));
    EXPECT_TRUE(vista(enUTF8(conMensaje("€", "0")), "€") == vista(conMensaje("\x80", "0", "Arial,40", "S\xED"), "€"));
    // A letter outside the first 65536, which is two units of the system's text.
    vista(enUTF8(conMensaje("😀", "0")), "😀");
    EXPECT_TRUE(vista(enUTF8(conMensaje("n😀n", "0")), "n😀n") != vista(enUTF8(conMensaje("nn", "0")), "nn"));
}

TEST_F(Mensaje, LaFranjaSeAcoplaSobreLaBarra) {
    struct Caso {
        const char* fuente;
        int pixeles;  // of the letters, at 96 a inch
        const wchar_t* nombre;
    };
    for (const Caso& caso : {Caso{"Arial,64", 85, L"Arial"}, Caso{"Courier New,18,Bxx", 24, L"Courier New"}}) {
        SCOPED_TRACE(caso.fuente);
        arrancar(conMensaje("Hola", "0", caso.fuente));
        ASSERT_TRUE(programa->esperarVisible(IdControl::picMsg));
        const RECT barra = lugar(programa->control(IdControl::picBot));
        const RECT ventana = lugar(programa->ventana());
        RECT vista{};
        EXPECT_TRUE(esperar([&] { return (vista = lugar(franja())).bottom == barra.top; }));
        EXPECT_EQ(vista.left, ventana.left);
        EXPECT_EQ(vista.right, ventana.right);

        const HDC pantalla = GetDC(nullptr);
        const HFONT fuente = CreateFontW(-caso.pixeles, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET, 0, 0,
                                         0, 0, caso.nombre);
        const HGDIOBJ anterior = SelectObject(pantalla, fuente);
        SIZE muestra{};
        GetTextExtentPoint32W(pantalla, L"WhyÉ", 4, &muestra);
        DeleteObject(SelectObject(pantalla, anterior));
        ReleaseDC(nullptr, pantalla);
        EXPECT_NEAR(vista.bottom - vista.top, muestra.cy + 1, 1);
        EXPECT_TRUE(programa->terminar());
    }
}

TEST_F(Mensaje, SinUsoNoSeVe) {
    for (const char* enUso : {"No", "", "quizá"}) {
        SCOPED_TRACE(enUso);
        arrancar(conMensaje("Hola", "4", "Arial,40", enUso));
        EXPECT_FALSE(programa->seVe(IdControl::picMsg));
        programa->pulsar(IdControl::botPau);
        programa->pulsar(IdControl::botRun);
        ASSERT_TRUE(programa->esperarVisible(IdControl::botPau));
        EXPECT_FALSE(programa->seVe(IdControl::picMsg));
        EXPECT_TRUE(programa->terminar());
    }
}

TEST_F(Mensaje, LaPausaLoBorraYLaMarchaLoEmpieza) {
    arrancar(conMensaje("Bienvenidos a la planta", "8"));
    ASSERT_TRUE(esperar([&] { return pintada(foto()); }));
    const int ancho = foto().ancho();
    ASSERT_TRUE(esperar([&] { return borde(foto()) < ancho / 2; }));
    programa->pulsar(IdControl::botPau);
    ASSERT_TRUE(programa->esperarVisible(IdControl::botRun));
    EXPECT_TRUE(esperar([&] { return tinta(foto()) == 0; }));
    EXPECT_TRUE(programa->seVe(IdControl::picMsg));
    EXPECT_FALSE(esperar([&] { return tinta(foto()) != 0; }, 300)) << "paused, it goes on";
    programa->pulsar(IdControl::botRun);
    // From the right edge again.
    Fotografia vista = foto();
    EXPECT_TRUE(esperar([&] { return borde(vista = foto()) < ancho; }));
    EXPECT_GT(borde(vista), ancho / 2);
    EXPECT_TRUE(esperar([&] { return borde(foto()) < ancho / 2; }));
    EXPECT_TRUE(programa->terminar());
}

}  // namespace
}  // namespace sorvanel::pruebas
