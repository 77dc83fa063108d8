#pragma once

#include <chrono>
#include <cstdint>

namespace sorvanel::simulador {

// Time since something began: the run, the session's first line.
using Instante = std::chrono::nanoseconds;

// Weights everywhere are whole thousandths of the unit; a frame has eight digits for them.
constexpr std::int64_t MAXMILESIMAS = 99'999'999;

// What an indicator knows at one moment, before any family's way of saying it.
struct Lectura {
    std::int64_t milesimas = 0;
    bool estable = false;
    bool cargando = false;
    bool descargando = false;
};

// When turn `numero`, from 0, is due. It comes from its number alone: no error adds up.
constexpr Instante vence(std::int64_t numero, double porSegundo) {
    return Instante{static_cast<Instante::rep>(static_cast<double>(numero) * 1e9 / porSegundo)};
}

// A machine that slept, or cannot keep up, goes on from where it is: no flood to catch up.
constexpr Instante MAXRETRASO = std::chrono::seconds{1};

}  // namespace sorvanel::simulador
