#include "platform/win32/controls/superficieWin.h"

#include <windowsx.h>

#include <utility>

#include "platform/win32/base/textoWin.h"

namespace sorvanel {

namespace {

constexpr const wchar_t* CLASE = L"SorvanelSuperficie";

}  // namespace

SuperficieWin::SuperficieWin(Anfitrion& anfitrion, IdControl id, int elemento)
    : PinturaWin(anfitrion.escala(), anfitrion.recursos().fuentes, anfitrion.recursos().borrador),
      m_anfitrion(anfitrion),
      m_id(numero(id, elemento)) {
    m_utiles.caja = &m_anfitrion.recursos().tipos;
    m_anfitrion.alta(*this);
}

SuperficieWin::~SuperficieWin() {
    m_anfitrion.recursos().tandas.quitar(*this);
    m_utiles.letra.quitar();
    m_dc.soltar();
    if (!m_sugerencia.empty()) m_anfitrion.sugerencias().poner(hwnd(), {});
    destruir();
    m_anfitrion.baja(*this);
}

void SuperficieWin::alCambiarEscala() {
    cambiarEscalaPintura();
    seguirLugar();
}

void SuperficieWin::colocar(const Rectangulo& lugar) {
    situarPintura(lugar);
    seguirLugar();
}

void SuperficieWin::seguirLugar() {
    if (!m_visible) return;
    situar(lugarPixeles());
    invalidar();
}

void SuperficieWin::mostrar(bool visible) {
    if (visible == m_visible || !m_anfitrion.ventana()) return;
    if (visible && !hwnd()) {
        crearVentana();
        m_visible = true;
        UtilesDC utiles;  // nothing is kept for what may never change
        copiar(entero(), utiles);
        return;
    }
    if (visible) {
        situar(lugarPixeles(), true);
    } else {
        m_utiles.tipos.reset();
        mostrarSinActivar(false);
    }
    m_visible = visible;
}

// Shown in its place and without the system's painting, which would ask for a frame and a ground that it has not, and
// for its picture once more when the windows are put into their order.
void SuperficieWin::crearVentana() {
    MoldeVentana molde;
    molde.clase = CLASE;
    molde.conDC = true;
    molde.estilo = WS_CHILD | WS_CLIPSIBLINGS;
    molde.sitio = lugarPixeles();
    molde.padre = m_anfitrion.ventana();
    molde.id = m_id;
    crear(molde);
    m_anfitrion.pedirApilado();
    if (!m_sugerencia.empty()) m_anfitrion.sugerencias().poner(hwnd(), aAncho(m_sugerencia));
    if (!ponerDebajo(hwnd(), m_anfitrion.encimaDeNuevas(), SWP_NOREDRAW | SWP_SHOWWINDOW)) mostrarSinActivar(true);
}

bool SuperficieWin::hasDC() const {
    return m_anfitrion.ventana() != nullptr && PinturaWin::hasDC();
}

void SuperficieWin::leyenda(std::string_view texto) {
    if (texto == m_leyenda) return;
    m_leyenda.assign(texto);
    m_leyendaNueva = true;
}

void SuperficieWin::sugerencia(std::string_view texto) {
    m_sugerencia = texto;
    m_anfitrion.sugerencias().poner(hwnd(), aAncho(texto));
}

void SuperficieWin::refrescar() {
    volcarPendiente();
    pintarPendiente();
}

void SuperficieWin::tocar(const RECT* zona) {
    Tandas& tandas = m_anfitrion.recursos().tandas;
    if (!tandas.abierta() || !m_visible) {
        invalidar(zona);
        return;
    }
    if (!m_anotada) tandas.anotar(*this);
    m_anotada = true;
    const RECT todo = entero(), antes = m_pendiente;
    UnionRect(&m_pendiente, &antes, zona ? zona : &todo);
}

// A window that is hidden by then, or one of whose parents is, is painted when it is shown. What covers it is no affair
// of ours: the device context is the window's, so the system keeps the copy within what is seen of it.
void SuperficieWin::volcarPendiente() {
    m_anotada = false;
    const RECT zona = std::exchange(m_pendiente, RECT{});
    if (IsRectEmpty(&zona) || !hwnd() || !IsWindowVisible(hwnd())) return;
    copiar(zona, m_utiles);
}

void SuperficieWin::copiar(const RECT& zona, UtilesDC& utiles) {
    if (!m_dc) m_dc.tomar(hwnd());
    if (m_dc) {
        volcar(m_dc.get(), zona, utiles);
    } else {
        invalidar(&zona);
    }
    avisarLeyenda();
}

void SuperficieWin::alPintar() {
    {
        const DCPintado pintado(hwnd());
        UtilesDC utiles;
        if (pintado) volcar(pintado.get(), pintado.zona(), utiles);
    }
    avisarLeyenda();
}

// Told after a paint, not with each frame: what arrives faster than it can be shown cannot be heard
// either. Without a listener it costs one look at a flag.
void SuperficieWin::avisarLeyenda() {
    if (!m_leyendaNueva) return;
    m_leyendaNueva = false;
    if (!IsWinEventHookInstalled(EVENT_OBJECT_NAMECHANGE)) return;
    NotifyWinEvent(EVENT_OBJECT_NAMECHANGE, hwnd(), OBJID_WINDOW, CHILDID_SELF);
}

// The words are turned into the system's text only when somebody asks.
LRESULT SuperficieWin::copiarLeyenda(WPARAM capacidad, LPARAM destino) const {
    if (capacidad == 0 || destino == 0) return 0;
    const std::wstring letras = aAncho(m_leyenda);
    auto* hacia = reinterpret_cast<wchar_t*>(destino);
    const std::size_t cuantas = letras.copy(hacia, static_cast<std::size_t>(capacidad) - 1);
    hacia[cuantas] = L'\0';
    return static_cast<LRESULT>(cuantas);
}

LRESULT SuperficieWin::alMensaje(UINT mensaje, WPARAM w, LPARAM l) {
    switch (mensaje) {
        case WM_PAINT:
            alPintar();
            return 0;
        case WM_PRINTCLIENT: {
            UtilesDC utiles;
            volcar(reinterpret_cast<HDC>(w), entero(), utiles);
            return 0;
        }
        case WM_ERASEBKGND:
            return 1;
        case WM_MOUSEMOVE:
            m_anfitrion.alMoverRaton(m_id);
            return 0;
        case WM_LBUTTONDOWN: {
            POINT donde{GET_X_LPARAM(l), GET_Y_LPARAM(l)};
            MapWindowPoints(hwnd(), m_anfitrion.hwnd(), &donde, 1);
            m_anfitrion.alPulsarSuperficie(*this, donde);
            return 0;
        }
        case WM_GETTEXT:
            return copiarLeyenda(w, l);
        case WM_GETTEXTLENGTH:
            return static_cast<LRESULT>(aAncho(m_leyenda).size());
        case WM_GETDLGCODE:
            return DLGC_STATIC;
        default:
            return porDefecto(mensaje, w, l);
    }
}

}  // namespace sorvanel
