#include "platform/win32/formas.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace sorvanel {
namespace {

constexpr Rectangulo CAJA{2, 2, 16, 12};
constexpr Punto TRIANGULO[] = {{3, 17}, {10, 2}, {17, 17}};
constexpr Punto AL_REVES[] = {{17, 17}, {10, 2}, {3, 17}};
constexpr Punto ELE[] = {{3, 3}, {9, 3}, {9, 11}, {17, 11}, {17, 17}, {3, 17}};
constexpr Punto QUEBRADA[] = {{4, 4}, {16, 4}, {16, 16}};

struct Figura {
    std::string nombre;
    std::function<float(Punto)> distancia;
    float area;
    float tolerancia;
};

std::vector<Figura> figuras() {
    using namespace formas;
    return {
        {"recto", [](Punto p) { return aRedondeado(p, CAJA, 0); }, 192, 0.01F},
        {"radio negativo", [](Punto p) { return aRedondeado(p, CAJA, -3); }, 192, 0.01F},
        {"redondeado", [](Punto p) { return aRedondeado(p, CAJA, 4); }, 192 - 16 * (4 - 3.1416F), 0.6F},
        {"circulo",
         [](Punto p) {
             return a(p, {10, 10}) - 6;
         },
         113.1F, 0.6F},
        {"triangulo", [](Punto p) { return aPoligono(p, TRIANGULO); }, 105, 0.6F},
        {"al reves", [](Punto p) { return aPoligono(p, AL_REVES); }, 105, 0.6F},
        {"ele", [](Punto p) { return aPoligono(p, ELE); }, 132, 0.01F},
        {"trazo",
         [](Punto p) {
             return aSegmento(p, {4, 10}, {16, 10}) - 2;
         },
         48 + 12.57F, 0.6F},
        {"punto",
         [](Punto p) {
             return aSegmento(p, {10, 10}, {10, 10}) - 3;
         },
         28.27F, 0.6F},
        {"linea", [](Punto p) { return aLinea(p, QUEBRADA) - 1; }, 48 + 3.14F - 1 + 0.785F, 0.6F},
        // A quarter is open: the rest of the ring and two half circles at its ends.
        {"arco",
         [](Punto p) {
             return aArcoAbierto(p, {10, 10}, 7, 45) - 1;
         },
         0.75F * 87.96F + 3.14F, 0.8F},
        {"diferencia",
         [](Punto p) {
             return std::max(aRedondeado(p, CAJA, 0), -aRedondeado(p, {4, 4, 4, 4}, 0));
         },
         176, 0.01F},
    };
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
        for (int y = 0; y < LADO; ++y) {
            for (int x = 0; x < LADO; ++x) {
                const float d = figura.distancia(centro(x, y));
                const auto esperada = formas::cobertura(d);
                for (int salto = 1; salto < formas::iguales(d) && x + salto < LADO; ++salto) {
                    ASSERT_EQ(formas::cobertura(figura.distancia(centro(x + salto, y))), esperada)
                        << figura.nombre << " " << x << " " << y << " " << salto;
                }
            }
        }
    }
}

TEST(Formas, mezclan) {
    EXPECT_EQ(formas::mezclar(0x123456, 0xFFEEDD, 0), 0x123456U);
    EXPECT_EQ(formas::mezclar(0x123456, 0xFFEEDD, 256), 0xFFEEDDU);
    EXPECT_EQ(formas::mezclar(0x000000, 0xFF8040, 128), 0x804020U);
    EXPECT_EQ(formas::mezclar(0xFFFFFF, 0x000000, 128), 0x808080U);
    EXPECT_EQ(formas::cobertura(0), 128U);
}

}  // namespace
}  // namespace sorvanel
