#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace sorvanel {

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

// Nothing when the text is not such a line from its first character to its last, or one of the two
// values is no number.
std::optional<LecturaPavona> leerLineaPavona(std::string_view linea);

// Whether more text could make such a line of it: from the empty text to the whole line.
bool empiezaLineaPavona(std::string_view principio);

}  // namespace sorvanel
