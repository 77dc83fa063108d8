#pragma once

#include <cstdint>

#include "config/entorno.h"
#include "platform/color.h"
#include "platform/geometria.h"

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

// Width and height of the screen in twips. What the file holds beyond its limits comes clamped,
// what is missing or unreadable comes as its default.
AjustesParrilla leerParrilla(const Entorno& entorno, float anchoPantalla, float altoPantalla);

// Without a screen to measure by, the stored fractions stay as they are.
void guardarParrilla(const Entorno& entorno, float anchoPantalla, float altoPantalla, const AjustesParrilla& ajustes);

}  // namespace sorvanel
