#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace sorvanel {

// Between the encodings of a settings file and the program's UTF-8. Every byte has a character (the
// five that Windows-1252 leaves open become the control character of the same number), so that a
// text goes there and back without loss.

std::string deWindows1252(std::string_view bytes);
// Characters that Windows-1252 does not have become "?".
std::string aWindows1252(std::string_view utf8);
bool cabeEnWindows1252(std::string_view utf8);

// The text as valid UTF-8: a byte that is no part of a character is taken as Windows-1252, which is
// what an editor that does not know of UTF-8 leaves behind.
std::string utf8Valido(std::string_view texto);

struct CaracterUtf8 {
    char32_t codigo = 0;
    std::size_t octetos = 0;
};
// The character that the text, which is not empty, begins with; a byte that begins none is one of its own.
CaracterUtf8 leerCaracter(std::string_view texto);

}  // namespace sorvanel
