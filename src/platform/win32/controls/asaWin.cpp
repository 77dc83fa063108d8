#include "platform/win32/controls/asaWin.h"

#include <windowsx.h>

#include <utility>

#include "platform/win32/painting/pictogramas.h"

namespace sorvanel {

namespace {

constexpr const wchar_t* CLASE = L"SorvanelAsa";

constexpr COLORREF AZUL = RGB(0x0B, 0x5C, 0xC4);
constexpr COLORREF AZUL_OSCURO = RGB(0x06, 0x35, 0x75);
constexpr COLORREF CLARO = RGB(0xFF, 0xFF, 0xFF);

}  // namespace

AsaWin::AsaWin(Anfitrion& anfitrion, IdControl id, int elemento) : ControlDe(anfitrion) {
    crearControl(CLASE, nullptr, WS_TABSTOP, id, elemento, true);
}

void AsaWin::ponerVisible(bool visible) {
    if (!visible) soltar();
    ControlDe::ponerVisible(visible);
}

// Blue between two lines, so that it is seen on any ground; the line within is wide with the focus.
void AsaWin::pintar(Lienzo& lienzo, const RECT& zona) {
    const int fina = px(1), linea = enfocado() ? 2 * fina : fina;
    const auto capa = [&](int margen, COLORREF color) {
        lienzo.llenar({margen, margen, zona.right - margen, zona.bottom - margen}, color);
    };
    capa(0, AZUL_OSCURO);
    capa(fina, CLARO);
    capa(fina + linea, AZUL);
    const int margen = 4 * fina;
    dibujarPictograma(lienzo, Dibujo::tamano, {margen, margen, zona.right - margen, zona.bottom - margen}, CLARO);
}

// Reckoned from the form's own pixels: the handle moves meanwhile, and its place in twips is finer
// than the pixel on which it stands.
Punto AsaWin::dentro(LPARAM posicion) const {
    POINT p{GET_X_LPARAM(posicion), GET_Y_LPARAM(posicion)};
    MapWindowPoints(hwnd(), anfitrion().hwnd(), &p, 1);
    return {escala().x.aTwips(p.x) - lugar().x, escala().y.aTwips(p.y) - lugar().y};
}

void AsaWin::soltar() {
    if (!std::exchange(m_arrastrando, false)) return;
    if (GetCapture() == hwnd()) ReleaseCapture();
    if (m_oyente) m_oyente->alSoltarAsa();
}

void AsaWin::alPulsar(LPARAM l) {
    SetFocus(hwnd());
    SetCapture(hwnd());
    m_arrastrando = true;
    m_movida = false;
    m_agarre = dentro(l);
    if (m_oyente) m_oyente->alPulsarAsa(m_agarre);
}

LRESULT AsaWin::alRaton(UINT mensaje, LPARAM l) {
    switch (mensaje) {
        case WM_LBUTTONDOWN:
            alPulsar(l);
            break;
        case WM_LBUTTONDBLCLK:
            // Two short drags in quick succession are none.
            if (m_movida) {
                alPulsar(l);
            } else if (m_oyente) {
                m_oyente->alDobleAsa();
            }
            break;
        case WM_MOUSEMOVE:
            if (!m_arrastrando) {
                alMoverRaton();
            } else if (dentro(l) != m_agarre) {
                m_movida = true;
                if (m_oyente) m_oyente->alMoverAsa(dentro(l));
            }
            break;
        default:
            soltar();
            break;
    }
    return 0;
}

bool AsaWin::alTeclear(WPARAM tecla) {
    const float paso = TWIPS_POR_PIXEL * (GetKeyState(VK_CONTROL) < 0 ? 10.0F : 1.0F);
    Punto empuje;
    switch (tecla) {
        case VK_LEFT:
            empuje.x = -paso;
            break;
        case VK_RIGHT:
            empuje.x = paso;
            break;
        case VK_UP:
            empuje.y = -paso;
            break;
        case VK_DOWN:
            empuje.y = paso;
            break;
        default:
            return false;
    }
    if (m_oyente) m_oyente->alEmpujarAsa(empuje);
    return true;
}

LRESULT AsaWin::atender(UINT mensaje, WPARAM w, LPARAM l) {
    switch (mensaje) {
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
        case WM_MOUSEMOVE:
        case WM_LBUTTONUP:
        case WM_CAPTURECHANGED:
            return alRaton(mensaje, l);
        case WM_SETCURSOR:
            SetCursor(LoadCursorW(nullptr, IDC_SIZENWSE));
            return TRUE;
        case WM_GETDLGCODE:
            return DLGC_WANTARROWS;
        case WM_KEYDOWN:
            return alTeclear(w) ? 0 : porDefecto(mensaje, w, l);
        case WM_KEYUP:
        case WM_KILLFOCUS:
            if (m_oyente && !m_arrastrando) m_oyente->alSoltarAsa();
            return ControlDe::atender(mensaje, w, l);
        default:
            return ControlDe::atender(mensaje, w, l);
    }
}

}  // namespace sorvanel
