#include "simulador/fuentePeso.h"

#include <algorithm>

namespace sorvanel::simulador {

namespace {

constexpr std::int64_t MAXCARGAS = 10;

std::int64_t capacidad(const OrigenPeso& origen, std::size_t indicador) {
    return origen.capacidades[indicador % origen.capacidades.size()];
}

}  // namespace

FuentePeso::FuentePeso(const OrigenPeso& origen, std::size_t indicador, int numeroPropio, std::uint64_t semilla,
                       std::int64_t unidad, std::int64_t maximo)
    : m_modo(origen.modo),
      m_fijo(origen.modo == OrigenPeso::Modo::Numero ? std::int64_t{numeroPropio} * 1000 : origen.fijo),
      m_unidad(unidad),
      m_maximo(maximo),
      m_cargas(static_cast<int>(std::clamp<std::int64_t>(maximo / capacidad(origen, indicador), 1, MAXCARGAS))),
      m_bascula({.capacidad = capacidad(origen, indicador),
                 .division = origen.divisiones[indicador % origen.divisiones.size()],
                 .semilla = semilla}) {}

Lectura FuentePeso::lectura(Instante instante, std::int64_t cuenta) const {
    switch (m_modo) {
        case OrigenPeso::Modo::Fijo:
        case OrigenPeso::Modo::Numero:
            return {.milesimas = m_fijo, .estable = true};
        case OrigenPeso::Modo::Cuenta:
            return {.milesimas = cuenta % (m_maximo / m_unidad + 1) * m_unidad};
        case OrigenPeso::Modo::Bascula:
            break;
    }
    return m_bascula.lectura(instante);
}

std::int64_t FuentePeso::acumulado(Instante instante) const {
    return m_modo == OrigenPeso::Modo::Bascula ? m_bascula.acumulado(instante, m_cargas) : 0;
}

}  // namespace sorvanel::simulador
