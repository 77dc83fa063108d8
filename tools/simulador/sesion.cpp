#include "simulador/sesion.h"

#include <algorithm>
#include <utility>

#include "simulador/azar.h"

namespace sorvanel::simulador {

namespace {

constexpr std::string_view RESPUESTA = "REP";
// A client that wants the prompt at the end of what came must see it alone.
constexpr Instante TRASAVISO = std::chrono::milliseconds{100};

}  // namespace

Sesion::Sesion(const Opciones& opciones, Faltas faltas, std::uint64_t semilla)
    : m_opciones(opciones), m_faltas(std::move(faltas)), m_semilla(semilla), m_cuentas(opciones.direcciones.size()) {
    for (std::size_t i = 0; i < opciones.direcciones.size(); ++i)
        m_fuentes.emplace_back(opciones.peso, i, opciones.direcciones[i].numero(), mezclar(semilla, i),
                               unidad(opciones.decimales), maximo(opciones.decimales));
    llegar({Etapa::Punto::Saludo});
    encolar(m_faltas.saludo);
}

void Sesion::alRecibir(std::string_view datos) {
    // Not before the whole greeting has gone, and once only.
    if (!m_esperaRespuesta || !m_pasos.empty() || !m_salida.empty()) {
        m_inesperados += static_cast<std::int64_t>(datos.size());
        return;
    }
    m_entrada += datos;
    for (std::size_t fin = 0; m_esperaRespuesta && (fin = m_entrada.find('\r')) != std::string::npos;) {
        if (m_entrada.compare(0, fin, RESPUESTA) == 0) {
            m_esperaRespuesta = false;
        } else {
            m_inesperados += static_cast<std::int64_t>(fin + 1);
        }
        m_entrada.erase(0, fin + 1);
    }
    if (m_esperaRespuesta && m_entrada.size() <= CABIDA) return;
    m_inesperados += static_cast<std::int64_t>(m_entrada.size());
    m_entrada.clear();
    if (m_esperaRespuesta) return;
    llegar({Etapa::Punto::Rep});
    encolar(m_faltas.segundo);
    llegar({Etapa::Punto::Abierta});
    if (m_faltas.aparte) m_pasos.push_back({Paso::Tipo::Pausa, {}, TRASAVISO});
}

Instante Sesion::avanzar(Instante ahora) {
    while (m_fin == Fin::Sigue && m_salida.size() < CABIDA) {
        if (!m_pasos.empty()) {
            if (const auto cuando = hacer(m_pasos.front(), ahora)) return *cuando;
            m_pasos.pop_front();
        } else if (m_esperaRespuesta) {
            break;
        } else if (const auto cuando = leer(ahora)) {
            return *cuando;
        }
    }
    return Instante::max();
}

std::optional<Instante> Sesion::hacer(const Paso& paso, Instante ahora) {
    switch (paso.tipo) {
        case Paso::Tipo::Texto:
            m_salida += paso.texto;
            break;
        case Paso::Tipo::Pausa:
            // What was said before it goes first, and alone.
            if (!m_salida.empty()) return Instante::max();
            if (!m_pausaHasta) m_pausaHasta = paso.dura == Instante::max() ? paso.dura : ahora + paso.dura;
            if (ahora < *m_pausaHasta) return m_pausaHasta;
            m_pausaHasta.reset();
            break;
        case Paso::Tipo::Cierre:
            m_fin = Fin::Cierra;
            break;
        case Paso::Tipo::Reinicio:
            m_fin = Fin::Reinicia;
            break;
    }
    return std::nullopt;
}

std::optional<Instante> Sesion::leer(Instante ahora) {
    const std::size_t cuantos = m_opciones.direcciones.size();
    if (!m_origen) m_origen = ahora;
    const Instante instante = vence(m_turno, m_opciones.ritmo * static_cast<double>(cuantos));
    const Instante retraso = ahora - *m_origen - instante;
    if (retraso < Instante{0}) return *m_origen + instante;
    if (retraso > MAXRETRASO) *m_origen += retraso;
    const std::size_t indicador = static_cast<std::size_t>(m_turno++) % cuantos;
    if (!m_opciones.callado(indicador, instante)) encolarLinea(indicador, instante);
    return std::nullopt;
}

void Sesion::encolarLinea(std::size_t indicador, Instante instante) {
    const FuentePeso& fuente = m_fuentes[indicador];
    const std::string linea =
        lineaPavona(m_opciones.direcciones[indicador], fuente.lectura(instante, m_cuentas[indicador]++),
                    fuente.acumulado(instante), m_opciones.decimales, m_opciones.marcas);
    const std::uint64_t azar = mezclar(m_semilla, static_cast<std::uint64_t>(m_lineas));
    if (const auto clase = m_faltas.malas.toca(m_lineas)) {
        const auto cual = static_cast<ClaseLinea>(*clase);
        encolar(lineaMala(cual, linea, azar) + (cual == ClaseLinea::Basura ? "" : m_opciones.finLinea));
    }
    const Etapa media{Etapa::Punto::Media, m_lineas};
    const std::size_t corte = falla(media) ? 1 + mezclar(azar) % (linea.size() - 1) : 0;
    encolar(linea.substr(0, corte));
    llegar(media);
    encolar(linea.substr(corte) + m_opciones.finLinea);
    llegar({Etapa::Punto::Lecturas, ++m_lineas});
}

void Sesion::encolar(std::string_view texto) {
    const std::size_t trozo = m_faltas.trozo > 0 ? m_faltas.trozo : texto.size();
    for (std::size_t i = 0; i < texto.size(); i += trozo) {
        if (i > 0) m_pasos.push_back({Paso::Tipo::Pausa, {}, m_faltas.pausa});
        m_pasos.push_back({Paso::Tipo::Texto, std::string(texto.substr(i, trozo)), {}});
    }
}

bool Sesion::falla(Etapa etapa) const {
    const auto& todos = m_faltas.tropiezos;
    return std::any_of(todos.begin(), todos.end(), [&](const Tropiezo& uno) { return uno.etapa == etapa; });
}

void Sesion::llegar(Etapa etapa) {
    for (const auto& [donde, tipo, dura] : m_faltas.tropiezos) {
        if (donde != etapa) continue;
        if (tipo == Tropiezo::Tipo::Calla) {
            m_pasos.push_back({Paso::Tipo::Pausa, {}, dura ? Instante{*dura} : Instante::max()});
        } else {
            m_pasos.push_back({tipo == Tropiezo::Tipo::Cierra ? Paso::Tipo::Cierre : Paso::Tipo::Reinicio, {}, {}});
        }
    }
}

}  // namespace sorvanel::simulador
