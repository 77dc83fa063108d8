#pragma once

#include <deque>
#include <functional>
#include <utility>

#include "platform/sistema.h"
#include "platform/win32/base/ventanaMensajes.h"

namespace sorvanel {

// One action a message, in order: an action that opens a message box does not hold up the others,
// and what arrives meanwhile gets its turn between them.
class ColaWin : public Cola, private ReceptorMensajes {
public:
    explicit ColaWin(VentanaMensajes& ventana) : m_ventana(ventana), m_numero(ventana.reservar(*this)) {}
    ~ColaWin() { m_ventana.liberar(m_numero); }
    ColaWin(const ColaWin&) = delete;
    ColaWin& operator=(const ColaWin&) = delete;

    void despues(std::function<void()> accion) override {
        m_acciones.push_back(std::move(accion));
        // One message is under way as long as anything waits.
        if (m_acciones.size() == 1) m_ventana.despertar(m_numero);
    }

private:
    void alMensaje(WPARAM, LPARAM) override { atender(); }
    bool enTanda() const override { return false; }
    void alTic() override {
        KillTimer(m_ventana.hwnd(), m_numero);
        atender();
    }
    void atender() {
        if (m_acciones.empty()) return;
        const std::function<void()> accion = std::move(m_acciones.front());
        m_acciones.pop_front();
        if (!m_acciones.empty()) m_ventana.despertar(m_numero);
        if (accion) accion();
    }

    VentanaMensajes& m_ventana;
    const UINT m_numero;
    std::deque<std::function<void()>> m_acciones;
};

}  // namespace sorvanel
