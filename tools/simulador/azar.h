#pragma once

#include <cstdint>

namespace sorvanel::simulador {

// Chance as a function: the same numbers give the same result on every system, in any order of
// asking, which the engines and distributions of <random> do not promise.
constexpr std::uint64_t mezclar(std::uint64_t a) {
    a += 0x9E3779B97F4A7C15U;
    a = (a ^ (a >> 30U)) * 0xBF58476D1CE4E5B9U;
    a = (a ^ (a >> 27U)) * 0x94D049BB133111EBU;
    return a ^ (a >> 31U);
}

constexpr std::uint64_t mezclar(std::uint64_t a, std::uint64_t b) {
    return mezclar(mezclar(a) ^ b);
}

// In [0, 1).
constexpr double fraccion(std::uint64_t azar) {
    return static_cast<double>(azar >> 11U) * 0x1.0p-53;
}

// In [minimo, maximo).
constexpr double entre(double minimo, double maximo, std::uint64_t azar) {
    return minimo + (maximo - minimo) * fraccion(azar);
}

}  // namespace sorvanel::simulador
