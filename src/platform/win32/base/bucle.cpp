#include "platform/win32/base/bucle.h"

#include <algorithm>

#include "platform/win32/base/mensajes.h"

namespace sorvanel {

void Bucle::anadirDialogo(HWND ventana) {
    m_dialogos.push_back(ventana);
}

void Bucle::quitarDialogo(HWND ventana) {
    std::erase(m_dialogos, ventana);
}

int Bucle::ejecutar() {
    m_fin = false;
    while (!m_fin) {
        const bool vacia = turno();
        m_mensajes.tandas().terminar();
        if (m_fin) break;
        if (!vacia) alivio();
        if (m_fin) break;
        if (m_ocio) m_ocio(vacia);
        if (vacia) dormir();
    }
    return m_codigo;
}

void Bucle::dormir() {
    constexpr DWORD SIN_ENVIADOS_A_LA_COLA = QS_ALLINPUT & ~static_cast<DWORD>(QS_POSTMESSAGE);
    const std::int64_t falta = m_desperto + LATIDO - m_reloj.microsegundos();
    if (falta > 0) {
        MsgWaitForMultipleObjectsEx(0, nullptr, static_cast<DWORD>((falta + 999) / 1000), SIN_ENVIADOS_A_LA_COLA,
                                    MWMO_INPUTAVAILABLE);
    }
    MsgWaitForMultipleObjectsEx(0, nullptr, INFINITE, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    m_desperto = m_reloj.microsegundos();
}

// Whatever comes, in the system's own order. True when nothing is left.
bool Bucle::turno() {
    const std::int64_t hasta = m_reloj.microsegundos() + TURNO;
    for (int i = 0; i < MENSAJES_POR_TURNO; ++i) {
        if (!sacar(0, 0, 0)) return true;
        if (m_fin || m_reloj.microsegundos() >= hasta) break;
    }
    return false;
}

// What comes after posted messages: input, painting, timers. Bounded too, or they would starve the
// sockets in their turn.
void Bucle::alivio() {
    const std::int64_t hasta = m_reloj.microsegundos() + ALIVIO;
    const auto sigue = [&] { return !m_fin && m_reloj.microsegundos() < hasta; };
    constexpr int ENTRADAS = 16;
    constexpr int PINTADOS = 64;
    constexpr int TICS = 64;
    // Characters are posted: they go before the next key, or they would come after it.
    for (int i = 0; i < ENTRADAS && sigue(); ++i) {
        if (!sacar(WM_KEYFIRST, WM_KEYLAST, 0) && !sacar(0, 0, PM_QS_INPUT)) break;
    }
    for (int i = 0; i < PINTADOS && sigue() && sacar(0, 0, PM_QS_PAINT); ++i) {
    }
    // Each timer waits at most once in the queue, so this ends with those that are due.
    for (int i = 0; i < TICS && sigue() && sacar(WM_TIMER, WM_TIMER, 0); ++i) {
    }
    m_mensajes.tandas().terminar();
}

bool Bucle::sacar(UINT primero, UINT ultimo, UINT clase) {
    MSG mensaje;
    if (!PeekMessageW(&mensaje, nullptr, primero, ultimo, PM_REMOVE | clase)) return false;
    repartir(mensaje);
    return true;
}

void Bucle::repartir(MSG& mensaje) {
    if (mensaje.message == WM_QUIT) {
        m_fin = true;
        m_codigo = static_cast<int>(mensaje.wParam);
        return;
    }
    if (m_mensajes.atender(mensaje)) return;
    // It may open a box, in whose loop what was painted before would wait for the next reading.
    m_mensajes.tandas().terminar();
    if (mensaje.message >= WM_MOUSEFIRST && mensaje.message <= WM_MOUSELAST) anunciarRaton(mensaje);
    // By index: a key may close a dialog.
    for (std::size_t i = 0; i < m_dialogos.size(); ++i) {
        if (IsDialogMessageW(m_dialogos[i], &mensaje)) return;
    }
    TranslateMessage(&mensaje);
    DispatchMessageW(&mensaje);
}

void Bucle::anunciarRaton(const MSG& mensaje) const {
    for (const HWND dialogo : m_dialogos) {
        if (dialogo != mensaje.hwnd && !IsChild(dialogo, mensaje.hwnd)) continue;
        SendMessageW(dialogo, MENSAJE_RATON, 0, reinterpret_cast<LPARAM>(&mensaje));
        return;
    }
}

}  // namespace sorvanel
