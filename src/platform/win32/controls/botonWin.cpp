#include "platform/win32/controls/botonWin.h"

#include <windowsx.h>

#include <algorithm>
#include <utility>

#include "platform/win32/painting/pictogramas.h"

namespace sorvanel {

namespace {

constexpr UINT_PTR RELOJ_REPETICION = 1;
constexpr UINT ESPERA = 400, RITMO = 60;  // milliseconds

// Design pixels.
constexpr float DIBUJO = 18, ORLA = 3;  // the latter between a colour and the line around it

// Beside what stands on a button: the least margin left and right, and between picture and text; design pixels.
struct Huecos {
    float izquierda, derecha, medio;
};

Huecos huecosDe(EstiloBoton estilo) {
    return estilo == EstiloBoton::barra ? Huecos{5, 5, 7} : Huecos{8, 4, 6};
}

}  // namespace

PulsadorWin::PulsadorWin(Anfitrion& anfitrion, const wchar_t* clase, IdControl id, int elemento)
    : ControlWin(anfitrion) {
    crearControl(clase, L"BUTTON", WS_TABSTOP | BS_OWNERDRAW, id, elemento);
    sensible();
}

apariencia::Estado PulsadorWin::estado() const {
    return {(m_apretado && m_dentro) || m_tecla, enfocado(), encima(), habilitado()};
}

void PulsadorWin::alNotificar(UINT aviso) {
    if (aviso == BN_CLICKED) actuarSiPulsable();
}

bool PulsadorWin::dentro(LPARAM l) const {
    RECT zona{};
    GetClientRect(hwnd(), &zona);
    return PtInRect(&zona, {GET_X_LPARAM(l), GET_Y_LPARAM(l)}) != 0;
}

void PulsadorWin::alApretar(LPARAM l) {
    POINT donde{GET_X_LPARAM(l), GET_Y_LPARAM(l)};
    ClientToScreen(hwnd(), &donde);
    if (!anfitrion().pulsaciones().admitir(hwnd(), donde, m_unaSola)) return;
    if (tomaFoco()) SetFocus(hwnd());
    SetCapture(hwnd());
    m_apretado = m_dentro = true;
    invalidar();
    if (!m_repite) return;
    SetTimer(hwnd(), RELOJ_REPETICION, ESPERA, nullptr);
    actuarSiPulsable();
}

void PulsadorWin::alMover(LPARAM l) {
    if (m_apretado && std::exchange(m_dentro, dentro(l)) != m_dentro) invalidar();
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
            alApretar(l);
            return 0;
        case WM_LBUTTONUP: {
            const bool completa = m_apretado && !m_repite && dentro(l);
            soltar();
            if (completa) actuarSiPulsable();
            return 0;
        }
        default:
            alMover(l);
            alMoverRaton();
            return 0;
    }
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
        case BM_GETSTATE:
            return (estado().pulsado ? BST_PUSHED : 0) | (estado().foco ? BST_FOCUS : 0);
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

// ---- Button ----

BotonWin::BotonWin(Anfitrion& anfitrion, IdControl id, int elemento)
    : ControlDe(anfitrion, L"SorvanelBoton", id, elemento) {}

void BotonWin::texto(const std::string& texto) {
    std::wstring nuevo = aAncho(texto);
    if (nuevo == m_texto) return;
    m_texto = std::move(nuevo);
    if (hwnd() && !m_conNombre) SetWindowTextW(hwnd(), m_texto.c_str());
    invalidar();
}

void BotonWin::ponerNombre(const std::wstring& texto) {
    m_conNombre = !texto.empty();
    nombrarConTexto(m_conNombre ? texto : m_texto);
}

void BotonWin::dibujo(Dibujo dibujo) {
    if (dibujo == m_dibujo) return;
    m_dibujo = dibujo;
    invalidar();
}

void BotonWin::aspecto(AspectoBoton aspecto) {
    if (aspecto == m_aspecto) return;
    m_aspecto = aspecto;
    invalidar();
}

apariencia::Estado BotonWin::estado() const {
    apariencia::Estado estado = PulsadorWin::estado();
    estado.pulsado = estado.pulsado || m_aspecto == AspectoBoton::hundido;
    estado.habilitado = estado.habilitado && m_aspecto != AspectoBoton::agotado;
    return estado;
}

bool BotonWin::alTeclear(UINT mensaje, WPARAM tecla, LPARAM detalle) {
    if (m_estilo != EstiloBoton::barra || tecla < VK_LEFT || tecla > VK_DOWN)
        return PulsadorWin::alTeclear(mensaje, tecla, detalle);
    if (mensaje == WM_KEYDOWN) anfitrion().pasarFoco(*this, tecla == VK_LEFT || tecla == VK_UP ? -1 : 1);
    return true;
}

// The same on both sides, or it looks shifted.
int BotonWin::ladoDibujo(const RECT& zona) const {
    if (m_dibujo == Dibujo::ninguno) return 0;
    if (m_estilo == EstiloBoton::imagen) {
        const int lado = static_cast<int>(static_cast<float>(std::min(zona.right, zona.bottom)) * 0.72F);
        return lado - (zona.right - lado) % 2;
    }
    int lado = px(DIBUJO);
    if (m_estilo == EstiloBoton::barra) lado = std::min<int>(escala().y.largo(lugar().alto * 0.66F), zona.right);
    return lado - (zona.bottom - lado) % 2;
}

void BotonWin::pintar(Lienzo& lienzo, const RECT& zona) {
    const apariencia::Estado como = estado();
    apariencia::pintarCara(lienzo, zona, escala(), paleta(), como);
    const Huecos huecos = huecosDe(m_estilo);
    const int texto = m_texto.empty() ? 0 : extension(lienzo.dc(), m_texto).cx;
    const int lado = ladoDibujo(zona), hueco = lado > 0 && texto > 0 ? px(huecos.medio) : 0;
    const int margen = texto > 0 ? px(huecos.izquierda) : 0;
    int x = std::max<int>(margen, (zona.right - lado - hueco - texto) / 2);
    if (lado > 0) {
        const int y = (zona.bottom - lado) / 2;
        const Color tinta = apariencia::tintaDe(paleta(), como, m_dibujo);
        dibujarPictograma(lienzo, m_dibujo, {x, y, x + lado, y + lado}, apariencia::aColor(tinta));
        x += lado + hueco;
    }
    if (texto == 0) return;
    const RECT sitio{x, zona.top, std::max<LONG>(zona.right - px(huecos.derecha), x), zona.bottom};
    apariencia::escribir(lienzo.dc(), m_texto, sitio, apariencia::letraDe(paleta(), como));
}

// ---- Colour ----

MarcoColorWin::MarcoColorWin(Anfitrion& anfitrion, IdControl id, int elemento)
    : ControlDe(anfitrion, L"SorvanelMarcoColor", id, elemento) {}

void MarcoColorWin::color(Color color) {
    if (color == m_color) return;
    m_color = color;
    invalidar();
}

// The colour lies on a button's face: so it is seen as one also where it is white.
void MarcoColorWin::pintar(Lienzo& lienzo, const RECT& zona) {
    apariencia::pintarCara(lienzo, zona, escala(), paleta(), estado());
    const int orla = px(ORLA);
    const RECT muestra{orla, orla, zona.right - orla, zona.bottom - orla};
    if (muestra.right <= muestra.left || muestra.bottom <= muestra.top) return;
    apariencia::pintarCaja(lienzo, muestra, px(apariencia::RADIO_CAJA), px(1), paleta().borde, colorPintable(m_color));
}

}  // namespace sorvanel
