#pragma once

#include <cmath>
#include <string>
#include <string_view>
#include <vector>

#include "platform/superficie.h"

namespace sorvanel {

// Whole pixels, so that letters and lines are even.
inline float aPixelEntero(float twips) {
    return std::floor(twips / TWIPS_POR_PIXEL) * TWIPS_POR_PIXEL;
}
inline float alPixelCercano(float twips) {
    return aPixelEntero(twips + TWIPS_POR_PIXEL / 2);
}

// Captions and weights are written in one hand, of that height.
inline Fuente letraVisor(float alto) {
    return {.alto = alto, .negrita = true};
}

struct LineaEtiqueta {
    std::string texto;
    float ancho = 0;  // twips
    float y = 0;      // top of the line
};

// How a caption lies in its area, twips.
struct EncajeEtiqueta {
    Fuente fuente;
    float margen = 0;  // kept free at both sides
    std::vector<LineaEtiqueta> lineas;
};

struct ZonaEtiqueta {
    float ancho = 0;
    float alto = 0;
    float margen = 0;          // at either side
    float margenVertical = 0;  // above and below
    float altoLetra = 0;       // the font's height where the caption need not be smaller
};

// The caption in that height on one line where it fits, else on as many as make its letters largest. It breaks at
// blanks, no-break ones too: captions hold no others; where nobody could read it then, between syllables too. Measures
// with `medidor` and leaves its font changed.
EncajeEtiqueta encajarEtiqueta(Superficie& medidor, const ZonaEtiqueta& zona, std::string_view texto);

}  // namespace sorvanel
