#pragma once

#include <windows.h>

#include <optional>

#include "platform/control.h"

namespace sorvanel {

// A key that a control hands to its owner first. With Shift or Ctrl an arrow selects or jumps, which
// is the control's own affair.
inline std::optional<Tecla> teclaDe(WPARAM virtual_) {
    const bool combinada = (GetKeyState(VK_SHIFT) | GetKeyState(VK_CONTROL)) < 0;
    switch (virtual_) {
        case VK_RETURN:
            return Tecla::intro;
        case VK_ESCAPE:
            return Tecla::escape;
        case VK_UP:
            return combinada ? std::nullopt : std::optional(Tecla::arriba);
        case VK_DOWN:
            return combinada ? std::nullopt : std::optional(Tecla::abajo);
        case VK_LEFT:
            return combinada ? std::nullopt : std::optional(Tecla::izquierda);
        case VK_RIGHT:
            return combinada ? std::nullopt : std::optional(Tecla::derecha);
        default:
            return std::nullopt;
    }
}

// What the dialog keyboard of the system must leave to the control: all characters and arrows, Enter, and Escape where
// somebody deals with it; Tab stays its own.
inline LRESULT teclasQueQuiere(LRESULT deSistema, LPARAM mensaje, bool conEscape) {
    const auto* m = reinterpret_cast<const MSG*>(mensaje);
    const bool suya = m && (m->message == WM_KEYDOWN || m->message == WM_CHAR) &&
                      (m->wParam == VK_RETURN || (conEscape && m->wParam == VK_ESCAPE));
    return deSistema | DLGC_WANTCHARS | DLGC_WANTARROWS | (suya ? DLGC_WANTMESSAGE : 0);
}

}  // namespace sorvanel
