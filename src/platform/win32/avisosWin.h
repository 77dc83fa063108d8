#pragma once

#include <windows.h>

#include "platform/sistema.h"

namespace sorvanel {

class AvisosWin : public Avisos {
public:
    // Above which window the boxes stand; null for none.
    void propietaria(HWND ventana) { m_propietaria = ventana; }
    // True while a box is open.
    bool abierto() const { return m_abiertos > 0; }

    void critico(const std::string& texto) override;
    void informacion(const std::string& texto) override;

private:
    void mostrar(const std::string& texto, UINT icono);

    HWND m_propietaria = nullptr;
    int m_abiertos = 0;
};

}  // namespace sorvanel
