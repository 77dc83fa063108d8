#include "simulador/indicador.h"

#include "simulador/azar.h"

namespace sorvanel::simulador {

namespace {

enum : std::uint64_t { AzarMala = 11, AzarBasura, AzarPartir };

}  // namespace

Indicador::Indicador(const Opciones& opciones, std::size_t numero, std::uint64_t semilla)
    : m_opciones(opciones),
      m_numero(numero),
      m_semilla(semilla),
      m_semillaSuya(mezclar(semilla, numero)),
      m_fuente(opciones.peso, numero, opciones.destinos[numero].puerto, m_semillaSuya) {}

std::optional<Turno> Indicador::turno(Instante instante) {
    if (estaCallado(m_opciones.silencios, m_numero, instante, m_semilla)) return std::nullopt;
    const DefectosTrama& defectos = m_opciones.defectos;
    Turno turno;
    estropear(turno, instante);
    const std::uint64_t corte = mezclar(azar(), AzarPartir);
    std::string datagrama;
    for (; turno.tramas < defectos.juntar; ++turno.tramas, ++m_tramas) datagrama += trama(instante);
    if (toca(m_turnos, defectos.partir)) {
        const std::size_t primera = 1 + corte % (datagrama.size() - 1);
        turno.datagramas.push_back(datagrama.substr(0, primera));
        datagrama.erase(0, primera);
    }
    turno.datagramas.push_back(std::move(datagrama));
    ++m_turnos;
    return turno;
}

void Indicador::estropear(Turno& turno, Instante instante) {
    const DefectosTrama& defectos = m_opciones.defectos;
    if (toca(m_turnos, defectos.malas)) {
        const auto clase = static_cast<std::size_t>(m_turnos / defectos.malas) % defectos.clases.size();
        turno.datagramas.push_back(tramaMala(defectos.clases[clase], trama(instante), mezclar(azar(), AzarMala)));
    }
    if (toca(m_turnos, defectos.basura)) turno.datagramas.push_back(basura(mezclar(azar(), AzarBasura)));
    turno.defectuosas = static_cast<std::int64_t>(turno.datagramas.size());
}

std::string Indicador::trama(Instante instante) const {
    return tramaTessel(m_fuente.lectura(instante, m_tramas), m_opciones.marcas, azar());
}

std::uint64_t Indicador::azar() const {
    return mezclar(m_semillaSuya, static_cast<std::uint64_t>(m_tramas));
}

}  // namespace sorvanel::simulador
