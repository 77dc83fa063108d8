#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "simulador/lectura.h"

namespace sorvanel::simulador {

// When each frame is due. The indicators take turns, evenly spread over the time between two frames
// of one, so frame number n of the run is indicator n modulo their number. Each moment comes from
// its number alone: no error adds up.
class Calendario {
public:
    // `ritmo` is in thousandths of a frame a second for each indicator; both are above 0. The run ends with
    // `tramas` turns of each indicator or before `duracion`, whichever is first.
    Calendario(std::size_t indicadores, std::int64_t ritmo, std::optional<std::int64_t> tramas,
               std::optional<std::chrono::milliseconds> duracion);

    Instante vence(std::int64_t numero) const;
    std::size_t indicador(std::int64_t numero) const;
    bool termina(std::int64_t numero) const;

private:
    std::int64_t m_indicadores;
    std::int64_t m_ritmo;
    std::optional<std::int64_t> m_tramas;
    std::optional<Instante> m_duracion;
};

}  // namespace sorvanel::simulador
