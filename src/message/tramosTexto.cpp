#include "message/tramosTexto.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace sorvanel {

namespace {

constexpr int CARACTERES_POR_TRAMO = 24;
constexpr char32_t UNION = 0x200D;  // zero-width joiner: the next character belongs to this one too

struct Caracter {
    char32_t codigo;
    std::size_t bytes;
};

// A byte that begins no valid sequence counts as a character of its own.
Caracter leerCaracter(std::string_view texto) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(texto[i]); };
    const unsigned char primero = byte(0);
    std::size_t largo = 1;
    char32_t codigo = primero;
    if (primero >= 0xF0) {
        largo = 4;
        codigo = primero & 0x07U;
    } else if (primero >= 0xE0) {
        largo = 3;
        codigo = primero & 0x0FU;
    } else if (primero >= 0xC0) {
        largo = 2;
        codigo = primero & 0x1FU;
    }
    if (largo > texto.size()) return {primero, 1};
    for (std::size_t i = 1; i < largo; ++i) {
        if ((byte(i) & 0xC0U) != 0x80U) return {primero, 1};
        codigo = codigo << 6U | (byte(i) & 0x3FU);
    }
    return {codigo, largo};
}

// Accents and marks that are drawn on the character before them.
bool seUneAlAnterior(char32_t c) {
    struct Rango {
        char32_t desde;
        char32_t hasta;
    };
    constexpr std::array<Rango, 12> RANGOS{{{0x0300, 0x036F},
                                            {0x0483, 0x0489},
                                            {0x0591, 0x05C7},
                                            {0x064B, 0x065F},
                                            {0x1AB0, 0x1AFF},
                                            {0x1DC0, 0x1DFF},
                                            {0x200C, 0x200D},
                                            {0x20D0, 0x20FF},
                                            {0xFE00, 0xFE0F},
                                            {0xFE20, 0xFE2F},
                                            {0x1F3FB, 0x1F3FF},
                                            {0xE0020, 0xE01EF}}};
    return std::any_of(RANGOS.begin(), RANGOS.end(), [&](const Rango& r) { return c >= r.desde && c <= r.hasta; });
}

bool esBandera(char32_t c) {
    return c >= 0x1F1E6 && c <= 0x1F1FF;
}

bool esBlanco(char32_t c) {
    return c == ' ' || c == '\t' || c == 0x3000;
}

}  // namespace

std::vector<std::string_view> cortarEnTramos(std::string_view texto) {
    std::vector<std::string_view> tramos;
    std::size_t inicio = 0;
    std::size_t i = 0;
    int caracteres = 0;
    char32_t anterior = 0;
    bool banderaAbierta = false;
    while (i < texto.size()) {
        const Caracter c = leerCaracter(texto.substr(i));
        const bool pareja = esBandera(c.codigo) && banderaAbierta;
        const bool unido = seUneAlAnterior(c.codigo) || anterior == UNION || pareja;
        const bool lleno = caracteres >= CARACTERES_POR_TRAMO || esBlanco(anterior);
        if (i > inicio && lleno && !unido) {
            tramos.push_back(texto.substr(inicio, i - inicio));
            inicio = i;
            caracteres = 0;
        }
        if (!unido) ++caracteres;
        banderaAbierta = esBandera(c.codigo) && !pareja;
        anterior = c.codigo;
        i += c.bytes;
    }
    if (i > inicio) tramos.push_back(texto.substr(inicio));
    return tramos;
}

}  // namespace sorvanel
