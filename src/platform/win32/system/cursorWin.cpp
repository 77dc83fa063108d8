#include "platform/win32/system/cursorWin.h"

#include "platform/win32/system/avisosWin.h"

namespace sorvanel {

PuntoPixel CursorWin::posicion() const {
    POINT punto{};
    GetCursorPos(&punto);
    return {punto.x, punto.y};
}

void CursorWin::posicion(PuntoPixel punto) {
    if (!m_avisos.abierto()) SetCursorPos(punto.x, punto.y);
}

}  // namespace sorvanel
