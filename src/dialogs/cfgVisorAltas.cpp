// The displays' tool: displays come and go, and the panel of one's own design.

#include <algorithm>
#include <string>

#include "dialogs/cfgVisor.h"
#include "dialogs/cfgVisorControles.h"

namespace sorvanel {

namespace {

constexpr const char* PANEL_ABIERTO = "Debe cerrar la ventana de diseño particular";
constexpr const char* NO_CABEN_MAS = "No se pueden definir más de 64 visores";

}  // namespace

// The press may have come without the focus: then the field where that is has not been asked.
bool cfgVisor::nuevo() {
    if (!validar()) return false;
    const auto numero = static_cast<std::int16_t>(pagina().cuantos() + 1);
    if (mesa().nuevoVisor() == nullptr) {
        avisar(NO_CABEN_MAS);
        return false;
    }
    // More than one where it closed a gap in the file.
    pagina().cuantos(mesa().visores().cuantos());
    irA(numero, CampoVisor::port);
    m_reciente = numero;
    return true;
}

// A new one that has its port and its place is done: whoever sets up one after the other clicks the next one's cell.
// With none selected it must be plain that none is waiting for a place.
std::int16_t cfgVisor::paraLibre() {
    const auto sinSitio = [this](std::int16_t n) { return !uno(n)->ubicacion(); };
    const bool hecho = m_actual != 0 && m_actual == m_reciente && uno(m_actual)->port() > 0 && !sinSitio(m_actual);
    if (m_actual != 0 && !hecho) return m_actual;
    if (m_actual == 0) {
        for (std::int16_t n = 1; n <= pagina().cuantos(); ++n) {
            if (!sinSitio(n)) continue;
            m_c->botNvo->enfocar();
            return 0;
        }
    }
    return nuevo() ? m_actual : std::int16_t{0};
}

void cfgVisor::eliminar() {
    if (m_actual == 0 || !validar()) return;
    if (m_conDiseno != 0) {
        avisar(PANEL_ABIERTO);
        return;
    }
    if (!mesa().eliminarVisor(m_actual)) return;
    const std::int16_t cuantos = mesa().visores().cuantos();
    pagina().cuantos(cuantos);
    m_actual = std::min(m_actual, cuantos);
    m_reciente = 0;
    pagina().rehacer();
    if (m_actual != 0) {
        irA(m_actual, CampoVisor::port);
        return;
    }
    m_foco.reset();
    m_c->botNvo->enfocar();
    elegido(0);
    actualizar();
}

// ---- the particular design ----

void cfgVisor::alPedirDiseno(FilaVisor& fila) {
    const std::int16_t n = fila.numero();
    const bool sigueAlFoco = m_conDiseno != 0 && m_conDiseno != n;
    irA(n);
    if (!sigueAlFoco) abrirPanel(n);
}

void cfgVisor::abrirPanel(std::int16_t n) {
    if (m_conDiseno != 0) m_c->panel->guardar(*uno(m_conDiseno));
    const bool estaba = m_conDiseno != 0;
    m_conDiseno = n;
    if (!m_debajo) pagina().ensanchada(n);
    m_c->panel->cargar(n, *uno(n));
    if (estaba) return;
    redisponer();
    m_c->panel->abierto(true);
}

void cfgVisor::cerrarPanel() {
    if (m_conDiseno == 0) return;
    m_c->panel->guardar(*uno(m_conDiseno));
    if (m_c->panel->tieneFoco()) irA(m_conDiseno, CampoVisor::port);
    m_conDiseno = 0;
    pagina().ensanchada(0);
    m_c->panel->abierto(false);
    redisponer();
}

}  // namespace sorvanel
