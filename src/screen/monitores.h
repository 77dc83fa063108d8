#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

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

}  // namespace sorvanel
