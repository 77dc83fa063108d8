#pragma once

#include <span>

#include "platform/monitor.h"

namespace sorvanel {

// The outline of the window. What lies outside it is not there: what is behind shows and takes clicks.
class FormaVentana {
public:
    virtual ~FormaVentana() = default;

    // The window becomes the union of the rectangles, device pixels from its own corner.
    virtual void recortar(std::span<const RectPixel> zonas) = 0;
};

}  // namespace sorvanel
