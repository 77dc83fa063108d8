#include "screen/monitores.h"

#include <algorithm>

namespace sorvanel {

std::int16_t Monitores::primario() const {
    const auto hallado = std::find_if(m_tabla.begin(), m_tabla.end(), [](const Monitor& m) { return m.primario; });
    return hallado == m_tabla.end() ? std::int16_t{0} : static_cast<std::int16_t>(hallado - m_tabla.begin() + 1);
}

Monitor Monitores::monitor(std::int16_t indice) const {
    const std::int16_t usado = existe(indice) ? indice : primario();
    return existe(usado) ? m_tabla[static_cast<std::size_t>(usado - 1)] : Monitor{};
}

}  // namespace sorvanel
