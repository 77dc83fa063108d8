#include "simulador/linea.h"

#include <algorithm>
#include <cstdio>

#include "simulador/azar.h"

namespace sorvanel::simulador {

namespace {

constexpr std::size_t ANCHO = 8;
constexpr std::size_t PRIMERVALOR = 9;
constexpr std::array<std::string_view, 2> LETRAS = {"C-", "D-"};

std::string letras(const Lectura& lectura, const Marcas& marcas, std::uint64_t azar) {
    if (marcas.modo == Marcas::Modo::Fijas) return marcas.fijas;
    if (marcas.modo == Marcas::Modo::Azar) return {LETRAS[0][azar & 1U], LETRAS[1][azar >> 1U & 1U]};
    return {lectura.cargando ? 'C' : '-', lectura.descargando ? 'D' : '-'};
}

std::string valor(std::int64_t milesimas, Decimales decimales) {
    constexpr std::array<std::int64_t, 4> UNIDADES = {1000, 100, 10, 1};
    milesimas = std::clamp<std::int64_t>(milesimas, 0, decimales.maximo());
    const auto cifras = static_cast<std::size_t>(decimales.cifras);
    const std::int64_t unidades =
        cifras < UNIDADES.size() ? (milesimas + UNIDADES[cifras] / 2) / UNIDADES[cifras] : milesimas * 10;
    const bool punto = cifras > 0 || decimales.puntoFinal;
    std::string texto = std::to_string(unidades);
    texto.insert(0, ANCHO - (punto ? 1 : 0) - texto.size(), '0');
    if (punto) texto.insert(texto.size() - cifras, 1, '.');
    return texto;
}

}  // namespace

std::int64_t Decimales::unidad() const {
    std::int64_t milesimas = 1000;
    for (int i = 0; i < cifras && milesimas > 1; ++i) milesimas /= 10;
    return milesimas;
}

std::int64_t Decimales::maximo() const {
    // Seven digits beside the point; eight of thousandths is what weights have everywhere.
    constexpr std::array<std::int64_t, 5> TOPES = {99'999'000, 99'999'900, 99'999'990, 9'999'999, 999'999};
    return TOPES[static_cast<std::size_t>(cifras)];
}

bool sonMarcasPavona(std::string_view texto) {
    return texto.size() == LETRAS.size() && LETRAS[0].find(texto[0]) != std::string_view::npos &&
           LETRAS[1].find(texto[1]) != std::string_view::npos;
}

std::string lineaPavona(Direccion direccion, const Lectura& lectura, std::int64_t acumulado, Decimales decimales,
                        const Marcas& marcas, std::uint64_t azar) {
    std::array<char, 32> principio{};
    std::snprintf(principio.data(), principio.size(), "%02d/%02d ", direccion.primero % 100, direccion.segundo % 100);
    return principio.data() + letras(lectura, marcas, azar) + " " + valor(lectura.milesimas, decimales) + " " +
           valor(acumulado, decimales);
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
    }
    return mala;
}

}  // namespace sorvanel::simulador
