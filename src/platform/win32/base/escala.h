#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "platform/geometria.h"
#include "platform/monitor.h"

namespace sorvanel {

// One axis of a monitor: twips to device pixels and back. An edge always becomes the same pixel,
// whichever rectangle it belongs to, so what touches in twips touches on the screen and no pixel
// is left between neighbours. Halves go to the even pixel, as they do where a window is shaped.
class Eje {
public:
    constexpr explicit Eje(float twipsPorPixel = TWIPS_POR_PIXEL)
        : m_twips(twipsPorPixel > 0 ? static_cast<double>(twipsPorPixel) : static_cast<double>(TWIPS_POR_PIXEL)) {}

    std::int32_t aPixel(double twips) const {
        // An edge that was reached by two sums must not fall on either side of a half.
        const double fino = std::nearbyint(twips / m_twips * FINURA) / FINURA;
        return static_cast<std::int32_t>(std::clamp(std::nearbyint(fino), -LIMITE, LIMITE));
    }
    // For smooth shapes, which may lie between pixels.
    float aPixelReal(double twips) const { return static_cast<float>(twips / m_twips); }
    // A length that must not vanish: 1 pixel at least.
    std::int32_t largo(double twips) const { return std::max(aPixel(twips), std::int32_t{1}); }
    float aTwips(double pixeles) const { return static_cast<float>(pixeles * m_twips); }
    // Pixel of a point that lies `twips` from an origin, told from the origin's own pixel.
    std::int32_t desde(double origen, double twips) const { return aPixel(origen + twips) - aPixel(origen); }

    bool operator==(const Eje&) const = default;

private:
    // What the system's coordinates can hold, with room for sums.
    static constexpr double LIMITE = 1 << 24;
    // Parts of a pixel, far coarser than the error of a sum and too fine to be seen.
    static constexpr double FINURA = 128;
    double m_twips;
};

struct Escala {
    Eje x;
    Eje y;

    Escala() = default;
    Escala(float twipsPorPixelX, float twipsPorPixelY) : x(twipsPorPixelX), y(twipsPorPixelY) {}

    RectPixel aPixeles(const Rectangulo& r, double origenX = 0, double origenY = 0) const {
        const double izquierda = r.x, arriba = r.y;
        return {x.desde(origenX, izquierda), y.desde(origenY, arriba),
                x.desde(origenX, izquierda + static_cast<double>(r.ancho)),
                y.desde(origenY, arriba + static_cast<double>(r.alto))};
    }

    bool operator==(const Escala&) const = default;
};

}  // namespace sorvanel
