#include "simulador/generadorLineas.h"

#include <algorithm>

#include "simulador/azar.h"

namespace sorvanel::simulador {

namespace {

constexpr std::int64_t MAXCARGAS = 10;

// Counting is by the last digit that shows, and as far as the digits go.
OrigenPeso adaptado(OrigenPeso origen, Decimales decimales) {
    if (origen.modo != OrigenPeso::Modo::Barrido) return origen;
    origen.paso = std::max(origen.paso, decimales.unidad());
    origen.maximo = std::min(origen.maximo, decimales.maximo());
    return origen;
}

}  // namespace

GeneradorLineas::GeneradorLineas(const OpcionesConcentrador& opciones, std::uint64_t semilla)
    : m_opciones(opciones), m_semilla(semilla) {
    const OrigenPeso& origen = opciones.peso;
    for (std::size_t i = 0; i < opciones.direcciones.size(); ++i) {
        const Decimales decimales = opciones.decimales[i % opciones.decimales.size()];
        const std::int64_t capacidad = origen.capacidades[i % origen.capacidades.size()];
        const std::int64_t caben = std::clamp<std::int64_t>(decimales.maximo() / capacidad, 1, MAXCARGAS);
        const std::uint64_t suya = mezclar(semilla, i);
        m_fuentes.push_back({.peso{adaptado(origen, decimales), i, opciones.direcciones[i].numero(), suya},
                             .semilla = suya,
                             .cargas = static_cast<int>(caben)});
    }
}

std::string GeneradorLineas::siguiente(std::size_t indicador, Instante instante) {
    std::string linea = proxima(indicador, instante);
    ++m_fuentes[indicador].lineas;
    return linea;
}

std::string GeneradorLineas::proxima(std::size_t indicador, Instante instante) const {
    const Fuente& fuente = m_fuentes[indicador];
    const std::int64_t acumulado =
        m_opciones.acumulado ? *m_opciones.acumulado : fuente.peso.acumulado(instante, fuente.cargas);
    return lineaPavona(m_opciones.direcciones[indicador], fuente.peso.lectura(instante, fuente.lineas), acumulado,
                       m_opciones.decimales[indicador % m_opciones.decimales.size()], m_opciones.marcas,
                       azar(indicador));
}

bool GeneradorLineas::callado(std::size_t indicador, Instante instante) const {
    return estaCallado(m_opciones.silencios, indicador, instante, m_semilla);
}

std::uint64_t GeneradorLineas::azar(std::size_t indicador) const {
    const Fuente& fuente = m_fuentes[indicador];
    return mezclar(fuente.semilla, static_cast<std::uint64_t>(fuente.lineas));
}

}  // namespace sorvanel::simulador
