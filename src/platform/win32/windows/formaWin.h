#pragma once

#include <windows.h>

#include <span>

#include "platform/monitor.h"
#include "platform/win32/base/manejadores.h"
#include "platform/win32/base/sesionOLE.h"

namespace sorvanel {

// The shape of a window without a frame. A whole one that is as large as a monitor covers the task
// bar by itself; of a shaped one the system does not know that it should, so it is kept on top.
class FormaWin {
public:
    // The union of the rectangles, device pixels from the window's corner. The window is touched
    // only when that is another shape than it has.
    void recortar(HWND ventana, std::span<const RectPixel> zonas);
    // The system forgets who is on top when the task bar or the monitors come anew.
    void reafirmar(HWND ventana) const;
    // A task bar that is new does not know who covers it.
    void anunciar(HWND ventana, SesionOLE& ole) const;

private:
    Region m_actual;  // a copy: the one in use is the system's. Null while the window is whole
};

}  // namespace sorvanel
