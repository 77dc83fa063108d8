#include "platform/win32/windows/formularioWin.h"

#include <wtsapi32.h>

#include <algorithm>
#include <cmath>

#include "platform/win32/base/bucle.h"
#include "platform/win32/base/textoWin.h"
#include "platform/win32/windows/recursos.h"

namespace sorvanel {

namespace {

constexpr const wchar_t* CLASE = L"SorvanelFormulario";
constexpr float ALTO_LETRA = 13;  // of buttons and tool tips, design pixels

// Messages to ourselves, for what must not be done within the message that called for it.
constexpr UINT MENSAJE_ACTIVAR = WM_APP + 1;
constexpr UINT MENSAJE_FOCO = WM_APP + 2;
constexpr UINT MENSAJE_APILAR = WM_APP + 3;

// Monitors change in several steps, each with its message: wait until it has been quiet so long.
constexpr UINT_PTR RELOJ_MONITORES = 1;
constexpr UINT ESPERA_MONITORES = 500;

HANDLE recurso(int id, UINT clase, int ancho, int alto) {
    return LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(id), clase, ancho, alto, LR_SHARED);
}

// What nothing may cover, from the top: the bar must not vanish under a grid that reaches below it.
constexpr IdControl ENCIMA[] = {IdControl::lbVer, IdControl::picBot, IdControl::picMsg};

Punto centro(const Rectangulo& r) {
    return {r.x + r.ancho / 2, r.y + r.alto / 2};
}

}  // namespace

FormularioWin::FormularioWin(const std::string& titulo) : m_fuenteBoton(fuenteInterfaz(aTwips(ALTO_LETRA))) {
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
    crear(molde);
    m_sugerencias.crear(hwnd());
    // After a locked session other windows may lie above.
    WTSRegisterSessionNotification(hwnd(), NOTIFY_FOR_THIS_SESSION);
    cambiarEscala(m_escala);
}

FormularioWin::~FormularioWin() {
    m_oyente = nullptr;
    m_sugerencias.cerrar();
    destruir();
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
    if (!(nueva == m_escala)) cambiarEscala(nueva);
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

void FormularioWin::cambiarEscala(const Escala& escala) {
    m_escala = escala;
    m_fuenteSugerencias = m_fuentes.pedir(m_fuenteBoton, m_escala.y.largo(m_fuenteBoton.alto));
    m_sugerencias.fuente(m_fuenteSugerencias->get());
    for (SuperficieWin* superficie : m_superficies) superficie->alCambiarEscala();
    for (BotonWin* boton : m_botones) boton->alCambiarEscala();
    for (AsaWin* asa : m_asas) asa->alCambiarEscala();
}

std::unique_ptr<Superficie> FormularioWin::crearSuperficie(IdControl id, int elemento) {
    Anfitrion& anfitrion = *this;
    auto superficie = std::make_unique<SuperficieWin>(anfitrion, id, elemento);
    m_superficies.push_back(superficie.get());
    // A new child lies below all others. They are put in order once for all displays, before any is painted.
    if (!m_apiladoPendiente) m_apiladoPendiente = PostMessageW(hwnd(), MENSAJE_APILAR, 0, 0) != 0;
    if (!m_apiladoPendiente) apilar();  // the queue is full
    return superficie;
}

std::unique_ptr<Boton> FormularioWin::crearBoton(IdControl id) {
    Anfitrion& anfitrion = *this;
    auto boton = std::make_unique<BotonWin>(anfitrion, id);
    m_botones.push_back(boton.get());
    apilar();
    return boton;
}

std::unique_ptr<Asa> FormularioWin::crearAsa(IdControl id) {
    Anfitrion& anfitrion = *this;
    auto asa = std::make_unique<AsaWin>(anfitrion, id);
    m_asas.push_back(asa.get());
    apilar();
    return asa;
}

void FormularioWin::baja(SuperficieWin& superficie) {
    std::erase(m_superficies, &superficie);
}

void FormularioWin::baja(BotonWin& boton) {
    std::erase(m_botones, &boton);
}

void FormularioWin::baja(AsaWin& asa) {
    std::erase(m_asas, &asa);
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

void FormularioWin::refrescar() {
    if (hwnd()) RedrawWindow(hwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
}

void FormularioWin::mostrar() {
    if (!hwnd()) return;
    ShowWindow(hwnd(), SW_SHOW);
    SetForegroundWindow(hwnd());
    // Also where another program keeps the foreground and this window is not made active.
    pedirActivacion();
}

void FormularioWin::cerrar() {
    // Not from within the button that asks for it: it goes with the window.
    if (hwnd()) PostMessageW(hwnd(), WM_CLOSE, 0, 0);
}

void FormularioWin::pedirActivacion() {
    if (!m_activacionPendiente) m_activacionPendiente = PostMessageW(hwnd(), MENSAJE_ACTIVAR, 0, 0) != 0;
}

void FormularioWin::activar() {
    m_activacionPendiente = false;
    if (m_oyente) m_oyente->alActivar();
}

void FormularioWin::cambioDeMonitores() {
    SetTimer(hwnd(), RELOJ_MONITORES, ESPERA_MONITORES, nullptr);
}

void FormularioWin::monitoresQuietos() {
    KillTimer(hwnd(), RELOJ_MONITORES);
    m_forma.reafirmar(hwnd());
    if (m_oyente) m_oyente->alCambiarMonitores();
}

void FormularioWin::descargar() {
    if (m_descargado) return;
    m_descargado = true;
    if (m_oyente) m_oyente->alDescargar();
}

void FormularioWin::sugerencia(HWND control, const std::wstring& texto) {
    m_sugerencias.poner(control, texto);
}

void FormularioWin::alMoverRaton(ZonaRaton zona) {
    if (m_oyente) m_oyente->alMoverRaton(zona);
}

// What no surface covers: only for moments, until the first layout.
void FormularioWin::pintarFondo() {
    const DCPintado pintado(hwnd());
    if (pintado) FillRect(pintado.get(), &pintado.zona(), static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
}

// ---- Keyboard ----

void FormularioWin::ordenarBotones() {
    const auto antes = [](const BotonWin* a, const BotonWin* b) {
        const Rectangulo &ra = a->lugar(), &rb = b->lugar();
        return ra.y != rb.y ? ra.y < rb.y : ra.x < rb.x;
    };
    if (std::is_sorted(m_botones.begin(), m_botones.end(), antes)) return;
    std::stable_sort(m_botones.begin(), m_botones.end(), antes);
    apilar();
}

// From the top buttons, handles, what nothing may cover, the displays, and below them the grid. The system's Tab key
// follows that order too.
void FormularioWin::apilar() {
    m_apiladoPendiente = false;
    HWND encima = HWND_TOP;
    const auto poner = [&encima](HWND ventana) {
        SetWindowPos(ventana, encima, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        encima = ventana;
    };
    for (const BotonWin* boton : m_botones) poner(boton->hwnd());
    for (const AsaWin* asa : m_asas) poner(asa->hwnd());
    const auto superficie = [this](IdControl id) { return GetDlgItem(hwnd(), numero(id)); };
    for (const IdControl id : ENCIMA) {
        if (superficie(id)) poner(superficie(id));
    }
    encima = HWND_BOTTOM;
    if (superficie(IdControl::picRep)) poner(superficie(IdControl::picRep));
}

void FormularioWin::alCambiarControl() {
    ordenarBotones();
    const HWND foco = GetFocus();
    const bool perdido =
        foco == hwnd() || (foco && IsChild(hwnd(), foco) && !(IsWindowVisible(foco) && IsWindowEnabled(foco)));
    // Later, when all buttons of the new state are there.
    if (perdido) PostMessageW(hwnd(), MENSAJE_FOCO, 0, 0);
}

void FormularioWin::alRecibirFoco(const BotonWin& boton) {
    m_ultimoFoco = centro(boton.lugar());
}

// The focus goes to the button that stands nearest to where it was: what took the place of another
// takes its focus too.
void FormularioWin::recuperarFoco() {
    const HWND foco = GetFocus();
    const bool ajeno = foco != hwnd() && !(foco && IsChild(hwnd(), foco));
    if (ajeno) return;
    if (foco != hwnd() && IsWindowVisible(foco) && IsWindowEnabled(foco)) return;
    const auto distancia = [this](const BotonWin* boton) {
        const Punto c = centro(boton->lugar());
        return std::hypot(c.x - m_ultimoFoco.x, c.y - m_ultimoFoco.y);
    };
    const BotonWin* mejor = nullptr;
    for (const BotonWin* boton : m_botones) {
        if (boton->alcanzable() && (!mejor || distancia(boton) < distancia(mejor))) mejor = boton;
    }
    if (mejor) {
        SetFocus(mejor->hwnd());
    } else if (foco != hwnd()) {
        SetFocus(hwnd());
    }
}

void FormularioWin::pasarFoco(const BotonWin& desde, int sentido) {
    const auto cuantos = static_cast<int>(m_botones.size());
    const auto donde = std::find(m_botones.begin(), m_botones.end(), &desde);
    if (donde == m_botones.end()) return;
    int i = static_cast<int>(donde - m_botones.begin());
    for (int paso = 1; paso < cuantos; ++paso) {
        i = (i + sentido + cuantos) % cuantos;
        const BotonWin* otro = m_botones[static_cast<std::size_t>(i)];
        if (!otro->alcanzable()) continue;
        SetFocus(otro->hwnd());
        return;
    }
}

// ---- Messages ----

LRESULT FormularioWin::alMensaje(UINT mensaje, WPARAM w, LPARAM l) {
    switch (mensaje) {
        case WM_PAINT:
            pintarFondo();
            return 0;
        case WM_ERASEBKGND:
            return 1;
        case WM_DRAWITEM:
            // Back to the button that asked for it, which knows its look.
            return SendMessageW(reinterpret_cast<const DRAWITEMSTRUCT*>(l)->hwndItem, WM_DRAWITEM, w, l);
        case WM_COMMAND:
            return l ? SendMessageW(reinterpret_cast<HWND>(l), WM_COMMAND, w, 0) : 0;
        case WM_MOUSEMOVE:
            alMoverRaton(ZonaRaton::representacion);
            return 0;
        case WM_SETCURSOR:
            if (LOWORD(l) == HTCLIENT && ponerPuntero()) return TRUE;
            return porDefecto(mensaje, w, l);
        case WM_SETFOCUS:
            recuperarFoco();
            return 0;
        default:
            return alMensajePropio(mensaje, w, l);
    }
}

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

LRESULT FormularioWin::alMensajePropio(UINT mensaje, WPARAM w, LPARAM l) {
    switch (mensaje) {
        case WM_ACTIVATE:
            if (LOWORD(w) != WA_INACTIVE) pedirActivacion();
            return porDefecto(mensaje, w, l);
        case MENSAJE_ACTIVAR:
            activar();
            return 0;
        case MENSAJE_FOCO:
            recuperarFoco();
            return 0;
        case MENSAJE_APILAR:
            apilar();
            return 0;
        case Bucle::MENSAJE_RATON:
            m_sugerencias.relevar(*reinterpret_cast<const MSG*>(l));
            return 0;
        case WM_SYSCOMMAND:
            return alOrdenSistema(w, l);
        case WM_SIZE:
            if (w == SIZE_RESTORED) cambioDeMonitores();
            return porDefecto(mensaje, w, l);
        case WM_WINDOWPOSCHANGING:
            mantenerSitio(*reinterpret_cast<WINDOWPOS*>(l));
            return porDefecto(mensaje, w, l);
        case WM_WTSSESSION_CHANGE:
            if (w == WTS_SESSION_UNLOCK || w == WTS_CONSOLE_CONNECT) cambioDeMonitores();
            return 0;
        case WM_DPICHANGED:  // the size that it suggests is none of a whole monitor
        case WM_DISPLAYCHANGE:
            cambioDeMonitores();
            return 0;
        case WM_SETTINGCHANGE:
            if (w == SPI_SETWORKAREA) cambioDeMonitores();
            return porDefecto(mensaje, w, l);
        case WM_TIMER:
            if (w != RELOJ_MONITORES) return porDefecto(mensaje, w, l);
            monitoresQuietos();
            return 0;
        case WM_CLOSE:
            // A disabled window waits for the answer to a box of its own, unless there is nothing left to answer for.
            if (!IsWindowEnabled(hwnd()) && !m_descargado) return 0;
            descargar();
            destruir();
            return 0;
        case WM_QUERYENDSESSION:
            return TRUE;
        case WM_ENDSESSION:
            if (w) descargar();
            // The session goes on where an installer wants its files: then only the program ends, and an
            // open box goes with it.
            if (w && (l & ENDSESSION_CLOSEAPP) != 0) destruir();
            return 0;
        case WM_DESTROY:
            WTSUnRegisterSessionNotification(hwnd());
            m_sugerencias.cerrar();  // the system would take it along and leave us the handle
            PostQuitMessage(0);
            return 0;
        default:
            if (mensaje == m_barraDeTareasNueva) m_forma.reafirmar(hwnd());
            return porDefecto(mensaje, w, l);
    }
}

}  // namespace sorvanel
