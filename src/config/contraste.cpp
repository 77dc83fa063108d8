#include "config/contraste.h"

#include <algorithm>
#include <cmath>

namespace sorvanel {

namespace {

float componente(int ocho) {
    const float c = static_cast<float>(ocho & 0xFF) / 255;
    return c <= 0.04045F ? c / 12.92F : std::pow((c + 0.055F) / 1.055F, 2.4F);
}

float luminancia(Color color) {
    return 0.2126F * componente(color) + 0.7152F * componente(color >> 8) + 0.0722F * componente(color >> 16);
}

}  // namespace

float contraste(Color uno, Color otro) {
    const auto [oscuro, claro] = std::minmax({luminancia(uno), luminancia(otro)});
    return (claro + 0.05F) / (oscuro + 0.05F);
}

}  // namespace sorvanel
