#pragma once

#include <cstdint>

#include "simulador/opciones.h"

// What the program plays, until the options' end or the user's. Both throw ErrorRed.
namespace sorvanel::simulador {

// False if something could not be sent.
bool indicar(const Opciones& opciones, std::uint64_t semilla);
// The port must be had at first; later it is tried again.
void concentrar(const Opciones& opciones, std::uint64_t semilla);

}  // namespace sorvanel::simulador
