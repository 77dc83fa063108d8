#include "simulador/calendario.h"

namespace sorvanel::simulador {

Calendario::Calendario(std::size_t indicadores, std::int64_t ritmo, std::optional<std::int64_t> tramas,
                       std::optional<std::chrono::milliseconds> duracion)
    : m_indicadores(static_cast<std::int64_t>(indicadores)), m_ritmo(ritmo), m_tramas(tramas), m_duracion(duracion) {}

Instante Calendario::vence(std::int64_t numero) const {
    // Frames in a thousand seconds. Whole lots of them are exact; the rest is below 2^53 nanoseconds.
    const std::int64_t lote = m_indicadores * m_ritmo;
    constexpr std::int64_t MILSEGUNDOS = 1'000'000'000'000;
    const double resto = static_cast<double>(numero % lote) / static_cast<double>(lote);
    return Instante{numero / lote * MILSEGUNDOS + static_cast<std::int64_t>(resto * MILSEGUNDOS)};
}

std::size_t Calendario::indicador(std::int64_t numero) const {
    return static_cast<std::size_t>(numero % m_indicadores);
}

bool Calendario::termina(std::int64_t numero) const {
    return (m_tramas && numero / m_indicadores >= *m_tramas) || (m_duracion && vence(numero) >= *m_duracion);
}

}  // namespace sorvanel::simulador
