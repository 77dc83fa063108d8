#pragma once

#include <cstdint>
#include <string>

namespace sorvanel {

constexpr std::int16_t MAXIMO_VISORES = 64;

// The section of the settings file that holds display n.
inline std::string seccionVisor(int n) {
    return "VISOR_" + std::to_string(n);
}

}  // namespace sorvanel
