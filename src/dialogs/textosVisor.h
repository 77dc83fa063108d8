#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "display/visor.h"

namespace sorvanel {

// How a display's values stand in the boxes in which they are edited, and what those take of each
// character typed or pasted (0 for what is discarded).

// "row,column"; empty without a place.
std::string textoUbicacion(std::optional<Ubicacion> ubicacion);
// Nothing unless there are exactly two numbers that fit their type.
std::optional<Ubicacion> leerUbicacion(std::string_view texto);
char32_t filtroUbicacion(char32_t caracter);

// A caption's blanks are hard ones: it is one word, whatever it is shown or stored in.
constexpr char32_t filtroEtiqueta(char32_t caracter) {
    return caracter == U' ' ? U'\u00A0' : caracter;
}

// Percent, with no more decimals than the ratio has.
std::string textoRatio(float ratio, std::string_view separador);
// Nothing for what is no number, as for an empty box.
std::optional<float> leerRatio(std::string_view texto);

}  // namespace sorvanel
