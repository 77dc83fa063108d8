#include "simulador/papeles.h"

#include <algorithm>
#include <iterator>
#include <list>
#include <string>
#include <vector>

#include "simulador/red.h"
#include "simulador/sesion.h"
#include "simulador/sistema.h"
#include "simulador/texto.h"

namespace sorvanel::simulador {

namespace {

constexpr Instante REINTENTO = std::chrono::milliseconds{200};
// Long enough to rest, short enough to see the user's wish to end.
constexpr Instante MAXESPERA = std::chrono::milliseconds{100};

class Concentrador {
public:
    Concentrador(const Opciones& opciones, std::uint64_t semilla)
        : m_opciones(opciones), m_semilla(semilla), m_puerto(opciones.puerto) {}

    void correr() {
        m_comienzo = simulador::ahora();
        while (!finPedido() && (!m_opciones.duracion || m_ahora < *m_opciones.duracion)) {
            atenderPuerto();
            esperar();
            m_ahora = simulador::ahora() - m_comienzo;
            if (m_oyente.hay()) aceptar();
            for (auto& cliente : m_clientes) atender(cliente);
            m_clientes.remove_if([](const Cliente& cliente) { return cliente.ido; });
        }
        despedir("fin de la ejecución");
        decir("Sesiones: " + std::to_string(m_sesiones) + ", abiertas con REP: " + std::to_string(m_abiertas) + "\n" +
              resumen(m_lineas, "lecturas", m_ahora));
    }

private:
    struct Cliente {
        std::int64_t numero = 0;
        Zocalo zocalo;
        Sesion sesion;
        Instante proximo{};
        bool lleno = false;  // the system has no more room for what is sent
        bool ido = false;
    };

    void contar(const std::string& que) const { decir(suceso(m_ahora, que)); }
    static std::string nombre(const Cliente& cliente) { return "sesión " + std::to_string(cliente.numero); }

    void atenderPuerto() {
        if (m_opciones.ausencia && m_opciones.ausencia->contiene(m_ahora)) {
            if (!m_oyente.hay()) return;
            m_oyente = Zocalo();
            contar("ya no se escucha");
            despedir("ausente");
        } else if (!m_oyente.hay() && m_ahora >= m_reintento) {
            try {
                m_oyente = escuchar(m_opciones.todas, m_puerto);
            } catch (const ErrorRed& error) {
                // At first it is the user's to mend; later it may be what is left of past connections.
                if (m_reintento == Instante{0}) throw;
                quejarse("simulador: " + std::string(error.what()) + "\n");
            }
            m_reintento = m_ahora + REINTENTO;
            if (!m_oyente.hay()) return;
            m_puerto = m_oyente.puerto();
            contar("escuchando en el puerto " + std::to_string(m_puerto));
        }
    }

    void esperar() {
        std::vector<Sondeo> sondeos;
        Instante hasta = m_ahora + MAXESPERA;
        if (m_oyente.hay()) sondeos.push_back({m_oyente.numero(), POLLIN, 0});
        for (const auto& cliente : m_clientes) {
            const int interes = cliente.lleno ? POLLIN | POLLOUT : POLLIN;
            sondeos.push_back({cliente.zocalo.numero(), static_cast<short>(interes), 0});
            hasta = std::min(hasta, cliente.proximo);
        }
        sondear(sondeos, std::max(hasta - m_ahora, Instante{0}));
    }

    void aceptar() {
        std::string quien;
        Zocalo zocalo = m_oyente.aceptar(quien);
        if (!zocalo.hay()) return;
        const bool conFaltas = !m_opciones.veces || m_sesiones < *m_opciones.veces;
        m_clientes.push_back({.numero = ++m_sesiones,
                              .zocalo = std::move(zocalo),
                              .sesion = Sesion(m_opciones, conFaltas ? m_opciones.faltas : Faltas{}, m_semilla)});
        contar(nombre(m_clientes.back()) + ": " + quien);
    }

    void atender(Cliente& cliente) {
        const auto datos = cliente.zocalo.recibir();
        if (!datos) return terminar(cliente, "se fue el cliente");
        if (!datos->empty()) {
            if (m_opciones.mostrar) contar(nombre(cliente) + " < " + visible(*datos));
            cliente.sesion.alRecibir(*datos);
        }
        cliente.proximo = cliente.sesion.avanzar(m_ahora);
        std::string& salida = cliente.sesion.salida();
        if (!salida.empty() && !enviar(cliente, salida)) return terminar(cliente, "se fue el cliente");
        if (!salida.empty() || cliente.sesion.fin() == Sesion::Fin::Sigue) return;
        const bool reinicia = cliente.sesion.fin() == Sesion::Fin::Reinicia;
        if (reinicia) cliente.zocalo.reiniciar();
        terminar(cliente, reinicia ? "reiniciada" : "cerrada");
    }

    bool enviar(Cliente& cliente, std::string& salida) {
        const auto enviados = cliente.zocalo.enviar(salida);
        if (!enviados) return false;
        if (m_opciones.mostrar && *enviados > 0)
            contar(nombre(cliente) + " > " + visible(std::string_view(salida).substr(0, *enviados)));
        salida.erase(0, *enviados);
        cliente.lleno = !salida.empty();
        // What waited for it to go can be done now.
        if (!cliente.lleno) cliente.proximo = m_ahora;
        return true;
    }

    void terminar(Cliente& cliente, const std::string& motivo) {
        const Sesion& sesion = cliente.sesion;
        contar(nombre(cliente) + ": " + motivo + ", " + std::to_string(sesion.lineas()) + " lecturas" +
               (sesion.bytesInesperados() > 0
                    ? ", recibió " + std::to_string(sesion.bytesInesperados()) + " bytes que no esperaba"
                    : ""));
        m_lineas += sesion.lineas();
        m_abiertas += sesion.abierta() ? 1 : 0;
        cliente.ido = true;
    }

    void despedir(const std::string& motivo) {
        for (auto& cliente : m_clientes) terminar(cliente, motivo);
        m_clientes.clear();
    }

    const Opciones& m_opciones;
    std::uint64_t m_semilla;
    std::uint16_t m_puerto;
    Zocalo m_oyente;
    std::list<Cliente> m_clientes;
    Instante m_comienzo{};
    Instante m_ahora{};  // since the beginning
    Instante m_reintento{};
    std::int64_t m_sesiones = 0;
    std::int64_t m_abiertas = 0;
    std::int64_t m_lineas = 0;
};

}  // namespace

void concentrar(const Opciones& opciones, std::uint64_t semilla) {
    Concentrador(opciones, semilla).correr();
}

}  // namespace sorvanel::simulador
