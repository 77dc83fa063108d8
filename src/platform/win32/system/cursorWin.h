#pragma once

#include "platform/sistema.h"

namespace sorvanel {

class AvisosWin;

class CursorWin : public Cursor {
public:
    explicit CursorWin(const AvisosWin& avisos) : m_avisos(avisos) {}

    PuntoPixel posicion() const override;
    // Moves nothing while a message box is open: the user must reach it.
    void posicion(PuntoPixel punto) override;

private:
    const AvisosWin& m_avisos;
};

}  // namespace sorvanel
