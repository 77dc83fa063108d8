#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "simulador/bascula.h"
#include "simulador/lectura.h"

namespace sorvanel::simulador {

// Where the weights come from.
struct OrigenPeso {
    enum class Modo { Bascula, Fijo, Numero, Barrido };
    Modo modo = Modo::Bascula;
    // Bascula; the lists go round if there are more indicators.
    std::vector<std::int64_t> capacidades{6'000'000};
    std::vector<std::int64_t> divisiones{1'000};
    std::chrono::milliseconds ciclo{30'000};
    // Fijo.
    std::int64_t fijo = 0;
    // Barrido: frame after frame from the least to the most, and again.
    std::int64_t minimo = 0;
    std::int64_t maximo = MAXMILESIMAS;
    std::int64_t paso = 1;
};

// The weights of one indicator, from 0, whose own number (its port, its address) is `numeroPropio`.
class FuentePeso {
public:
    FuentePeso(const OrigenPeso& origen, std::size_t indicador, std::int64_t numeroPropio, std::uint64_t semilla);

    // `cuenta` is how many frames it gave before this one.
    Lectura lectura(Instante instante, std::int64_t cuenta) const;
    // What its scale weighed before, in groups of that many loads; 0 if the weights come from elsewhere.
    std::int64_t acumulado(Instante instante, int cargas) const;

private:
    OrigenPeso::Modo m_modo;
    std::int64_t m_fijo;
    std::int64_t m_minimo;
    std::int64_t m_paso;
    std::int64_t m_pasos;
    Bascula m_bascula;
};

}  // namespace sorvanel::simulador
