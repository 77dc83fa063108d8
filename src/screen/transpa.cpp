#include "screen/transpa.h"

#include <array>
#include <cmath>
#include <vector>

namespace sorvanel {

namespace {

// Halves to even, as the system's own conversions round.
std::int32_t pixel(float twips, float twipsPorPixel) {
    return static_cast<std::int32_t>(std::nearbyint(twips / twipsPorPixel));
}

}  // namespace

RectPixel Transpa::aPixeles(const Rectangulo& zona) const {
    const float x = m_monitor.twipsPorPixelX;
    const float y = m_monitor.twipsPorPixelY;
    return {pixel(zona.x, x), pixel(zona.y, y), pixel(zona.derecha(), x), pixel(zona.abajo(), y)};
}

void Transpa::transparentar(FormaVentana& forma, std::optional<std::span<const Rectangulo>> conservar) const {
    if (!conservar) {
        const RectPixel& area = m_monitor.area;
        const std::array<RectPixel, 1> entera{RectPixel{0, 0, area.right - area.left, area.bottom - area.top}};
        forma.recortar(entera);
        return;
    }
    if (conservar->empty()) return;
    std::vector<RectPixel> zonas;
    for (const Rectangulo& zona : *conservar) zonas.push_back(aPixeles(zona));
    forma.recortar(zonas);
}

}  // namespace sorvanel
