#include "message/tramosTexto.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "config/codificacion.h"

namespace sorvanel {

namespace {

constexpr int CARACTERES_POR_TRAMO = 24;
constexpr int CARACTERES_POR_FRASE = 120;  // what a piece costs must not grow with the text
constexpr char32_t UNION = 0x200D;         // zero-width joiner: the next character belongs to this one too
constexpr char32_t PRIMERA_MARCA = 0x0300;

struct Rango {
    char32_t desde;
    char32_t hasta;
};

// No marks, and yet drawn with what is before them: vowels and finals of Hangul, joiners, variants, skin tones, tags.
constexpr std::array<Rango, 5> ANADIDOS{
    {{0x1160, 0x11FF}, {0x200C, UNION}, {0xFE00, 0xFE0F}, {0x1F3FB, 0x1F3FF}, {0xE0020, 0xE01EF}}};

// Scripts whose words are not cut apart: those from right to left, since the system orders them among themselves
// only when it gets them together, and those beyond U+FFFF, since it does not tell which of their characters are marks.
constexpr std::array<Rango, 4> JUNTOS{{{0x0590, 0x08FF}, {0xFB1D, 0xFDFF}, {0xFE70, 0xFEFE}, {0x10000, 0x1EFFF}}};

template <std::size_t N>
bool esta(const std::array<Rango, N>& rangos, char32_t c) {
    return std::any_of(rangos.begin(), rangos.end(), [c](const Rango& r) { return c >= r.desde && c <= r.hasta; });
}

bool esBandera(char32_t c) {
    return c >= 0x1F1E6 && c <= 0x1F1FF;
}

bool esBlanco(char32_t c) {
    return c == ' ' || c == '\t' || c == 0x3000;
}

bool seUneAlAnterior(char32_t c, const Programa& programa) {
    return c >= PRIMERA_MARCA && (esta(ANADIDOS, c) || programa.esMarca(c));
}

// The first character from there on that is no blank; 0 for none.
char32_t siguienteLetra(std::string_view texto) {
    while (!texto.empty()) {
        const CaracterUtf8 c = leerCaracter(texto);
        if (!esBlanco(c.codigo)) return c.codigo;
        texto.remove_prefix(c.octetos);
    }
    return 0;
}

}  // namespace

std::vector<std::string_view> cortarEnTramos(std::string_view texto, const Programa& programa) {
    std::vector<std::string_view> tramos;
    std::size_t inicio = 0;
    std::size_t i = 0;
    int caracteres = 0;
    char32_t anterior = 0;
    char32_t ultimaLetra = 0;
    bool banderaAbierta = false;
    while (i < texto.size()) {
        const CaracterUtf8 c = leerCaracter(texto.substr(i));
        const bool pareja = esBandera(c.codigo) && banderaAbierta;
        const bool unido = seUneAlAnterior(c.codigo, programa) || anterior == UNION || pareja;
        const bool lleno = caracteres >= CARACTERES_POR_TRAMO || esBlanco(anterior);
        const auto frase = [&] {
            return caracteres < CARACTERES_POR_FRASE && esta(JUNTOS, ultimaLetra) &&
                   esta(JUNTOS, siguienteLetra(texto.substr(i)));
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
        i += c.octetos;
    }
    if (i > inicio) tramos.push_back(texto.substr(inicio));
    return tramos;
}

}  // namespace sorvanel
