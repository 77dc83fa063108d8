#include "display/trama.h"

#include "config/texto.h"

namespace sorvanel {

namespace {

constexpr std::size_t LARGO = 12;
constexpr std::size_t PRIMERA_CIFRA = 4;

bool esUna(char letra, std::string_view admitidas) {
    return admitidas.find(letra) != std::string_view::npos;
}

}  // namespace

std::optional<Trama> leerTrama(std::string_view texto) {
    if (texto.size() != LARGO || !esUna(texto[0], "EX") || !esUna(texto[1], "CNX") || !esUna(texto[2], "DZX") ||
        texto[3] != '+') {
        return std::nullopt;
    }
    Trama trama{texto[0] == 'E', texto[1] == 'C', texto[2] == 'D', 0};
    for (const char cifra : texto.substr(PRIMERA_CIFRA)) {
        if (!esCifra(cifra)) return std::nullopt;
        trama.milesimas = trama.milesimas * 10 + (cifra - '0');
    }
    return trama;
}

}  // namespace sorvanel
