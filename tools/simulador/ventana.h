#pragma once

#include <chrono>
#include <optional>

#include "simulador/lectura.h"

namespace sorvanel::simulador {

// A stretch of time; its last moment is outside.
struct Ventana {
    std::chrono::milliseconds desde{};
    std::chrono::milliseconds hasta{};

    bool contiene(Instante instante) const { return instante >= desde && instante < hasta; }
    bool operator==(const Ventana&) const = default;
};

}  // namespace sorvanel::simulador
