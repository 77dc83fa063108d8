#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace sorvanel {

// Without those characters at both ends. Usually blanks and tabs only: a no-break space is part of a text.
std::string_view recortar(std::string_view texto, std::string_view sobran = " \t");

// UTF-8; the letters of ASCII and Latin-1.
std::string minusculas(std::string texto);

template <typename Caracter>
constexpr bool esCifra(Caracter c) {
    return c >= Caracter{'0'} && c <= Caracter{'9'};
}

// What the boxes for numbers take of each character typed or pasted: digits, and 0 for what is
// discarded. Keys that edit or move never come here.
constexpr char32_t filtroNumerico(char32_t caracter) {
    return esCifra(caracter) ? caracter : U'\0';
}

// Yes and no as the settings file has them: yes in several languages, in any case.
bool leerSiNo(const std::string& texto);
constexpr const char* textoSiNo(bool si) {
    return si ? "Sí" : "No";
}

// "4x1": two digits and what stands between them, nothing else.
std::optional<std::pair<std::int16_t, std::int16_t>> leerDosCifras(std::string_view texto, char separador);

}  // namespace sorvanel
