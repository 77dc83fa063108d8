#pragma once

#include <cstdint>
#include <string>

namespace sorvanel {

constexpr std::int16_t MAXIMO_VISORES = 64;
// What a display of the concentrator's family shows unless told otherwise: "Suma en carga (2)".
constexpr std::int16_t MODO_BULK_OMISION = 4;
constexpr std::int16_t MODO_BULK_MAXIMO = 5;

// The section of the settings file that holds display n.
inline std::string seccionVisor(int n) {
    return "VISOR_" + std::to_string(n);
}

}  // namespace sorvanel
