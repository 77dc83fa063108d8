#pragma once

#include <span>
#include <string>

#include "display/encajeVisor.h"
#include "platform/superficie.h"

namespace sorvanel {

struct TintasAviso {
    Color aviso = ROJO;  // of what warns
    Color texto = NEGRO;
    bool conContorno = false;  // the warning's colour does not stand out from the ground
};

// Red; or the weight's text colour around it, where red would not be seen on that ground.
TintasAviso tintasAviso(const AspectoVisor& aspecto);

// Five dashes where the digits would be, on a ground that is blank.
void pintarRayas(Superficie& peso, const EncajeVisor& encaje, const TintasAviso& tintas);
// One small line below the dashes: of these texts, the longest first, the first that can be read; none where none can.
// Leaves the surface's font changed.
void pintarMotivo(Superficie& peso, const EncajeVisor& encaje, Color tinta, std::span<const std::string> textos);

}  // namespace sorvanel
