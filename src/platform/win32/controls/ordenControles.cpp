#include "platform/win32/controls/ordenControles.h"

#include <algorithm>
#include <utility>

namespace sorvanel {

namespace {

void poner(HWND ventana, HWND debajoDe) {
    if (!ventana) return;
    SetWindowPos(ventana, debajoDe, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_NOREDRAW | SWP_NOOWNERZORDER | SWP_NOSENDCHANGING);
}

}  // namespace

// A new window lies lowest, and is where it belongs unless there are frames. They go beneath all at
// once, later: a window with many rows is made of some hundred controls.
void OrdenControles::colocar(const Puesto& puesto) {
    m_porApilar = m_porApilar || !m_marcos.empty();
    m_puestos.push_back(puesto);
}

void OrdenControles::anadir(ControlWin& control) {
    if (!control.esMarco()) {
        colocar({control.hwnd(), &control});
        return;
    }
    m_porApilar = m_porApilar || !m_marcos.empty();
    m_marcos.push_back(&control);
}

void OrdenControles::apilarMarcos() {
    m_porApilar = false;
    for (auto marco = m_marcos.rbegin(); marco != m_marcos.rend(); ++marco) poner((*marco)->hwnd(), HWND_BOTTOM);
}

void OrdenControles::quitar(HWND ventana) {
    std::erase_if(m_puestos, [=](const Puesto& p) { return p.ventana == ventana; });
}

// The last ones go first, mostly: looked for from the end.
void OrdenControles::quitar(const ControlWin& control) {
    const auto donde =
        std::find_if(m_puestos.rbegin(), m_puestos.rend(), [&](const Puesto& p) { return p.control == &control; });
    if (donde != m_puestos.rend()) m_puestos.erase(std::next(donde).base());
    std::erase(m_marcos, &control);
}

void OrdenControles::ordenar(std::span<ControlWin* const> primero) {
    std::vector<Puesto> orden;
    orden.reserve(m_puestos.size());
    const auto tomar = [&](std::size_t i) {
        if (m_puestos[i].ventana) orden.push_back(std::exchange(m_puestos[i], {}));
    };
    for (const ControlWin* control : primero) {
        for (std::size_t i = 0; i < m_puestos.size(); ++i) {
            if (!control || m_puestos[i].control != control) continue;
            if (i > 0 && m_puestos[i - 1].control && m_puestos[i - 1].control->esRotulo()) tomar(i - 1);
            tomar(i);
            break;
        }
    }
    for (std::size_t i = 0; i < m_puestos.size(); ++i) tomar(i);
    m_puestos = std::move(orden);
    apilar();
}

void OrdenControles::apilar() const {
    HWND encima = HWND_TOP;
    for (const Puesto& p : m_puestos) {
        poner(p.ventana, encima);
        encima = p.ventana;
    }
}

ControlWin* OrdenControles::primero() const {
    return siguiente(nullptr);
}

ControlWin* OrdenControles::siguiente(const ControlWin* desde) const {
    const std::size_t cuantos = m_puestos.size();
    std::size_t inicio = 0;
    for (std::size_t i = 0; desde && i < cuantos; ++i) {
        if (m_puestos[i].control == desde) inicio = i + 1;
    }
    for (std::size_t paso = 0; paso < cuantos; ++paso) {
        ControlWin* otro = m_puestos[(inicio + paso) % cuantos].control;
        if (otro && otro->alcanzable()) return otro;
    }
    return nullptr;
}

}  // namespace sorvanel
