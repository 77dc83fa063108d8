#include "platform/win32/system/ventanasApagadas.h"

namespace sorvanel {

VentanasApagadas::VentanasApagadas(HWND menosEsta) : m_menosEsta(menosEsta) {
    EnumThreadWindows(GetCurrentThreadId(), &VentanasApagadas::alHallar, reinterpret_cast<LPARAM>(this));
}

VentanasApagadas::~VentanasApagadas() {
    for (HWND una : m_ventanas) EnableWindow(una, TRUE);
}

BOOL CALLBACK VentanasApagadas::alHallar(HWND ventana, LPARAM dato) noexcept {
    auto* esta = reinterpret_cast<VentanasApagadas*>(dato);
    if (ventana == esta->m_menosEsta || !IsWindowVisible(ventana) || !IsWindowEnabled(ventana)) return TRUE;
    try {
        esta->m_ventanas.push_back(ventana);
    } catch (...) {
        return FALSE;
    }
    EnableWindow(ventana, FALSE);
    return TRUE;
}

}  // namespace sorvanel
