#include "config/codificacion.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace sorvanel {
namespace {

// Characters 0x80 to 0x9F of Windows-1252; all others have their own number.
constexpr std::array<char32_t, 32> ALTOS = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                            0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                            0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                            0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr int NO_CABE = -1;

std::uint8_t octeto(char c) {
    return static_cast<std::uint8_t>(c);
}

bool soloAscii(std::string_view texto) {
    return std::all_of(texto.begin(), texto.end(), [](char c) { return octeto(c) < 0x80; });
}

char32_t caracter1252(char c) {
    const std::uint8_t o = octeto(c);
    return o >= 0x80 && o < 0xA0 ? ALTOS[o - 0x80U] : o;
}

// The byte of that character, or NO_CABE.
int octeto1252(char32_t caracter) {
    if (caracter < 0x80 || (caracter >= 0xA0 && caracter <= 0xFF)) {
        return static_cast<int>(caracter);
    }
    const auto it = std::find(ALTOS.begin(), ALTOS.end(), caracter);
    return it == ALTOS.end() ? NO_CABE : static_cast<int>(0x80 + (it - ALTOS.begin()));
}

// Only for what Windows-1252 holds: three bytes at most.
void anadirUtf8(std::string& destino, char32_t caracter) {
    if (caracter < 0x80) {
        destino += static_cast<char>(caracter);
        return;
    }
    if (caracter < 0x800) {
        destino += static_cast<char>(0xC0U | caracter >> 6U);
    } else {
        destino += static_cast<char>(0xE0U | caracter >> 12U);
        destino += static_cast<char>(0x80U | (caracter >> 6U & 0x3FU));
    }
    destino += static_cast<char>(0x80U | (caracter & 0x3FU));
}

// Overlong forms, surrogates and numbers beyond U+10FFFF are not valid.
std::optional<CaracterUtf8> leerUtf8(std::string_view texto) {
    const std::uint8_t primero = octeto(texto[0]);
    if (primero < 0x80) {
        return CaracterUtf8{primero, 1};
    }
    const std::size_t octetos = primero >= 0xF0 ? 4 : primero >= 0xE0 ? 3 : primero >= 0xC0 ? 2 : 0;
    if (octetos == 0 || primero > 0xF4 || texto.size() < octetos) return std::nullopt;
    char32_t caracter = primero & (0x7FU >> octetos);
    for (std::size_t i = 1; i < octetos; ++i) {
        if ((octeto(texto[i]) & 0xC0U) != 0x80U) return std::nullopt;
        caracter = caracter << 6U | (octeto(texto[i]) & 0x3FU);
    }
    constexpr std::array<char32_t, 5> MENOR = {0, 0, 0x80, 0x800, 0x10000};
    if (caracter < MENOR[octetos] || caracter > 0x10FFFF || (caracter >= 0xD800 && caracter < 0xE000)) {
        return std::nullopt;
    }
    return CaracterUtf8{caracter, octetos};
}

// Calls para(character, its bytes) for each character; stray bytes count as Windows-1252.
template <typename Funcion>
void recorrer(std::string_view texto, Funcion para) {
    while (!texto.empty()) {
        const CaracterUtf8 leido = leerUtf8(texto).value_or(CaracterUtf8{caracter1252(texto[0]), 1});
        para(leido.codigo, texto.substr(0, leido.octetos));
        texto.remove_prefix(leido.octetos);
    }
}

}  // namespace

std::string deWindows1252(std::string_view bytes) {
    if (soloAscii(bytes)) return std::string(bytes);
    std::string utf8;
    utf8.reserve(bytes.size() + bytes.size() / 8);
    for (const char c : bytes) anadirUtf8(utf8, caracter1252(c));
    return utf8;
}

std::string aWindows1252(std::string_view utf8) {
    if (soloAscii(utf8)) return std::string(utf8);
    std::string bytes;
    bytes.reserve(utf8.size());
    recorrer(utf8, [&](char32_t caracter, std::string_view) {
        const int o = octeto1252(caracter);
        bytes += o == NO_CABE ? '?' : static_cast<char>(o);
    });
    return bytes;
}

bool cabeEnWindows1252(std::string_view utf8) {
    bool cabe = true;
    recorrer(utf8, [&](char32_t caracter, std::string_view) { cabe = cabe && octeto1252(caracter) != NO_CABE; });
    return cabe;
}

std::string utf8Valido(std::string_view texto) {
    if (soloAscii(texto)) return std::string(texto);
    std::string valido;
    valido.reserve(texto.size());
    recorrer(texto, [&](char32_t caracter, std::string_view octetos) {
        if (octetos.size() > 1) {
            valido += octetos;
        } else {
            anadirUtf8(valido, caracter);
        }
    });
    return valido;
}

CaracterUtf8 leerCaracter(std::string_view texto) {
    return leerUtf8(texto).value_or(CaracterUtf8{octeto(texto[0]), 1});
}

}  // namespace sorvanel
