#include "dialogs/gradiente.h"

#include <gtest/gtest.h>

#include "doubles/superficieDoble.h"

namespace sorvanel {
namespace {

using Lineas = std::vector<std::string>;
constexpr auto VERTICAL = ModoGradiente::vertical, HORIZONTAL = ModoGradiente::horizontal;

// What is painted on a picture of 6000 by 4500 twips.
template <typename Pintar>
Lineas pintado(Pintar pintar, float pixel = TWIPS_POR_PIXEL) {
    SuperficieDoble s;
    s.pixel(pixel);
    s.colocar({300, 450, 6000, 4500});
    s.olvidar();
    pintar(s);
    return s.lineas();
}

TEST(Gradiente, cubreTodaLaSuperficieDelTonoClaroAlOscuro) {
    const std::string clara = "#FAF0E6", media = "#96BEE6";
    Gradiente g;
    g.colorAclarado(rgb(250, 240, 230));
    g.color(rgb(50, 140, 230));
    const struct {
        int grado, profundidad;
        ModoGradiente modo;
        Lineas pintado;
    } casos[] = {{3,
                  100,
                  VERTICAL,
                  {"caja 0 0 6000 1500 " + clara, "caja 0 1500 6000 1500 " + media, "caja 0 3000 6000 1500 #328CE6"}},
                 {2, 50, HORIZONTAL, {"caja 0 0 3000 4500 " + clara, "caja 3000 0 3000 4500 " + media}},
                 {-5, 200, VERTICAL, {"caja 0 0 6000 4500 " + clara}},
                 {2, -5, HORIZONTAL, {"caja 0 0 3000 4500 " + clara, "caja 3000 0 3000 4500 " + clara}}};
    for (const auto& c : casos) {
        g.Grado(c.grado);
        g.Profundidad(c.profundidad);
        g.modo(c.modo);
        EXPECT_EQ(pintado([&](Superficie& s) { g.PintarGradiente(s); }), c.pintado) << c.grado << " " << c.profundidad;
    }
    g.Grado(999);
    EXPECT_EQ(pintado([&](Superficie& s) { g.PintarGradiente(s); }).size(), 64U);
}

TEST(Gradiente, elContornoEsDeUnPixelYQuedaDentro) {
    EXPECT_EQ(pintado([](Superficie& s) { Gradiente().PintarContorno(s); }, 7.5F),
              (Lineas{"caja 0 0 6000 7.5 #8E9CAA", "caja 0 4492.5 6000 7.5 #8E9CAA", "caja 0 7.5 7.5 4485 #8E9CAA",
                      "caja 5992.5 7.5 7.5 4485 #8E9CAA"}));
}

}  // namespace
}  // namespace sorvanel
