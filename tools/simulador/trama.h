#pragma once

#include <cstdint>
#include <string>

#include "simulador/lectura.h"

namespace sorvanel::simulador {

// The three letters before the weight: as the reading says, by chance, or always the same.
struct Marcas {
    enum class Modo { Lectura, Azar, Fijas };
    Modo modo = Modo::Lectura;
    std::string fijas;
};

bool sonMarcas(const std::string& texto);

// A `Tessel` frame with its carriage return. The weight is kept within 0 and MAXMILESIMAS; `azar`
// chooses the letters where chance does.
std::string tramaTessel(const Lectura& lectura, const Marcas& marcas, std::uint64_t azar);

}  // namespace sorvanel::simulador
