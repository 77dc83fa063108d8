#include <gtest/gtest.h>

#include <random>

#include "display/familia.h"
#include "display/pinturaVisor.h"
#include "doubles/tiraDoble.h"

namespace sorvanel {
namespace {

// Whatever stood there: weights, marks, dashes, other colours.
TEST(pinturaParcial, loCambiadoDejaLaImagenEntera) {
    std::mt19937 azar(20);
    const auto unaDe = [&](unsigned veces) { return azar() % veces == 0; };
    for (const char* formato : {"0000.0", "####0", "0.000", "0.0\" kg\"", "\"il\"#0.00\"€\"", "0.0\" ilg\""}) {
        const MarcasVisor marcas = (formato[0] == '0' ? FAMILIA_PAVONA : FAMILIA_TESSEL).marcas;
        AspectoVisor aspecto;
        aspecto.formato = formato;
        // In the narrow one the letters fill the whole width.
        const Rectangulo celda{0, 0, formato[0] == '0' ? 5000.0F : 12000.0F, 3000};
        TiraDoble etiqueta, parcial;
        PinturaVisor pintura(etiqueta, parcial);
        ASSERT_TRUE(pintura.encajar(celda, aspecto));
        std::int32_t peso = 0;
        double enteros = 0;
        for (int vez = 0; vez < 200; ++vez) {
            const std::int32_t pasos[] = {1, -10, 1'111'111, -1000, 10000, 3, 0, -peso};
            peso = std::clamp(peso + pasos[azar() % 8], -99'999, 99'999'999);
            // For a while weights are wider than their area, now and then by more than a digit.
            if (unaDe(30)) peso = vez % 2 == 0 ? 12'345'600 : -98'765'432;
            if (peso > 0 && unaDe(60)) peso %= 10'000;
            const bool hay = !unaDe(20), E = unaDe(9), C = unaDe(9), D = unaDe(9);
            const auto pintar = [&](PinturaVisor& p) {
                hay ? p.pintarPeso({E, C, D, peso}, marcas) : p.pintarSinDatos(marcas);
            };
            if (unaDe(50)) pintura.limpiarPeso();
            if (unaDe(50)) {
                aspecto.fondoPeso = vez;
                aspecto.textoPeso = -vez;
                pintura.aspecto(aspecto);
            }
            pintar(pintura);
            TiraDoble entera;
            PinturaVisor otra(etiqueta, entera);
            ASSERT_TRUE(otra.encajar(celda, aspecto));
            pintar(otra);
            for (std::size_t p = 0; p < static_cast<std::size_t>(parcial.lugar().ancho / 15); ++p)
                ASSERT_EQ(parcial.puntos[p], entera.puntos[p]) << formato << ' ' << peso << ' ' << p;
            ASSERT_EQ(parcial.textoLeyenda(), entera.textoLeyenda());
            enteros += entera.impresos;
        }
        const bool suelto = std::string_view(formato).find("€") == std::string_view::npos;
        EXPECT_EQ(parcial.impresos < enteros * 0.95, suelto) << formato << ": less is painted";
    }
}

}  // namespace
}  // namespace sorvanel
