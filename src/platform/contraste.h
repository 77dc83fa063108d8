#pragma once

#include <algorithm>
#include <cmath>

#include "platform/color.h"

namespace sorvanel {

// How bright it is to the eye, 0 for black to 1 for white.
inline double luminancia(Color color) {
    const auto canal = [color](int bits) {
        const double c = (color >> bits & 0xFF) / 255.0;
        return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * canal(0) + 0.7152 * canal(8) + 0.0722 * canal(16);
}

// What lines and signs must have to be seen by everybody; small letters need half as much again.
constexpr double CONTRASTE_MINIMO = 3;

// How well one is told from the other, 1 for not at all to 21 for black on white.
inline double contraste(Color uno, Color otro) {
    const double a = luminancia(uno), b = luminancia(otro);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

// Of black and white the one that is better read there.
inline Color tintaSobre(Color fondo) {
    return contraste(NEGRO, fondo) >= contraste(BLANCO, fondo) ? NEGRO : BLANCO;
}

}  // namespace sorvanel
