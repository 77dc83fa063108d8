#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "simulador/fuentePeso.h"
#include "simulador/opcionesConcentrador.h"

namespace sorvanel::simulador {

// The good lines of one session, address by address; the same in each session.
class GeneradorLineas {
public:
    // `opciones` must outlive it.
    GeneradorLineas(const OpcionesConcentrador& opciones, std::uint64_t semilla);

    // The next line of that address, from 0, without its end. `instante` counts from the first line's moment.
    std::string siguiente(std::size_t indicador, Instante instante);
    // The same, and it stays the next one.
    std::string proxima(std::size_t indicador, Instante instante) const;
    bool callado(std::size_t indicador, Instante instante) const;
    // Chance of the next line's own, for what is done to it.
    std::uint64_t azar(std::size_t indicador) const;

private:
    struct Fuente {
        FuentePeso peso;
        std::uint64_t semilla = 0;
        int cargas = 1;  // that the accumulated weight has room for
        std::int64_t lineas = 0;
    };

    const OpcionesConcentrador& m_opciones;
    std::uint64_t m_semilla;
    std::vector<Fuente> m_fuentes;
};

}  // namespace sorvanel::simulador
