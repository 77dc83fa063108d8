#include "platform/win32/escala.h"

#include <gtest/gtest.h>

#include <string>

namespace sorvanel {
namespace {

// 100, 125, 150, 175, 200 and 225 %.
constexpr float ESCALAS[] = {15.0F, 12.0F, 10.0F, 60.0F / 7, 7.5F, 20.0F / 3};

TEST(Eje, redondea) {
    struct {
        float escala;
        double twips;
        std::int32_t pixel;
    } const casos[] = {
        {15, 0, 0},          {15, 15, 1},
        {15, 7.4, 0},        {15, 7.6, 1},
        {15, 7.5, 0},  // half to even
        {15, 22.5, 2},       {15, -7.5, 0},
        {15, -22.5, -2},     {15, -15, -1},
        {10, 15, 2},         {10, 45, 4},
        {7.5F, 15, 2},       {12, 480, 40},
        {0, 30, 2},          {-3, 30, 2},  // a monitor that tells nonsense is at 100 %
        {15, 1e30, 1 << 24}, {15, -1e30, -(1 << 24)},
    };
    for (const auto& caso : casos) {
        EXPECT_EQ(Eje(caso.escala).aPixel(caso.twips), caso.pixel) << caso.escala << " " << caso.twips;
    }
    EXPECT_EQ(Eje(15).largo(0), 1);
    EXPECT_EQ(Eje(7.5F).largo(30), 4);
}

// Cells between lines, as a grid lays them: whatever the scale and the widths, one ends where the
// next begins, and together they fill the whole.
void comprobarVecinas(float twips, float inicio, float total, int columnas) {
    const Escala escala(twips, twips);
    const float linea = aTwips(3);
    const float celda = (total - linea * static_cast<float>(columnas + 1)) / static_cast<float>(columnas);
    std::int32_t anterior = escala.x.aPixel(static_cast<double>(inicio));
    float x = inicio;
    for (int pieza = 0; pieza < 2 * columnas + 1; ++pieza) {
        const float ancho = pieza % 2 == 0 ? linea : celda;
        const RectPixel r = escala.aPixeles({x, 0, ancho, 10});
        ASSERT_EQ(r.left, anterior) << twips << " " << columnas << " " << pieza;
        ASSERT_GT(r.right, r.left);
        anterior = r.right;
        x += ancho;
    }
    EXPECT_EQ(anterior, escala.x.aPixel(static_cast<double>(inicio + total))) << twips << " " << columnas;
}

// Also where the whole ends in the middle of a pixel, and the sums miss that by a hair.
TEST(Escala, lasVecinasNoDejanHueco) {
    for (const float twips : ESCALAS) {
        for (int columnas = 1; columnas <= 8; ++columnas) {
            comprobarVecinas(twips, 37.3F, 1366 * twips, columnas);
            comprobarVecinas(twips, 0, 2730.5F * twips, columnas);
            comprobarVecinas(twips, 0, 955.5F * twips, columnas);
        }
    }
}

// A box painted in a surface that lies anywhere covers the pixels that the same box would cover on
// the form: also the last row and column.
TEST(Escala, loPintadoDentroCoincideConElBorde) {
    for (const float twips : ESCALAS) {
        const Escala escala(twips, twips);
        for (int i = 0; i < 200; ++i) {
            const Rectangulo lugar{0.37F * static_cast<float>(i * i), 11.9F * static_cast<float>(i), 1003.7F, 511.1F};
            const RectPixel fuera = escala.aPixeles(lugar);
            const RectPixel dentro = escala.aPixeles({0, 0, lugar.ancho, lugar.alto}, lugar.x, lugar.y);
            EXPECT_EQ(dentro, (RectPixel{0, 0, fuera.right - fuera.left, fuera.bottom - fuera.top}))
                << twips << " " << i;
        }
    }
}

// What is told in whole pixels of the monitor comes back as as many: a picture that moves by them
// and what is painted later meet without a seam.
TEST(Eje, losPixelesVuelvenEnteros) {
    for (const float twips : ESCALAS) {
        const Eje eje(twips);
        for (std::int32_t pixel = -4000; pixel <= 4000; ++pixel) {
            const float exacto = eje.aTwips(1) * static_cast<float>(pixel);
            ASSERT_EQ(eje.aPixel(static_cast<double>(exacto)), pixel) << twips;
            ASSERT_EQ(eje.aPixel(static_cast<double>(eje.aTwips(pixel))), pixel) << twips;
        }
    }
}

}  // namespace
}  // namespace sorvanel
