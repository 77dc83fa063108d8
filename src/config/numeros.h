#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace sorvanel {

// Numbers as the settings file writes them. "Numeric" is: blanks, a sign, digits with at most one
// separator ("," or "."), an exponent, blanks; all but the digits may be missing.

std::optional<double> leerNumero(std::string_view texto);
// The same as a float; nothing when it is too large for one.
std::optional<float> leerReal(std::string_view texto);
// Rounded to the nearest whole number, halves to even; nothing when it does not fit its type.
std::optional<std::int16_t> leerEntero16(std::string_view texto);
std::optional<std::int32_t> leerEntero32(std::string_view texto);
// The number that the text begins with (blanks skipped), 0 when it begins with none or with one
// that does not fit.
std::int32_t numeroInicial(std::string_view texto);
// "&H" followed by the text is a number: one to eight hexadecimal digits and nothing else.
std::optional<std::int32_t> leerHexadecimal(std::string_view texto);

// The shortest text that reads back as the same number, with that decimal separator.
std::string textoDeReal(float valor, std::string_view separador);
// Six decimals ("0.000000").
std::string textoSeisDecimales(double valor, std::string_view separador);

}  // namespace sorvanel
