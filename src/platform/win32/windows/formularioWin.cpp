#include "platform/win32/windows/formularioWin.h"

#include <windowsx.h>

#include <algorithm>
#include <utility>

#include "platform/win32/base/mensajes.h"
#include "platform/win32/base/textoWin.h"
#include "platform/win32/controls/botonWin.h"
#include "platform/win32/controls/superficieWin.h"
#include "platform/win32/windows/recursos.h"

namespace sorvanel {

namespace {

constexpr const wchar_t* CLASE = L"SorvanelFormulario";

// Monitors change in several steps, each with its message: wait until it has been quiet so long.
constexpr UINT_PTR RELOJ_MONITORES = 1;
constexpr UINT ESPERA_MONITORES = 500;
// What tells of the session starts with the system, and may not be there yet: so often it is asked, and so long after.
constexpr int INTENTOS = 10;
constexpr UINT ENTRE_INTENTOS = 30'000;

HANDLE recurso(int id, UINT clase, int ancho, int alto) {
    return LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(id), clase, ancho, alto, LR_SHARED);
}

// What nothing may cover, from the top: the bar must not vanish under a grid that reaches below it.
// Below that, above the displays, what a drag would do: its words over its frame.
constexpr std::pair<IdControl, int> ENCIMA[] = {
    {IdControl::lbMedida, 0}, {IdControl::lbVer, 0},    {IdControl::lbEstado, 0}, {IdControl::picBot, 0},
    {IdControl::picMsg, 0},   {IdControl::picMarca, 4}, {IdControl::picMarca, 0}, {IdControl::picMarca, 1},
    {IdControl::picMarca, 2}, {IdControl::picMarca, 3}};

bool esDeLaBarra(int id) {
    return id == numero(IdControl::picBot) || id == numero(IdControl::lbVer) || id == numero(IdControl::lbEstado) ||
           (id >= numero(IdControl::botOff) && id < numero(IdControl::imDrgXY));
}

}  // namespace

FormularioWin::FormularioWin(RecursosVentanas& recursos, const std::string& titulo) : Anfitrion(recursos) {
    m_punteroNormal = LoadCursorW(nullptr, IDC_ARROW);
    m_punteroMarcha = static_cast<HCURSOR>(
        recurso(IDC_MARCHA, IMAGE_CURSOR, GetSystemMetrics(SM_CXCURSOR), GetSystemMetrics(SM_CYCURSOR)));
    if (!m_punteroMarcha) m_punteroMarcha = m_punteroNormal;

    const std::wstring letras = aAncho(titulo);
    MoldeVentana molde;
    molde.clase = CLASE;
    molde.titulo = letras.c_str();
    // The system menu is not seen, but lets the task bar and Alt+F4 close the window.
    molde.estilo = WS_POPUP | WS_SYSMENU | WS_CLIPCHILDREN;
    molde.estiloExtra = WS_EX_APPWINDOW;
    molde.icono =
        static_cast<HICON>(recurso(IDI_SORVANEL, IMAGE_ICON, GetSystemMetrics(SM_CXICON), GetSystemMetrics(SM_CYICON)));
    molde.iconoPequeno = static_cast<HICON>(
        recurso(IDI_SORVANEL, IMAGE_ICON, GetSystemMetrics(SM_CXSMICON), GetSystemMetrics(SM_CYSMICON)));
    crearVentana(molde);
}

FormularioWin::~FormularioWin() {
    m_oyente = nullptr;
    destruir();
}

void FormularioWin::alMorir() {
    m_sucesos.callar();
    Anfitrion::alMorir();
    PostQuitMessage(0);
}

void FormularioWin::cubrir(const Monitor& monitor) {
    const Escala nueva(monitor.twipsPorPixelX, monitor.twipsPorPixelY);
    const RECT lugar = aRECT(monitor.area);
    // Exactly the monitor's rectangle: so the system keeps the task bar beneath.
    if (hwnd()) {
        m_sitio = lugar;
        // Minimised it would cover nothing, and come back where it was before.
        if (IsIconic(hwnd())) ShowWindow(hwnd(), SW_SHOWNOACTIVATE);
        SetWindowPos(hwnd(), HWND_TOP, lugar.left, lugar.top, lugar.right - lugar.left, lugar.bottom - lugar.top,
                     SWP_NOACTIVATE);
    }
    cambiarEscala(nueva);
}

// Neither a key nor the system, which saves windows from monitors that go, takes it off its monitor; when
// another is to be covered it is told so.
void FormularioWin::mantenerSitio(WINDOWPOS& cambio) const {
    constexpr UINT MINIMIZA_O_RESTAURA = 0x8000;
    if (IsRectEmpty(&m_sitio) || IsIconic(hwnd()) || (cambio.flags & MINIMIZA_O_RESTAURA)) return;
    cambio.x = m_sitio.left;
    cambio.y = m_sitio.top;
    cambio.cx = m_sitio.right - m_sitio.left;
    cambio.cy = m_sitio.bottom - m_sitio.top;
}

std::unique_ptr<Superficie> FormularioWin::crearSuperficie(IdControl id, int elemento) {
    Anfitrion& anfitrion = *this;
    return std::make_unique<SuperficieWin>(anfitrion, id, elemento);
}

void FormularioWin::puntero(Puntero puntero) {
    if (puntero == m_puntero) return;
    m_puntero = puntero;
    POINT donde{};
    if (!hwnd() || !GetCursorPos(&donde)) return;
    const HWND debajo = WindowFromPoint(donde);
    if (debajo == hwnd() || IsChild(hwnd(), debajo)) ponerPuntero();
}

bool FormularioWin::ponerPuntero() const {
    SetCursor(m_puntero == Puntero::marcha ? m_punteroMarcha : m_punteroNormal);
    return true;
}

std::optional<ColoresSistema> FormularioWin::colores() const {
    const apariencia::Paleta& suya = paleta();
    return suya.contraste ? std::optional(ColoresSistema{suya.ventana, suya.letra}) : std::nullopt;
}

void FormularioWin::alCambiarColores() {
    if (m_oyente) m_oyente->alCambiarColores();
}

void FormularioWin::refrescar() {
    if (hwnd()) RedrawWindow(hwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
}

void FormularioWin::mostrar() {
    if (!hwnd()) return;
    ShowWindow(hwnd(), SW_SHOW);
    SetForegroundWindow(hwnd());
    // Also where another program keeps the foreground and this window is not made active.
    pedirActivacion();
    cambioDeMonitores();
}

void FormularioWin::cerrar() {
    // Not from within the button that asks for it: it goes with the window.
    if (hwnd()) PostMessageW(hwnd(), WM_CLOSE, 0, 0);
}

void FormularioWin::pedirActivacion() {
    if (!m_activacionPendiente) m_activacionPendiente = PostMessageW(hwnd(), MENSAJE_ACTIVAR, 0, 0) != 0;
}

void FormularioWin::cambioDeMonitores() {
    SetTimer(hwnd(), RELOJ_MONITORES, ESPERA_MONITORES, nullptr);
}

void FormularioWin::monitoresQuietos() {
    KillTimer(hwnd(), RELOJ_MONITORES);
    if (!m_sucesos.escuchar(hwnd()) && m_intentos++ < INTENTOS)
        SetTimer(hwnd(), RELOJ_MONITORES, ENTRE_INTENTOS, nullptr);
    m_forma.reafirmar(hwnd());
    if (m_oyente) m_oyente->alCambiarMonitores();
}

void FormularioWin::descargar(MotivoCierre motivo) {
    if (m_descargado) return;
    m_descargado = true;
    if (m_oyente) m_oyente->alDescargar(motivo);
}

void FormularioWin::alMoverRaton(int id) {
    if (m_oyente) m_oyente->alMoverRaton(esDeLaBarra(id) ? ZonaRaton::barra : ZonaRaton::representacion);
}

// ---- The mouse on its surfaces ----

// Where another window of whatever program lies above it, the mouse is outside.
Punto FormularioWin::enTwips(POINT donde) const {
    POINT enPantalla = donde;
    ClientToScreen(hwnd(), &enPantalla);
    const HWND debajo = WindowFromPoint(enPantalla);
    if (debajo != hwnd() && !IsChild(hwnd(), debajo)) return {-1, -1};
    return {escala().x.aTwips(donde.x), escala().y.aTwips(donde.y)};
}

// The mouse is taken after the press was told: that moves the focus, and with it the activation.
void FormularioWin::alPulsarSuperficie(const SuperficieWin& superficie, POINT donde) {
    if (superficie.id() < numero(IdControl::picRep) || !m_oyente || !IsWindowEnabled(hwnd())) return;
    POINT enPantalla = donde;
    ClientToScreen(hwnd(), &enPantalla);
    // The first half of a double click may have closed a box.
    const bool trasCaja = static_cast<DWORD>(GetMessageTime()) - m_habilitada <= GetDoubleClickTime();
    if (trasCaja || !pulsaciones().admitirCerca(hwnd(), enPantalla)) return;
    const Punto lugar{escala().x.aTwips(donde.x), escala().y.aTwips(donde.y)};
    m_siguiendo = m_oyente->alUsarRaton(GestoRaton::pulsar, lugar) && hwnd() && IsWindowEnabled(hwnd());
    if (m_siguiendo) SetCapture(hwnd());
}

bool FormularioWin::seguirRaton(UINT mensaje, WPARAM w, LPARAM l) {
    if (!m_siguiendo) return false;
    const POINT donde{GET_X_LPARAM(l), GET_Y_LPARAM(l)};
    switch (mensaje) {
        case WM_MOUSEMOVE:
            // With the button up, some other window had its release.
            if (!(w & MK_LBUTTON) || !m_oyente || !m_oyente->alUsarRaton(GestoRaton::llevar, enTwips(donde)))
                dejarRaton(GestoRaton::perder, {});
            return true;
        case WM_LBUTTONUP:
            dejarRaton(GestoRaton::soltar, enTwips(donde));
            return true;
        case WM_CAPTURECHANGED:
        case WM_CANCELMODE:
            dejarRaton(GestoRaton::perder, {});
            return false;
        case WM_ACTIVATEAPP:
            if (!w) dejarRaton(GestoRaton::perder, {});
            return false;
        default:
            return false;
    }
}

void FormularioWin::dejarRaton(GestoRaton gesto, Punto donde) {
    if (!std::exchange(m_siguiendo, false)) return;
    if (GetCapture() == hwnd()) ReleaseCapture();
    if (m_oyente) m_oyente->alUsarRaton(gesto, donde);
}

// ---- What stands on it ----

// What no surface covers is seen only for moments, until the first layout. Not by way of a picture, which would be as
// large as the monitor.
void FormularioWin::pintarFondo() {
    const DCPintado pintado(hwnd());
    if (pintado) FillRect(pintado.get(), &pintado.zona(), static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
}

// Buttons stand on the bar.
void FormularioWin::pintarSuelo(Lienzo& destino, const RECT& parte) const {
    destino.llenar({0, 0, parte.right - parte.left, parte.bottom - parte.top}, RGB(255, 255, 255));
    for (const SuperficieWin* superficie : superficies()) {
        if (superficie->id() != numero(IdControl::picBot)) continue;
        const RECT barra = superficie->sitio();
        RECT comun{};
        if (!superficie->visible() || !IntersectRect(&comun, &barra, &parte)) return;
        const Lienzo::Origen origen(destino, {parte.left - barra.left, parte.top - barra.top});
        OffsetRect(&comun, -barra.left, -barra.top);
        superficie->pintar(destino, comun);
    }
}

// From the top buttons and handles, what nothing may cover, the displays, and below them the grid.
void FormularioWin::apilar() {
    HWND encima = orden().apilar();
    for (const auto& [id, elemento] : ENCIMA) {
        const HWND superficie = GetDlgItem(hwnd(), numero(id, elemento));
        if (!superficie) continue;
        ponerDebajo(superficie, encima);
        encima = superficie;
        if (id == IdControl::picBot) m_picBot = superficie;
    }
    ponerDebajo(GetDlgItem(hwnd(), numero(IdControl::picRep)), HWND_BOTTOM);
}

void FormularioWin::pasarFoco(const ControlWin& desde, int sentido) {
    std::vector<const ControlWin*> botones;
    for (const ControlWin* control : orden().todos()) {
        if (control == &desde || (control->alcanzable() && control->heredaFoco())) botones.push_back(control);
    }
    const auto donde = std::find(botones.begin(), botones.end(), &desde);
    if (donde == botones.end()) return;
    const auto cuantos = static_cast<int>(botones.size());
    const int i = (static_cast<int>(donde - botones.begin()) + sentido + cuantos) % cuantos;
    SetFocus(botones[static_cast<std::size_t>(i)]->hwnd());
}

// ---- Messages ----

LRESULT FormularioWin::alOrdenSistema(WPARAM w, LPARAM l) {
    switch (w & 0xFFF0) {
        case SC_SCREENSAVE:
        case SC_MONITORPOWER:
            return m_reposoImpedido ? 0 : porDefecto(WM_SYSCOMMAND, w, l);
        case SC_MOVE:
        case SC_SIZE:
        case SC_MAXIMIZE:
            return 0;  // it covers its monitor
        default:
            return porDefecto(WM_SYSCOMMAND, w, l);
    }
}

void FormularioWin::alSuceder(Suceso suceso) {
    if (suceso == Suceso::ninguno) return;
    const bool sueno = suceso == Suceso::duerme || suceso == Suceso::despierta;
    if (sueno && m_oyente) m_oyente->alDormir(suceso == Suceso::duerme);
    if (suceso == Suceso::barraNueva) m_forma.anunciar(hwnd(), recursos().ole);
    // Monitors sleep too.
    if (suceso != Suceso::duerme) cambioDeMonitores();
}

LRESULT FormularioWin::alTerminar(UINT mensaje, WPARAM w, LPARAM l) {
    switch (mensaje) {
        case WM_CLOSE:
            // A disabled window waits for the answer to a box of its own, unless there is nothing left to answer for.
            if (!IsWindowEnabled(hwnd()) && !m_descargado) return 0;
            descargar(MotivoCierre::ventana);
            destruir();
            return 0;
        case WM_QUERYENDSESSION:
            return TRUE;
        default:
            if (w) descargar((l & ENDSESSION_CLOSEAPP) != 0 ? MotivoCierre::instalacion : MotivoCierre::sesion);
            // The session goes on where an installer wants its files: then only the program ends, and an
            // open box goes with it.
            if (w && (l & ENDSESSION_CLOSEAPP) != 0) destruir();
            return 0;
    }
}

LRESULT FormularioWin::alMensaje(UINT mensaje, WPARAM w, LPARAM l) {
    if (seguirRaton(mensaje, w, l)) return 0;
    switch (mensaje) {
        case WM_PAINT:
            pintarFondo();
            return 0;
        case WM_MOUSEMOVE:
            alMoverRaton(0);
            return 0;
        case WM_SETCURSOR:
            if (LOWORD(l) == HTCLIENT && ponerPuntero()) return TRUE;
            return porDefecto(mensaje, w, l);
        case WM_ACTIVATE:
            if (LOWORD(w) != WA_INACTIVE) pedirActivacion();
            return Anfitrion::alMensaje(mensaje, w, l);
        case MENSAJE_ACTIVAR:
            m_activacionPendiente = false;
            if (m_oyente) m_oyente->alActivar();
            return 0;
        case WM_SYSCOMMAND:
            return alOrdenSistema(w, l);
        case WM_WINDOWPOSCHANGING:
            mantenerSitio(*reinterpret_cast<WINDOWPOS*>(l));
            return porDefecto(mensaje, w, l);
        default:
            return alMensajePropio(mensaje, w, l);
    }
}

LRESULT FormularioWin::alMensajePropio(UINT mensaje, WPARAM w, LPARAM l) {
    alSuceder(m_sucesos.leer(mensaje, w));
    switch (mensaje) {
        case WM_WTSSESSION_CHANGE:
        case WM_DISPLAYCHANGE:
        case WM_DPICHANGED:
            return 0;
        case WM_POWERBROADCAST:
            return TRUE;
        case WM_ENABLE:
            if (w) m_habilitada = GetTickCount();
            return Anfitrion::alMensaje(mensaje, w, l);
        case WM_TIMER:
            if (w != RELOJ_MONITORES) return porDefecto(mensaje, w, l);
            monitoresQuietos();
            return 0;
        case WM_HELP:
            // From the tools too: what a window does not want of it goes on to its owner.
            if (m_oyente && IsWindowEnabled(hwnd())) m_oyente->alPedirAyuda();
            return TRUE;
        case WM_CLOSE:
        case WM_QUERYENDSESSION:
        case WM_ENDSESSION:
            return alTerminar(mensaje, w, l);
        default:
            return Anfitrion::alMensaje(mensaje, w, l);
    }
}

}  // namespace sorvanel
