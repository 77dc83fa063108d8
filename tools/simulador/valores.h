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

constexpr std::int64_t MAXCADA = 1'000'000'000;

std::string entreComillas(std::string_view texto);
std::vector<std::string_view> partir(std::string_view texto, char separador);

std::int64_t leerEntero(std::string_view texto, std::int64_t minimo, std::int64_t maximo);
// A number with a decimal point and up to three decimals, in thousandths; so are its bounds.
std::int64_t leerMilesimas(std::string_view texto, std::int64_t minimo, std::int64_t maximo);
// Weights above 0.
std::vector<std::int64_t> leerListaMilesimas(std::string_view texto);
std::chrono::milliseconds leerSegundos(std::string_view texto);
// "5-20", or "5" for a stretch without end where that is allowed.
Ventana leerVentana(std::string_view texto, bool admiteAbierta = false);
// "9001-9004,9010"
std::vector<int> leerPuertos(std::string_view texto);
// "12/1-12/8,13/5"; a stretch may go beyond x/99.
std::vector<Direccion> leerDirecciones(std::string_view texto);
// "2:5" or "3:5-9"
Callada leerCallada(std::string_view texto);
// One of the letters in each place.
std::string leerMarcas(std::string_view texto, std::span<const std::string_view> letras);
// "10" or "10:corta,larga", of those classes.
Malas leerMalas(std::string_view texto, std::span<const std::string_view> clases);
// Text with \xHH.
std::string leerTexto(std::string_view texto);
// "cr", "lf" or "crlf"
std::string leerFinLinea(std::string_view texto);
// "saludo", "lecturas:20", "media:20"; a silence may say for how long: "rep:1.5".
Tropiezo leerTropiezo(std::string_view texto, Tropiezo::Tipo tipo);

}  // namespace sorvanel::simulador
