#include "platform/win32/controls/asaWin.h"

#include <windowsx.h>

#include <utility>

#include "platform/win32/base/textoWin.h"
#include "platform/win32/painting/pictogramas.h"

namespace sorvanel {

namespace {

constexpr const wchar_t* CLASE = L"SorvanelAsa";

constexpr COLORREF AZUL = RGB(0x0B, 0x5C, 0xC4);
constexpr COLORREF AZUL_OSCURO = RGB(0x06, 0x35, 0x75);
constexpr COLORREF CLARO = RGB(0xFF, 0xFF, 0xFF);

}  // namespace

AsaWin::AsaWin(Anfitrion& anfitrion, IdControl id) : m_anfitrion(anfitrion) {
    MoldeVentana molde;
    molde.clase = CLASE;
    molde.estilo = WS_CHILD | WS_CLIPSIBLINGS | WS_TABSTOP;
    molde.padre = anfitrion.ventana();
    molde.id = numero(id);
    crear(molde);
}

AsaWin::~AsaWin() {
    m_oyente = nullptr;
    m_anfitrion.sugerencia(hwnd(), {});
    destruir();
    m_anfitrion.baja(*this);
}

void AsaWin::alCambiarEscala() {
    situar(m_anfitrion.escala().aPixeles(m_lugar));
    invalidar();
}

void AsaWin::colocar(const Rectangulo& lugar) {
    m_lugar = lugar;
    alCambiarEscala();
}

void AsaWin::mostrar(bool visible) {
    if (visible == m_visible) return;
    m_visible = visible;
    if (!visible) soltar();
    mostrarSinActivar(visible);
    m_anfitrion.alCambiarControl();
}

void AsaWin::nombre(const std::string& texto) {
    if (!hwnd()) return;
    const std::wstring letras = aAncho(texto);
    SetWindowTextW(hwnd(), letras.c_str());
    m_anfitrion.sugerencia(hwnd(), letras);
}

// Blue between two lines, so that it is seen on any ground; the line within is wide with the focus.
void AsaWin::alPintar() {
    const DCPintado pintado(hwnd());
    if (!pintado) return;
    RECT zona{};
    GetClientRect(hwnd(), &zona);
    Lienzo& borrador = m_anfitrion.borrador();
    borrador.alcanzar(zona.right, zona.bottom);
    if (!borrador.utilizable()) return;
    const int fina = m_anfitrion.escala().y.largo(TWIPS_POR_PIXEL);
    const int linea = GetFocus() == hwnd() ? 2 * fina : fina;
    const auto capa = [&](int margen, COLORREF color) {
        borrador.llenar({margen, margen, zona.right - margen, zona.bottom - margen}, color);
    };
    capa(0, AZUL_OSCURO);
    capa(fina, CLARO);
    capa(fina + linea, AZUL);
    const int margen = 4 * fina;
    dibujarPictograma(borrador, Dibujo::tamano, {margen, margen, zona.right - margen, zona.bottom - margen}, CLARO);
    BitBlt(pintado.get(), 0, 0, zona.right, zona.bottom, borrador.dc(), 0, 0, SRCCOPY);
}

// Reckoned from the form's own pixels: the handle moves meanwhile, and its place in twips is finer
// than the pixel on which it stands.
Punto AsaWin::dentro(LPARAM posicion) const {
    POINT p{GET_X_LPARAM(posicion), GET_Y_LPARAM(posicion)};
    MapWindowPoints(hwnd(), m_anfitrion.ventana(), &p, 1);
    const Escala& escala = m_anfitrion.escala();
    return {escala.x.aTwips(p.x) - m_lugar.x, escala.y.aTwips(p.y) - m_lugar.y};
}

void AsaWin::soltar() {
    if (!std::exchange(m_arrastrando, false)) return;
    if (GetCapture() == hwnd()) ReleaseCapture();
    if (m_oyente) m_oyente->alSoltarAsa();
}

LRESULT AsaWin::alRaton(UINT mensaje, LPARAM l) {
    switch (mensaje) {
        case WM_LBUTTONDOWN:
            SetFocus(hwnd());
            SetCapture(hwnd());
            m_arrastrando = true;
            if (m_oyente) m_oyente->alPulsarAsa(dentro(l));
            break;
        case WM_MOUSEMOVE:
            if (!m_arrastrando) {
                m_anfitrion.alMoverRaton(ZonaRaton::representacion);
            } else if (m_oyente) {
                m_oyente->alMoverAsa(dentro(l));
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

LRESULT AsaWin::alMensaje(UINT mensaje, WPARAM w, LPARAM l) {
    switch (mensaje) {
        case WM_PAINT:
            alPintar();
            return 0;
        case WM_ERASEBKGND:
            return 1;
        case WM_LBUTTONDOWN:
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
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
            invalidar();
            return 0;
        default:
            return porDefecto(mensaje, w, l);
    }
}

}  // namespace sorvanel
