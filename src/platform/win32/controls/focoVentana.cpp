#include "platform/win32/controls/focoVentana.h"

#include <algorithm>

#include "platform/win32/base/mensajes.h"
#include "platform/win32/controls/controlWin.h"

namespace sorvanel {

void FocoVentana::enfocar(ControlWin& control) {
    if (!control.alcanzable()) return;
    // A hidden window takes it up when it is shown, a disabled one when its box is closed.
    if (!m_ventana || !IsWindowVisible(m_ventana) || !IsWindowEnabled(m_ventana)) {
        m_actual = &control;
        return;
    }
    SetFocus(control.hwnd());
}

void FocoVentana::alRecibir(ControlWin& control) {
    m_actual = &control;
    if (!control.heredaFoco()) return;
    m_hubo = true;
    m_donde = control.centro();
}

void FocoVentana::alPerder(ControlWin& control, HWND nueva) {
    if (m_devolviendo || !dentro(nueva) || !control.seValida()) return;
    if (std::find(m_porValidar.begin(), m_porValidar.end(), &control) == m_porValidar.end()) {
        m_porValidar.push_back(&control);
    }
    PostMessageW(m_ventana, MENSAJE_VALIDAR, 0, 0);
}

// Later, when all controls of the new state are there.
void FocoVentana::recuperarLuego() const {
    if (m_ventana && IsWindowVisible(m_ventana)) PostMessageW(m_ventana, MENSAJE_FOCO, 0, 0);
}

void FocoVentana::alRetirar(ControlWin& control) {
    if (m_actual != &control) return;
    if (control.heredaFoco()) m_donde = control.centro();  // it may have moved since it got the focus
    recuperarLuego();
}

void FocoVentana::alAparecer() {
    if (m_ventana && GetFocus() == m_ventana) recuperarLuego();
}

void FocoVentana::baja(ControlWin& control) {
    std::erase(m_porValidar, &control);
    if (m_actual != &control) return;
    m_actual = nullptr;
    m_donde = control.centro();
    recuperarLuego();
}

void FocoVentana::recuperar() {
    if (!m_ventana || !IsWindowVisible(m_ventana) || GetActiveWindow() != m_ventana) return;
    const HWND foco = GetFocus();
    if (dentro(foco) && m_actual && m_actual->alcanzable() && foco == m_actual->hwnd()) return;
    ControlWin* nuevo = m_actual && m_actual->alcanzable() ? m_actual : nullptr;
    if (!nuevo) nuevo = m_hubo ? m_orden.masCercano(m_donde) : m_orden.primero();
    if (nuevo) {
        SetFocus(nuevo->hwnd());
    } else if (foco != m_ventana) {
        SetFocus(m_ventana);
    }
}

void FocoVentana::reanudar() {
    if (!m_porValidar.empty() && m_ventana) PostMessageW(m_ventana, MENSAJE_VALIDAR, 0, 0);
}

void FocoVentana::validarUno() {
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
