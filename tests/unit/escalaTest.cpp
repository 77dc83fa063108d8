#include "platform/win32/base/escala.h"

#include <gtest/gtest.h>

namespace sorvanel {
namespace {

// 100, 125, 150, 175, 200 and 225 %.
constexpr float ESCALAS[] = {15.0F, 12.0F, 10.0F, 60.0F / 7, 7.5F, 20.0F / 3};

TEST(Eje, redondeaLasMitadesAlPar) {
    const std::map<float, std::map<double, std::int32_t>> casos = {
        {15.0F, {{0, 0}, {15, 1}, {7.4, 0}, {7.5, 0}, {7.6, 1}, {22.5, 2}, {-7.5, 0}, {-22.5, -2}, {-15, -1}}},
        {15.1F, {{1e30, 1 << 24}, {-1e30, -(1 << 24)}}},
        {10.0F, {{15, 2}, {45, 4}}},
        {7.5F, {{15, 2}}},
        {0.0F, {{30, 2}}},  // a monitor that tells nonsense is at 100 %
        {-3.0F, {{30, 2}}}};
    for (const auto& [escala, puntos] : casos) {
        for (const auto& [twips, pixel] : puntos) EXPECT_EQ(Eje(escala).aPixel(twips), pixel) << escala << " " << twips;
    }
    EXPECT_EQ(Eje(15).largo(0), 1);
    EXPECT_EQ(Eje(7.5F).largo(30), 4);
}

// Cells between lines, as a grid lays them: whatever the scale and the widths, one ends where the next begins, and
// together they fill the whole. Also where that ends in the middle of a pixel, and the sums miss it by a hair.
TEST(Escala, lasVecinasNoDejanHueco) {
    for (const float twips : ESCALAS) {
        for (const auto& [inicio, total] : {std::pair{37.3F, 1366.0F}, {0.0F, 2730.5F}, {0.0F, 955.5F}}) {
            for (int columnas = 1; columnas <= 8; ++columnas) {
                const Escala escala(twips, twips);
                const float linea = aTwips(3), lineas = linea * static_cast<float>(columnas + 1);
                const float celda = (total * twips - lineas) / static_cast<float>(columnas);
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
                EXPECT_EQ(anterior, escala.x.aPixel(static_cast<double>(inicio + total * twips))) << columnas;
            }
        }
    }
}

// A box painted in a surface that lies anywhere covers the pixels that it would cover on the form; and
// what is told in whole pixels comes back as as many: a picture that moves by them leaves no seam.
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
        for (std::int32_t pixel = -4000; pixel <= 4000; ++pixel) {
            const float exacto = escala.x.aTwips(1) * static_cast<float>(pixel);
            ASSERT_EQ(escala.x.aPixel(static_cast<double>(exacto)), pixel) << twips;
            ASSERT_EQ(escala.x.aPixel(static_cast<double>(escala.x.aTwips(pixel))), pixel) << twips;
        }
    }
}

}  // namespace
}  // namespace sorvanel
