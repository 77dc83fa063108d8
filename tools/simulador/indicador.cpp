#include "simulador/indicador.h"

#include "simulador/azar.h"
#include "simulador/trama.h"

namespace sorvanel::simulador {

Indicador::Indicador(const Opciones& opciones, std::size_t numero, std::uint64_t semilla)
    : m_opciones(opciones),
      m_numero(numero),
      m_semilla(mezclar(semilla, numero)),
      m_fuente(opciones.peso, numero, opciones.puertos[numero], m_semilla) {}

Turno Indicador::turno(Instante instante) {
    Turno turno;
    if (m_opciones.callado(m_numero, instante)) return turno;
    const std::uint64_t azar = mezclar(m_semilla, static_cast<std::uint64_t>(m_tramas));
    if (const auto clase = m_opciones.faltas.malas.toca(m_turnos))
        turno.datagramas.push_back(tramaMala(static_cast<ClaseTrama>(*clase), trama(instante), azar));
    std::string datagrama;
    for (; turno.buenas < m_opciones.juntar; ++turno.buenas, ++m_tramas) datagrama += trama(instante);
    ++m_turnos;
    if (m_opciones.partir > 0 && m_turnos % m_opciones.partir == 0) {
        const std::size_t corte = 1 + mezclar(azar) % (datagrama.size() - 1);
        turno.datagramas.push_back(datagrama.substr(0, corte));
        datagrama.erase(0, corte);
    }
    turno.datagramas.push_back(std::move(datagrama));
    return turno;
}

std::string Indicador::trama(Instante instante) const {
    return tramaTessel(m_fuente.lectura(instante, m_tramas), m_opciones.marcas);
}

}  // namespace sorvanel::simulador
