#include "simulador/papeles.h"

#include <string>
#include <vector>

#include "simulador/indicador.h"
#include "simulador/red.h"
#include "simulador/sistema.h"
#include "simulador/texto.h"

namespace sorvanel::simulador {

namespace {

class Indicadores {
public:
    Indicadores(const Opciones& opciones, std::uint64_t semilla)
        : m_opciones(opciones), m_equipo(buscar(opciones.destino)) {
        for (std::size_t i = 0; i < opciones.puertos.size(); ++i) m_indicadores.emplace_back(opciones, i, semilla);
        m_enviadas.resize(opciones.puertos.size());
    }

    bool correr() {
        const double porSegundo = m_opciones.ritmo * static_cast<double>(m_indicadores.size());
        const Instante comienzo = ahora();
        Instante origen = comienzo;
        for (std::int64_t numero = 0;; ++numero) {
            const Instante cuando = vence(numero, porSegundo);
            if (m_opciones.duracion && cuando >= *m_opciones.duracion) break;
            esperarHasta(origen + cuando);
            if (finPedido()) break;
            const Instante retraso = ahora() - origen - cuando;
            if (retraso > MAXRETRASO) origen += retraso;
            jugar(static_cast<std::size_t>(numero) % m_indicadores.size(), cuando);
        }
        resumir(ahora() - comienzo);
        return m_fallidas == 0;
    }

private:
    std::string nombre(std::size_t cual) const {
        return m_opciones.destino + ":" + std::to_string(m_opciones.puertos[cual]);
    }

    void jugar(std::size_t cual, Instante cuando) {
        const Turno turno = m_indicadores[cual].turno(cuando);
        for (const auto& datagrama : turno.datagramas) {
            if (!m_zocalo.enviarA(m_equipo, m_opciones.puertos[cual], datagrama)) {
                if (m_fallidas++ == 0)
                    quejarse("simulador: no se puede enviar a " + nombre(cual) + "; se sigue intentando\n");
            } else if (m_opciones.mostrar) {
                decir(suceso(cuando, nombre(cual) + "  " + visible(datagrama)));
            }
        }
        m_enviadas[cual] += turno.buenas;
    }

    void resumir(Instante tiempo) const {
        std::int64_t total = 0;
        std::string texto;
        for (std::size_t i = 0; i < m_enviadas.size(); ++i) {
            texto += "  " + std::to_string(i + 1) + "  " + nombre(i) + "  " + std::to_string(m_enviadas[i]) + "\n";
            total += m_enviadas[i];
        }
        texto += resumen(total, "tramas", tiempo);
        if (m_fallidas > 0) texto += "Datagramas que no se pudieron enviar: " + std::to_string(m_fallidas) + "\n";
        decir(texto);
    }

    const Opciones& m_opciones;
    Zocalo m_zocalo = abrirUDP();
    sockaddr_in m_equipo;
    std::vector<Indicador> m_indicadores;
    std::vector<std::int64_t> m_enviadas;
    std::int64_t m_fallidas = 0;
};

}  // namespace

bool indicar(const Opciones& opciones, std::uint64_t semilla) {
    return Indicadores(opciones, semilla).correr();
}

}  // namespace sorvanel::simulador
