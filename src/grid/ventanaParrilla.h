#pragma once

#include "platform/formaVentana.h"
#include "platform/geometria.h"

namespace sorvanel {

// What the grid needs of the window in which it is drawn.
class VentanaParrilla {
public:
    virtual ~VentanaParrilla() = default;

    virtual FormaVentana& forma() = 0;
    // What stays visible below the grid also when the rest of the window is transparent, twips.
    virtual Rectangulo franjaInferior() const = 0;
};

}  // namespace sorvanel
