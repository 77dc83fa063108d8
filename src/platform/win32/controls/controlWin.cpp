#include "platform/win32/controls/controlWin.h"

#include <utility>

#include "platform/win32/base/mensajes.h"

namespace sorvanel {

namespace {

// Counts a message while it is dealt with, unless the control goes meanwhile.
class Nivel {
public:
    Nivel(const Vida::Testigo& viva, int& nivel) : m_viva(viva), m_nivel(nivel) { ++m_nivel; }
    ~Nivel() {
        if (m_viva) --m_nivel;
    }
    Nivel(const Nivel&) = delete;
    Nivel& operator=(const Nivel&) = delete;

private:
    const Vida::Testigo& m_viva;
    int& m_nivel;
};

}  // namespace

ControlWin::~ControlWin() {
    m_vida.terminar();
    if (hwnd()) {
        m_anfitrion.sugerencias().poner(hwnd(), {});
        if (m_anotado) m_anfitrion.recursos().nombres.poner(hwnd(), {});
    }
    m_anfitrion.baja(*this);
    destruir();
}

void ControlWin::crearControl(const wchar_t* clase, const wchar_t* sobre, DWORD estilo, IdControl id, int elemento,
                              bool dobleClic) {
    MoldeVentana molde;
    molde.clase = clase;
    molde.sobre = sobre;
    molde.dobleClic = dobleClic;
    molde.estilo = WS_CHILD | WS_CLIPSIBLINGS | estilo;
    molde.padre = m_anfitrion.ventana();
    molde.id = numero(id, elemento);
    crear(molde);
    m_tabulable = (estilo & WS_TABSTOP) != 0;
    m_anfitrion.alta(*this);
}

RECT ControlWin::sitio() const {
    return aRECT(escala().aPixeles(m_lugar));
}

POINT ControlWin::centro() const {
    const RECT r = sitio();
    return {(r.left + r.right) / 2, (r.top + r.bottom) / 2};
}

void ControlWin::situarVentana() {
    situar(escala().aPixeles(m_lugar));
}

void ControlWin::alCambiarEscala() {
    situarVentana();
    invalidar();
}

void ControlWin::ponerLugar(const Rectangulo& lugar) {
    if (lugar == m_lugar) return;
    m_lugar = lugar;
    situarVentana();
    // What it shows of the ground is another part of it.
    if (m_visible) invalidar();
}

void ControlWin::ponerVisible(bool visible) {
    if (visible == m_visible) return;
    m_visible = visible;
    m_encima = false;
    mostrarSinActivar(visible);
    alCambiarAlcance();
}

void ControlWin::ponerHabilitado(bool si) {
    if (si == m_habilitado) return;
    m_habilitado = si;
    if (!hwnd()) return;
    EnableWindow(hwnd(), si ? TRUE : FALSE);
    invalidar();
    alCambiarAlcance();
}

void ControlWin::alCambiarAlcance() {
    if (alcanzable()) {
        m_anfitrion.foco().alAparecer();
    } else {
        m_anfitrion.foco().alRetirar(*this);
    }
}

void ControlWin::ponerNombre(const std::wstring& texto) {
    if (!hwnd()) return;
    m_anotado = m_anotado || !texto.empty();
    m_anfitrion.recursos().nombres.poner(hwnd(), texto);
    sugerirNombre(texto);
}

void ControlWin::nombrarConTexto(const std::wstring& texto) {
    if (!hwnd()) return;
    SetWindowTextW(hwnd(), texto.c_str());
    sugerirNombre(texto);
}

void ControlWin::sugerirNombre(const std::wstring& texto) {
    if (!m_conSugerencia) m_anfitrion.sugerencias().poner(hwnd(), texto);
}

void ControlWin::ponerSugerencia(const std::wstring& texto) {
    m_conSugerencia = !texto.empty();
    if (hwnd()) m_anfitrion.sugerencias().poner(hwnd(), texto);
}

void ControlWin::actuar() {
    m_avisarAccion = true;
}

void ControlWin::actuarSiPulsable() {
    // While a box is open the window is disabled, and a click that still comes is none.
    if (m_visible && m_habilitado && IsWindowEnabled(m_anfitrion.ventana())) actuar();
}

LRESULT ControlWin::porDefectoSinPintar(UINT mensaje, WPARAM w, LPARAM l) {
    const HWND ventana = hwnd();
    if (!(GetWindowLongPtrW(ventana, GWL_STYLE) & WS_VISIBLE)) return porDefecto(mensaje, w, l);
    DefWindowProcW(ventana, WM_SETREDRAW, FALSE, 0);
    const LRESULT r = porDefecto(mensaje, w, l);
    DefWindowProcW(ventana, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(ventana, nullptr, FALSE);
    return r;
}

LRESULT ControlWin::alMensaje(UINT mensaje, WPARAM w, LPARAM l) {
    const Vida::Testigo viva = m_vida.testigo();
    LRESULT r = 0;
    {
        const Nivel nivel(viva, m_nivel);
        r = atender(mensaje, w, l);
    }
    if (viva && m_nivel == 0 && (m_avisarFoco || m_avisarAccion)) avisar();
    return r;
}

// Copies: an action may give the control another one.
void ControlWin::avisar() {
    const Vida::Testigo viva = m_vida.testigo();
    if (std::exchange(m_avisarFoco, false) && m_alRecibirFoco) {
        const std::function<void()> accion = m_alRecibirFoco;
        accion();
    }
    if (!viva || !std::exchange(m_avisarAccion, false) || !m_accion) return;
    const std::function<void()> accion = m_accion;
    accion();
}

void ControlWin::alPintar() {
    const DCPintado pintado(hwnd());
    if (pintado) pintarEn(pintado.get());
}

void ControlWin::pintarEn(HDC dc) {
    RECT zona{};
    GetClientRect(hwnd(), &zona);
    if (zona.right <= 0 || zona.bottom <= 0) return;
    Lienzo& borrador = m_anfitrion.recursos().borrador;
    borrador.alcanzar(zona.right, zona.bottom);
    if (!borrador.utilizable()) return;
    RECT detras = sitio();
    detras.right = detras.left + zona.right;
    detras.bottom = detras.top + zona.bottom;
    m_anfitrion.pintarDetras(borrador, detras);
    {
        const Seleccion letra(borrador.dc(), m_anfitrion.letra());
        pintar(borrador, zona);
    }
    BitBlt(dc, 0, 0, zona.right, zona.bottom, borrador.dc(), 0, 0, SRCCOPY);
}

void ControlWin::alMoverRaton() {
    m_anfitrion.alMoverRaton(GetDlgCtrlID(hwnd()));
    if (!m_sensible || m_encima) return;
    TRACKMOUSEEVENT aviso{sizeof aviso, TME_LEAVE, hwnd(), 0};
    m_encima = TrackMouseEvent(&aviso) != 0;
    invalidar();
}

LRESULT ControlWin::atender(UINT mensaje, WPARAM w, LPARAM l) {
    switch (mensaje) {
        case WM_PAINT:
            alPintar();
            return 0;
        case WM_PRINTCLIENT:
            pintarEn(reinterpret_cast<HDC>(w));
            return 0;
        case WM_ERASEBKGND:
            return 1;
        case MENSAJE_NOTIFICADO:
            alNotificar(static_cast<UINT>(w));
            return 0;
        case WM_SETFOCUS: {
            const LRESULT r = porDefectoSinPintar(mensaje, w, l);
            m_anfitrion.foco().alRecibir(*this);
            m_avisarFoco = true;
            return r;
        }
        case WM_KILLFOCUS: {
            const LRESULT r = porDefectoSinPintar(mensaje, w, l);
            m_anfitrion.foco().alPerder(*this, reinterpret_cast<HWND>(w));
            return r;
        }
        case WM_MOUSEMOVE:
            alMoverRaton();
            return porDefecto(mensaje, w, l);
        case WM_MOUSELEAVE:
            m_encima = false;
            invalidar();
            return m_sensible ? 0 : porDefecto(mensaje, w, l);  // the system would paint its own way
        case WM_SETTEXT:
        case WM_ENABLE:
            return porDefectoSinPintar(mensaje, w, l);
        default:
            return porDefecto(mensaje, w, l);
    }
}

}  // namespace sorvanel
