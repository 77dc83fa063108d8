#include "config/numeros.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>
#include <string>
#include <system_error>

#include "config/texto.h"

namespace sorvanel {
namespace {

// Takes the digits at the front off the text.
std::string_view sacarCifras(std::string_view& texto) {
    std::size_t n = 0;
    while (n < texto.size() && esCifra(texto[n])) ++n;
    const std::string_view cifras = texto.substr(0, n);
    texto.remove_prefix(n);
    return cifras;
}

// Takes the sign at the front off the text; '+' when there is none.
char sacarSigno(std::string_view& texto) {
    if (texto.empty() || (texto[0] != '-' && texto[0] != '+')) return '+';
    const char signo = texto[0];
    texto.remove_prefix(1);
    return signo;
}

// A number taken apart, so far without its value.
struct Partes {
    char signo = '+';
    std::string_view enteras;
    std::string_view decimales;
    char signoExponente = '+';
    std::string_view exponente;
};

// Takes the number at the front off the text, and the blanks around the whole. Empty, and the text as it was, when
// there is none.
std::optional<Partes> sacarPartes(std::string_view& texto) {
    std::string_view resto = recortar(texto);
    Partes partes;
    partes.signo = sacarSigno(resto);
    partes.enteras = sacarCifras(resto);
    if (!resto.empty() && (resto[0] == '.' || resto[0] == ',')) {
        resto.remove_prefix(1);
        partes.decimales = sacarCifras(resto);
    }
    if (partes.enteras.empty() && partes.decimales.empty()) return std::nullopt;
    texto = resto;
    if (!resto.empty() && (resto[0] == 'e' || resto[0] == 'E')) {
        resto.remove_prefix(1);
        partes.signoExponente = sacarSigno(resto);
        partes.exponente = sacarCifras(resto);
        texto = partes.exponente.empty() ? texto : resto;
    }
    return partes;
}

// Of a number that no double holds: is it too large, or too close to 0?
bool demasiadoGrande(const Partes& partes) {
    constexpr std::int64_t ENORME = 1'000'000'000'000;
    const std::string cifras = std::string(partes.enteras).append(partes.decimales);
    const std::size_t primera = cifras.find_first_not_of('0');
    if (primera == std::string::npos) return false;
    std::int64_t exponente = 0;
    const char* fin = partes.exponente.data() + partes.exponente.size();
    if (std::from_chars(partes.exponente.data(), fin, exponente).ec == std::errc::result_out_of_range) {
        exponente = ENORME;
    }
    const auto posicion = static_cast<std::int64_t>(partes.enteras.size()) - static_cast<std::int64_t>(primera);
    return posicion + (partes.signoExponente == '-' ? -exponente : exponente) > 0;
}

// Infinite when it is too large.
double valorDe(const Partes& partes) {
    std::string normal(partes.signo == '-' ? "-0" : "0");
    normal.append(partes.enteras).append(".").append(partes.decimales).append("0");
    if (!partes.exponente.empty()) {
        normal.append("e").append(1, partes.signoExponente).append(partes.exponente);
    }
    double valor = 0;
    const auto leido = std::from_chars(normal.data(), normal.data() + normal.size(), valor);
    if (leido.ec == std::errc::result_out_of_range) {
        return demasiadoGrande(partes) ? std::numeric_limits<double>::infinity() : 0;
    }
    return valor;
}

template <typename Entero>
std::optional<Entero> aEntero(const std::optional<double>& numero) {
    if (!numero) return std::nullopt;
    // The rounding mode is never changed: halves go to even.
    const double entero = std::nearbyint(*numero);
    if (entero < std::numeric_limits<Entero>::min() || entero > std::numeric_limits<Entero>::max()) {
        return std::nullopt;
    }
    return static_cast<Entero>(entero);
}

// A separator that could not be read back is no use in a file.
char separadorLegible(std::string_view separador) {
    return separador == "," ? ',' : '.';
}

std::string conSeparador(std::string texto, std::string_view separador) {
    if (const std::size_t punto = texto.find('.'); punto != std::string::npos) {
        texto[punto] = separadorLegible(separador);
    }
    return texto;
}

}  // namespace

std::optional<double> leerNumero(std::string_view texto) {
    const std::optional<Partes> partes = sacarPartes(texto);
    if (!partes || !texto.empty()) return std::nullopt;
    const double valor = valorDe(*partes);
    return std::isfinite(valor) ? std::optional(valor) : std::nullopt;
}

std::optional<float> leerReal(std::string_view texto) {
    const std::optional<double> valor = leerNumero(texto);
    if (!valor || std::abs(*valor) > std::numeric_limits<float>::max()) return std::nullopt;
    return static_cast<float>(*valor);
}

std::optional<std::int16_t> leerEntero16(std::string_view texto) {
    return aEntero<std::int16_t>(leerNumero(texto));
}
std::optional<std::int32_t> leerEntero32(std::string_view texto) {
    return aEntero<std::int32_t>(leerNumero(texto));
}

std::int32_t numeroInicial(std::string_view texto) {
    const std::optional<Partes> partes = sacarPartes(texto);
    return partes ? aEntero<std::int32_t>(valorDe(*partes)).value_or(0) : 0;
}

std::optional<std::int32_t> leerHexadecimal(std::string_view texto) {
    constexpr std::size_t CIFRAS = 8;
    std::uint32_t valor = 0;
    const char* fin = texto.data() + texto.size();
    const auto leido = std::from_chars(texto.data(), fin, valor, 16);
    if (texto.size() > CIFRAS || leido.ec != std::errc() || leido.ptr != fin) return std::nullopt;
    return static_cast<std::int32_t>(valor);
}

std::string textoDeReal(float valor, std::string_view separador) {
    if (!std::isfinite(valor)) return "0";
    std::array<char, 32> cifras{};
    const auto fin = std::to_chars(cifras.data(), cifras.data() + cifras.size(), valor);
    return conSeparador(std::string(cifras.data(), fin.ptr), separador);
}

std::string textoSeisDecimales(double valor, std::string_view separador) {
    constexpr double MINIMO = 0.0000005;
    // What would be printed as zero is printed without a sign.
    const double limpio = std::isfinite(valor) && std::fabs(valor) >= MINIMO ? valor : 0.0;
    std::array<char, std::numeric_limits<double>::max_exponent10 + 16> cifras{};
    const auto fin = std::to_chars(cifras.data(), cifras.data() + cifras.size(), limpio, std::chars_format::fixed, 6);
    return conSeparador(std::string(cifras.data(), fin.ptr), separador);
}

}  // namespace sorvanel
