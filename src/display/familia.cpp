#include "display/familia.h"

#include <algorithm>
#include <array>

#include "config/numeros.h"

namespace sorvanel {

namespace {

constexpr std::array FAMILIAS{&FAMILIA_TESSEL, &FAMILIA_PAVONA};

template <typename Condicion>
const Familia& primera(Condicion condicion) {
    const auto suya = std::find_if(FAMILIAS.begin(), FAMILIAS.end(), condicion);
    return suya == FAMILIAS.end() ? *FAMILIAS.front() : **suya;
}

}  // namespace

std::string textoPort(std::int32_t port) {
    return port == 0 ? std::string() : std::to_string(port);
}

std::optional<std::int32_t> leerPort(std::string_view texto) {
    return texto.empty() ? 0 : leerEntero32(texto);
}

std::span<const Familia* const> familias() {
    return FAMILIAS;
}

const Familia& familiaDe(std::int16_t protocolo) {
    return primera([&](const Familia* f) { return f->protocolo == protocolo; });
}

const Familia& familiaDe(std::string_view nombre) {
    const std::string buscado = minusculas(std::string(nombre));
    return primera([&](const Familia* f) { return minusculas(f->nombre) == buscado; });
}

const Familia& familiaSiguiente(const Familia& familia) {
    const auto suya = std::find(FAMILIAS.begin(), FAMILIAS.end(), &familia);
    return suya == FAMILIAS.end() || std::next(suya) == FAMILIAS.end() ? *FAMILIAS.front() : **std::next(suya);
}

}  // namespace sorvanel
