#include <utility>

#include "display/familia.h"
#include "links/lineaPavona.h"

namespace sorvanel {

namespace {

constexpr char SEPARADOR = '/';

// "12/3" for 1203.
std::string textoDireccion(std::int32_t port) {
    return std::to_string(port / BASE_DIRECCION) + SEPARADOR + std::to_string(port % BASE_DIRECCION);
}

// An empty half is 0; the plain number will do as well.
std::optional<std::int32_t> leerDireccion(std::string_view texto) {
    const std::size_t corte = texto.find(SEPARADOR);
    if (corte == std::string_view::npos) return leerPort(texto);
    const auto primero = leerPort(texto.substr(0, corte));
    const auto segundo = leerPort(texto.substr(corte + 1));
    if (!primero || !segundo) return std::nullopt;
    const std::int64_t port = std::int64_t{*primero} * BASE_DIRECCION + *segundo;
    return std::in_range<std::int32_t>(port) ? std::optional(static_cast<std::int32_t>(port)) : std::nullopt;
}

char32_t filtroDireccion(char32_t caracter) {
    constexpr std::u32string_view SEPARADORES = U"-.,_:;/";
    return SEPARADORES.find(caracter) != std::u32string_view::npos ? SEPARADOR : filtroNumerico(caracter);
}

}  // namespace

constinit const Familia FAMILIA_PAVONA{.protocolo = 2,
                                       .nombre = "Pavona",
                                       .dibujo = Dibujo::pavona,
                                       .compartida = true,
                                       .enlace = "conexión común",
                                       .sinEnlace = PORT_INADECUADO,
                                       .marcas = {.C = true, .D = true},
                                       .conModo = true,
                                       .textoPort = textoDireccion,
                                       .leerPort = leerDireccion,
                                       .filtroPort = filtroDireccion,
                                       .formaPort = "A/B",
                                       .ayudaPort = "; en la familia Pavona, su dirección A/B, como en 12/3"};

}  // namespace sorvanel
