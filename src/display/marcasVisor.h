#pragma once

#include "display/encajeVisor.h"
#include "platform/superficie.h"

namespace sorvanel {

// The marks to the right of the digits: E a plate with the letter, C an upward triangle, D a downward
// one.
struct MarcasVisor {
    bool E = false;
    bool C = false;
    bool D = false;

    bool operator==(const MarcasVisor&) const = default;
};

// Paints the whole column right of the weight's text: what is not set is erased.
void pintarMarcas(Superficie& peso, const EncajeVisor& encaje, const MarcasVisor& marcas, Color tinta, Color fondo);

}  // namespace sorvanel
