#include "config/texto.h"

#include <algorithm>
#include <array>

namespace sorvanel {

std::string_view recortar(std::string_view texto, std::string_view sobran) {
    const std::size_t desde = texto.find_first_not_of(sobran);
    if (desde == std::string_view::npos) return {};
    return texto.substr(desde, texto.find_last_not_of(sobran) - desde + 1);
}

std::string minusculas(std::string texto) {
    unsigned char anterior = 0;
    for (char& c : texto) {
        const auto o = static_cast<unsigned char>(c);
        const bool ascii = o >= 'A' && o <= 'Z';
        // 0xC3 is followed by the letters of Latin-1; 0x97 is the multiplication sign.
        const bool latina = anterior == 0xC3 && o >= 0x80 && o <= 0x9E && o != 0x97;
        anterior = o;
        if (ascii || latina) c = static_cast<char>(o + 0x20);
    }
    return texto;
}

bool leerSiNo(const std::string& texto) {
    constexpr std::array<std::string_view, 7> AFIRMATIVOS{"sí", "si", "yes", "true", "verdadero", "1", "-1"};
    return std::find(AFIRMATIVOS.begin(), AFIRMATIVOS.end(), minusculas(texto)) != AFIRMATIVOS.end();
}

std::optional<std::pair<std::int16_t, std::int16_t>> leerDosCifras(std::string_view texto, char separador) {
    if (texto.size() != 3 || !esCifra(texto[0]) || texto[1] != separador || !esCifra(texto[2])) return std::nullopt;
    return std::pair(static_cast<std::int16_t>(texto[0] - '0'), static_cast<std::int16_t>(texto[2] - '0'));
}

}  // namespace sorvanel
