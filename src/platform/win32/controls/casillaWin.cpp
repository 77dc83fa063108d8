#include "platform/win32/controls/casillaWin.h"

#include <algorithm>

#include "platform/win32/painting/pictogramas.h"

namespace sorvanel {

namespace {

constexpr const wchar_t* CLASE = L"SorvanelCasilla";

// Design pixels.
constexpr float LADO = 16, SEPARACION = 7;

}  // namespace

CasillaWin::CasillaWin(Anfitrion& anfitrion, IdControl id, int elemento) : ControlDe(anfitrion) {
    const EstiloWin::Uso estilo(anfitrion.recursos().estilo);
    crearControl(CLASE, L"BUTTON", WS_TABSTOP | BS_AUTOCHECKBOX, id, elemento);
    sensible();
}

bool CasillaWin::marcada() const {
    return hwnd() && SendMessageW(hwnd(), BM_GETCHECK, 0, 0) == BST_CHECKED;
}

void CasillaWin::marcada(bool si) {
    if (hwnd() && si != marcada()) SendMessageW(hwnd(), BM_SETCHECK, si ? BST_CHECKED : BST_UNCHECKED, 0);
}

void CasillaWin::texto(const std::string& texto) {
    std::wstring nuevo = aAncho(texto);
    if (nuevo == m_texto) return;
    m_texto = std::move(nuevo);
    if (hwnd()) SetWindowTextW(hwnd(), m_texto.c_str());
    invalidar();
}

void CasillaWin::alNotificar(UINT aviso) {
    if (aviso == BN_CLICKED) actuarSiPulsable();
}

LRESULT CasillaWin::atender(UINT mensaje, WPARAM w, LPARAM l) {
    switch (mensaje) {
        case WM_MOUSEMOVE:
            alMoverRaton();
            return porDefectoSinPintar(mensaje, w, l);
        // With each of these the system would paint at once, and its own way.
        case WM_LBUTTONDOWN:
        case WM_LBUTTONUP:
        case WM_KEYDOWN:
        case WM_KEYUP:
        case WM_CAPTURECHANGED:
        case BM_SETCHECK:
        case BM_SETSTATE:
        case BM_CLICK:
            return porDefectoSinPintar(mensaje, w, l);
        case BM_SETSTYLE:
            return 0;
        case WM_GETDLGCODE:
            return DLGC_BUTTON | DLGC_WANTARROWS;
        default:
            return ControlWin::atender(mensaje, w, l);
    }
}

void CasillaWin::pintar(Lienzo& lienzo, const RECT& zona) {
    const LRESULT estado = SendMessageW(hwnd(), BM_GETSTATE, 0, 0);
    const bool si = (estado & BST_CHECKED) != 0;
    const apariencia::Estado como{(estado & BST_PUSHED) != 0, enfocado(), encima(), habilitado()};
    const int lado = std::min<int>(px(LADO), zona.bottom);
    const int borde = std::min<int>((zona.bottom - lado) / 2, px(2));
    const int y = (zona.bottom - lado) / 2;
    const RECT caja{borde, y, borde + lado, y + lado};
    Color cara = si ? paleta().foco : apariencia::caraDe(paleta(), como);
    if (!como.habilitado) cara = si ? paleta().letraInhabil : paleta().caraInhabil;
    Color linea = paleta().borde;
    if (si) linea = cara;
    if (como.encima || como.foco) linea = paleta().foco;
    apariencia::pintarCaja(lienzo, caja, px(3), px(como.foco && !si ? apariencia::GROSOR_FOCO : 1), linea, cara);
    if (si) {
        const int dentro = px(2);
        dibujarPictograma(lienzo, Dibujo::aceptar,
                          {caja.left + dentro, caja.top + dentro, caja.right - dentro, caja.bottom - dentro},
                          apariencia::aColor(paleta().marca));
    }
    HDC dc = lienzo.dc();
    RECT sitio{caja.right + px(SEPARACION), 0, zona.right, zona.bottom};
    apariencia::escribir(dc, m_texto, sitio, apariencia::letraCampo(paleta(), como.habilitado));
    if (!como.foco) return;
    // Around all of it: a ticked box alone would not show where the keyboard is.
    DrawTextW(dc, m_texto.data(), static_cast<int>(m_texto.size()), &sitio, DT_SINGLELINE | DT_NOPREFIX | DT_CALCRECT);
    const LONG derecha = std::min<LONG>(sitio.right + px(4), zona.right);
    const RECT anillo{0, std::max(caja.top - px(3), 0L), m_texto.empty() ? caja.right + borde : derecha,
                      std::min<LONG>(caja.bottom + px(3), zona.bottom)};
    apariencia::pintarCaja(lienzo, anillo, px(apariencia::RADIO_CAJA), px(1), paleta().foco, -1);
}

}  // namespace sorvanel
