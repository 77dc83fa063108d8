#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "simulador/fuentePeso.h"
#include "simulador/opciones.h"

namespace sorvanel::simulador {

// What an indicator sends in one turn.
struct Turno {
    std::vector<std::string> datagramas;
    std::int64_t buenas = 0;  // frames in them
};

// One indicator of the run: what it sends when its turn comes.
class Indicador {
public:
    // `opciones` must outlive it. `numero` is from 0.
    Indicador(const Opciones& opciones, std::size_t numero, std::uint64_t semilla);

    // Nothing while it is silent at that moment. Counting goes on with each good frame given, not with each turn: a
    // gap in the weights is a loss and never a silence or a fault.
    Turno turno(Instante instante);

private:
    std::string trama(Instante instante) const;

    const Opciones& m_opciones;
    std::size_t m_numero;
    std::uint64_t m_semilla;
    FuentePeso m_fuente;
    std::int64_t m_turnos = 0;
    std::int64_t m_tramas = 0;
};

}  // namespace sorvanel::simulador
