#pragma once

#include <chrono>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "simulador/opciones.h"

// The values that options take. All throw ErrorUso with a text that says what was expected.
namespace sorvanel::simulador {

constexpr std::int64_t MAXTRAMAS = 1'000'000'000'000;
constexpr std::chrono::seconds MAXAVALANCHA{60};

std::string entreComillas(std::string_view texto);
std::vector<std::string_view> partir(std::string_view texto, char separador);

std::int64_t leerEntero(std::string_view texto, std::int64_t minimo, std::int64_t maximo);
// A number with a decimal point and up to three decimals, in thousandths; so are its bounds.
std::int64_t leerMilesimas(std::string_view texto, std::int64_t minimo, std::int64_t maximo);
std::vector<std::int64_t> leerListaMilesimas(std::string_view texto, std::int64_t minimo, std::int64_t maximo);
// Seconds, from a thousandth (or 0) to a year.
std::chrono::milliseconds leerSegundos(std::string_view texto, bool admiteCero = false);
// "9001-9004,9010,192.168.1.20:9001"; an item without a host has an empty one.
std::vector<Destino> leerPuertos(std::string_view texto);
// "2:5,3:5-9"
std::vector<Callada> leerCalladas(std::string_view texto);
// "10:2" or "azar:10:2"
Pausas leerPausas(std::string_view texto);
// The word for "its own number" or a weight
void leerPeso(std::string_view texto, std::string_view palabra, OrigenPeso& peso);
// "0:5000:1"
void leerBarrido(std::string_view texto, OrigenPeso& peso);
Marcas leerMarcas(std::string_view texto);
// "5:20"
Ventana leerVentana(std::string_view texto);
// A stretch of at most MAXAVALANCHA.
Ventana leerAvalancha(std::string_view texto);
// "10" or "10:corta,larga": each so many, and the places of those names in `nombres` (all if none is named).
std::int64_t leerCada(std::string_view texto, std::span<const std::string_view> nombres,
                      std::vector<std::size_t>& elegidos);

// The same, for the names of an enumeration's values.
template <class Clase>
std::int64_t leerCadaClases(std::string_view texto, std::span<const std::string_view> nombres,
                            std::vector<Clase>& clases) {
    std::vector<std::size_t> elegidos;
    const std::int64_t cada = leerCada(texto, nombres, elegidos);
    clases.clear();
    for (const std::size_t elegido : elegidos) clases.push_back(static_cast<Clase>(elegido));
    return cada;
}

}  // namespace sorvanel::simulador
