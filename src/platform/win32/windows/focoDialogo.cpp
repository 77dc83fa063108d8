#include "platform/win32/windows/focoDialogo.h"

#include <algorithm>

namespace sorvanel {

void FocoDialogo::enfocar(ControlWin& control) {
    if (!control.alcanzable()) return;
    // A hidden window takes it up when it is shown, a disabled one when its box is closed.
    if (!m_ventana || !IsWindowVisible(m_ventana) || !IsWindowEnabled(m_ventana)) {
        m_actual = &control;
        return;
    }
    SetFocus(control.hwnd());
}

void FocoDialogo::alPerder(ControlWin& control, HWND nueva) {
    if (m_devolviendo || !dentro(nueva) || !control.seValida()) return;
    if (std::find(m_porValidar.begin(), m_porValidar.end(), &control) == m_porValidar.end()) {
        m_porValidar.push_back(&control);
    }
    PostMessageW(m_ventana, MENSAJE_VALIDAR, 0, 0);
}

void FocoDialogo::alRetirar(ControlWin& control) {
    // Later, when all controls of the new state are there.
    if (m_actual == &control && m_ventana) PostMessageW(m_ventana, MENSAJE_RECUPERAR, 0, 0);
}

void FocoDialogo::baja(ControlWin& control) {
    std::erase(m_porValidar, &control);
    if (m_actual != &control) return;
    // The next in order takes over.
    m_actual = m_orden.siguiente(&control);
    if (m_actual == &control) m_actual = nullptr;
    if (m_ventana && IsWindowVisible(m_ventana)) PostMessageW(m_ventana, MENSAJE_RECUPERAR, 0, 0);
}

void FocoDialogo::recuperar() {
    if (!m_ventana || !IsWindowVisible(m_ventana) || GetActiveWindow() != m_ventana) return;
    const HWND foco = GetFocus();
    if (dentro(foco) && m_actual && m_actual->alcanzable() && foco == m_actual->hwnd()) return;
    ControlWin* nuevo = m_actual && m_actual->alcanzable() ? m_actual : m_orden.siguiente(m_actual);
    if (nuevo) {
        SetFocus(nuevo->hwnd());
    } else if (foco != m_ventana) {
        SetFocus(m_ventana);
    }
}

void FocoDialogo::reanudar() {
    if (!m_porValidar.empty() && m_ventana) PostMessageW(m_ventana, MENSAJE_VALIDAR, 0, 0);
}

void FocoDialogo::validarUno() {
    if (m_porValidar.empty()) return;
    // While a box is open, or another window has the keyboard, it has to wait.
    const HWND foco = GetFocus();
    if (!IsWindowEnabled(m_ventana) || !dentro(foco)) return;
    ControlWin* control = m_porValidar.front();
    m_porValidar.erase(m_porValidar.begin());
    reanudar();
    if (foco == control->hwnd()) return;
    const Vida::Testigo viva = m_vida.testigo(), vivo = control->testigo();
    const bool bien = control->validar();
    if (bien || !viva || !vivo || !control->alcanzable()) return;
    m_porValidar.clear();
    m_devolviendo = true;
    SetFocus(control->hwnd());
    if (viva) m_devolviendo = false;
}

}  // namespace sorvanel
