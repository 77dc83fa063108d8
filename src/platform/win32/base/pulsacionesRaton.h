#pragma once

#include <windows.h>

namespace sorvanel {

// The presses of the mouse on buttons that change places. The second half of a double click meets what has
// taken the first button's place since, and nobody meant to press that.
class PulsacionesRaton {
public:
    // A press on that button, there on the screen, while its message is handled. No when it is to be
    // swallowed; two presses of the same button are two presses.
    bool admitir(HWND boton, POINT donde) {
        RECT sitio{};
        GetWindowRect(boton, &sitio);
        const auto ahora = static_cast<DWORD>(GetMessageTime());
        const bool sobra =
            m_boton && m_boton != boton && PtInRect(&sitio, m_donde) && ahora - m_cuando <= GetDoubleClickTime();
        // Swallowed, it counts as one of the first button, and so a third as quick as the second goes with it.
        if (!sobra) m_boton = boton;
        m_donde = donde;
        m_cuando = ahora;
        return !sobra;
    }

private:
    HWND m_boton = nullptr;
    POINT m_donde{};
    DWORD m_cuando = 0;  // milliseconds, of the system's start; comes round
};

}  // namespace sorvanel
