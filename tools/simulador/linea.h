#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "simulador/lectura.h"
#include "simulador/trama.h"

namespace sorvanel::simulador {

// An indicator's address on the concentrator, each number from 0 to 99.
struct Direccion {
    int primero = 0;
    int segundo = 0;

    int numero() const { return primero * 100 + segundo; }
    bool operator==(const Direccion&) const = default;
};

// How a value's eight characters are used: digits after the point, 0 to 4, and whether there is a point
// though no digit follows.
struct Decimales {
    int cifras = 1;
    bool puntoFinal = false;

    // The last digit's worth and the most that fits, in thousandths; a ten-thousandth counts as 1.
    std::int64_t unidad() const;
    std::int64_t maximo() const;
    bool operator==(const Decimales&) const = default;
};

// Two letters: "C" or "-", and "D" or "-".
bool sonMarcasPavona(std::string_view texto);

// A reading line without its end. The values, in thousandths, are rounded to the decimals and kept within
// what fits; `azar` chooses the letters where chance does.
std::string lineaPavona(Direccion direccion, const Lectura& lectura, std::int64_t acumulado, Decimales decimales,
                        const Marcas& marcas, std::uint64_t azar);

// What can be wrong with a line.
enum class ClaseLinea { Media, Larga, Direccion, Marcas, Separador, Valor };

constexpr std::array<std::string_view, 6> CLASESLINEA = {"media", "larga", "direccion", "marcas", "separador", "valor"};

// `linea` is a good one; what comes back is none, and has no line end either.
std::string lineaMala(ClaseLinea clase, std::string_view linea, std::uint64_t azar);

}  // namespace sorvanel::simulador
