#include "simulador/fuentePeso.h"

namespace sorvanel::simulador {

namespace {

DatosBascula datosBascula(const OrigenPeso& origen, std::size_t indicador, std::uint64_t semilla) {
    return {.capacidad = origen.capacidades[indicador % origen.capacidades.size()],
            .division = origen.divisiones[indicador % origen.divisiones.size()],
            .ciclo = origen.ciclo,
            .semilla = semilla};
}

}  // namespace

FuentePeso::FuentePeso(const OrigenPeso& origen, std::size_t indicador, std::int64_t numeroPropio,
                       std::uint64_t semilla)
    : m_modo(origen.modo),
      m_fijo(origen.modo == OrigenPeso::Modo::Numero ? numeroPropio * 1000 : origen.fijo),
      m_minimo(origen.minimo),
      m_paso(origen.paso),
      m_pasos((origen.maximo - origen.minimo) / origen.paso + 1),
      m_bascula(datosBascula(origen, indicador, semilla)) {}

Lectura FuentePeso::lectura(Instante instante, std::int64_t cuenta) const {
    switch (m_modo) {
        case OrigenPeso::Modo::Fijo:
        case OrigenPeso::Modo::Numero:
            return {.milesimas = m_fijo, .estable = true};
        case OrigenPeso::Modo::Barrido:
            return {.milesimas = m_minimo + cuenta % m_pasos * m_paso};
        case OrigenPeso::Modo::Bascula:
            break;
    }
    return m_bascula.lectura(instante);
}

std::int64_t FuentePeso::acumulado(Instante instante, int cargas) const {
    return m_modo == OrigenPeso::Modo::Bascula ? m_bascula.acumulado(instante, cargas) : 0;
}

}  // namespace sorvanel::simulador
