#pragma once

#include <windows.h>
#include <winsock2.h>

#include <cstdint>
#include <deque>
#include <vector>

#include "platform/win32/base/manejadores.h"
#include "platform/win32/base/relojWin.h"
#include "platform/win32/base/tandas.h"

namespace sorvanel {

// Who is told what comes for its number.
class ReceptorMensajes {
public:
    virtual void alMensaje(WPARAM, LPARAM) {}
    // A system timer whose id is the number. It goes on until it is killed.
    virtual void alTic() {}
    // Whether what it paints may wait for the end of the batch: not where it may open a box, whose loop would come
    // first.
    virtual bool enTanda() const { return true; }

protected:
    ~ReceptorMensajes() = default;
};

// The hidden window to which sockets, timers and the queue report. Each of them reserves a number,
// which is at once its message and its timer id. Numbers come round only after thousands of
// others, so what still lies in the queue for one that was given back reaches nobody: a closed
// socket or a dead timer says nothing more, even where the system has reused its handle.
//
// Windows hands out what is posted, and so what sockets send, before input, painting and timers. Our
// own loop gives those a turn; a box, a menu or a drag runs a loop of the system's, which does not.
// There sockets are served for a while, and then left unanswered, which keeps them still, until a timer
// of the window comes: timers come last, so whatever that loop had to do is done by then.
class VentanaMensajes {
public:
    // Throws std::runtime_error when the system gives no window.
    explicit VentanaMensajes(const RelojWin& reloj);
    ~VentanaMensajes();
    VentanaMensajes(const VentanaMensajes&) = delete;
    VentanaMensajes& operator=(const VentanaMensajes&) = delete;

    HWND hwnd() const { return m_ventana.get(); }
    // What its receivers paint. Our own loop ends its batches; in another loop each message is one.
    Tandas& tandas() { return m_tandas; }

    // 0 when all are taken. The receiver must give the number back before it goes.
    UINT reservar(ReceptorMensajes& receptor);
    void liberar(UINT numero);
    // False once the number was given back: asked by those who may have been destroyed by what
    // they called.
    bool vigente(UINT numero) const { return receptor(numero) != nullptr; }

    // Brings alMensaje(0, 0) to that number when what is being handled now is done. When the queue
    // is full, alTic() comes instead, until the timer is killed.
    void despertar(UINT numero);

    // Our own loop brings what is for this window here: so what comes to the window itself was handed out
    // by another loop. What that one left goes first. False for what is no affair of its receivers: it is to
    // be handed out as usual.
    bool atender(const MSG& mensaje) noexcept;

private:
    static constexpr UINT PRIMERO = WM_APP;
    static constexpr UINT CUANTOS = 0x4000;
    static constexpr UINT_PTR RELOJ_TURNO = 1;
    // Microseconds of sockets in another loop: longer than the timer takes, so that nobody waits for it.
    static constexpr std::int64_t TURNO = 20'000;

    struct Aplazado {
        UINT mensaje;
        WPARAM w;
        LPARAM l;
    };

    static LRESULT CALLBACK procedimiento(HWND ventana, UINT mensaje, WPARAM w, LPARAM l) noexcept;
    static bool esNuestro(UINT mensaje) { return mensaje == WM_TIMER || mensaje >= PRIMERO; }
    // Runs it; what it throws stays here.
    template <typename Accion>
    static void contener(Accion accion) noexcept;
    void atenderEnOtroBucle(UINT mensaje, WPARAM w, LPARAM l);
    void aplazar(UINT mensaje, WPARAM w, LPARAM l);
    bool enTurno();
    void nuevoTurno();
    void terminarTurno();
    void repartirAplazado();
    void repartir(UINT mensaje, WPARAM w, LPARAM l);
    ReceptorMensajes* receptor(UINT numero) const;

    const RelojWin& m_reloj;
    std::vector<ReceptorMensajes*> m_receptores;
    std::deque<Aplazado> m_aplazados;
    Tandas m_tandas;
    bool m_turno = false;         // its timer runs
    std::int64_t m_finTurno = 0;  // microseconds
    UINT m_siguiente = 0;
    VentanaPropia m_ventana;
};

}  // namespace sorvanel
