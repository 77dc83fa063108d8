#include "dialogs/textosVisor.h"

#include "config/numeros.h"
#include "config/texto.h"

namespace sorvanel {

namespace {

constexpr char SEPARADOR_UBICACION = ',';
constexpr double CIEN = 100;

}  // namespace

std::string textoUbicacion(std::optional<Ubicacion> ubicacion) {
    if (!ubicacion) return {};
    return std::to_string(ubicacion->fila) + SEPARADOR_UBICACION + std::to_string(ubicacion->columna);
}

std::optional<Ubicacion> leerUbicacion(std::string_view texto) {
    const std::size_t corte = texto.find(SEPARADOR_UBICACION);
    if (corte == std::string_view::npos) return std::nullopt;
    const std::string_view segunda = texto.substr(corte + 1);
    if (segunda.find(SEPARADOR_UBICACION) != std::string_view::npos) return std::nullopt;
    const auto fila = leerEntero16(texto.substr(0, corte));
    const auto columna = leerEntero16(segunda);
    if (!fila || !columna) return std::nullopt;
    return Ubicacion{*fila, *columna};
}

char32_t filtroUbicacion(char32_t caracter) {
    constexpr std::u32string_view SEPARADORES = U",.;:_-+=/";
    if (SEPARADORES.find(caracter) != std::u32string_view::npos) return SEPARADOR_UBICACION;
    return filtroNumerico(caracter);
}

// From the decimals that the ratio is written with: the product of the binary number would show more.
std::string textoRatio(float ratio, std::string_view separador) {
    const double escrito = leerNumero(textoDeReal(ratio, ".")).value_or(0);
    return textoDeReal(static_cast<float>(escrito * CIEN), separador);
}

std::optional<float> leerRatio(std::string_view texto) {
    const auto porCiento = leerNumero(texto);
    return porCiento ? std::optional(static_cast<float>(*porCiento / CIEN)) : std::nullopt;
}

}  // namespace sorvanel
