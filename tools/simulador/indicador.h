#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "simulador/fuentePeso.h"
#include "simulador/opciones.h"

namespace sorvanel::simulador {

// What an indicator sends in one turn.
struct Turno {
    std::vector<std::string> datagramas;
    std::int64_t tramas = 0;       // good ones in them
    std::int64_t defectuosas = 0;  // datagrams that hold none
};

// One indicator of the run: what it sends when its turn comes.
class Indicador {
public:
    // `opciones` must outlive it. `numero` is from 0.
    Indicador(const Opciones& opciones, std::size_t numero, std::uint64_t semilla);

    // Nothing while it is silent at that moment. The sweep goes on with each good frame given, not with
    // each turn, so that a gap in the weights is a loss and never a silence or a fault.
    std::optional<Turno> turno(Instante instante);

private:
    void estropear(Turno& turno, Instante instante);
    std::string trama(Instante instante) const;
    std::uint64_t azar() const;

    const Opciones& m_opciones;
    std::size_t m_numero;
    std::uint64_t m_semilla;
    std::uint64_t m_semillaSuya;
    std::int64_t m_turnos = 0;
    std::int64_t m_tramas = 0;
    FuentePeso m_fuente;
};

}  // namespace sorvanel::simulador
