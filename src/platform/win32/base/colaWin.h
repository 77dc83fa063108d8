#pragma once

#include <deque>

#include "platform/sistema.h"
#include "platform/win32/base/ventanaMensajes.h"

namespace sorvanel {

// One action a message, in order: an action that opens a message box does not hold up the others,
// and what arrives meanwhile gets its turn between them.
class ColaWin : public Cola, private ReceptorMensajes {
public:
    explicit ColaWin(VentanaMensajes& ventana);
    ~ColaWin();
    ColaWin(const ColaWin&) = delete;
    ColaWin& operator=(const ColaWin&) = delete;

    void despues(std::function<void()> accion) override;

private:
    void alMensaje(WPARAM, LPARAM) override { atender(); }
    void alTic() override;
    void atender();

    VentanaMensajes& m_ventana;
    const UINT m_numero;
    std::deque<std::function<void()>> m_acciones;
};

}  // namespace sorvanel
