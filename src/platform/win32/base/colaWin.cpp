#include "platform/win32/base/colaWin.h"

#include <utility>

namespace sorvanel {

ColaWin::ColaWin(VentanaMensajes& ventana) : m_ventana(ventana), m_numero(ventana.reservar(*this)) {}

ColaWin::~ColaWin() {
    m_ventana.liberar(m_numero);
}

void ColaWin::despues(std::function<void()> accion) {
    m_acciones.push_back(std::move(accion));
    // One message is under way as long as anything waits.
    if (m_acciones.size() == 1) m_ventana.despertar(m_numero);
}

void ColaWin::alTic() {
    KillTimer(m_ventana.hwnd(), m_numero);
    atender();
}

void ColaWin::atender() {
    if (m_acciones.empty()) return;
    const std::function<void()> accion = std::move(m_acciones.front());
    m_acciones.pop_front();
    if (!m_acciones.empty()) m_ventana.despertar(m_numero);
    if (accion) accion();
}

}  // namespace sorvanel
