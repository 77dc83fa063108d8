// The concentrator's program is killed and started again, at once and after a while; and it hangs up and then falls
// silent: whoever calls is connected by the system, and nobody speaks. How long from its return until each display says
// a reading, and what asking in vain costs meanwhile. The worst of each series is judged; of the
// processor the median, since it is counted in hundredths of a second: a third of a percent here.

#include <cmath>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "escena.h"
#include "harness/red.h"
#include "partes.h"
#include "pesos.h"
#include "tabla.h"

namespace sorvanel::medidas {
namespace {

constexpr int PAVONA = 4;
constexpr double SEGUNDOS_AUSENTE = 3;
// Milliseconds. It asks once a second; a silent session is given up after a second, and those given up before stand in
// the queue of whoever comes back.
constexpr double PLAZO_VUELTA = 1500;
constexpr double PLAZO_TRAS_SILENCIO = 4000;
constexpr double CPU_ADMITIDA = 1;  // percent of one processor
constexpr int RETRASOS = 7;  // hundredths by which each absence is longer than the one before: no beat is met twice

class Sala {
public:
    Sala()
        : m_concentrador(std::make_unique<pruebas::Concentrador>()),
          m_puerto(m_concentrador->puerto()),
          m_programa(ajustes(0, 0, PAVONA, m_puerto)) {
        arrancarEnMarcha(m_programa);
        m_pesos = std::make_unique<Pesos>(m_programa, PAVONA);
        m_observado = std::make_unique<Observado>(m_programa.proceso().id(), m_programa.ejecutable());
        leer();
    }

    void matar() { m_concentrador.reset(); }
    void enmudecer() { m_concentrador->despedir(); }

    // Milliseconds until a reading shows, from the moment when the concentrator speaks again.
    double hablar() {
        const double inicio = ahora();
        leer();
        return (ahora() - inicio) * 1000;
    }

    // The same, from the start of another concentrator.
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

    double porcentajeEnPausa(double segundos) {
        m_programa.pulsar(IdControl::botPau);
        exigir(m_programa.esperarVisible(IdControl::botRun), "the program does not pause");
        return porcentajeCPU(segundos);
    }

private:
    void leer() {
        exigir(m_concentrador->abrirSesion(), "the program does not come back");
        ++m_valor;
        if (!m_concentrador->decir(lineas(PAVONA, m_valor)) || !m_pesos->sinDecir(std::to_string(m_valor)).empty())
            throw std::runtime_error("no readings after the connection");
    }

    std::unique_ptr<pruebas::Concentrador> m_concentrador;
    int m_puerto;
    pruebas::Programa m_programa;
    std::unique_ptr<Pesos> m_pesos;
    std::unique_ptr<Observado> m_observado;
    int m_valor = 0;
};

bool juzgar(const char* nombre, const std::vector<double>& valores, double juzgado, double limite, const char* unidad) {
    fila(nombre, valores, unidad);
    const bool bien = juzgado < limite;
    if (!bien) nota(std::string(nombre) + ": over the limit of " + std::to_string(std::lround(limite)) + " " + unidad);
    return bien;
}

}  // namespace

bool medirReconexion(int veces) {
    Sala sala;
    std::vector<double> enseguida, trasAusencia, trasSilencio, cpuAusente, cpuMuda;
    for (int vuelta = 0; vuelta < veces; ++vuelta) {
        const double segundos = SEGUNDOS_AUSENTE + vuelta * RETRASOS * 0.01;
        sala.matar();
        enseguida.push_back(sala.volver());
        sala.matar();
        cpuAusente.push_back(sala.porcentajeCPU(segundos));
        trasAusencia.push_back(sala.volver());
        sala.enmudecer();
        cpuMuda.push_back(sala.porcentajeCPU(segundos));
        trasSilencio.push_back(sala.hablar());
    }
    sala.matar();
    const std::vector<double> enPausa{sala.porcentajeEnPausa(SEGUNDOS_AUSENTE)};
    titulo("The concentrator goes and comes back");
    bool bien = juzgar("until readings show, started again at once", enseguida, mayor(enseguida), PLAZO_VUELTA, "ms");
    bien = juzgar("until readings show, after three seconds away", trasAusencia, mayor(trasAusencia), PLAZO_VUELTA,
                  "ms") &&
           bien;
    bien = juzgar("until readings show, after as long mute", trasSilencio, mayor(trasSilencio), PLAZO_TRAS_SILENCIO,
                  "ms") &&
           bien;
    bien = juzgar("processor while it refuses", cpuAusente, mediana(cpuAusente), CPU_ADMITIDA, "%") && bien;
    bien = juzgar("processor while it is mute", cpuMuda, mediana(cpuMuda), CPU_ADMITIDA, "%") && bien;
    fila("processor paused", enPausa, "%");
    return bien;
}

}  // namespace sorvanel::medidas
