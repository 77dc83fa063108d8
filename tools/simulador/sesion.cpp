#include "simulador/sesion.h"

#include <algorithm>

#include "simulador/azar.h"
#include "simulador/defectos.h"

namespace sorvanel::simulador {

namespace {

constexpr std::string_view RESPUESTA = "REP";
constexpr std::size_t MAXENTRADA = 4096;
constexpr Instante MAXRETRASO = std::chrono::seconds{1};
// A client that takes the prompt and a line in one piece does not find the prompt at its end.
constexpr Instante TRASAVISO = std::chrono::milliseconds{100};

enum : std::uint64_t { AzarMala = 21, AzarBasura, AzarPartir, AzarMedia };

}  // namespace

Sesion::Sesion(const OpcionesConcentrador& opciones, const Faltas& faltas, std::uint64_t semilla)
    : m_opciones(opciones),
      m_faltas(faltas),
      m_lineas(opciones, semilla),
      m_calendario(opciones.direcciones.size(), opciones.ritmo, opciones.tramas, std::nullopt) {
    encolarEtapa({Etapa::Punto::Saludo});
    encolarAviso(faltas.saludo);
}

void Sesion::alRecibir(std::string_view datos) {
    // Not before the whole greeting has gone, and once only.
    if (!m_esperaRespuesta || !m_pasos.empty() || !m_salida.empty() || m_muda) {
        m_cuenta.bytesDeMas += static_cast<std::int64_t>(datos.size());
        return;
    }
    m_entrada += datos;
    std::size_t fin = 0;
    while (m_esperaRespuesta && (fin = m_entrada.find('\r')) != std::string::npos) {
        atender(std::string_view(m_entrada).substr(0, fin));
        m_entrada.erase(0, fin + 1);
    }
    if (!m_esperaRespuesta || m_entrada.size() > MAXENTRADA) {
        m_cuenta.bytesDeMas += static_cast<std::int64_t>(m_entrada.size());
        m_entrada.clear();
    }
}

void Sesion::atender(std::string_view respuesta) {
    if (respuesta != RESPUESTA) {
        ++m_cuenta.inesperadas;
        return;
    }
    ++m_cuenta.respuestas;
    m_esperaRespuesta = false;
    encolarEtapa({Etapa::Punto::Rep});
    encolarAviso(m_faltas.segundo);
    encolarEtapa({Etapa::Punto::Abierta});
    if (!m_faltas.pegada) m_pasos.push_back({Paso::Tipo::Pausa, {}, TRASAVISO});
    encolarEtapa({Etapa::Punto::Media, 0});
}

void Sesion::avanzar(Instante ahora) {
    while (!m_muda && m_fin == Fin::Sigue) {
        m_llena = m_salida.size() >= CABIDA;
        if (m_llena) return;
        if (!m_pasos.empty()) {
            if (!hacer(m_pasos.front(), ahora)) return;
            m_pasos.pop_front();
        } else if (m_esperaRespuesta || !leer(ahora)) {
            return;
        }
    }
}

bool Sesion::hacer(const Paso& paso, Instante ahora) {
    switch (paso.tipo) {
        case Paso::Tipo::Texto:
            m_salida += paso.texto;
            break;
        case Paso::Tipo::Pausa:
            // What was said before it goes first, and alone.
            if (!m_salida.empty()) return false;
            if (!m_pausaHasta) m_pausaHasta = ahora + paso.dura;
            if (ahora < *m_pausaHasta) return false;
            m_pausaHasta.reset();
            break;
        case Paso::Tipo::Mudez:
            m_muda = true;
            break;
        case Paso::Tipo::Cierre:
            m_fin = Fin::Cierra;
            break;
        case Paso::Tipo::Reinicio:
            m_fin = Fin::Reinicia;
            break;
    }
    return true;
}

bool Sesion::leer(Instante ahora) {
    if (!m_abierta) {
        m_abierta = ahora;
        m_origen = ahora;
    }
    if (m_calendario.termina(m_turno)) return false;
    const std::size_t indicador = m_calendario.indicador(m_turno);
    const Instante vence = m_calendario.vence(m_turno);
    const Instante retraso = ahora - m_origen - vence;
    if (retraso < Instante{0}) {
        if (!enAvalancha(ahora)) return false;
        if (!m_lineas.callado(m_siguienteExtra, vence)) {
            encolarLinea(m_siguienteExtra, vence);
            ++m_cuenta.avalancha;
        }
        m_siguienteExtra = (m_siguienteExtra + 1) % m_opciones.direcciones.size();
        // With every address silent there is nothing to flood with.
        return !m_pasos.empty() || m_siguienteExtra != 0;
    }
    if (retraso > MAXRETRASO) {
        m_origen += retraso;
        ++m_cuenta.retrasos;
    }
    ++m_turno;
    if (!m_lineas.callado(indicador, vence)) encolarLinea(indicador, vence);
    return true;
}

void Sesion::encolarLinea(std::size_t indicador, Instante instante) {
    estropear(indicador, instante);
    const std::uint64_t azar = mezclar(m_lineas.azar(indicador), AzarPartir);
    std::string linea = m_lineas.siguiente(indicador, instante) + m_opciones.finLinea;
    if (toca(m_cuenta.lineas, m_faltas.partir)) {
        const std::size_t primera = 1 + azar % (linea.size() - 1);
        encolar(linea.substr(0, primera));
        m_pasos.push_back({Paso::Tipo::Pausa, {}, m_faltas.pausaPartir});
        linea.erase(0, primera);
    }
    encolar(std::move(linea));
    contarLinea();
}

void Sesion::estropear(std::size_t indicador, Instante instante) {
    const std::uint64_t azar = m_lineas.azar(indicador);
    if (toca(m_cuenta.lineas, m_faltas.malas)) {
        const auto clase = static_cast<std::size_t>(m_cuenta.lineas / m_faltas.malas) % m_faltas.clases.size();
        encolar(lineaMala(m_faltas.clases[clase], m_lineas.proxima(indicador, instante), mezclar(azar, AzarMala)) +
                m_opciones.finLinea);
        ++m_cuenta.defectuosas;
    }
    if (toca(m_cuenta.lineas, m_faltas.basura)) {
        encolar(basura(mezclar(azar, AzarBasura)));
        ++m_cuenta.defectuosas;
    }
}

void Sesion::encolar(std::string texto) {
    if (!texto.empty()) m_pasos.push_back({Paso::Tipo::Texto, std::move(texto), {}});
}

void Sesion::encolarAviso(const std::string& aviso) {
    if (m_faltas.trozo == 0) return encolar(aviso);
    for (std::size_t i = 0; i < aviso.size(); i += m_faltas.trozo) {
        if (i > 0) m_pasos.push_back({Paso::Tipo::Pausa, {}, m_faltas.pausaTrozos});
        encolar(aviso.substr(i, m_faltas.trozo));
    }
}

void Sesion::encolarEtapa(Etapa etapa) {
    const auto esMudez = [&](const Mudez& mudez) { return mudez.etapa == etapa; };
    const auto mudez = std::find_if(m_faltas.mudeces.begin(), m_faltas.mudeces.end(), esMudez);
    const bool calla = mudez != m_faltas.mudeces.end();
    const bool acaba = m_faltas.cierre == etapa || m_faltas.reinicio == etapa;
    const bool enMedia = etapa.punto == Etapa::Punto::Media;
    if ((!calla && !acaba) || (enMedia && m_calendario.termina(m_turno))) return;

    std::string resto = enMedia ? encolarMedia() : std::string();
    if (calla && mudez->dura)
        m_pasos.push_back({Paso::Tipo::Pausa, {}, *mudez->dura});
    else if (calla)
        m_pasos.push_back({Paso::Tipo::Mudez, {}, {}});
    if (m_faltas.cierre == etapa) m_pasos.push_back({Paso::Tipo::Cierre, {}, {}});
    if (m_faltas.reinicio == etapa) m_pasos.push_back({Paso::Tipo::Reinicio, {}, {}});
    if (enMedia && !acaba && mudez->dura) {
        encolar(std::move(resto));
        contarLinea();
    }
}

std::string Sesion::encolarMedia() {
    const std::size_t indicador = m_calendario.indicador(m_turno);
    const std::uint64_t azar = mezclar(m_lineas.azar(indicador), AzarMedia);
    const std::string linea = m_lineas.siguiente(indicador, m_calendario.vence(m_turno));
    ++m_turno;
    const std::size_t mitad = 1 + azar % (linea.size() - 1);
    encolar(linea.substr(0, mitad));
    return linea.substr(mitad) + m_opciones.finLinea;
}

void Sesion::contarLinea() {
    ++m_cuenta.lineas;
    encolarEtapa({Etapa::Punto::Lecturas, m_cuenta.lineas});
    encolarEtapa({Etapa::Punto::Media, m_cuenta.lineas});
}

bool Sesion::enAvalancha(Instante ahora) const {
    return m_opciones.avalancha && m_abierta && m_opciones.avalancha->contiene(ahora - *m_abierta);
}

std::optional<Instante> Sesion::proximo(Instante ahora) const {
    if (m_muda || m_fin != Fin::Sigue || m_salida.size() >= CABIDA) return std::nullopt;
    if (m_llena) return Instante::min();
    if (!m_pasos.empty()) {
        if (m_pausaHasta) return m_pausaHasta;
        if (m_pasos.front().tipo == Paso::Tipo::Pausa && !m_salida.empty()) return std::nullopt;
        return Instante::min();
    }
    if (m_esperaRespuesta) return std::nullopt;
    if (!m_abierta) return Instante::min();
    if (m_calendario.termina(m_turno)) return std::nullopt;
    const Instante vence = m_origen + m_calendario.vence(m_turno);
    // A flood fills the output, unless every address is silent: then it looks again after a while.
    if (enAvalancha(ahora)) return std::min(vence, ahora + std::chrono::milliseconds{1});
    const bool vendra = m_opciones.avalancha && ahora < *m_abierta + m_opciones.avalancha->desde;
    return vendra ? std::min(vence, *m_abierta + m_opciones.avalancha->desde) : vence;
}

}  // namespace sorvanel::simulador
