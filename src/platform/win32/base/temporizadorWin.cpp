#include "platform/win32/base/temporizadorWin.h"

#include <algorithm>
#include <utility>

namespace sorvanel {

namespace {
constexpr std::int64_t MIL = 1000;
// Below this the system's own beat of up to 16 ms would show.
constexpr int INTERVALO_FINO = 50;  // milliseconds

// The system's timer may come this much early and still be taken: setting it again for less than
// its own grain would only make the tick late. Microseconds.
std::int64_t tolerancia(int intervalo) {
    return std::min<std::int64_t>(intervalo * MIL / 4, 2 * MIL);
}
}  // namespace

TemporizadorWin::TemporizadorWin(VentanaMensajes& ventana, const RelojWin& reloj, ResolucionReloj& resolucion)
    : m_ventana(ventana), m_reloj(reloj), m_resolucion(resolucion), m_numero(ventana.reservar(*this)) {}

TemporizadorWin::~TemporizadorWin() {
    desarmar();
    m_ventana.liberar(m_numero);
}

void TemporizadorWin::intervalo(int milisegundos) {
    if (milisegundos == m_intervalo) return;
    m_intervalo = milisegundos;
    if (m_habilitado) arrancar();
}

void TemporizadorWin::habilitado(bool si) {
    m_habilitado = si;
    if (si) {
        arrancar();
    } else {
        m_fino = {};
    }
}

void TemporizadorWin::alTic(std::function<void()> accion) {
    m_accion = std::make_shared<const std::function<void()>>(std::move(accion));
}

void TemporizadorWin::arrancar() {
    if (m_intervalo < 1) {
        m_fino = {};
        return;
    }
    if (m_intervalo >= INTERVALO_FINO) {
        m_fino = {};
    } else if (!m_fino) {
        m_fino = ResolucionReloj::Uso(m_resolucion);
    }
    m_vence = m_reloj.microsegundos() + m_intervalo * MIL;
    if (m_armado == 0 || m_sonara > m_vence + tolerancia(m_intervalo)) armar(m_intervalo * MIL);
}

void TemporizadorWin::armar(std::int64_t microsegundos) {
    m_armado = (microsegundos + MIL - 1) / MIL;
    m_sonara = m_reloj.microsegundos() + m_armado * MIL;
    // Refused, it is tried again with the next start.
    if (SetTimer(m_ventana.hwnd(), m_numero, static_cast<UINT>(m_armado), nullptr) == 0) m_armado = 0;
}

void TemporizadorWin::desarmar() {
    if (std::exchange(m_armado, 0) != 0) KillTimer(m_ventana.hwnd(), m_numero);
}

void TemporizadorWin::alTic() {
    if (!m_habilitado || m_intervalo < 1) {
        desarmar();
        return;
    }
    const std::int64_t ahora = m_reloj.microsegundos();
    m_sonara = ahora + m_armado * MIL;
    const std::int64_t paso = m_intervalo * MIL;
    if (ahora < m_vence - tolerancia(m_intervalo)) {
        armar(m_vence - ahora);
        return;
    }
    // In step with the first start; ticks that were missed are not made up for.
    m_vence = ahora - m_vence < paso ? m_vence + paso : ahora + paso;
    if (m_armado != m_intervalo) armar(paso);
    const auto accion = m_accion;
    if (accion && *accion) (*accion)();
}

}  // namespace sorvanel
