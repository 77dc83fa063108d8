#include <gtest/gtest.h>

#include <optional>
#include <utility>

#include "harness/pantalla.h"
#include "harness/programa.h"
#include "harness/red.h"
#include "platform/color.h"

namespace sorvanel::pruebas {
namespace {

constexpr Color FONDO = rgb(0x10, 0x20, 0x30);
constexpr const char* COLORES = "302010,00D0E0";

// One display, so that the program runs by itself, and the band.
std::string conMensaje(const std::string& texto, const std::string& velocidad, const char* enUso = "Si") {
    return Configuracion()
        .reticula(1, 1)
        .visor(puertosLibres(), 1, 1)
        .seccion("MENSAJE")
        .clave("EnUso", enUso)
        .clave("Texto", texto)
        .clave("Font", "Arial,40")
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
        ASSERT_TRUE(programa->marchar());
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
    ASSERT_TRUE(programa->pausar());
    EXPECT_TRUE(esperar([&] { return tinta(foto()) == 0; })) << "gone while it pauses";
}

TEST_F(Mensaje, CadaLetraDelMundoSePinta) {
    const auto vista = [this](const std::string& ini, const std::string& esperado) {
        arrancar(ini);
        EXPECT_EQ(programa->texto(IdControl::picMsg), esperado);
        Fotografia resultado = quieta();
        EXPECT_GT(tinta(resultado), 20);
        EXPECT_LT(borde(resultado), resultado.alto() / 3) << "not at the left edge";
        EXPECT_TRUE(programa->terminar());
        return resultado;
    };
    const Fotografia n = vista(conMensaje("n", "0"), "n");
    // In the operator's own coding and in UTF-8 alike; it begins as an "n" and has more ink.
    const Fotografia ene = vista(conMensaje("\xF1", "0", "S\xED"), "ñ");
    EXPECT_TRUE(vista(enUTF8(conMensaje("ñ", "0")), "ñ") == ene);
    EXPECT_GT(tinta(ene), tinta(n));
    // A letter outside the first 65536, which is two units of the system's text.
    vista(enUTF8(conMensaje("😀", "0")), "😀");
}

TEST_F(Mensaje, LaFranjaSeAcoplaSobreLaBarra) {
    arrancar(conMensaje("Hola", "0"));
    const RECT barra = lugar(programa->control(IdControl::picBot));
    EXPECT_TRUE(esperar([&] { return lugar(franja()).bottom == barra.top; }));
    const RECT vista = lugar(franja());
    EXPECT_EQ(std::pair(vista.left, vista.right), std::pair(barra.left, barra.right));
    EXPECT_NEAR(vista.bottom - vista.top, 61, 1) << "Arial's line of 53 pixels, and one";
}

}  // namespace
}  // namespace sorvanel::pruebas
