#pragma once

#include <cstdint>

#include "config/comun.h"
#include "platform/color.h"
#include "platform/geometria.h"
#include "screen/oScreen.h"

namespace sorvanel {

// What the section "RETICULA" holds, its fractions of the screen turned into twips.
struct AjustesParrilla {
    Rectangulo zona;
    std::int16_t filas;
    std::int16_t columnas;
    std::int16_t gruesoVertical;
    std::int16_t gruesoHorizontal;
    Color colorReticula;
    Color colorFondo;
    Color colorAplicacion;
};

// Below this height the button bar lies: a stored height is a fraction of what is above it.
constexpr float RESERVA_INFERIOR = aTwips(32);

// For that screen. What the file holds beyond its limits comes clamped, what is missing or unreadable
// comes as its default.
AjustesParrilla leerParrilla(const comun& com, const oScreen& pantalla);

// Without a screen to measure by, the stored fractions stay as they are.
void guardarParrilla(const comun& com, const oScreen& pantalla, const AjustesParrilla& ajustes);

}  // namespace sorvanel
