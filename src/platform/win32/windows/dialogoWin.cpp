#include "platform/win32/windows/dialogoWin.h"

#include <algorithm>
#include <cstdlib>

#include "platform/win32/base/textoWin.h"
#include "platform/win32/controls/controlWin.h"
#include "platform/win32/controls/superficieWin.h"

namespace sorvanel {

DialogoWin::DialogoWin(RecursosVentanas& recursos, Bucle& bucle, HWND propietaria, IdControl id)
    : Anfitrion(recursos), m_bucle(bucle), m_fondo(*this) {
    const std::wstring clase = L"SorvanelDialogo" + std::to_wstring(numero(id));
    MoldeVentana molde;
    molde.clase = clase.c_str();
    // The system menu is not seen, but lets Alt+F4 close the window and the keyboard move it.
    molde.estilo = WS_POPUP | WS_SYSMENU | WS_CLIPCHILDREN;
    molde.estiloExtra = WS_EX_CONTROLPARENT;
    molde.padre = propietaria;
    crearVentana(molde);
    m_bucle.anadirDialogo(hwnd());
}

DialogoWin::~DialogoWin() {
    m_oyente = nullptr;
    destruir();
}

// The window may also go with its owner.
void DialogoWin::alMorir() {
    m_bucle.quitarDialogo(hwnd());
    Anfitrion::alMorir();
}

// ---- Place and scale ----

void DialogoWin::titulo(const std::string& texto) {
    if (hwnd()) SetWindowTextW(hwnd(), aAncho(texto).c_str());
}

void DialogoWin::tamano(float ancho, float alto) {
    m_fondo.dimensionar(ancho, alto);
    situarVentana(nullptr);
}

void DialogoWin::escala(float twipsPorPixelX, float twipsPorPixelY) {
    const Escala nueva(twipsPorPixelX, twipsPorPixelY);
    if (nueva == Anfitrion::escala()) return;
    cambiarEscala(nueva);
    m_fondo.alCambiarEscala();
}

void DialogoWin::centrarEn(const RectPixel& zona) {
    situarVentana(&zona);
}

// In the middle of that; or where it is, as far as that keeps it on the monitor that it was dragged to.
void DialogoWin::situarVentana(const RectPixel* centro) {
    if (!hwnd()) return;
    const Rectangulo lugar = m_fondo.lugar();
    const Escala& suya = Anfitrion::escala();
    const int ancho = suya.x.aPixel(lugar.ancho), alto = suya.y.aPixel(lugar.alto);
    RECT actual{};
    GetWindowRect(hwnd(), &actual);
    RectPixel area;
    int x = actual.left, y = actual.top;
    MONITORINFO suyo{};
    suyo.cbSize = sizeof suyo;
    if (centro) {
        area = *centro;
        x = (area.left + area.right - ancho) / 2;
        y = (area.top + area.bottom - alto) / 2;
    } else if (GetMonitorInfoW(MonitorFromWindow(hwnd(), MONITOR_DEFAULTTONEAREST), &suyo)) {
        area = {suyo.rcWork.left, suyo.rcWork.top, suyo.rcWork.right, suyo.rcWork.bottom};
        x = std::min(x, area.right - ancho);
        y = std::min(y, area.bottom - alto);
    }
    // Too large a window shows its upper left part, with the title and what closes it.
    x = std::max(x, area.left);
    y = std::max(y, area.top);
    SetWindowPos(hwnd(), nullptr, x, y, ancho, alto, SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOOWNERZORDER);
}

void DialogoWin::mostrar() {
    if (!hwnd()) return;
    // A shaped main window lies above all others; what belongs to it has to lie higher.
    const HWND propietaria = GetWindow(hwnd(), GW_OWNER);
    const bool encima = propietaria && (GetWindowLongPtrW(propietaria, GWL_EXSTYLE) & WS_EX_TOPMOST);
    if (encima) SetWindowPos(hwnd(), HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    ShowWindow(hwnd(), SW_SHOW);
    // Before whatever else waits to be done.
    RedrawWindow(hwnd(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

void DialogoWin::ocultar() {
    if (hwnd()) ShowWindow(hwnd(), SW_HIDE);
}

// ---- What stands on it ----

std::unique_ptr<Superficie> DialogoWin::crearSuperficie(IdControl id, int elemento) {
    Anfitrion& anfitrion = *this;
    return std::make_unique<SuperficieWin>(anfitrion, id, elemento);
}

void DialogoWin::ordenTeclado(std::span<Control* const> orden) {
    std::vector<ControlWin*> primero;
    primero.reserve(orden.size());
    for (Control* control : orden) {
        if (auto* ventana = dynamic_cast<ControlWin*>(control)) primero.push_back(ventana);
    }
    this->orden().ordenar(primero);
}

void DialogoWin::pintarSuelo(Lienzo& destino, const RECT& parte) const {
    const Lienzo::Origen origen(destino, {parte.left, parte.top});
    if (paleta().contraste) {
        destino.llenar(parte, apariencia::aColor(paleta().ventana));
        apariencia::pintarCaja(destino, m_fondo.entero(), 0, 1, paleta().letra, -1);
    } else {
        m_fondo.pintar(destino, parte);
    }
}

// The move begins with the first movement: begun with the press, the system would hold on to the mouse where the
// button is up again before the move is under way.
void DialogoWin::alPulsarFondo() {
    if (!hwnd()) return;
    GetCursorPos(&m_agarre);
    SetCapture(hwnd());
    m_agarrado = true;
}

void DialogoWin::seguirRaton() {
    POINT raton{};
    if (!m_agarrado || !GetCursorPos(&raton)) return;
    if (std::abs(raton.x - m_agarre.x) < GetSystemMetrics(SM_CXDRAG) &&
        std::abs(raton.y - m_agarre.y) < GetSystemMetrics(SM_CYDRAG)) {
        return;
    }
    if (m_oyente) m_oyente->alArrastrar();
}

void DialogoWin::agarrarTitulo() {
    if (hwnd()) SendMessageW(hwnd(), WM_NCLBUTTONDOWN, HTCAPTION, 0);
}

// ---- Messages ----

void DialogoWin::pedirCierre() {
    // A disabled window waits for the answer to a box of its own.
    if (m_oyente && IsWindowEnabled(hwnd())) m_oyente->alPedirCierre();
}

LRESULT DialogoWin::alMensaje(UINT mensaje, WPARAM w, LPARAM l) {
    switch (mensaje) {
        case WM_MOUSEMOVE:
            seguirRaton();
            return 0;
        case WM_CAPTURECHANGED:
            m_agarrado = false;
            return Anfitrion::alMensaje(mensaje, w, l);
        case WM_SYSCOMMAND:
            // What the main window says of the screen saver holds for its tools too.
            if ((w & 0xFFF0) == SC_SCREENSAVE || (w & 0xFFF0) == SC_MONITORPOWER) {
                return SendMessageW(GetWindow(hwnd(), GW_OWNER), mensaje, w, l);
            }
            return porDefecto(mensaje, w, l);
        case WM_DPICHANGED:
            // Dragged to another monitor it keeps its size in pixels; its scale is given to it.
            return 0;
        case WM_COMMAND:
            // The system's dialogs make that of Escape.
            if (l || LOWORD(w) != IDCANCEL) return Anfitrion::alMensaje(mensaje, w, l);
            pedirCierre();
            return 0;
        case WM_CLOSE:
            pedirCierre();
            return 0;
        default:
            return Anfitrion::alMensaje(mensaje, w, l);
    }
}

}  // namespace sorvanel
