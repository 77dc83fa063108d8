// The concentrator's program is killed and started again: how long until readings show again, and what asking in vain
// costs meanwhile.

#include <memory>
#include <stdexcept>
#include <vector>

#include "escena.h"
#include "harness/concentrador.h"
#include "partes.h"
#include "tabla.h"

namespace sorvanel::medidas {
namespace {

constexpr int PAVONA = 4;
constexpr double SEGUNDOS_AUSENTE = 3;
constexpr int RETRASOS = 7;  // hundredths by which each absence is longer than the one before: no beat is met twice

class Sala {
public:
    Sala()
        : m_concentrador(std::make_unique<pruebas::Concentrador>()),
          m_puerto(m_concentrador->puerto()),
          m_programa(ajustes(0, 0, PAVONA, m_puerto)) {
        arrancarEnMarcha(m_programa);
        m_observado = std::make_unique<Observado>(m_programa.proceso().id(), m_programa.ejecutable());
        leer();
    }

    void matar() { m_concentrador.reset(); }

    // Milliseconds from the concentrator's start until a reading shows.
    double volver() {
        const double inicio = ahora();
        m_concentrador = std::make_unique<pruebas::Concentrador>(m_puerto);
        leer();
        return (ahora() - inicio) * 1000;
    }

    double porcentajeCPU(double segundos) const {
        const double antes = m_observado->segundosCPU(), inicio = ahora();
        Sleep(static_cast<DWORD>(segundos * 1000));
        return (m_observado->segundosCPU() - antes) * 100 / (ahora() - inicio);
    }

    double porcentajeEnPausa(double segundos) const {
        m_programa.pulsar(IdControl::botPau);
        if (!m_programa.esperarVisible(IdControl::botRun)) throw std::runtime_error("the program does not pause");
        return porcentajeCPU(segundos);
    }

private:
    void leer() {
        if (!m_concentrador->abrirSesion()) throw std::runtime_error("the program does not come back");
        ++m_valor;
        if (!m_concentrador->decir(lineas(PAVONA, m_valor)) ||
            !sinMostrar(m_programa, PAVONA, std::to_string(m_valor), [this] { repetir(); }).empty())
            throw std::runtime_error("no readings after the connection");
    }

    void repetir() { m_concentrador->decir(lineas(PAVONA, m_valor)); }

    std::unique_ptr<pruebas::Concentrador> m_concentrador;
    int m_puerto;
    pruebas::Programa m_programa;
    std::unique_ptr<Observado> m_observado;
    int m_valor = 0;
};

}  // namespace

bool medirReconexion(int veces) {
    Sala sala;
    std::vector<double> enseguida, trasAusencia, cpu;
    for (int vuelta = 0; vuelta < veces; ++vuelta) {
        sala.matar();
        enseguida.push_back(sala.volver());
        sala.matar();
        cpu.push_back(sala.porcentajeCPU(SEGUNDOS_AUSENTE + vuelta * RETRASOS * 0.01));
        trasAusencia.push_back(sala.volver());
    }
    sala.matar();
    const std::vector<double> enPausa{sala.porcentajeEnPausa(SEGUNDOS_AUSENTE)};
    titulo("The concentrator is killed and started again");
    fila("until readings show, started again at once", enseguida, "ms");
    fila("until readings show, after three seconds away", trasAusencia, "ms");
    fila("processor while it refuses, beside paused", cpu, enPausa, "%");
    // It asks once a second.
    return mediana(trasAusencia) < 1500;
}

}  // namespace sorvanel::medidas
