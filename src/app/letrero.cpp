#include "app/letrero.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "platform/contraste.h"

namespace sorvanel {

namespace {

constexpr float ALTO_LETRA = aTwips(28);
constexpr float ALTO_MINIMO = aTwips(9);
constexpr float REDUCCION = 0.85F;
constexpr float PARTE_ANCHO = 0.85F;  // of the surface
constexpr float ESTRECHAMIENTO = 0.95F;

std::vector<std::string> enLineas(const Superficie& superficie, std::string_view texto, float ancho) {
    std::vector<std::string> lineas;
    while (!texto.empty()) {
        const std::size_t fin = std::min(texto.find(' '), texto.size());
        const std::string palabra(texto.substr(0, fin));
        texto.remove_prefix(std::min(fin + 1, texto.size()));
        if (lineas.empty() || superficie.medir(lineas.back() + " " + palabra).ancho > ancho) {
            lineas.push_back(palabra);
        } else {
            lineas.back() += " " + palabra;
        }
    }
    return lineas;
}

}  // namespace

void pintarLetrero(Superficie& superficie, std::string_view texto) {
    const Rectangulo lugar = superficie.lugar();
    const float ancho = lugar.ancho * PARTE_ANCHO;
    std::vector<std::string> lineas;
    const auto caben = [&] {
        return std::all_of(lineas.begin(), lineas.end(),
                           [&](const std::string& linea) { return superficie.medir(linea).ancho <= ancho; });
    };
    float alto = ALTO_LETRA;
    do {
        superficie.fuente({"Segoe UI", alto, false, false, false});
        lineas = enLineas(superficie, texto, ancho);
        alto *= REDUCCION;
    } while (alto >= ALTO_MINIMO && !caben());
    // As narrow as the lines allow: no word stands alone on the last one.
    for (float menor = ancho; menor > ancho / 2; menor *= ESTRECHAMIENTO) {
        std::vector<std::string> otras = enLineas(superficie, texto, menor);
        if (otras.size() > lineas.size()) break;
        lineas = std::move(otras);
    }
    const float altoLinea = superficie.medir({}).alto;
    const Color tinta = tintaSobre(superficie.colorFondo());
    float y = (lugar.alto - altoLinea * static_cast<float>(lineas.size())) / 2;
    for (const std::string& linea : lineas) {
        superficie.imprimir((lugar.ancho - superficie.medir(linea).ancho) / 2, y, linea, tinta);
        y += altoLinea;
    }
}

}  // namespace sorvanel
