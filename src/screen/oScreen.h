#pragma once

#include <cstdint>
#include <vector>

#include "config/comun.h"
#include "platform/monitor.h"

namespace sorvanel {

// The monitors as they were when the table was made, numbered from 1 in the system's order.
class Monitores {
public:
    explicit Monitores(SistemaMonitores& sistema) : m_tabla(sistema.enumerar()) {}

    std::int16_t cuantos() const { return static_cast<std::int16_t>(m_tabla.size()); }
    // 0 when there is none.
    std::int16_t primario() const;
    // Not one whose data could not be had, though it counts.
    bool existe(std::int16_t indice) const {
        return indice >= 1 && indice <= cuantos() && !m_tabla[static_cast<std::size_t>(indice - 1)].vacio();
    }
    // The primary one stands in for an index that no monitor has; without any, a monitor of no size.
    Monitor monitor(std::int16_t indice) const;

private:
    std::vector<Monitor> m_tabla;
};

// The monitor that the program covers. It sees the monitors that there were when it was made.
class oScreen {
public:
    // Both must outlive it. The file is not asked anew.
    oScreen(const comun& com, SistemaMonitores& sistema);

    // Also those whose data cannot be had: the numbers go on beyond them.
    std::int16_t numMonitores() const { return m_monitores.cuantos(); }

    // As stored: it may name a monitor that is not there now. The rectangle is then the primary
    // one's, and the file keeps the choice for when the monitor comes back.
    std::int16_t monitorActual() const { return m_actual; }
    // Saved at once. An index that no monitor has selects the primary one, and is answered no.
    bool monitorActual(std::int16_t indice);
    bool existe(std::int16_t indice) const { return m_monitores.existe(indice); }

    // The monitor in use, twips of that monitor's scale; left and top may be negative.
    float X0() const;
    float Y0() const;
    float Width() const;
    float Height() const;

    Monitor monitor() const { return m_monitores.monitor(m_actual); }

private:
    const comun* m_com;
    Monitores m_monitores;
    std::int16_t m_actual;
};

}  // namespace sorvanel
