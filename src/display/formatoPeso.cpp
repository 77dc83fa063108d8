#include "display/formatoPeso.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace sorvanel {

namespace {

constexpr std::string_view FORMATO_USUAL = "####0";
constexpr std::size_t DECIMALES_DEL_PESO = 3;

// A weight's digits after rounding to a number of decimals.
struct Cifras {
    bool negativo = false;
    std::array<char, 20> entero{};
    std::size_t enteros = 0;  // none for zero
    std::array<char, DECIMALES_DEL_PESO> decimal{'0', '0', '0'};

    std::string_view parteEntera() const { return {entero.data(), enteros}; }
    char decimalEn(std::size_t lugar) const { return lugar < decimal.size() ? decimal[lugar] : '0'; }
};

Cifras redondear(std::int64_t milesimas, std::size_t decimales) {
    // Unsigned, so that the lowest negative number has a magnitude too.
    const auto crudo = static_cast<std::uint64_t>(milesimas);
    std::uint64_t magnitud = milesimas < 0 ? 0 - crudo : crudo;
    std::uint64_t unidad = 1;
    for (std::size_t i = decimales; i < DECIMALES_DEL_PESO; ++i) unidad *= 10;
    magnitud = (magnitud + unidad / 2) / unidad * unidad;

    Cifras cifras;
    cifras.negativo = milesimas < 0 && magnitud != 0;
    std::uint64_t resto = magnitud % 1000;
    for (std::size_t i = DECIMALES_DEL_PESO; i-- > 0; resto /= 10) {
        cifras.decimal[i] = static_cast<char>('0' + resto % 10);
    }
    if (magnitud >= 1000) {
        char* const principio = cifras.entero.data();
        const auto fin = std::to_chars(principio, principio + cifras.entero.size(), magnitud / 1000).ptr;
        cifras.enteros = static_cast<std::size_t>(fin - principio);
    }
    return cifras;
}

}  // namespace

FormatoPeso::FormatoPeso(std::string_view formato) {
    leer(formato.empty() ? FORMATO_USUAL : formato);
    // The shown text has points only, whatever the format's own text says.
    std::replace(m_literales.begin(), m_literales.end(), ',', '.');
    fijarLugares();
}

void FormatoPeso::leer(std::string_view formato) {
    for (std::size_t i = 0; i < formato.size(); ++i) {
        const char c = formato[i];
        if (c == '#' || c == '0') {
            cifra(c);
        } else if (c == '.' || c == ',') {
            // A number has one point: further ones count for nothing.
            if (!m_punto) m_piezas.push_back({Clase::punto, true, 0, 0});
            m_punto = true;
        } else if (c == '"') {
            const std::size_t fin = std::min(formato.find('"', i + 1), formato.size());
            literal(formato.substr(i + 1, fin - i - 1));
            i = fin;
        } else if (c == '\\') {
            literal(formato.substr(++i < formato.size() ? i : formato.size(), 1));
        } else {
            literal(formato.substr(i, 1));
        }
    }
}

void FormatoPeso::literal(std::string_view texto) {
    if (m_piezas.empty() || m_piezas.back().clase != Clase::literal) {
        m_piezas.push_back({Clase::literal, true, m_literales.size(), 0});
    }
    m_piezas.back().cuantos += texto.size();
    m_literales += texto;
}

void FormatoPeso::cifra(char c) {
    std::size_t& lugares = m_punto ? m_decimales : m_enteros;
    m_piezas.push_back({m_punto ? Clase::decimal : Clase::entero, c == '0', lugares++, 0});
}

// A "0" also fixes the places between it and the point: "0##" prints three digits, ".##0" three decimals.
void FormatoPeso::fijarLugares() {
    bool fija = false;
    for (Pieza& pieza : m_piezas) {
        if (pieza.clase == Clase::entero) pieza.fija = fija = fija || pieza.fija;
    }
    fija = false;
    for (auto pieza = m_piezas.rbegin(); pieza != m_piezas.rend(); ++pieza) {
        if (pieza->clase == Clase::decimal) pieza->fija = fija = fija || pieza->fija;
    }
}

void FormatoPeso::escribir(std::int64_t milesimas, std::string& destino) const {
    const Cifras cifras = redondear(milesimas, m_decimales);
    std::size_t significativos = DECIMALES_DEL_PESO;
    while (significativos > 0 && cifras.decimal[significativos - 1] == '0') --significativos;

    destino.clear();
    if (cifras.negativo) destino += '-';
    for (const Pieza& pieza : m_piezas) {
        switch (pieza.clase) {
            case Clase::literal:
                destino.append(m_literales, pieza.indice, pieza.cuantos);
                break;
            case Clase::entero:
                escribirEntero(pieza, cifras.parteEntera(), destino);
                break;
            case Clase::punto:
                if (m_enteros == 0) destino += cifras.parteEntera();
                destino += '.';
                break;
            case Clase::decimal:
                if (pieza.fija || pieza.indice < significativos) destino += cifras.decimalEn(pieza.indice);
                break;
        }
    }
}

std::string FormatoPeso::muestra() const {
    constexpr std::int64_t MILESIMAS = 9'999'000;
    std::string texto;
    escribir(MILESIMAS, texto);
    return texto;
}

void FormatoPeso::escribirEntero(const Pieza& pieza, std::string_view cifras, std::string& destino) const {
    const std::size_t alFinal = m_enteros - pieza.indice;  // places from this one to the point
    if (alFinal > cifras.size()) {
        if (pieza.fija) destino += '0';
        return;
    }
    const std::size_t desde = cifras.size() - alFinal;
    // The first place also takes what goes beyond the placeholders.
    if (pieza.indice == 0) destino += cifras.substr(0, desde);
    destino += cifras[desde];
}

}  // namespace sorvanel
