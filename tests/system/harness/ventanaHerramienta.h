#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "harness/programa.h"

namespace sorvanel::pruebas {

// The window of one configuration tool of a running program, and what an operator does in it.
class VentanaHerramienta {
public:
    VentanaHerramienta(const Programa& programa, IdControl id) : m_programa(programa), m_id(id) {}

    // Null while it is not open.
    HWND ventana() const;
    bool esperarAbierta() const;
    bool esperarCerrada() const;

    HWND control(IdControl id, int elemento = 0) const;
    bool esperarControl(IdControl id, int elemento = 0) const;
    std::string texto(IdControl id, int elemento = 0) const;
    bool esperarTexto(IdControl id, int elemento, std::string_view esperado) const;
    // This and the next two wait until the control is there.
    void pulsar(IdControl id, int elemento = 0) const;
    // Takes the place of what the box holds, character by character, as the keyboard would.
    void escribir(IdControl id, int elemento, std::string_view texto) const;
    // One key to that control, which has the focus first.
    void tecla(IdControl id, int elemento, int teclaVirtual) const;

private:
    bool enfocar(HWND control) const;

    const Programa& m_programa;
    const IdControl m_id;
};

}  // namespace sorvanel::pruebas
