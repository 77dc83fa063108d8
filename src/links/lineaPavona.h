#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace sorvanel {

// An indicator's address as one number: 1203 for 12/03.
constexpr std::int32_t BASE_DIRECCION = 100;

// A reading line of the concentrator:
//
//   12/03 C- 0001.250 0000.500
//
// the indicator's address in two numbers of two digits, the loading flag ("C" or "-"), the unloading
// flag ("D" or "-") and two values of eight characters. The first value's decimals hold for both.

// What the line says, for the displays: three letters ("X", then "C" or "X", then "D" or "X") and six
// values in thousandths, each a sign and eight digits.
using CargaPavona = std::array<char, 57>;

// In place of a value that eight digits cannot hold.
constexpr std::string_view GRUPO_SIN_DATO = "+--------";

struct LecturaPavona {
    std::int16_t primero = 0;
    std::int16_t segundo = 0;
    CargaPavona carga{};

    std::string_view texto() const { return {carga.data(), carga.size()}; }
};

// A weight frame with one of the payload's values, 0 to 5; empty when there is none to be had, as in an empty payload.
// Nothing when the payload does not reach so far.
std::optional<std::string> tramaPavona(std::string_view carga, std::size_t valor);

// Nothing when the text is not such a line from its first character to its last, or one of the two
// values is no number.
std::optional<LecturaPavona> leerLineaPavona(std::string_view linea);

// Whether more text could make such a line of it: from the empty text to the whole line.
bool empiezaLineaPavona(std::string_view principio);

}  // namespace sorvanel
