#pragma once

#include <windows.h>

namespace sorvanel::pruebas {

constexpr int PLAZO = 8000;  // ms; long, for a busy machine: a condition that holds ends the wait

// Asks again and again until the condition holds (true) or the time is over (false).
template <class Condicion>
bool esperar(Condicion condicion, int milisegundos = PLAZO) {
    const ULONGLONG fin = GetTickCount64() + static_cast<ULONGLONG>(milisegundos);
    while (!condicion()) {
        if (GetTickCount64() >= fin) return condicion();
        Sleep(5);
    }
    return true;
}

}  // namespace sorvanel::pruebas
