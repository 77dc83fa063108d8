#include "display/silabas.h"

#include <algorithm>
#include <array>
#include <string>

#include "config/codificacion.h"
#include "config/texto.h"

namespace sorvanel {

namespace {

constexpr std::u32string_view VOCALES = U"aeiouáéíóúü";
// Two consonants that stay together.
constexpr std::array<std::u32string_view, 15> JUNTAS{U"bl", U"br", U"cl", U"cr", U"dr", U"fl", U"fr", U"gl",
                                                     U"gr", U"pl", U"pr", U"tr", U"ch", U"ll", U"rr"};

bool esVocal(char32_t letra) {
    return VOCALES.find(letra) != std::u32string_view::npos;
}

bool esConsonante(char32_t letra) {
    return !esVocal(letra) && ((letra >= U'a' && letra <= U'z') || letra == U'ñ');
}

}  // namespace

std::vector<std::size_t> cortesSilaba(std::string_view palabra) {
    const std::string menuda = minusculas(std::string(palabra));
    std::u32string letras;
    std::vector<std::size_t> lugares;
    for (std::size_t i = 0; i < menuda.size();) {
        const CaracterUtf8 una = leerCaracter(std::string_view(menuda).substr(i));
        letras += una.codigo;
        lugares.push_back(i);
        i += una.octetos;
    }
    std::vector<std::size_t> cortes;
    for (std::size_t i = 2; i + 1 < letras.size(); ++i) {
        if (!esConsonante(letras[i]) || !esVocal(letras[i + 1])) continue;
        const bool juntas = std::find(JUNTAS.begin(), JUNTAS.end(), letras.substr(i - 1, 2)) != JUNTAS.end();
        const std::size_t corte = juntas ? i - 1 : i;
        const bool silabaAntes =
            std::any_of(letras.begin(), letras.begin() + static_cast<std::ptrdiff_t>(corte), esVocal);
        if (corte >= 2 && silabaAntes) cortes.push_back(lugares[corte]);
    }
    return cortes;
}

}  // namespace sorvanel
