#pragma once

#include <string>

#include "harness/proceso.h"

namespace sorvanel::pruebas {

// The message box that a program shows, if any.
class CajaMensaje {
public:
    explicit CajaMensaje(const Proceso& proceso) : m_proceso(proceso) {}

    // Null while there is none.
    HWND ventana() const;
    // What it says now; empty without one, and for a window of the system's own.
    std::string texto() const;
    // Waits for it; empty when none comes.
    std::string esperarTexto() const;
    // Presses its default button and waits until it is gone.
    bool cerrar() const;

private:
    const Proceso& m_proceso;
};

}  // namespace sorvanel::pruebas
