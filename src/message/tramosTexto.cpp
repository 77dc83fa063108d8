#include "message/tramosTexto.h"

#include <cstddef>

#include "config/codificacion.h"
#include "message/marcasUnicode.h"

namespace sorvanel {

namespace {

constexpr int CARACTERES_POR_TRAMO = 24;
constexpr int CARACTERES_POR_FRASE = 120;  // what a piece costs must not grow with the text
constexpr char32_t UNION = 0x200D;         // zero-width joiner: the next character belongs to this one too

bool esBandera(char32_t c) {
    return c >= 0x1F1E6 && c <= 0x1F1FF;
}

bool esBlanco(char32_t c) {
    return c == ' ' || c == '\t' || c == 0x3000;
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

std::vector<std::string_view> cortarEnTramos(std::string_view texto) {
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
        i += c.octetos;
    }
    if (i > inicio) tramos.push_back(texto.substr(inicio));
    return tramos;
}

}  // namespace sorvanel
