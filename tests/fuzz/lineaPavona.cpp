// Any bytes as a reading line, and lines of the right shape with any values: accepted are exactly the
// lines that a second, slower reading accepts, and both come to the same payload.

#include "links/lineaPavona.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>

namespace {

bool cumple(const std::string& linea, const std::string& patron) {
    if (linea.size() != patron.size()) return false;
    for (std::size_t i = 0; i < patron.size(); ++i) {
        const std::string propia(1, patron[i]);
        const std::string clase = propia == "#" ? "0123456789" : propia == "c" ? "C-" : propia == "d" ? "D-" : propia;
        if (propia != "?" && clase.find(linea[i]) == std::string::npos) return false;
    }
    return true;
}

std::optional<std::int64_t> entero(std::string texto) {
    std::erase(texto, '.');
    texto.erase(0, texto.find_first_not_of(' '));
    texto.erase(texto.find_last_not_of(' ') + 1);
    if (texto.size() > 1 && texto[0] == '+' && texto[1] != '-') texto.erase(0, 1);
    std::int64_t valor = 0;
    const auto [fin, error] = std::from_chars(texto.data(), texto.data() + texto.size(), valor);
    if (error != std::errc() || fin != texto.data() + texto.size()) return std::nullopt;
    return valor;
}

std::string grupo(std::int64_t milesimas) {
    char texto[32];
    const int largo = std::snprintf(texto, sizeof texto, "%+09lld", static_cast<long long>(milesimas));
    return largo > 9 ? "+--------" : texto;
}

std::optional<std::string> oraculo(const std::string& linea) {
    if (!cumple(linea, "##/## cd ???????? ????????")) return std::nullopt;
    const std::string textoF = linea.substr(9, 8);
    const auto leidoF = entero(textoF);
    const auto leidoS = entero(linea.substr(18));
    if (!leidoF || !leidoS) return std::nullopt;
    const std::size_t punto = textoF.find('.');
    long double escala = 1000;
    if (punto != std::string::npos && punto >= 3) escala /= std::pow(10.0L, static_cast<long double>(7 - punto));
    const auto milesimas = [&](std::int64_t valor) {
        return static_cast<std::int64_t>(std::round(static_cast<long double>(valor) * escala * 10) / 10 +
                                         (valor < 0 ? -0.5L : 0.5L));
    };
    const std::int64_t f = milesimas(*leidoF);
    const std::int64_t s = milesimas(*leidoS);
    const std::string valores = grupo(f) + grupo(s) + grupo(f + s);
    if (linea[6] == 'C') return "XCX" + valores + grupo(f + s) + grupo(f + s) + grupo(s);
    if (linea[7] == 'D') return "XXD" + valores + grupo(s) + grupo(s) + grupo(s - f);
    return "XXX" + valores + grupo(f + s) + grupo(s) + grupo(s);
}

void comprobar(const std::string& linea) {
    const auto esperado = oraculo(linea);
    const auto leida = sorvanel::leerLineaPavona(linea);
    if (leida.has_value() != esperado.has_value()) std::abort();
    if (!leida) return;
    for (std::size_t n = 0; n <= linea.size(); ++n)
        if (!sorvanel::empiezaLineaPavona(linea.substr(0, n))) std::abort();
    if (leida->texto() != *esperado || leida->texto().size() != 57) std::abort();
    if (leida->primero != std::stoi(linea.substr(0, 2)) || leida->segundo != std::stoi(linea.substr(3, 2)))
        std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t largo) {
    const std::string bruto(reinterpret_cast<const char*>(datos), largo);
    comprobar(bruto);
    if (largo < 17) return 0;
    // The same bytes as the two values of a line, most of them characters that numbers are made of.
    constexpr char CIFRAS[] = "0123456789. 5-+9";
    std::string valores = bruto.substr(1, 16);
    for (char& c : valores) {
        if (static_cast<unsigned char>(c) < 0xF0) c = CIFRAS[static_cast<unsigned char>(c) % 16];
    }
    // A point at each place and a sign are too seldom by chance.
    if ((datos[0] & 4U) != 0) valores[datos[0] >> 5U] = '.';
    if ((datos[0] & 8U) != 0) valores[0] = '-';
    const std::string marcas = {(datos[0] & 1U) != 0 ? 'C' : '-', (datos[0] & 2U) != 0 ? 'D' : '-'};
    comprobar("07/42 " + marcas + ' ' + valores.substr(0, 8) + ' ' + valores.substr(8));
    return 0;
}
