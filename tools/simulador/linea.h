#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "simulador/lectura.h"

namespace sorvanel::simulador {

constexpr std::array<std::string_view, 2> LETRASPAVONA = {"C-", "D-"};

// An indicator's address on the concentrator, each number from 0 to 99.
struct Direccion {
    int primero = 0;
    int segundo = 0;

    int numero() const { return primero * 100 + segundo; }
    bool operator==(const Direccion&) const = default;
};

// In thousandths, with 0 to 3 decimals: what the last digit is worth, and the most that fits beside the point.
std::int64_t unidad(int decimales);
std::int64_t maximo(int decimales);

// A reading line of the `Pavona` concentrator, without its end. The letters are those, or where none are given as the
// reading says; the values, in thousandths, are rounded to the decimals and kept within what fits.
std::string lineaPavona(Direccion direccion, const Lectura& lectura, std::int64_t acumulado, int decimales,
                        std::string_view marcas);

// What can be wrong with a line.
enum class ClaseLinea { Media, Larga, Direccion, Marcas, Separador, Valor, Basura };
constexpr std::array<std::string_view, 7> CLASESLINEA = {"media",     "larga", "direccion", "marcas",
                                                         "separador", "valor", "basura"};

// Of a good line one that is none; without an end too, except that garbage has its own.
std::string lineaMala(ClaseLinea clase, std::string_view linea, std::uint64_t azar);

}  // namespace sorvanel::simulador
