#include <gtest/gtest.h>

#include <cstdio>

#include "dialogs/gradiente.h"
#include "doubles/superficieDoble.h"

namespace sorvanel {
namespace {

constexpr Rectangulo LUGAR{300, 450, 6000, 4515};

struct Banda {
    Rectangulo zona;
    Color color = 0;
};

// What was painted, in its order; a line that is no box fails.
std::vector<Banda> bandas(SuperficieDoble& s) {
    std::vector<Banda> todas;
    for (const std::string& linea : s.lineas()) {
        Banda b;
        unsigned rojo = 0, verde = 0, azul = 0;
        const int leidos = std::sscanf(linea.c_str(), "caja %f %f %f %f #%2x%2x%2x", &b.zona.x, &b.zona.y,
                                       &b.zona.ancho, &b.zona.alto, &rojo, &verde, &azul);
        EXPECT_EQ(leidos, 7) << linea;
        b.color = rgb(static_cast<int>(rojo), static_cast<int>(verde), static_cast<int>(azul));
        todas.push_back(b);
    }
    s.olvidar();
    return todas;
}

SuperficieDoble& enSuLugar(SuperficieDoble& s) {
    s.colocar(LUGAR);
    s.olvidar();
    return s;
}

TEST(Gradiente, cubreTodaLaSuperficieDelTonoClaroAlOscuro) {
    struct Caso {
        int grado, profundidad;
        ModoGradiente modo;
        std::size_t bandas;
        Color primero, ultimo;
    };
    const Color claro = rgb(250, 240, 230), oscuro = rgb(50, 140, 230);
    const Color medio = rgb(150, 190, 230);
    const Caso casos[] = {
        {16, 100, ModoGradiente::vertical, 16, claro, oscuro},  {7, 100, ModoGradiente::horizontal, 7, claro, oscuro},
        {5, 50, ModoGradiente::vertical, 5, claro, medio},      {5, 0, ModoGradiente::vertical, 5, claro, claro},
        {1, 100, ModoGradiente::vertical, 1, claro, claro},     {0, 100, ModoGradiente::vertical, 1, claro, claro},
        {999, 200, ModoGradiente::vertical, 64, claro, oscuro}, {9, -5, ModoGradiente::horizontal, 9, claro, claro},
    };
    for (const Caso& c : casos) {
        SCOPED_TRACE(c.grado * 1000 + c.profundidad);
        SuperficieDoble s;
        Gradiente g;
        g.colorAclarado(claro);
        g.color(oscuro);
        g.Grado(c.grado);
        g.Profundidad(c.profundidad);
        g.modo(c.modo);
        g.PintarGradiente(enSuLugar(s));
        const std::vector<Banda> todas = bandas(s);
        ASSERT_EQ(todas.size(), c.bandas);
        EXPECT_EQ(todas.front().color, c.primero);
        EXPECT_EQ(todas.back().color, c.ultimo);
        const bool vertical = c.modo == ModoGradiente::vertical;
        float hasta = 0;
        for (const Banda& b : todas) {
            EXPECT_NEAR(vertical ? b.zona.y : b.zona.x, hasta, 1) << "a gap or an overlap";
            EXPECT_NEAR(vertical ? b.zona.ancho : b.zona.alto, vertical ? LUGAR.ancho : LUGAR.alto, 1);
            hasta = vertical ? b.zona.abajo() : b.zona.derecha();
        }
        EXPECT_NEAR(hasta, vertical ? LUGAR.alto : LUGAR.ancho, 1);
    }
}

TEST(Gradiente, laVerticalNoMiraElModo) {
    SuperficieDoble s;
    Gradiente g;
    g.modo(ModoGradiente::horizontal);
    g.PintarGradienteVertical(enSuLugar(s));
    const std::vector<Banda> todas = bandas(s);
    EXPECT_NEAR(todas.front().zona.ancho, LUGAR.ancho, 1);
    EXPECT_LT(todas.front().zona.alto, LUGAR.alto);
}

TEST(Gradiente, elContornoEsDeUnPixelYQuedaDentro) {
    for (const float pixel : {15.0F, 7.5F}) {
        SuperficieDoble s;
        s.pixel(pixel);
        Gradiente().PintarContorno(enSuLugar(s));
        float area = 0;
        for (const Banda& b : bandas(s)) {
            EXPECT_GE(b.zona.x, 0);
            EXPECT_GE(b.zona.y, 0);
            EXPECT_LE(b.zona.derecha(), LUGAR.ancho);
            EXPECT_LE(b.zona.abajo(), LUGAR.alto);
            area += b.zona.ancho * b.zona.alto;
        }
        const float dentro = (LUGAR.ancho - 2 * pixel) * (LUGAR.alto - 2 * pixel);
        EXPECT_NEAR(area, LUGAR.ancho * LUGAR.alto - dentro, 1000);
    }
}

}  // namespace
}  // namespace sorvanel
