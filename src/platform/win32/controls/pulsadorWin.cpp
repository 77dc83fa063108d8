#include "platform/win32/controls/pulsadorWin.h"

#include <windowsx.h>

#include <utility>

namespace sorvanel {

namespace {

constexpr UINT_PTR RELOJ_REPETICION = 1;
constexpr UINT ESPERA = 400, RITMO = 60;  // milliseconds

}  // namespace

void PulsadorWin::crearPulsador(const wchar_t* clase, IdControl id, int elemento) {
    crearControl(clase, L"BUTTON", WS_TABSTOP | BS_OWNERDRAW, id, elemento);
}

aspecto::Estado PulsadorWin::estado() const {
    return {(m_apretado && m_dentro) || m_tecla, enfocado(), m_encima, habilitado()};
}

void PulsadorWin::alNotificar(UINT aviso) {
    if (aviso == BN_CLICKED) actuarSiPulsable();
}

bool PulsadorWin::dentro(LPARAM l) const {
    RECT zona{};
    GetClientRect(hwnd(), &zona);
    return PtInRect(&zona, {GET_X_LPARAM(l), GET_Y_LPARAM(l)}) != 0;
}

void PulsadorWin::alApretar() {
    if (m_tomaFoco) SetFocus(hwnd());
    SetCapture(hwnd());
    m_apretado = m_dentro = true;
    invalidar();
    if (!m_repite) return;
    SetTimer(hwnd(), RELOJ_REPETICION, ESPERA, nullptr);
    actuarSiPulsable();
}

void PulsadorWin::alMover(LPARAM l) {
    if (m_apretado) {
        if (std::exchange(m_dentro, dentro(l)) != m_dentro) invalidar();
    } else if (!m_encima) {
        TRACKMOUSEEVENT aviso{sizeof aviso, TME_LEAVE, hwnd(), 0};
        m_encima = TrackMouseEvent(&aviso) != 0;
        invalidar();
    }
}

// Also when the system takes the mouse away.
void PulsadorWin::soltar() {
    if (!m_apretado) return;
    m_apretado = false;
    KillTimer(hwnd(), RELOJ_REPETICION);
    if (GetCapture() == hwnd()) ReleaseCapture();
    invalidar();
}

void PulsadorWin::alTic() {
    if (!m_apretado) return;
    SetTimer(hwnd(), RELOJ_REPETICION, RITMO, nullptr);
    if (m_dentro) actuarSiPulsable();
}

LRESULT PulsadorWin::alRaton(UINT mensaje, LPARAM l) {
    switch (mensaje) {
        case WM_LBUTTONDOWN:
            alApretar();
            break;
        case WM_LBUTTONUP: {
            const bool completa = m_apretado && !m_repite && dentro(l);
            soltar();
            if (completa) actuarSiPulsable();
            break;
        }
        case WM_MOUSEMOVE:
            alMover(l);
            break;
        default:
            break;
    }
    return 0;
}

// Held down, a key repeats as the system's keyboard does; what does not repeat is pressed once.
bool PulsadorWin::alTeclear(UINT mensaje, WPARAM tecla, LPARAM detalle) {
    constexpr LPARAM REPETIDA = 1 << 30;
    if (tecla != VK_SPACE && tecla != VK_RETURN) return false;
    const bool baja = mensaje == WM_KEYDOWN, primera = !(detalle & REPETIDA);
    const bool alBajar = m_repite || (primera && tecla == VK_RETURN);
    const bool alSoltar = tecla == VK_SPACE && m_tecla && !m_repite;
    if (baja ? alBajar : alSoltar) actuarSiPulsable();
    if (tecla == VK_SPACE && std::exchange(m_tecla, baja) != m_tecla) invalidar();
    return true;
}

LRESULT PulsadorWin::atender(UINT mensaje, WPARAM w, LPARAM l) {
    switch (mensaje) {
        case WM_LBUTTONDOWN:
        case WM_LBUTTONUP:
        case WM_MOUSEMOVE:
            return alRaton(mensaje, l);
        case WM_MOUSELEAVE:
            m_encima = false;
            invalidar();
            return 0;
        case WM_CAPTURECHANGED:
        case WM_CANCELMODE:
            soltar();
            return 0;
        case WM_TIMER:
            if (w == RELOJ_REPETICION) alTic();
            return 0;
        case WM_KEYDOWN:
        case WM_KEYUP:
            return alTeclear(mensaje, w, l) ? 0 : porDefecto(mensaje, w, l);
        case WM_KILLFOCUS:
            m_tecla = false;
            return ControlWin::atender(mensaje, w, l);
        case BM_CLICK:
            actuarSiPulsable();
            return 0;
        case BM_SETSTYLE:
            // The system would make a "default button" of it.
            return 0;
        case WM_DRAWITEM:
            pintarEn(reinterpret_cast<const DRAWITEMSTRUCT*>(l)->hDC);
            return TRUE;
        case WM_GETDLGCODE: {
            // The arrows are wanted too, so that they do not lead into some text box.
            const auto* m = reinterpret_cast<const MSG*>(l);
            const bool intro = m && m->message == WM_KEYDOWN && m->wParam == VK_RETURN;
            return DLGC_BUTTON | DLGC_WANTARROWS | (intro ? DLGC_WANTMESSAGE : 0);
        }
        default:
            return ControlWin::atender(mensaje, w, l);
    }
}

}  // namespace sorvanel
