#pragma once

#include <optional>
#include <string_view>

#include "display/aspecto.h"
#include "display/encajeEtiqueta.h"
#include "platform/superficie.h"

namespace sorvanel {

// Where everything of a display lies, twips. Caption and weight each have coordinates of their own,
// from the top-left corner of their surface.
struct EncajeVisor {
    float anchoEtiqueta = 0;  // of the caption's surface, which begins where the cell does; 0 when there is none
    float altoEtiqueta = 0;
    EncajeEtiqueta etiqueta;

    float izquierda = 0;  // of the weight's surface, from the cell's corner
    float arriba = 0;
    float anchoPeso = 0;  // of the weight's surface
    float alto = 0;
    Fuente fuentePeso;
    float derecha = 0;        // right edge of the weight's text
    float yPeso = 0;          // top of its line
    float anchoCero = 0;      // of "0"
    float tintaSuperior = 0;  // the digits' ink
    float tintaInferior = 0;
};

// The largest digits that the cell allows. `muestra` is a large weight in the display's format.
// Nothing when the cell cannot hold a display. Measures with `medidor` and leaves its font changed.
std::optional<EncajeVisor> encajarVisor(Superficie& medidor, const Rectangulo& celda, const AspectoVisor& aspecto,
                                        std::string_view muestra);

}  // namespace sorvanel
