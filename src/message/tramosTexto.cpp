#include "message/tramosTexto.h"

#include <cstddef>

#include "message/marcasUnicode.h"

namespace sorvanel {

namespace {

constexpr int CARACTERES_POR_TRAMO = 24;
constexpr int CARACTERES_POR_FRASE = 120;  // what a piece costs must not grow with the text
constexpr char32_t UNION = 0x200D;         // zero-width joiner: the next character belongs to this one too

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

bool esBandera(char32_t c) {
    return c >= 0x1F1E6 && c <= 0x1F1FF;
}

bool esBlanco(char32_t c) {
    return c == ' ' || c == '\t' || c == 0x3000;
}

// The first character from there on that is no blank; 0 for none.
char32_t siguienteLetra(std::string_view texto) {
    while (!texto.empty()) {
        const Caracter c = leerCaracter(texto);
        if (!esBlanco(c.codigo)) return c.codigo;
        texto.remove_prefix(c.bytes);
    }
    return 0;
}

}  // namespace

std::vector<std::string_view> cortarEnTramos(std::string_view texto) {
    std::vector<std::string_view> tramos;
    std::size_t inicio = 0;
    std::size_t i = 0;
    int caracteres = 0;
    char32_t anterior = 0;
    char32_t ultimaLetra = 0;
    bool banderaAbierta = false;
    while (i < texto.size()) {
        const Caracter c = leerCaracter(texto.substr(i));
        const bool pareja = esBandera(c.codigo) && banderaAbierta;
        const bool unido = seUneAlAnterior(c.codigo) || anterior == UNION || pareja;
        const bool lleno = caracteres >= CARACTERES_POR_TRAMO || esBlanco(anterior);
        // The system orders the words of such a script among themselves only when it gets them together.
        const auto frase = [&] {
            return caracteres < CARACTERES_POR_FRASE && vaDeDerechaAIzquierda(ultimaLetra) &&
                   vaDeDerechaAIzquierda(siguienteLetra(texto.substr(i)));
        };
        if (i > inicio && lleno && !unido && !frase()) {
            tramos.push_back(texto.substr(inicio, i - inicio));
            inicio = i;
            caracteres = 0;
        }
        if (!unido) ++caracteres;
        banderaAbierta = esBandera(c.codigo) && !pareja;
        anterior = c.codigo;
        if (!unido && !esBlanco(c.codigo)) ultimaLetra = c.codigo;
        i += c.bytes;
    }
    if (i > inicio) tramos.push_back(texto.substr(inicio));
    return tramos;
}

}  // namespace sorvanel
