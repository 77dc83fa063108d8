#include "simulador/linea.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "simulador/azar.h"
#include "simulador/trama.h"

namespace sorvanel::simulador {

namespace {

constexpr std::size_t ANCHO = 8;
constexpr std::size_t PRIMERVALOR = 9;
constexpr std::array<std::int64_t, 4> UNIDADES = {1000, 100, 10, 1};

std::string valor(std::int64_t milesimas, int decimales) {
    // The sign takes the place of a digit.
    const bool negativo = milesimas < 0;
    const std::int64_t tope = negativo ? maximo(decimales) / 10 : maximo(decimales);
    const std::int64_t unidades =
        (std::min<std::int64_t>(std::abs(milesimas), tope) + unidad(decimales) / 2) / unidad(decimales);
    std::string texto = std::to_string(unidades);
    texto.insert(0, ANCHO - (decimales > 0 ? 1 : 0) - texto.size(), '0');
    if (decimales > 0) texto.insert(texto.size() - static_cast<std::size_t>(decimales), 1, '.');
    if (negativo) texto[0] = '-';
    return texto;
}

}  // namespace

std::int64_t unidad(int decimales) {
    return UNIDADES[static_cast<std::size_t>(decimales)];
}

std::int64_t maximo(int decimales) {
    const std::int64_t caben = decimales == 3 ? 9'999'999 : MAXMILESIMAS;
    return caben - caben % unidad(decimales);
}

std::string lineaPavona(Direccion direccion, const Lectura& lectura, std::int64_t acumulado, int decimales,
                        std::string_view marcas) {
    std::array<char, 32> principio{};
    std::snprintf(principio.data(), principio.size(), "%02d/%02d ", direccion.primero % 100, direccion.segundo % 100);
    std::string letras{marcas};
    if (letras.empty()) letras = {lectura.cargando ? 'C' : '-', lectura.descargando ? 'D' : '-'};
    return principio.data() + letras + " " + valor(lectura.milesimas, decimales) + " " + valor(acumulado, decimales);
}

std::string lineaMala(ClaseLinea clase, std::string_view linea, std::uint64_t azar) {
    constexpr std::string_view OTRASMARCAS = "XcdcE ";
    constexpr std::array<std::size_t, 2> MARCAS = {6, 7};
    constexpr std::array<std::size_t, 4> SEPARADORES = {2, 5, 8, 17};
    std::string mala{linea};
    const std::uint64_t otro = mezclar(azar);
    switch (clase) {
        case ClaseLinea::Media:
            mala.resize(1 + azar % (linea.size() - 1));
            break;
        case ClaseLinea::Larga:
            mala.append(1 + azar % ANCHO, static_cast<char>('0' + otro % 10));
            break;
        case ClaseLinea::Direccion:
            mala.erase(azar % 2, 1);
            break;
        case ClaseLinea::Marcas:
            mala[MARCAS[azar % MARCAS.size()]] = OTRASMARCAS[otro % OTRASMARCAS.size()];
            break;
        case ClaseLinea::Separador:
            mala[SEPARADORES[azar % SEPARADORES.size()]] = ';';
            break;
        case ClaseLinea::Valor:
            // A letter among digits: of the line's shape, but no number.
            mala[PRIMERVALOR + azar % 2 * (ANCHO + 1) + otro % ANCHO] = 'A';
            break;
        case ClaseLinea::Basura:
            return basura(azar);
    }
    return mala;
}

}  // namespace sorvanel::simulador
