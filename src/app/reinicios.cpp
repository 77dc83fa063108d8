#include "app/reinicios.h"

#include <algorithm>
#include <charconv>

namespace sorvanel {

namespace {

constexpr std::string_view CLAVE = "/reinicios:";

}  // namespace

Reinicios::Reinicios(std::string_view argumentos, std::int64_t inicio) : m_inicio(inicio) {
    const std::size_t lugar = argumentos.find(CLAVE);
    m_reiniciado = lugar != std::string_view::npos;
    if (!m_reiniciado) return;
    const char* desde = argumentos.data() + lugar + CLAVE.size();
    const char* const fin = argumentos.data() + argumentos.size();
    std::int64_t vez = 0;
    while (desde != fin) {
        const auto [hasta, fallo] = std::from_chars(desde, fin, vez);
        if (fallo != std::errc()) break;
        // One that is still to come was written down before the clock was put back.
        if (vez <= inicio && vez > inicio - PLAZO) m_veces.push_back(vez);
        desde = hasta;
        if (desde != fin && *desde == ',') ++desde;
    }
    std::sort(m_veces.begin(), m_veces.end());
    m_veces.push_back(inicio);
}

std::int64_t Reinicios::espera() const {
    return m_veces.size() < MAXIMO ? 0 : m_veces[m_veces.size() - MAXIMO] + PLAZO - m_inicio;
}

std::string Reinicios::argumentos() const {
    std::string texto(CLAVE);
    for (const std::int64_t vez : m_veces) {
        if (texto.back() != ':') texto += ',';
        texto += std::to_string(vez);
    }
    return texto;
}

}  // namespace sorvanel
