#include "platform/win32/botonWin.h"

#include <algorithm>
#include <utility>

#include "platform/win32/pictogramas.h"
#include "platform/win32/textoWin.h"

namespace sorvanel {

namespace {

constexpr const wchar_t* CLASE = L"SorvanelBoton";

// Design pixels.
constexpr float RADIO = 6, MARGEN = 10, SEPARACION = 7, GROSOR_FOCO = 2, ALTO_TIPICO = 28;
constexpr float PARTE_DIBUJO = 0.66F;  // of the button's height

constexpr Color CARA = rgb(0xFC, 0xFD, 0xFE);
constexpr Color CARA_ENCIMA = rgb(0xE3, 0xF0, 0xFC);
constexpr Color CARA_PULSADA = rgb(0xBF, 0xDB, 0xF6);
constexpr Color CARA_INHABIL = rgb(0xEC, 0xEE, 0xF0);
constexpr Color BORDE = rgb(0xB9, 0xC2, 0xCC);
constexpr Color BORDE_ENCIMA = rgb(0x5B, 0x9B, 0xD9);
constexpr Color FOCO = rgb(0x0B, 0x5C, 0xC4);
constexpr Color LETRA = rgb(0x1F, 0x29, 0x33);
constexpr Color LETRA_INHABIL = rgb(0x9A, 0xA3, 0xAC);
constexpr Color VERDE = rgb(0x15, 0x87, 0x3C);
constexpr Color GRANATE = rgb(0xC4, 0x24, 0x1F);
constexpr Color AMBAR = rgb(0xB8, 0x66, 0x00);
constexpr Color PIZARRA = rgb(0x2C, 0x4A, 0x66);

Color tintaDe(Dibujo dibujo) {
    switch (dibujo) {
        case Dibujo::marcha:
        case Dibujo::aceptar:
            return VERDE;
        case Dibujo::apagar:
        case Dibujo::cancelar:
        case Dibujo::eliminar:
            return GRANATE;
        case Dibujo::pausa:
            return AMBAR;
        default:
            return PIZARRA;
    }
}

COLORREF aColor(Color color) {
    return static_cast<COLORREF>(colorPintable(color));
}

Color caraDe(bool habilitado, bool pulsado, bool encima) {
    if (!habilitado) return CARA_INHABIL;
    if (pulsado) return CARA_PULSADA;
    return encima ? CARA_ENCIMA : CARA;
}

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
    return m_anfitrion.escala().y.largo(aTwips(pixelesDeDiseno));
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
    const Aspecto aspecto{(pedido.itemState & ODS_SELECTED) != 0, (pedido.itemState & ODS_FOCUS) != 0, m_encima,
                          m_habilitado};
    const RECT zona{0, 0, ancho, alto};
    borrador.llenar(zona, aColor(m_detras));
    pintarCara(borrador, zona, aspecto);
    pintarContenido(borrador, zona, aspecto);
    BitBlt(pedido.hDC, pedido.rcItem.left, pedido.rcItem.top, ancho, alto, borrador.dc(), 0, 0, SRCCOPY);
}

// The line first, as a full shape, and the face over it.
void BotonWin::pintarCara(Lienzo& lienzo, const RECT& zona, const Aspecto& aspecto) const {
    const auto radio = static_cast<float>(px(RADIO));
    const auto capa = [&](float grosor, Color color) {
        const Rectangulo r{grosor, grosor, static_cast<float>(zona.right) - 2 * grosor,
                           static_cast<float>(zona.bottom) - 2 * grosor};
        lienzo.pintarForma(zona, aColor(color), [&](Punto p) { return formas::aRedondeado(p, r, radio - grosor); });
    };
    Color linea = aspecto.encima || aspecto.pulsado ? BORDE_ENCIMA : BORDE;
    if (aspecto.foco) linea = FOCO;
    capa(0, linea);
    capa(static_cast<float>(px(aspecto.foco ? GROSOR_FOCO : 1)),
         caraDe(aspecto.habilitado, aspecto.pulsado, aspecto.encima));
}

void BotonWin::pintarContenido(Lienzo& lienzo, const RECT& zona, const Aspecto& aspecto) const {
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
                          aColor(aspecto.habilitado ? tintaDe(m_dibujo) : LETRA_INHABIL));
        x += lado + hueco;
    }
    if (texto > 0) {
        RECT sitio{x, zona.top, std::max<LONG>(zona.right - margen, x), zona.bottom};
        SetTextColor(dc, aColor(aspecto.habilitado ? LETRA : LETRA_INHABIL));
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
