#include "dialogs/textosVisor.h"

#include <cmath>
#include <limits>

#include "config/numeros.h"
#include "dialogs/filtroNumerico.h"

namespace sorvanel {

namespace {

constexpr char SEPARADOR_PORT = '/';
constexpr char SEPARADOR_UBICACION = ',';
constexpr std::int32_t BASE_DIRECCION = 100;
constexpr double CIEN = 100;

// Also one that fits no type: whoever uses it decides what is too large.
std::optional<double> leerMitad(std::string_view texto) {
    return texto.empty() ? 0.0 : leerNumero(texto);
}

}  // namespace

std::string textoPort(std::int32_t port, bool pavona) {
    if (pavona) return std::to_string(port / BASE_DIRECCION) + SEPARADOR_PORT + std::to_string(port % BASE_DIRECCION);
    return port == 0 ? std::string() : std::to_string(port);
}

std::optional<std::int32_t> leerPort(std::string_view texto, bool pavona) {
    const std::size_t corte = pavona ? texto.find(SEPARADOR_PORT) : std::string_view::npos;
    std::optional<double> valor = leerMitad(texto.substr(0, corte));
    if (corte != std::string_view::npos) {
        const auto segunda = leerMitad(texto.substr(corte + 1));
        if (!valor || !segunda) return std::nullopt;
        *valor = *valor * BASE_DIRECCION + *segunda;
    }
    if (!valor || std::abs(*valor) > std::numeric_limits<std::int32_t>::max()) return std::nullopt;
    return static_cast<std::int32_t>(std::lround(*valor));
}

char32_t filtroPort(char32_t caracter, bool pavona) {
    constexpr std::u32string_view SEPARADORES = U"-.,_:;/";
    if (pavona && SEPARADORES.find(caracter) != std::u32string_view::npos) return SEPARADOR_PORT;
    return filtroNumerico(caracter);
}

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
