#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "simulador/lectura.h"

namespace sorvanel::simulador {

// The letters that may stand in each place before the weight.
constexpr std::array<std::string_view, 3> LETRASTESSEL = {"EX", "CNX", "DZX"};

// A `Tessel` frame with its carriage return. The letters are those, or where none are given as the reading says; the
// weight is kept within 0 and MAXMILESIMAS.
std::string tramaTessel(const Lectura& lectura, std::string_view marcas);

// What can be wrong with a frame.
enum class ClaseTrama { Letras, Signo, Corta, Larga, Cifras, Basura };
constexpr std::array<std::string_view, 6> CLASESTRAMA = {"letras", "signo", "corta", "larga", "cifras", "basura"};

// Of a good frame one that is none; it ends in a carriage return too, or is empty.
std::string tramaMala(ClaseTrama clase, std::string_view trama, std::uint64_t azar);

// Up to 64 bytes of any value, carriage returns among them, that hold no frame or line of either family and end in
// one, if there are any: what follows stays whole.
std::string basura(std::uint64_t azar);

}  // namespace sorvanel::simulador
