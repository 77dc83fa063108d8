#pragma once

#include <windows.h>
#include <winsock2.h>

#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

#include "platform/win32/base/relojWin.h"
#include "platform/win32/base/ventanaMensajes.h"

namespace sorvanel {

// The message loop. Windows hands out posted messages, which is what sockets send, before input,
// painting and timers; under a flood of datagrams those would wait for ever. So after some messages
// or milliseconds each of the others gets a turn, whatever waits.
//
// What many sockets bring within one beat of the screen is taken and copied together: when nothing is left, the loop
// sleeps on until the beat since it last woke is over, for posted messages alone; input, painting, timers and what is
// sent wake it at once. So what comes after a pause is shown at once.
class Bucle {
public:
    // Told between messages.
    using Ocio = std::function<void(bool colaVacia)>;

    Bucle(const RelojWin& reloj, VentanaMensajes& mensajes) : m_reloj(reloj), m_mensajes(mensajes) {}

    void ocio(Ocio ocio) { m_ocio = std::move(ocio); }
    // Gives that window the keyboard habits of a dialog, and MENSAJE_RATON, until it is taken off.
    void anadirDialogo(HWND ventana);
    void quitarDialogo(HWND ventana);

    // Runs until PostQuitMessage, and returns its code.
    int ejecutar();

private:
    static constexpr int MENSAJES_POR_TURNO = 64;
    static constexpr std::int64_t TURNO = 4000;    // microseconds
    static constexpr std::int64_t ALIVIO = 20000;  // microseconds
    static constexpr std::int64_t LATIDO = 9000;   // microseconds

    // False when nothing was there.
    bool sacar(UINT primero, UINT ultimo, UINT clase);
    bool turno();
    void alivio();
    void dormir();
    void repartir(MSG& mensaje);
    void anunciarRaton(const MSG& mensaje) const;

    const RelojWin& m_reloj;
    VentanaMensajes& m_mensajes;
    Ocio m_ocio;
    std::vector<HWND> m_dialogos;
    std::int64_t m_desperto = 0;  // microseconds
    bool m_fin = false;
    int m_codigo = 0;
};

}  // namespace sorvanel
