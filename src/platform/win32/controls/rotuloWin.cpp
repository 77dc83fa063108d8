#include "platform/win32/controls/rotuloWin.h"

#include <windowsx.h>

namespace sorvanel {

namespace {

constexpr const wchar_t* CLASE = L"SorvanelRotulo";
constexpr float MARGEN = 4;  // of a text on a ground of its own, design pixels

UINT formatoDe(Ajuste ajuste) {
    switch (ajuste) {
        case Ajuste::derecha:
            return DT_RIGHT;
        case Ajuste::centro:
            return DT_CENTER;
        default:
            return DT_LEFT;
    }
}

}  // namespace

RotuloWin::RotuloWin(AnfitrionDialogo& anfitrion, IdControl id, int elemento) : ControlDe(anfitrion) {
    m_fuente.nombre.clear();
    crearControl(CLASE, L"STATIC", SS_LEFT | SS_NOPREFIX | SS_NOTIFY, id, elemento);
}

void RotuloWin::alCambiarEscala() {
    elegirFuente();
    ControlWin::alCambiarEscala();
}

void RotuloWin::elegirFuente() {
    m_hecha.reset();
    if (!m_fuente.nombre.empty()) m_hecha = anfitrion().fuentes().pedir(m_fuente, escala().y.largo(m_fuente.alto));
    invalidar();
}

void RotuloWin::texto(const std::string& texto) {
    std::wstring nuevo = aAncho(texto);
    if (nuevo == m_texto) return;
    m_texto = std::move(nuevo);
    if (hwnd()) SetWindowTextW(hwnd(), m_texto.c_str());
    invalidar();
}

void RotuloWin::fuente(const Fuente& fuente) {
    if (fuente == m_fuente) return;
    m_fuente = fuente;
    elegirFuente();
}

void RotuloWin::ajuste(Ajuste ajuste) {
    m_ajuste = ajuste;
    invalidar();
}

void RotuloWin::colorTexto(Color color) {
    if (color == m_colorTexto) return;
    m_colorTexto = color;
    invalidar();
}

void RotuloWin::colorFondo(Color color) {
    if (color == m_fondo) return;
    m_fondo = color;
    invalidar();
}

void RotuloWin::alSoltar(POINT raton) {
    if (GetCapture() != hwnd()) return;
    ReleaseCapture();
    RECT zona{};
    GetClientRect(hwnd(), &zona);
    if (PtInRect(&zona, raton)) actuarSiPulsable();
}

LRESULT RotuloWin::atender(UINT mensaje, WPARAM w, LPARAM l) {
    switch (mensaje) {
        case WM_LBUTTONDOWN:
            if (!conAccion()) {
                anfitrion().alPulsarFondo();
                return 0;
            }
            SetCapture(hwnd());
            return 0;
        case WM_LBUTTONUP:
            alSoltar({GET_X_LPARAM(l), GET_Y_LPARAM(l)});
            return 0;
        case WM_NCHITTEST:
            return HTCLIENT;
        case WM_GETDLGCODE:
            return DLGC_STATIC;
        default:
            return ControlWin::atender(mensaje, w, l);
    }
}

void RotuloWin::pintar(Lienzo& lienzo, const RECT& zona) {
    HDC dc = lienzo.dc();
    RECT sitio = zona;
    if (m_fondo >= 0) {
        aspecto::pintarCaja(lienzo, zona, px(aspecto::RADIO_CAJA), 0, m_fondo, m_fondo);
        sitio.left += px(MARGEN);
        sitio.right -= px(MARGEN);
    }
    const Seleccion letra(dc, m_hecha ? m_hecha->get() : anfitrion().letra());
    SetTextColor(dc, aspecto::aColor(habilitado() ? m_colorTexto : aspecto::LETRA_INHABIL));
    DrawTextW(dc, m_texto.data(), static_cast<int>(m_texto.size()), &sitio,
              formatoDe(m_ajuste) | DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
}

}  // namespace sorvanel
