#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "simulador/lectura.h"

namespace sorvanel::simulador {

// One indicator that says nothing from one moment on, or until another.
struct Callada {
    std::size_t indicador = 0;  // from 0
    std::chrono::milliseconds desde{};
    std::optional<std::chrono::milliseconds> hasta;
};

// Gaps that come again and again, in every indicator at another moment.
struct Pausas {
    std::chrono::milliseconds cada{};
    std::chrono::milliseconds dura{};  // below `cada`
    bool azar = false;                 // anywhere within each `cada`, not at its end
};

struct Silencios {
    std::vector<Callada> calladas;
    std::optional<Pausas> pausas;
};

bool estaCallado(const Silencios& silencios, std::size_t indicador, Instante instante, std::uint64_t semilla);

}  // namespace sorvanel::simulador
