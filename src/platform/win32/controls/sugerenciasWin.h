#pragma once

#include <windows.h>

#include <string>

#include "platform/win32/base/manejadores.h"

namespace sorvanel {

// The tool tips of one form: one window for all of its controls.
class SugerenciasWin {
public:
    // Made when the form has a window. Without tool tips of the system there are none, and nothing
    // else is lost.
    void crear(HWND formulario);
    // An empty text takes the tip off.
    void poner(HWND control, const std::wstring& texto);
    // What the mouse does to the controls, before they are told. Without it no tip appears: to listen by
    // itself the system would hang a second procedure on each control, asked for each of its messages.
    void relevar(const MSG& mensaje);
    // The font is the caller's and stays until another is given.
    void fuente(HFONT fuente);
    void cerrar() { m_ventana.cambiar(nullptr); }

private:
    HWND m_formulario = nullptr;
    Ventana m_ventana;
};

}  // namespace sorvanel
