#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "display/pinturaVisor.h"
#include "doubles/superficieDoble.h"

namespace sorvanel {
namespace {

// A surface whose picture is one row of pixels: of each, which character stands there, how high, and which part of it.
class Tira : public SuperficieDoble {
public:
    std::vector<std::string> puntos = std::vector<std::string>(1000);
    double pintados = 0;

    void limpiar() override { puntos.assign(puntos.size(), {}); }
    void caja(const Rectangulo& zona, Color) override {
        for (std::size_t x = pixelDe(zona.x); x < pixelDe(zona.derecha()); ++x) puntos.at(x).clear();
    }
    void imprimir(float x, float y, std::string_view texto, Color color) override {
        imprimirEn({0, 0, 15.0F * 999, 3000}, x, y, texto, color);
    }
    void imprimirEn(const Rectangulo& zona, float x, float, std::string_view texto, Color) override {
        for (const char letra : texto) {
            const float ancho = medir({&letra, 1}).ancho;
            const std::string cual = '/' + std::to_string(std::lround(fuente().alto));
            for (std::size_t p = pixelDe(x); p < pixelDe(x + ancho); ++p) {
                if (p < pixelDe(zona.x) || p >= pixelDe(zona.derecha())) continue;
                puntos.at(p) = letra + std::to_string(p - pixelDe(x)) + cual;
                ++pintados;
            }
            x += ancho;
        }
    }
    // The characters whose left edge is there.
    std::string leido() const {
        std::string texto;
        for (const std::string& punto : puntos) {
            if (punto.find("0/") == 1 && punto[0] > 0) texto += punto[0];
        }
        return texto;
    }

private:
    static std::size_t pixelDe(float twips) { return static_cast<std::size_t>(std::lround(twips / 15)); }
};

TEST(pinturaParcial, loCambiadoDejaLaImagenDelPesoEntero) {
    std::mt19937 azar(20);
    for (const char* formato : {"0000.0", "####0", "0.000", "0.0\" kg\"", "\"il\"#0.00\"€\"", "0.0\" ilg\""}) {
        Tira etiqueta, parcial, entero;
        PinturaVisor unos(etiqueta, parcial), otros(etiqueta, entero);
        AspectoVisor aspecto;
        aspecto.formato = formato;
        ASSERT_TRUE(unos.encajar({0, 0, 12000, 3000}, aspecto) && otros.encajar({0, 0, 12000, 3000}, aspecto));
        std::int32_t peso = 0;
        std::string texto;
        for (int vez = 0; vez < 200; ++vez) {
            const std::int32_t pasos[] = {1, -10, 100, -1000, 10000, 3, 0, -peso};
            peso = std::clamp(peso + pasos[azar() % 8], -99'999, 99'999'999);
            // For a while weights are wider than their area, now and then by more than a digit.
            if (azar() % 30 == 0) peso = vez % 2 == 0 ? 12'345'600 : -98'765'432;
            if (peso > 0 && azar() % 60 == 0) peso %= 10'000;
            if (azar() % 50 == 0) unos.pintarSinDatos({});
            unos.pintarPeso({false, false, false, peso}, {});
            otros.limpiarPeso();
            otros.pintarPeso({false, false, false, peso}, {});
            ASSERT_EQ(parcial.puntos, entero.puntos) << formato << ' ' << peso;
            FormatoPeso(formato).escribir(peso, texto);
            std::erase_if(texto, [](char letra) { return letra < 0; });
            ASSERT_EQ(parcial.leido(), texto) << "never cut";
        }
        const bool suelto = std::string_view(formato).find("€") == std::string_view::npos;
        EXPECT_EQ(parcial.pintados < entero.pintados * 0.95, suelto) << formato << ": less is painted";
    }
}

}  // namespace
}  // namespace sorvanel
