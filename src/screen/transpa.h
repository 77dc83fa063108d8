#pragma once

#include <optional>
#include <span>
#include <utility>

#include "platform/formaVentana.h"
#include "platform/geometria.h"
#include "platform/monitor.h"

namespace sorvanel {

// Cuts the window down to what is to be kept of it.
class Transpa {
public:
    // For a window that covers that monitor.
    explicit Transpa(Monitor monitor) : m_monitor(std::move(monitor)) {}

    // Keeps the union of the rectangles (twips from the window's corner). Without a list the window is
    // whole again; a list of none leaves its shape as it is.
    void transparentar(FormaVentana& forma, std::optional<std::span<const Rectangulo>> conservar) const;

private:
    RectPixel aPixeles(const Rectangulo& zona) const;

    const Monitor m_monitor;
};

}  // namespace sorvanel
