#include "platform/win32/controls/ordenControles.h"

#include <algorithm>

#include "platform/win32/controls/controlWin.h"

namespace sorvanel {

bool ponerDebajo(HWND ventana, HWND encima, UINT ademas) {
    constexpr UINT SOLO_ORDEN = SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_NOOWNERZORDER | SWP_NOSENDCHANGING;
    return ventana && SetWindowPos(ventana, encima, 0, 0, 0, 0, SOLO_ORDEN | ademas);
}

// The last ones go first, mostly: looked for from the end.
void OrdenControles::quitar(const ControlWin& control) {
    const auto donde = std::find(m_controles.rbegin(), m_controles.rend(), &control);
    if (donde != m_controles.rend()) m_controles.erase(std::next(donde).base());
}

void OrdenControles::ordenar(std::span<ControlWin* const> primero) {
    std::vector<ControlWin*> orden;
    orden.reserve(m_controles.size());
    for (ControlWin* control : primero) {
        if (std::find(m_controles.begin(), m_controles.end(), control) != m_controles.end()) orden.push_back(control);
    }
    for (ControlWin* control : m_controles) {
        if (std::find(primero.begin(), primero.end(), control) == primero.end()) orden.push_back(control);
    }
    m_controles = std::move(orden);
    apilar();
}

HWND OrdenControles::apilar() const {
    HWND encima = HWND_TOP;
    for (const ControlWin* control : m_controles) {
        ponerDebajo(control->hwnd(), encima);
        encima = control->hwnd();
    }
    return encima;
}

ControlWin* OrdenControles::primero() const {
    const auto donde = std::find_if(m_controles.begin(), m_controles.end(), [](auto* c) { return c->alcanzable(); });
    return donde == m_controles.end() ? nullptr : *donde;
}

ControlWin* OrdenControles::masCercano(POINT donde) const {
    const auto lejania = [&](const ControlWin& control) {
        const POINT medio = control.centro();
        const auto dx = static_cast<double>(medio.x - donde.x), dy = static_cast<double>(medio.y - donde.y);
        return dx * dx + dy * dy;
    };
    ControlWin* mejor = nullptr;
    for (ControlWin* control : m_controles) {
        if (!control->alcanzable() || !control->heredaFoco()) continue;
        if (!mejor || lejania(*control) < lejania(*mejor)) mejor = control;
    }
    return mejor;
}

}  // namespace sorvanel
