#pragma once

namespace sorvanel {

// Lengths above the seam are twips. One pixel of the design is 1/96 inch, 15 twips, at every
// monitor scale; only the Windows side knows how many device pixels that is.
constexpr float TWIPS_POR_PIXEL = 15.0F;

constexpr float aTwips(float pixeles) {
    return pixeles * TWIPS_POR_PIXEL;
}

struct Punto {
    float x = 0;
    float y = 0;

    bool operator==(const Punto&) const = default;
};

struct Rectangulo {
    float x = 0;
    float y = 0;
    float ancho = 0;
    float alto = 0;

    constexpr float derecha() const { return x + ancho; }
    constexpr float abajo() const { return y + alto; }
    constexpr bool vacio() const { return !(ancho > 0 && alto > 0); }
    bool operator==(const Rectangulo&) const = default;
};

}  // namespace sorvanel
