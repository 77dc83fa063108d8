#pragma once

#include "observado.h"

namespace sorvanel::medidas {

// What a program holds at one moment.
struct Recursos {
    long long privada = 0, residente = 0;  // KiB
    long gdi = 0, user = 0, manejadores = 0;
};

Recursos mirar(const Observado& programa);
// Prints both of each kind. False when one of them has grown by more than a leak of one with each turn would stay
// below.
bool comparar(const Recursos& antes, const Recursos& despues);

}  // namespace sorvanel::medidas
