#include "platform/win32/base/ventanaMensajes.h"

#include <exception>
#include <new>
#include <optional>
#include <stdexcept>

namespace sorvanel {

namespace {
constexpr const wchar_t* CLASE = L"SorvanelMensajes";
}

VentanaMensajes::VentanaMensajes(const RelojWin& reloj) : m_reloj(reloj), m_receptores(CUANTOS, nullptr) {
    const HINSTANCE modulo = GetModuleHandleW(nullptr);
    WNDCLASSEXW clase{};
    clase.cbSize = sizeof clase;
    clase.lpfnWndProc = &VentanaMensajes::procedimiento;
    clase.hInstance = modulo;
    clase.lpszClassName = CLASE;
    RegisterClassExW(&clase);  // a second registration fails, and the first one serves
    m_ventana.cambiar(CreateWindowExW(0, CLASE, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, modulo, this));
    if (!m_ventana) throw std::runtime_error("CreateWindowEx");
}

VentanaMensajes::~VentanaMensajes() {
    if (m_ventana) SetWindowLongPtrW(m_ventana.get(), GWLP_USERDATA, 0);
}

UINT VentanaMensajes::reservar(ReceptorMensajes& receptor) {
    for (UINT i = 0; i < CUANTOS; ++i) {
        const UINT puesto = m_siguiente;
        m_siguiente = (m_siguiente + 1) % CUANTOS;
        if (m_receptores[puesto]) continue;
        m_receptores[puesto] = &receptor;
        return PRIMERO + puesto;
    }
    return 0;
}

void VentanaMensajes::liberar(UINT numero) {
    if (numero >= PRIMERO && numero < PRIMERO + CUANTOS) m_receptores[numero - PRIMERO] = nullptr;
}

ReceptorMensajes* VentanaMensajes::receptor(UINT numero) const {
    return numero >= PRIMERO && numero < PRIMERO + CUANTOS ? m_receptores[numero - PRIMERO] : nullptr;
}

void VentanaMensajes::despertar(UINT numero) {
    if (!PostMessageW(hwnd(), numero, 0, 0)) SetTimer(hwnd(), numero, USER_TIMER_MINIMUM, nullptr);
}

void VentanaMensajes::repartir(UINT mensaje, WPARAM w, LPARAM l) {
    const bool tic = mensaje == WM_TIMER;
    ReceptorMensajes* const quien = receptor(tic ? static_cast<UINT>(w) : mensaje);
    if (!quien) {
        if (tic) KillTimer(hwnd(), w);
        return;
    }
    std::optional<Tandas::Abierta> tanda;
    if (quien->enTanda()) tanda.emplace(m_tandas);
    if (tic) {
        quien->alTic();
    } else {
        quien->alMensaje(w, l);
    }
}

template <typename Accion>
void VentanaMensajes::contener(Accion accion) noexcept {
    try {
        accion();
    } catch (const std::exception& fallo) {
        // The one message is lost, the program goes on.
        OutputDebugStringA(fallo.what());
    } catch (...) {
        OutputDebugStringA("VentanaMensajes");
    }
}

bool VentanaMensajes::atender(const MSG& mensaje) noexcept {
    if (mensaje.hwnd != hwnd() || !esNuestro(mensaje.message)) return false;
    terminarTurno();
    contener([&] { repartir(mensaje.message, mensaje.wParam, mensaje.lParam); });
    return true;
}

void VentanaMensajes::terminarTurno() {
    if (!m_turno) return;
    KillTimer(hwnd(), RELOJ_TURNO);
    m_turno = false;
    while (!m_aplazados.empty()) contener([this] { repartirAplazado(); });
}

// Each is off the list before it is handled: it may open a box, in whose loop the list goes on.
void VentanaMensajes::repartirAplazado() {
    const Aplazado primero = m_aplazados.front();
    m_aplazados.pop_front();
    repartir(primero.mensaje, primero.w, primero.l);
}

void VentanaMensajes::atenderEnOtroBucle(UINT mensaje, WPARAM w, LPARAM l) {
    if (mensaje == WM_TIMER && w == RELOJ_TURNO) {
        nuevoTurno();
    } else if (mensaje == WM_TIMER || enTurno()) {
        repartir(mensaje, w, l);
    } else {
        aplazar(mensaje, w, l);
    }
}

// Without memory for it, better late than never answered: the system says nothing more of a socket until then.
void VentanaMensajes::aplazar(UINT mensaje, WPARAM w, LPARAM l) {
    try {
        m_aplazados.push_back({mensaje, w, l});
    } catch (const std::bad_alloc&) {
        repartir(mensaje, w, l);
    }
}

bool VentanaMensajes::enTurno() {
    if (!m_turno) {
        // Without a timer there is no end of the turn either.
        m_turno = SetTimer(hwnd(), RELOJ_TURNO, USER_TIMER_MINIMUM, nullptr) != 0;
        m_finTurno = m_reloj.microsegundos() + TURNO;
    }
    return m_aplazados.empty() && m_reloj.microsegundos() < m_finTurno;
}

void VentanaMensajes::nuevoTurno() {
    if (m_aplazados.empty()) {
        terminarTurno();
        return;
    }
    m_finTurno = m_reloj.microsegundos() + TURNO;
    while (!m_aplazados.empty() && m_reloj.microsegundos() < m_finTurno) contener([this] { repartirAplazado(); });
}

LRESULT CALLBACK VentanaMensajes::procedimiento(HWND ventana, UINT mensaje, WPARAM w, LPARAM l) noexcept {
    if (mensaje == WM_NCCREATE) {
        const auto* creacion = reinterpret_cast<const CREATESTRUCTW*>(l);
        SetWindowLongPtrW(ventana, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(creacion->lpCreateParams));
    }
    auto* esta = reinterpret_cast<VentanaMensajes*>(GetWindowLongPtrW(ventana, GWLP_USERDATA));
    if (esta && esNuestro(mensaje)) {
        contener([&] { esta->atenderEnOtroBucle(mensaje, w, l); });
        esta->m_tandas.terminar();
        return 0;
    }
    return DefWindowProcW(ventana, mensaje, w, l);
}

}  // namespace sorvanel
