#pragma once

#include <windows.h>

namespace sorvanel {

// The presses of the mouse in all windows. The second half of a double click meets what has taken the first button's
// place since, be it what lay beneath a window that has gone, and nobody meant to press that.
class PulsacionesRaton {
public:
    // A press on that button, there on the screen, while its message is handled. No when it is to be
    // swallowed; two presses of the same button are two presses, unless it takes only one of a double click.
    bool admitir(HWND boton, POINT donde, bool unaSola = false) {
        RECT sitio{};
        GetWindowRect(boton, &sitio);
        return admitir(boton, donde, sitio, unaSola);
    }
    // The same on something so large that most of its presses have nothing to do with each other.
    bool admitirCerca(HWND ventana, POINT donde) {
        const int x = GetSystemMetrics(SM_CXDOUBLECLK), y = GetSystemMetrics(SM_CYDOUBLECLK);
        return admitir(ventana, donde, {donde.x - x, donde.y - y, donde.x + x + 1, donde.y + y + 1}, false);
    }

private:
    bool admitir(HWND boton, POINT donde, const RECT& sitio, bool unaSola) {
        const auto ahora = static_cast<DWORD>(GetMessageTime());
        const bool sobra = m_boton && (unaSola || m_boton != boton) && PtInRect(&sitio, m_donde) &&
                           ahora - m_cuando <= GetDoubleClickTime();
        // Swallowed, it counts as one of the first button, and so a third as quick as the second goes with it.
        if (!sobra) m_boton = boton;
        m_donde = donde;
        m_cuando = ahora;
        return !sobra;
    }

    HWND m_boton = nullptr;
    POINT m_donde{};
    DWORD m_cuando = 0;  // milliseconds, of the system's start; comes round
};

}  // namespace sorvanel
