#include "platform/win32/controls/marcoWin.h"

namespace sorvanel {

namespace {

constexpr const wchar_t* CLASE = L"SorvanelMarco";

}  // namespace

MarcoWin::MarcoWin(AnfitrionDialogo& anfitrion, IdControl id, int elemento) : ControlDe(anfitrion) {
    crearControl(CLASE, nullptr, 0, id, elemento);
}

MarcoWin::~MarcoWin() {
    if (estaVisible()) anfitrion().tocarDetras(sitio());
}

void MarcoWin::ponerNombre(const std::wstring& texto) {
    // No tool tip: it would follow the mouse wherever there is nothing else.
    if (hwnd()) SetWindowTextW(hwnd(), texto.c_str());
}

void MarcoWin::alCambiarEscala() {
    ControlWin::alCambiarEscala();
    anfitrion().tocarDetras(sitio());
}

void MarcoWin::colorFondo(Color color) {
    if (color == m_fondo) return;
    m_fondo = color;
    if (estaVisible()) anfitrion().tocarDetras(sitio());
}

void MarcoWin::colocar(const Rectangulo& nuevo) {
    if (nuevo == lugar()) return;
    if (estaVisible()) anfitrion().tocarDetras(sitio());
    ponerLugar(nuevo);
    if (estaVisible()) anfitrion().tocarDetras(sitio());
}

void MarcoWin::mostrar(bool visible) {
    if (visible == estaVisible()) return;
    ponerVisible(visible);
    anfitrion().tocarDetras(sitio());
}

void MarcoWin::pintarSobre(Lienzo& lienzo, const RECT& parte) const {
    RECT caja = sitio();
    OffsetRect(&caja, -parte.left, -parte.top);
    const RECT recorte{0, 0, parte.right - parte.left, parte.bottom - parte.top};
    aspecto::pintarCaja(lienzo, caja, px(aspecto::RADIO), px(1), aspecto::BORDE,
                        m_fondo < 0 ? -1 : colorPintable(m_fondo), &recorte);
}

LRESULT MarcoWin::atender(UINT mensaje, WPARAM w, LPARAM l) {
    switch (mensaje) {
        case WM_LBUTTONDOWN:
            if (conAccion()) {
                actuarSiPulsable();
            } else {
                anfitrion().alPulsarFondo();
            }
            return 0;
        case WM_GETDLGCODE:
            return DLGC_STATIC;
        default:
            return ControlWin::atender(mensaje, w, l);
    }
}

}  // namespace sorvanel
