#include "platform/win32/windows/dialogoWin.h"

#include <algorithm>
#include <cstdlib>

#include "platform/win32/controls/botonImagenWin.h"
#include "platform/win32/controls/botonTextoWin.h"
#include "platform/win32/controls/cajaTextoWin.h"
#include "platform/win32/controls/casillaWin.h"
#include "platform/win32/controls/listaWin.h"
#include "platform/win32/controls/marcoColorWin.h"
#include "platform/win32/controls/marcoWin.h"
#include "platform/win32/controls/rotuloWin.h"

namespace sorvanel {

namespace {

constexpr const wchar_t* CLASE = L"SorvanelDialogo";

// To ourselves, before anything is painted.
constexpr UINT MENSAJE_APILAR = WM_APP + 16;

}  // namespace

DialogoWin::DialogoWin(RecursosDialogo& recursos, Bucle& bucle, HWND propietaria, IdControl id)
    : m_recursos(recursos), m_bucle(bucle), m_fondo(*this) {
    const std::wstring clase = CLASE + std::to_wstring(numero(id));
    MoldeVentana molde;
    molde.clase = clase.c_str();
    // The system menu is not seen, but lets Alt+F4 close the window and the keyboard move it.
    molde.estilo = WS_POPUP | WS_SYSMENU | WS_CLIPCHILDREN;
    molde.estiloExtra = WS_EX_CONTROLPARENT;
    molde.padre = propietaria;
    elegirLetra();
    crear(molde);
    m_sugerencias.crear(hwnd());
    m_sugerencias.fuente(letra());
    m_bucle.anadirDialogo(hwnd());
    m_foco.ventana(hwnd());
}

DialogoWin::~DialogoWin() {
    m_oyente = nullptr;
    alMorir();
    destruir();
}

// The window may also go with its owner.
void DialogoWin::alMorir() {
    m_foco.ventana(nullptr);
    if (!hwnd()) return;
    m_sugerencias.cerrar();
    m_bucle.quitarDialogo(hwnd());
}

// ---- Place and scale ----

void DialogoWin::titulo(const std::string& texto) {
    if (hwnd()) SetWindowTextW(hwnd(), aAncho(texto).c_str());
}

void DialogoWin::elegirLetra() {
    m_letra = m_recursos.fuentes.pedir(m_recursos.letra, m_escala.y.largo(m_recursos.letra.alto));
    const HDC dc = m_recursos.borrador.dc();
    const Seleccion seleccion(dc, m_letra->get());
    TEXTMETRICW medida{};
    GetTextMetricsW(dc, &medida);
    m_altoLetra = static_cast<int>(medida.tmHeight);
}

void DialogoWin::cambiarEscala(const Escala& escala) {
    m_escala = escala;
    const std::shared_ptr<FuenteWin> anterior = m_letra;  // controls have it until they are told
    elegirLetra();
    m_sugerencias.fuente(letra());
    m_fondo.alCambiarEscala();
    m_orden.paraCadaControl([](ControlWin& control) { control.alCambiarEscala(); });
    for (SuperficieWin* superficie : m_superficies) superficie->alCambiarEscala();
}

void DialogoWin::tamano(float ancho, float alto) {
    m_fondo.dimensionar(ancho, alto);
    situarVentana(false);
}

void DialogoWin::centrarEn(const Monitor& monitor) {
    m_monitor = monitor;
    const Escala nueva(monitor.twipsPorPixelX, monitor.twipsPorPixelY);
    if (!(nueva == m_escala)) cambiarEscala(nueva);
    situarVentana(true);
}

// In the middle of its monitor; or where it is, as far as that keeps it on the one it was dragged to.
void DialogoWin::situarVentana(bool centrar) {
    if (!hwnd()) return;
    const Rectangulo lugar = m_fondo.lugar();
    const int ancho = m_escala.x.aPixel(lugar.ancho), alto = m_escala.y.aPixel(lugar.alto);
    RectPixel area = m_monitor.trabajo;
    int x = (area.left + area.right - ancho) / 2, y = (area.top + area.bottom - alto) / 2;
    MONITORINFO suyo{};
    suyo.cbSize = sizeof suyo;
    if (!centrar && GetMonitorInfoW(MonitorFromWindow(hwnd(), MONITOR_DEFAULTTONEAREST), &suyo)) {
        area = {suyo.rcWork.left, suyo.rcWork.top, suyo.rcWork.right, suyo.rcWork.bottom};
        RECT actual{};
        GetWindowRect(hwnd(), &actual);
        x = std::min(static_cast<int>(actual.left), area.right - ancho);
        y = std::min(static_cast<int>(actual.top), area.bottom - alto);
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
    m_orden.apilarMarcos();
    ShowWindow(hwnd(), SW_SHOW);
    // Before whatever else waits to be done.
    RedrawWindow(hwnd(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

void DialogoWin::ocultar() {
    if (hwnd()) ShowWindow(hwnd(), SW_HIDE);
}

MedidaTexto DialogoWin::medir(std::string_view texto) const {
    const HDC dc = m_recursos.borrador.dc();
    const Seleccion seleccion(dc, m_letra->get());
    const std::wstring letras = aAncho(texto.empty() ? std::string_view(" ") : texto);
    SIZE medida{};
    GetTextExtentPoint32W(dc, letras.data(), static_cast<int>(letras.size()), &medida);
    const Tinta tinta = m_letra->tinta(dc, letras);
    return {texto.empty() ? 0.0F : m_escala.x.aTwips(medida.cx), m_escala.y.aTwips(medida.cy),
            m_escala.y.aTwips(tinta.superior), m_escala.y.aTwips(tinta.inferior)};
}

// ---- What stands on it ----

template <typename Tipo>
std::unique_ptr<Tipo> DialogoWin::crearUno(IdControl id, int elemento) {
    AnfitrionDialogo& anfitrion = *this;
    auto control = std::make_unique<Tipo>(anfitrion, id, elemento);
    const bool habia = m_orden.porApilar();
    m_orden.anadir(*control);
    if (!habia) alAnadir();
    return control;
}

void DialogoWin::alAnadir() {
    if (m_orden.porApilar() && hwnd()) PostMessageW(hwnd(), MENSAJE_APILAR, 0, 0);
}

std::unique_ptr<CajaTexto> DialogoWin::crearCajaTexto(IdControl id, int elemento) {
    return crearUno<CajaTextoWin>(id, elemento);
}

std::unique_ptr<CasillaMarca> DialogoWin::crearCasilla(IdControl id, int elemento) {
    return crearUno<CasillaWin>(id, elemento);
}

std::unique_ptr<Lista> DialogoWin::crearLista(IdControl id, int elemento) {
    return crearUno<ListaWin>(id, elemento);
}

std::unique_ptr<Rotulo> DialogoWin::crearRotulo(IdControl id, int elemento) {
    return crearUno<RotuloWin>(id, elemento);
}

std::unique_ptr<BotonImagen> DialogoWin::crearBotonImagen(IdControl id, int elemento) {
    return crearUno<BotonImagenWin>(id, elemento);
}

std::unique_ptr<MarcoColor> DialogoWin::crearMarcoColor(IdControl id, int elemento) {
    return crearUno<MarcoColorWin>(id, elemento);
}

std::unique_ptr<BotonTexto> DialogoWin::crearBotonTexto(IdControl id, int elemento) {
    return crearUno<BotonTextoWin>(id, elemento);
}

std::unique_ptr<Marco> DialogoWin::crearMarco(IdControl id, int elemento) {
    return crearUno<MarcoWin>(id, elemento);
}

std::unique_ptr<Superficie> DialogoWin::crearSuperficie(IdControl id, int elemento) {
    AnfitrionDialogo& anfitrion = *this;
    auto superficie = std::make_unique<SuperficieWin>(anfitrion, id, elemento);
    m_superficies.push_back(superficie.get());
    m_orden.anadir(superficie->hwnd());
    alAnadir();
    return superficie;
}

void DialogoWin::baja(ControlWin& control) {
    m_foco.baja(control);
    m_orden.quitar(control);
}

void DialogoWin::baja(SuperficieWin& superficie) {
    std::erase(m_superficies, &superficie);
    m_orden.quitar(superficie.hwnd());
}

void DialogoWin::ordenTeclado(std::span<Control* const> orden) {
    std::vector<ControlWin*> primero;
    primero.reserve(orden.size());
    for (Control* control : orden) primero.push_back(dynamic_cast<ControlWin*>(control));
    m_orden.ordenar(primero);
}

void DialogoWin::nombreAccesible(HWND control, const std::wstring& texto) {
    m_recursos.nombres.poner(control, texto);
}

// ---- Ground ----

void DialogoWin::pintarDetras(Lienzo& destino, const RECT& parte) const {
    m_fondo.copiar(destino.dc(), parte);
    for (const ControlWin* control : m_orden.marcos()) {
        if (control->estaVisible()) static_cast<const MarcoWin*>(control)->pintarSobre(destino, parte);
    }
}

void DialogoWin::tocarDetras(const RECT& parte) {
    if (hwnd()) RedrawWindow(hwnd(), &parte, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_FRAME);
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

LRESULT DialogoWin::devolver(HWND control, UINT mensaje, WPARAM w, LPARAM l) {
    // The open list of a drop-down list is no child of ours.
    if (!control || GetParent(control) != hwnd()) return porDefecto(mensaje, w, l);
    return SendMessageW(control, mensaje, w, l);
}

LRESULT DialogoWin::alMensaje(UINT mensaje, WPARAM w, LPARAM l) {
    switch (mensaje) {
        case WM_PAINT: {
            const DCPintado pintado(hwnd());
            if (pintado) m_fondo.volcar(pintado.get(), pintado.zona());
            return 0;
        }
        case WM_PRINTCLIENT: {
            RECT todo{};
            GetClientRect(hwnd(), &todo);
            m_fondo.volcar(reinterpret_cast<HDC>(w), todo);
            return 0;
        }
        case WM_ERASEBKGND:
            return 1;
        case WM_COMMAND:
            // Without a control it is a key of the system's dialogs, which means nothing here.
            return l ? devolver(reinterpret_cast<HWND>(l), MENSAJE_NOTIFICADO, HIWORD(w), 0) : 0;
        case WM_DRAWITEM:
            return devolver(reinterpret_cast<const DRAWITEMSTRUCT*>(l)->hwndItem, mensaje, w, l);
        case WM_MEASUREITEM:
            return devolver(GetDlgItem(hwnd(), static_cast<int>(w)), mensaje, w, l);
        case WM_CTLCOLOREDIT:
        case WM_CTLCOLORSTATIC:
            return devolver(reinterpret_cast<HWND>(l), mensaje, w, l);
        case WM_LBUTTONDOWN:
            alPulsarFondo();
            return 0;
        case WM_MOUSEMOVE:
            seguirRaton();
            return 0;
        case WM_LBUTTONUP:
            if (m_agarrado) ReleaseCapture();
            return 0;
        case WM_CAPTURECHANGED:
            m_agarrado = false;
            return 0;
        default:
            return alMensajePropio(mensaje, w, l);
    }
}

LRESULT DialogoWin::alMensajePropio(UINT mensaje, WPARAM w, LPARAM l) {
    switch (mensaje) {
        case WM_SETFOCUS:
            m_foco.recuperar();
            return 0;
        case WM_ACTIVATE: {
            const LRESULT r = porDefecto(mensaje, w, l);
            if (LOWORD(w) != WA_INACTIVE) m_foco.reanudar();
            return r;
        }
        case WM_ENABLE:
            if (w) m_foco.reanudar();
            return porDefecto(mensaje, w, l);
        case FocoDialogo::MENSAJE_RECUPERAR:
            m_foco.recuperar();
            return 0;
        case FocoDialogo::MENSAJE_VALIDAR:
            m_foco.validarUno();
            return 0;
        case MENSAJE_APILAR:
            m_orden.apilarMarcos();
            // What was made while the window was seen has been painted as far as its frame did not cover it.
            if (IsWindowVisible(hwnd())) {
                RedrawWindow(hwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME | RDW_ALLCHILDREN);
            }
            return 0;
        case Bucle::MENSAJE_RATON:
            m_sugerencias.relevar(*reinterpret_cast<const MSG*>(l));
            return 0;
        case WM_SYSCOMMAND:
            // What the main window says of the screen saver holds for its tools too.
            if ((w & 0xFFF0) == SC_SCREENSAVE || (w & 0xFFF0) == SC_MONITORPOWER) {
                return SendMessageW(GetWindow(hwnd(), GW_OWNER), mensaje, w, l);
            }
            return porDefecto(mensaje, w, l);
        case WM_DPICHANGED:
            // Dragged to another monitor it keeps its size in pixels; its scale is given to it.
            return 0;
        case WM_CLOSE:
            pedirCierre();
            return 0;
        case WM_DESTROY:
            alMorir();
            return 0;
        default:
            return porDefecto(mensaje, w, l);
    }
}

}  // namespace sorvanel
