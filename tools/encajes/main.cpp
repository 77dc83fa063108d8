// How large digits and captions become in each grid, with the caption beside the weight and above it, at 1280 by 800
// in the shared design's default: as the program fits them, in the system's own font. Under Wine:
//   cmake --build --preset windows --target encajes && wine build/windows/tools/encajes/encajes.exe
// Ends with 1 where digits above gain less than GANANCIA, or a caption above is lower than LEGIBLE at 8 x 8.
#include <algorithm>
#include <array>
#include <cstdio>
#include <string>

#include "display/disenoVisor.h"
#include "display/encajeVisor.h"
#include "display/formatoPeso.h"
#include "platform/win32/painting/pinturaWin.h"

namespace sorvanel {

namespace {

constexpr float GANANCIA = 1.35F;
constexpr float LEGIBLE = 9;  // pixels
constexpr float ANCHO = aTwips(1280), ALTO = aTwips(800 - 32), LINEA = aTwips(4);
constexpr std::array<std::pair<int, int>, 8> PARRILLAS{
    {{1, 1}, {1, 2}, {2, 1}, {3, 2}, {2, 3}, {4, 4}, {6, 6}, {8, 8}}};
constexpr std::array<const char*, 5> ETIQUETAS{"Tolva 3", "Báscula de camiones", "Mezcladora principal",
                                               "Tolva norte de áridos", "Superlargasinblancos"};

// Measures and keeps no picture.
class Medidor final : public PinturaWin {
public:
    Medidor(const Escala& escala, FuentesWin& fuentes, Lienzo& borrador) : PinturaWin(escala, fuentes, borrador) {}
    void colocar(const Rectangulo&) override {}
    void mostrar(bool) override {}
    bool visible() const override { return false; }
    void leyenda(std::string_view) override {}
    void sugerencia(std::string_view) override {}
    void refrescar() override {}

private:
    void tocar(const RECT*) override {}
};

struct Medidas {
    float cifras = 0;               // pixels of ink
    float menor = 1e9F, mayor = 0;  // height of the captions' capitals
};

AspectoVisor deOmision(bool encima) {
    ValoresRasgos valores;
    for (const FilaRasgo& fila : RASGOS) valores[fila.rasgo] = leerRasgo(fila, fila.omision);
    AspectoVisor aspecto = aspectoDe(valores);
    aspecto.etiquetaEncima = encima;
    return aspecto;
}

Medidas medir(Medidor& medidor, std::pair<int, int> parrilla, bool encima) {
    const auto filas = static_cast<float>(parrilla.first), columnas = static_cast<float>(parrilla.second);
    const Rectangulo celda{0, 0, (ANCHO - LINEA) / columnas - LINEA, (ALTO - LINEA) / filas - LINEA};
    AspectoVisor aspecto = deOmision(encima);
    Medidas medidas;
    for (const char* etiqueta : ETIQUETAS) {
        aspecto.etiqueta = etiqueta;
        const auto encaje = encajarVisor(medidor, celda, aspecto, FormatoPeso(aspecto.formato).muestra());
        if (!encaje) continue;
        medidas.cifras = (encaje->tintaInferior - encaje->tintaSuperior) / TWIPS_POR_PIXEL;
        medidor.fuente(encaje->etiqueta.fuente);
        const MedidaTexto letra = medidor.medir("H");
        const float alta = (letra.tintaInferior - letra.tintaSuperior) / TWIPS_POR_PIXEL;
        medidas.menor = std::min(medidas.menor, alta);
        medidas.mayor = std::max(medidas.mayor, alta);
    }
    return medidas;
}

int tabla() {
    const Escala escala;
    FuentesWin fuentes;
    Lienzo borrador;
    Medidor medidor(escala, fuentes, borrador);
    bool bien = true;
    std::puts("Pixels; captions: the lowest and the highest capitals of those tried\n");
    std::puts("| Grid | digits beside | digits above | ratio | captions beside | captions above |");
    std::puts("|---|---|---|---|---|---|");
    for (const auto& parrilla : PARRILLAS) {
        const Medidas lado = medir(medidor, parrilla, false), encima = medir(medidor, parrilla, true);
        const float razon = encima.cifras / lado.cifras;
        std::printf("| %d x %d | %.0f | %.0f | %.2f | %.0f to %.0f | %.0f to %.0f |\n", parrilla.first, parrilla.second,
                    double{lado.cifras}, double{encima.cifras}, double{razon}, double{lado.menor}, double{lado.mayor},
                    double{encima.menor}, double{encima.mayor});
        bien = bien && razon >= GANANCIA && encima.menor >= LEGIBLE;
    }
    return bien ? 0 : 1;
}

}  // namespace

}  // namespace sorvanel

int main() {
    return sorvanel::tabla();
}
