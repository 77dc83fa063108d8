#include "platform/win32/controls/botonWin.h"

#include <windowsx.h>

#include <algorithm>
#include <utility>

#include "platform/win32/base/textoWin.h"
#include "platform/win32/painting/aspecto.h"
#include "platform/win32/painting/pictogramas.h"

namespace sorvanel {

namespace {

constexpr const wchar_t* CLASE = L"SorvanelBoton";

// Design pixels.
constexpr float MARGEN = 10, SEPARACION = 7, ALTO_TIPICO = 28;
constexpr float PARTE_DIBUJO = 0.66F;  // of the button's height

using aspecto::aColor;

}  // namespace

BotonWin::BotonWin(Anfitrion& anfitrion, IdControl id) : m_anfitrion(anfitrion) {
    MoldeVentana molde;
    molde.clase = CLASE;
    molde.sobre = L"BUTTON";
    molde.estilo = WS_CHILD | WS_CLIPSIBLINGS | WS_TABSTOP | BS_OWNERDRAW;
    molde.padre = anfitrion.ventana();
    molde.id = numero(id);
    crear(molde);
}

BotonWin::~BotonWin() {
    m_anfitrion.sugerencia(hwnd(), {});
    destruir();
    m_anfitrion.baja(*this);
}

int BotonWin::px(float pixelesDeDiseno) const {
    return aspecto::px(m_anfitrion.escala(), pixelesDeDiseno);
}

void BotonWin::alCambiarEscala() {
    situar(m_anfitrion.escala().aPixeles(m_lugar));
    invalidar();
}

void BotonWin::colocar(const Rectangulo& lugar) {
    m_lugar = lugar;
    alCambiarEscala();
    m_anfitrion.alCambiarControl();
}

void BotonWin::mostrar(bool visible) {
    if (visible == m_visible) return;
    m_visible = visible;
    m_encima = false;
    mostrarSinActivar(visible);
    m_anfitrion.alCambiarControl();
}

void BotonWin::habilitar(bool si) {
    if (si == m_habilitado) return;
    m_habilitado = si;
    if (hwnd()) EnableWindow(hwnd(), si ? TRUE : FALSE);
    m_anfitrion.alCambiarControl();
}

void BotonWin::dibujo(Dibujo dibujo) {
    if (dibujo == m_dibujo) return;
    m_dibujo = dibujo;
    invalidar();
}

void BotonWin::rotulo(const std::string& texto) {
    std::wstring nuevo = aAncho(texto);
    if (nuevo == m_rotulo) return;
    m_rotulo = std::move(nuevo);
    invalidar();
}

void BotonWin::nombre(const std::string& texto) {
    if (!hwnd()) return;
    const std::wstring letras = aAncho(texto);
    SetWindowTextW(hwnd(), letras.c_str());
    m_anfitrion.sugerencia(hwnd(), letras);
}

void BotonWin::colorDetras(Color color) {
    if (color == m_detras) return;
    m_detras = color;
    invalidar();
}

void BotonWin::refrescar() {
    invalidar();
    pintarPendiente();
}

int BotonWin::ladoDibujo() const {
    const float alto = m_lugar.alto > 0 ? m_lugar.alto : aTwips(ALTO_TIPICO);
    return m_anfitrion.escala().y.largo(alto * PARTE_DIBUJO);
}

int BotonWin::anchoTexto(HDC dc, const std::wstring& texto) const {
    SIZE medida{};
    GetTextExtentPoint32W(dc, texto.data(), static_cast<int>(texto.size()), &medida);
    return medida.cx;
}

float BotonWin::anchoRotulo(const std::string& texto) const {
    const Escala& escala = m_anfitrion.escala();
    const Fuente& fuente = m_anfitrion.fuenteBoton();
    const auto hecha = m_anfitrion.fuentes().pedir(fuente, escala.y.largo(fuente.alto));
    HDC dc = m_anfitrion.borrador().dc();
    const Seleccion letra(dc, hecha->get());
    int ancho = anchoTexto(dc, aAncho(texto)) + 2 * px(MARGEN);
    if (m_dibujo != Dibujo::ninguno) ancho += ladoDibujo() + px(SEPARACION);
    return escala.x.aTwips(ancho);
}

void BotonWin::pulsar() {
    if (!alcanzable() || !m_accion) return;
    // A copy: the action may give the button another one.
    const std::function<void()> accion = m_accion;
    accion();
}

void BotonWin::pintar(const DRAWITEMSTRUCT& pedido) {
    const int ancho = pedido.rcItem.right - pedido.rcItem.left, alto = pedido.rcItem.bottom - pedido.rcItem.top;
    if (ancho <= 0 || alto <= 0) return;
    Lienzo& borrador = m_anfitrion.borrador();
    borrador.alcanzar(ancho, alto);
    if (!borrador.utilizable()) return;
    const aspecto::Estado estado{(pedido.itemState & ODS_SELECTED) != 0, (pedido.itemState & ODS_FOCUS) != 0, m_encima,
                                 m_habilitado};
    const RECT zona{0, 0, ancho, alto};
    borrador.llenar(zona, aColor(m_detras));
    aspecto::pintarCara(borrador, zona, m_anfitrion.escala(), estado);
    pintarContenido(borrador, zona, estado.habilitado);
    BitBlt(pedido.hDC, pedido.rcItem.left, pedido.rcItem.top, ancho, alto, borrador.dc(), 0, 0, SRCCOPY);
}

void BotonWin::pintarContenido(Lienzo& lienzo, const RECT& zona, bool habilitado) const {
    HDC dc = lienzo.dc();
    const Fuente& fuente = m_anfitrion.fuenteBoton();
    const auto hecha = m_anfitrion.fuentes().pedir(fuente, m_anfitrion.escala().y.largo(fuente.alto));
    const Seleccion letra(dc, hecha->get());
    int lado = m_dibujo == Dibujo::ninguno ? 0 : std::min<int>(ladoDibujo(), zona.right);
    if (lado > 0) lado -= (zona.bottom - lado) % 2;  // the same above and below
    const int texto = m_rotulo.empty() ? 0 : anchoTexto(dc, m_rotulo);
    const int hueco = lado > 0 && texto > 0 ? px(SEPARACION) : 0;
    const int margen = texto > 0 ? px(MARGEN) / 2 : 0;
    int x = std::max<int>(margen, (zona.right - lado - hueco - texto) / 2);

    if (lado > 0) {
        const int y = (zona.bottom - lado) / 2;
        dibujarPictograma(lienzo, m_dibujo, {x, y, x + lado, y + lado},
                          aColor(habilitado ? aspecto::tintaDe(m_dibujo) : aspecto::LETRA_INHABIL));
        x += lado + hueco;
    }
    if (texto > 0) {
        RECT sitio{x, zona.top, std::max<LONG>(zona.right - margen, x), zona.bottom};
        SetTextColor(dc, aColor(habilitado ? aspecto::LETRA : aspecto::LETRA_INHABIL));
        DrawTextW(dc, m_rotulo.data(), static_cast<int>(m_rotulo.size()), &sitio,
                  DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
    }
}

void BotonWin::alMoverRaton() {
    if (!m_encima) {
        TRACKMOUSEEVENT aviso{sizeof aviso, TME_LEAVE, hwnd(), 0};
        m_encima = TrackMouseEvent(&aviso) != 0;
        invalidar();
    }
    m_anfitrion.alMoverRaton(ZonaRaton::barra);
}

// The keys that the system's keyboard handling would otherwise keep for itself.
LRESULT BotonWin::teclasPropias(LPARAM mensaje) {
    if (mensaje) {
        const auto& m = *reinterpret_cast<const MSG*>(mensaje);
        const bool propia = m.wParam == VK_RETURN || (m.wParam >= VK_LEFT && m.wParam <= VK_DOWN);
        if (m.message == WM_KEYDOWN && propia) return DLGC_BUTTON | DLGC_WANTMESSAGE;
    }
    return DLGC_BUTTON;
}

bool BotonWin::alTeclear(WPARAM tecla, LPARAM detalle) {
    constexpr LPARAM REPETIDA = 1 << 30;
    switch (tecla) {
        case VK_RETURN:
            // Held down it presses once: what comes into its place must not be pressed too.
            if (!(detalle & REPETIDA)) pulsar();
            return true;
        case VK_LEFT:
        case VK_UP:
            m_anfitrion.pasarFoco(*this, -1);
            return true;
        case VK_RIGHT:
        case VK_DOWN:
            m_anfitrion.pasarFoco(*this, 1);
            return true;
        default:
            return false;
    }
}

LRESULT BotonWin::alMensaje(UINT mensaje, WPARAM w, LPARAM l) {
    switch (mensaje) {
        case WM_DRAWITEM:  // sent back by the form
            pintar(*reinterpret_cast<const DRAWITEMSTRUCT*>(l));
            return TRUE;
        case WM_COMMAND:  // the same
            if (HIWORD(w) == BN_CLICKED) pulsar();
            return 0;
        case WM_ERASEBKGND:
            return 1;
        case BM_SETSTYLE:
            // The system would make a "default button" of it, which it paints itself.
            return 0;
        case WM_GETDLGCODE:
            return teclasPropias(l);
        case WM_KEYDOWN:
            return alTeclear(w, l) ? 0 : porDefecto(mensaje, w, l);
        case WM_SETFOCUS: {
            const LRESULT r = porDefecto(mensaje, w, l);
            m_anfitrion.alRecibirFoco(*this);
            invalidar();
            return r;
        }
        case WM_LBUTTONDOWN: {
            POINT donde{GET_X_LPARAM(l), GET_Y_LPARAM(l)};
            ClientToScreen(hwnd(), &donde);
            return m_anfitrion.admitirPulsacion(*this, donde) ? porDefecto(mensaje, w, l) : 0;
        }
        case WM_MOUSEMOVE:
            alMoverRaton();
            return porDefecto(mensaje, w, l);
        case WM_MOUSELEAVE:
            m_encima = false;
            invalidar();
            return porDefecto(mensaje, w, l);
        default:
            return porDefecto(mensaje, w, l);
    }
}

}  // namespace sorvanel
