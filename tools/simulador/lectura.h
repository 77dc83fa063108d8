#pragma once

#include <chrono>
#include <cstdint>

namespace sorvanel::simulador {

// Time since the run's first frame was due.
using Instante = std::chrono::nanoseconds;

// Weights everywhere are whole thousandths of the unit; a frame has eight digits for them.
constexpr std::int64_t MAXMILESIMAS = 99'999'999;

// What an indicator knows at one moment, before any family's way of saying it.
struct Lectura {
    std::int64_t milesimas = 0;
    bool estable = false;
    bool cargando = false;
    bool descargando = false;

    bool operator==(const Lectura&) const = default;
};

}  // namespace sorvanel::simulador
