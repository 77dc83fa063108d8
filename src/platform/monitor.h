#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace sorvanel {

struct RectPixel {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;

    bool operator==(const RectPixel&) const = default;
};

// One monitor as the system lists it. Rectangles are device pixels of the virtual screen, where
// the primary monitor's corner is 0, 0 and others may be negative. One without size is a monitor whose
// data cannot be had: it keeps its place in the list, and is used as little as one that is not there.
struct Monitor {
    RectPixel area;
    RectPixel trabajo;  // without the task bar
    bool primario = false;
    std::string nombre;
    // Twips to one device pixel of this monitor: 15 at 100 %, 10 at 150 %, 7.5 at 200 %.
    float twipsPorPixelX = 15;
    float twipsPorPixelY = 15;

    bool vacio() const { return area.right <= area.left || area.bottom <= area.top; }
    bool operator==(const Monitor&) const = default;
};

class SistemaMonitores {
public:
    virtual ~SistemaMonitores() = default;
    // In the system's own order; empty when the system cannot say.
    virtual std::vector<Monitor> enumerar() = 0;
};

}  // namespace sorvanel
