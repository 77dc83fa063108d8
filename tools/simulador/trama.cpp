#include "simulador/trama.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string_view>

namespace sorvanel::simulador {

namespace {

constexpr std::array<std::string_view, 3> LETRAS = {"EX", "CNX", "DZX"};

std::string letras(const Lectura& lectura, const Marcas& marcas, std::uint64_t azar) {
    if (marcas.modo == Marcas::Modo::Fijas) return marcas.fijas;
    if (marcas.modo == Marcas::Modo::Lectura)
        return {lectura.estable ? 'E' : 'X', lectura.cargando ? 'C' : 'X', lectura.descargando ? 'D' : 'X'};
    std::string elegidas;
    for (const auto posibles : LETRAS) {
        elegidas += posibles[azar % posibles.size()];
        azar /= posibles.size();
    }
    return elegidas;
}

}  // namespace

bool sonMarcas(const std::string& texto) {
    if (texto.size() != LETRAS.size()) return false;
    for (std::size_t i = 0; i < LETRAS.size(); ++i)
        if (LETRAS[i].find(texto[i]) == std::string_view::npos) return false;
    return true;
}

std::string tramaTessel(const Lectura& lectura, const Marcas& marcas, std::uint64_t azar) {
    std::array<char, 16> cifras{};
    const auto peso = static_cast<int>(std::clamp<std::int64_t>(lectura.milesimas, 0, MAXMILESIMAS));
    std::snprintf(cifras.data(), cifras.size(), "+%08d\r", peso);
    return letras(lectura, marcas, azar) + cifras.data();
}

}  // namespace sorvanel::simulador
