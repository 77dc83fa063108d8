#include "platform/win32/windows/sucesosSistema.h"

#include <wtsapi32.h>

#include "platform/win32/base/manejadoresNucleo.h"

namespace sorvanel {

bool SucesosSistema::escuchar(HWND ventana) {
    // Windows 8 and later. Computers that are never quite off tell their sleep to those alone who ask for it.
    using Apuntarse = HPOWERNOTIFY(WINAPI*)(HANDLE, DWORD);
    const HMODULE user32 = GetModuleHandleW(L"user32");
    const auto apuntarse = buscarFuncion<Apuntarse>(user32, "RegisterSuspendResumeNotification");
    if (!m_energia && apuntarse) m_energia = apuntarse(ventana, DEVICE_NOTIFY_WINDOW_HANDLE);
    // After a locked session other windows may lie above.
    if (!m_ventana && WTSRegisterSessionNotification(ventana, NOTIFY_FOR_THIS_SESSION)) m_ventana = ventana;
    return m_ventana != nullptr;
}

void SucesosSistema::callar() {
    if (m_ventana) WTSUnRegisterSessionNotification(m_ventana);
    m_ventana = nullptr;
    if (!m_energia) return;
    using Borrarse = BOOL(WINAPI*)(HPOWERNOTIFY);
    const HMODULE user32 = GetModuleHandleW(L"user32");
    const auto borrarse = buscarFuncion<Borrarse>(user32, "UnregisterSuspendResumeNotification");
    if (borrarse) borrarse(m_energia);
    m_energia = nullptr;
}

Suceso SucesosSistema::leer(UINT mensaje, WPARAM w) const {
    const auto si = [](bool es) { return es ? Suceso::pantalla : Suceso::ninguno; };
    switch (mensaje) {
        case WM_SIZE:
            return si(w == SIZE_RESTORED);
        case WM_WTSSESSION_CHANGE:
            return si(w == WTS_SESSION_UNLOCK || w == WTS_CONSOLE_CONNECT || w == WTS_REMOTE_CONNECT);
        case WM_SETTINGCHANGE:
            return si(w == SPI_SETWORKAREA);
        case WM_DISPLAYCHANGE:
        case WM_DPICHANGED:  // the size that it suggests is none of a whole monitor
            return Suceso::pantalla;
        case WM_POWERBROADCAST:
            if (w == PBT_APMSUSPEND) return Suceso::duerme;
            return w == PBT_APMRESUMEAUTOMATIC ? Suceso::despierta : Suceso::ninguno;
        default:
            return mensaje == m_barraDeTareasNueva ? Suceso::barraNueva : Suceso::ninguno;
    }
}

}  // namespace sorvanel
