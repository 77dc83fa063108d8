#pragma once

#include <windows.h>
#include <winsock2.h>

#include <vector>

#include "platform/win32/manejadores.h"

namespace sorvanel {

// Who is told what comes for its number.
class ReceptorMensajes {
public:
    virtual void alMensaje(WPARAM, LPARAM) {}
    // A system timer whose id is the number. It goes on until it is killed.
    virtual void alTic() {}

protected:
    ~ReceptorMensajes() = default;
};

// The hidden window to which sockets, timers and the queue report. Each of them reserves a number,
// which is at once its message and its timer id. Numbers come round only after thousands of
// others, so what still lies in the queue for one that was given back reaches nobody: a closed
// socket or a dead timer says nothing more, even where the system has reused its handle.
class VentanaMensajes {
public:
    // Throws std::runtime_error when the system gives no window.
    VentanaMensajes();
    ~VentanaMensajes();
    VentanaMensajes(const VentanaMensajes&) = delete;
    VentanaMensajes& operator=(const VentanaMensajes&) = delete;

    HWND hwnd() const { return m_ventana.get(); }

    // 0 when all are taken. The receiver must give the number back before it goes.
    UINT reservar(ReceptorMensajes& receptor);
    void liberar(UINT numero);
    // False once the number was given back: asked by those who may have been destroyed by what
    // they called.
    bool vigente(UINT numero) const { return receptor(numero) != nullptr; }

    // Brings alMensaje(0, 0) to that number when what is being handled now is done. When the queue
    // is full, alTic() comes instead, until the timer is killed.
    void despertar(UINT numero);

private:
    static constexpr UINT PRIMERO = WM_APP;
    static constexpr UINT CUANTOS = 0x4000;

    static LRESULT CALLBACK procedimiento(HWND ventana, UINT mensaje, WPARAM w, LPARAM l) noexcept;
    void repartir(UINT mensaje, WPARAM w, LPARAM l);
    ReceptorMensajes* receptor(UINT numero) const;

    std::vector<ReceptorMensajes*> m_receptores;
    UINT m_siguiente = 0;
    Ventana m_ventana;
};

}  // namespace sorvanel
