#include "simulador/reproduccion.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <numeric>
#include <optional>
#include <utility>

#include "simulador/calendario.h"
#include "simulador/indicador.h"

namespace sorvanel::simulador {

namespace {

// A machine that slept, or cannot keep up, goes on from where it is: no flood to catch up.
constexpr Instante MAXRETRASO = std::chrono::seconds{1};
// When late there is no wait in which to look for the user's wish to end.
constexpr std::int64_t TRAMASPORMIRADA = 64;

// Flood frames between two looks at the clock.
constexpr int TRAMASPORRAFAGA = 16;
// In a flood when those looked at are silent.
constexpr Instante PAUSASINNADIE = std::chrono::milliseconds{1};

class Reproduccion {
public:
    Reproduccion(const Opciones& opciones, std::uint64_t semilla, Emisor& emisor, Reloj& reloj, Testigo& testigo)
        : m_opciones(opciones), m_emisor(emisor), m_reloj(reloj), m_testigo(testigo), m_comienzo(reloj.ahora()) {
        const std::size_t cuantos = opciones.destinos.size();
        m_indicadores.reserve(cuantos);
        for (std::size_t i = 0; i < cuantos; ++i) m_indicadores.emplace_back(opciones, i, semilla);
        m_resumen.enviadas.resize(cuantos);
    }

    Resumen correr() {
        const Calendario calendario(m_indicadores.size(), m_opciones.ritmo, m_opciones.tramas, m_opciones.duracion);
        Instante origen = m_comienzo;
        for (std::int64_t numero = 0; !calendario.termina(numero); ++numero) {
            const Instante vence = calendario.vence(numero);
            const Instante retraso = esperar(origen + vence, vence);
            if ((retraso < Instante{0} || numero % TRAMASPORMIRADA == 0) && m_reloj.finPedido()) break;
            if (retraso > MAXRETRASO) {
                origen += retraso;
                ++m_resumen.retrasos;
            }
            if (!jugar(calendario.indicador(numero), vence)) ++m_resumen.calladas;
        }
        m_resumen.tiempo = m_reloj.ahora() - m_comienzo;
        return std::move(m_resumen);
    }

private:
    // Waits until the moment, or floods until then, and says how late it is; below 0 when that was cut short.
    Instante esperar(Instante instante, Instante vence) {
        const std::optional<Ventana>& avalancha = m_opciones.avalancha;
        for (Instante ahora = m_reloj.ahora();; ahora = m_reloj.ahora()) {
            if (ahora >= instante) return ahora - instante;
            if (!avalancha || !avalancha->contiene(ahora - m_comienzo)) {
                m_testigo.alEsperar();
                const Instante empieza = avalancha ? m_comienzo + avalancha->desde : instante;
                m_reloj.esperarHasta(empieza > ahora && empieza < instante ? empieza : instante);
            } else if (!desbordar(vence)) {
                m_reloj.esperarHasta(std::min(instante, ahora + PAUSASINNADIE));
            }
            if (m_reloj.finPedido()) return m_reloj.ahora() < instante ? Instante{-1} : m_reloj.ahora() - instante;
        }
    }

    // False when nobody had anything to say.
    bool desbordar(Instante vence) {
        bool dicho = false;
        for (int i = 0; i < TRAMASPORRAFAGA; ++i) {
            const auto enviadas = jugar(m_siguienteExtra, vence);
            m_siguienteExtra = (m_siguienteExtra + 1) % m_indicadores.size();
            m_resumen.avalancha += enviadas.value_or(0);
            dicho |= enviadas.has_value();
        }
        return dicho;
    }

    // How many good frames went; nothing if it was silent.
    std::optional<std::int64_t> jugar(std::size_t turno, Instante vence) {
        const auto suyo = m_indicadores[turno].turno(vence);
        if (!suyo) return std::nullopt;
        bool fallo = false;
        for (const auto& datagrama : suyo->datagramas) {
            if (m_emisor.enviar(turno, datagrama)) {
                m_testigo.alEnviar(vence, turno, datagrama);
            } else {
                fallo = true;
                m_testigo.alFallar(turno);
            }
        }
        if (fallo) {
            m_resumen.fallidas += suyo->tramas;
            return 0;
        }
        m_resumen.enviadas[turno] += suyo->tramas;
        m_resumen.defectuosas += suyo->defectuosas;
        return suyo->tramas;
    }

    const Opciones& m_opciones;
    Emisor& m_emisor;
    Reloj& m_reloj;
    Testigo& m_testigo;
    Instante m_comienzo;
    std::vector<Indicador> m_indicadores;
    std::size_t m_siguienteExtra = 0;
    Resumen m_resumen;
};

}  // namespace

std::int64_t Resumen::total() const {
    return std::accumulate(enviadas.begin(), enviadas.end(), std::int64_t{0});
}

Resumen reproducir(const Opciones& opciones, std::uint64_t semilla, Emisor& emisor, Reloj& reloj, Testigo& testigo) {
    return Reproduccion(opciones, semilla, emisor, reloj, testigo).correr();
}

std::string textoRitmo(std::int64_t numero, std::string_view cosas, Instante tiempo) {
    const double segundos = std::chrono::duration<double>(tiempo).count();
    const double ritmo = segundos > 0 ? static_cast<double>(numero) / segundos : 0;
    std::array<char, 96> cifras{};
    std::snprintf(cifras.data(), cifras.size(), " en %.3f s (%.1f por segundo)\n", segundos, ritmo);
    return std::to_string(numero) + " " + std::string(cosas) + cifras.data();
}

std::string textoResumen(const Resumen& resumen, const std::vector<Destino>& destinos) {
    std::string texto;
    for (std::size_t i = 0; i < destinos.size(); ++i)
        texto += "  " + std::to_string(i + 1) + "  " + destinos[i].host + ":" + std::to_string(destinos[i].puerto) +
                 "  " + std::to_string(resumen.enviadas[i]) + " tramas\n";
    texto += "Enviadas: " + textoRitmo(resumen.total(), "tramas", resumen.tiempo);
    if (resumen.avalancha > 0) texto += "De ellas en la avalancha: " + std::to_string(resumen.avalancha) + "\n";
    if (resumen.defectuosas > 0)
        texto += "Además, datagramas defectuosos: " + std::to_string(resumen.defectuosas) + "\n";
    if (resumen.calladas > 0) texto += "Calladas: " + std::to_string(resumen.calladas) + "\n";
    if (resumen.fallidas > 0) texto += "No se pudieron enviar: " + std::to_string(resumen.fallidas) + "\n";
    if (resumen.retrasos > 0)
        texto += "Retrasos de más de un segundo: " + std::to_string(resumen.retrasos) +
                 " (este equipo no llega al ritmo pedido, o estuvo suspendido)\n";
    return texto;
}

}  // namespace sorvanel::simulador
