#include "platform/win32/painting/formas.h"

#include <gtest/gtest.h>

#include "dialogs/gradiente.h"
#include "dialogs/tallerDialogo.h"
#include "platform/contraste.h"
#include "platform/win32/base/direccionArchivo.h"
#include "platform/win32/painting/paleta.h"

namespace sorvanel {
namespace {

constexpr Rectangulo CAJA{2, 2, 16, 12};
constexpr Punto CENTRO{10, 10}, IZQUIERDA{4, 10}, DERECHA{16, 10};
constexpr Punto TRIANGULO[] = {{3, 17}, {10, 2}, {17, 17}};
constexpr Punto AL_REVES[] = {{17, 17}, {10, 2}, {3, 17}};
constexpr Punto ELE[] = {{3, 3}, {9, 3}, {9, 11}, {17, 11}, {17, 17}, {3, 17}};
constexpr Punto QUEBRADA[] = {{4, 4}, {16, 4}, {16, 16}};

struct Figura {
    std::string nombre;
    float area, tolerancia;
    std::function<float(Punto)> distancia;
};

std::vector<Figura> figuras() {
    using namespace formas;
    constexpr float PI = std::numbers::pi_v<float>;
    return {{"recto", 192, 0.01F, [](Punto p) { return aRedondeado(p, CAJA, 0); }},
            {"radio negativo", 192, 0.01F, [](Punto p) { return aRedondeado(p, CAJA, -3); }},
            {"redondeado", 192 - 16 * (4 - PI), 0.6F, [](Punto p) { return aRedondeado(p, CAJA, 4); }},
            {"circulo", 36 * PI, 0.6F, [](Punto p) { return a(p, CENTRO) - 6; }},
            {"triangulo", 105, 0.6F, [](Punto p) { return aPoligono(p, TRIANGULO); }},
            {"al reves", 105, 0.6F, [](Punto p) { return aPoligono(p, AL_REVES); }},
            {"ele", 132, 0.01F, [](Punto p) { return aPoligono(p, ELE); }},
            {"trazo", 48 + 4 * PI, 0.6F, [](Punto p) { return aSegmento(p, IZQUIERDA, DERECHA) - 2; }},
            {"punto", 9 * PI, 0.6F, [](Punto p) { return aSegmento(p, CENTRO, CENTRO) - 3; }},
            {"linea", 47 + 1.25F * PI, 0.6F, [](Punto p) { return aLinea(p, QUEBRADA) - 1; }},
            // A quarter is open: the rest of the ring and two half circles at its ends.
            {"arco", 22 * PI, 0.8F, [](Punto p) { return aArcoAbierto(p, CENTRO, 7, 45) - 1; }}};
}

constexpr int LADO = 20;

Punto centro(int x, int y) {
    return {static_cast<float>(x) + 0.5F, static_cast<float>(y) + 0.5F};
}

// As much ink as the shape has area: no edge too fat, too thin, or turned inside out.
TEST(Formas, cubrenSuArea) {
    for (const Figura& figura : figuras()) {
        float tinta = 0;
        for (int i = 0; i < LADO * LADO; ++i) {
            tinta += static_cast<float>(formas::cobertura(figura.distancia(centro(i % LADO, i / LADO)))) / 256;
        }
        EXPECT_NEAR(tinta, figura.area, figura.tolerancia) << figura.nombre;
    }
}

// Painting leaps over pixels that must be as the first one is. Were a distance larger than it is, a
// piece of the shape would be leapt over or painted past its edge.
TEST(Formas, saltarNoPierdeNada) {
    for (const Figura& figura : figuras()) {
        for (int i = 0; i < LADO * LADO; ++i) {
            const int x = i % LADO, y = i / LADO;
            const float d = figura.distancia(centro(x, y));
            for (int salto = 1; salto < formas::iguales(d) && x + salto < LADO; ++salto) {
                ASSERT_EQ(formas::cobertura(figura.distancia(centro(x + salto, y))), formas::cobertura(d))
                    << figura.nombre << " " << x << " " << y << " " << salto;
            }
        }
    }
}

TEST(Formas, mezclan) {
    EXPECT_EQ(formas::mezclar(0x123456, 0xFFEEDD, 0), 0x123456U);
    EXPECT_EQ(formas::mezclar(0x123456, 0xFFEEDD, 256), 0xFFEEDDU);
    EXPECT_EQ(formas::mezclar(0x000000, 0xFF8040, 128), 0x804020U);
    EXPECT_EQ(formas::cobertura(0), 128U);
}

TEST(Direccion, deUnArchivo) {
    EXPECT_EQ(direccionArchivo("C:\\Año 100%\\b#1.html"), "file:///C:/A%C3%B1o%20100%25/b%231.html");
    EXPECT_EQ(direccionArchivo("\\\\pc\\b.html"), "file://pc/b.html");
}

// On every ground on which controls stand: the bar, a tool's gradient, a group, a selected row, their own faces.
TEST(Paleta, lineasYLetrasSeDistinguenDeTodosLosFondos) {
    EXPECT_NEAR(contraste(NEGRO, BLANCO), 21, 0.001);
    EXPECT_NEAR(contraste(rgb(0x77, 0x77, 0x77), BLANCO), 4.48, 0.005);
    const apariencia::Paleta p;
    const Gradiente g;
    const Color fondos[] = {
        rgb(0xE6, 0xEA, 0xEE), g.color(),    g.colorAclarado(), COLOR_PANEL, rgb(0xD6, 0xE7, 0xF8), p.ventana, p.cara,
        p.caraEncima,          p.caraInhabil};
    for (const Color fondo : fondos) {
        SCOPED_TRACE(fondo);
        for (const Color linea : {p.borde, p.bordeEncima, p.foco}) EXPECT_GE(contraste(linea, fondo), 3);
        for (const Color letra : {p.letra, p.letraInhabil}) EXPECT_GE(contraste(letra, fondo), 4.5);
    }
}

}  // namespace
}  // namespace sorvanel
