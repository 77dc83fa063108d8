#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "simulador/bascula.h"
#include "simulador/lectura.h"

namespace sorvanel::simulador {

// Where the weights come from.
struct OrigenPeso {
    enum class Modo { Bascula, Fijo, Numero, Cuenta };
    Modo modo = Modo::Bascula;
    // Of the scales; the lists go round if there are more indicators.
    std::vector<std::int64_t> capacidades{6'000'000};
    std::vector<std::int64_t> divisiones{1'000};
    std::int64_t fijo = 0;
};

// The weights of one indicator, from 0, whose own number (its port, its address) is `numeroPropio`. They count by
// `unidad` and fit up to `maximo`.
class FuentePeso {
public:
    FuentePeso(const OrigenPeso& origen, std::size_t indicador, int numeroPropio, std::uint64_t semilla,
               std::int64_t unidad = 1, std::int64_t maximo = MAXMILESIMAS);

    // `cuenta` is how many it gave before this one.
    Lectura lectura(Instante instante, std::int64_t cuenta) const;
    // What its scale weighed before, in groups of as many loads as fit; 0 if the weights come from elsewhere.
    std::int64_t acumulado(Instante instante) const;

private:
    OrigenPeso::Modo m_modo;
    std::int64_t m_fijo;
    std::int64_t m_unidad;
    std::int64_t m_maximo;
    int m_cargas;
    Bascula m_bascula;
};

}  // namespace sorvanel::simulador
