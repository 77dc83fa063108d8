// A usual busy hall: 64 displays of the concentrator at 20 readings a second each, and the message scrolls meanwhile.
// The processor's share beside the paused program's; whether the message keeps its speed and its pace; whether either
// depends on how long the message is; and whether at the end each display says the last value sent, without a resend.

#include <algorithm>
#include <atomic>
#include <map>
#include <stdexcept>
#include <thread>
#include <vector>

#include "desplazamiento.h"
#include "escena.h"
#include "harness/red.h"
#include "harness/sistema.h"
#include "partes.h"
#include "pesos.h"
#include "tabla.h"

namespace sorvanel::medidas {
namespace {

constexpr double LECTURAS_POR_SEGUNDO = 20;
constexpr double PIXELES_POR_SEGUNDO = 400;  // 4 each 10 ms
constexpr double SEGUNDOS_EN_MARCHA = 6;
constexpr double DESVIO_ADMITIDO = 0.05;
// Milliseconds between two movements: what is longer the eye sees as a stop. A busy machine may cause one too, so
// the runs' median is judged.
constexpr double PAUSA_ADMITIDA = 50;
// A machine that cannot send so many of the readings in time measured something else.
constexpr double LECTURAS_DEBIDAS = 0.9;

// The concentrator's readings, from a thread of its own, until it is told to end.
class Lecturas {
public:
    explicit Lecturas(pruebas::Concentrador& concentrador)
        : m_inicio(ahora()), m_hilo([this, &concentrador] {
              for (int ronda = 0; !m_fin; ++ronda) {
                  while (!m_fin && ahora() < m_inicio + ronda / LECTURAS_POR_SEGUNDO) Sleep(2);
                  if (m_fin) return;
                  m_cortada = !concentrador.decir(lineas(VISORES, 1 + ronda));
                  if (m_cortada) return;
                  m_ultima = 1 + ronda;
              }
          }) {}
    ~Lecturas() { parar(); }
    Lecturas(const Lecturas&) = delete;
    Lecturas& operator=(const Lecturas&) = delete;

    // The last value that each display was sent. Throws if they were not sent until now, or too slowly.
    int terminar() {
        const double debidas = (ahora() - m_inicio) * LECTURAS_POR_SEGUNDO;
        parar();
        if (m_cortada) throw std::runtime_error("the session was lost");
        if (m_ultima < debidas * LECTURAS_DEBIDAS)
            throw std::runtime_error("only " + std::to_string(m_ultima) + " of " +
                                     std::to_string(static_cast<int>(debidas)) + " readings of each display were sent");
        return m_ultima;
    }

private:
    void parar() {
        m_fin = true;
        if (m_hilo.joinable()) m_hilo.join();
    }

    double m_inicio;
    std::atomic<bool> m_fin = false;
    std::atomic<bool> m_cortada = false;
    std::atomic<int> m_ultima = 0;
    std::thread m_hilo;
};

struct Cifras {
    std::vector<double> cpu;  // percent of one processor
    std::vector<double> velocidad, pausa;
    int sinCasar = 0;
    std::size_t perdidas = 0;  // displays that do not say the last value
};

// Some rows through the middle of the letters.
RECT zonaBanda(const pruebas::Programa& programa) {
    RECT zona = pruebas::lugar(programa.control(IdControl::picMsg));
    zona.top = (zona.top + zona.bottom) / 2 - 3;
    zona.bottom = zona.top + 6;
    return zona;
}

void seguir(const pruebas::Programa& programa, const Observado& observado, Cifras& cifras) {
    Desplazamiento desplazamiento(zonaBanda(programa));
    Sleep(300);
    const double antes = observado.segundosCPU(), inicio = ahora();
    for (; ahora() < inicio + SEGUNDOS_EN_MARCHA; Sleep(1)) desplazamiento.mirar();
    cifras.cpu.push_back((observado.segundosCPU() - antes) * 100 / (ahora() - inicio));
    if (desplazamiento.segundos() < SEGUNDOS_EN_MARCHA / 10)
        throw std::runtime_error("the message is not seen to move");
    cifras.velocidad.push_back(desplazamiento.pixelesPorSegundo());
    cifras.pausa.push_back(desplazamiento.peorPausa());
    cifras.sinCasar += desplazamiento.sinCasar();
}

void medirUna(int caracteres, Cifras& cifras) {
    pruebas::Concentrador concentrador;
    pruebas::Programa programa(ajustes(0, 0, VISORES, concentrador.puerto()) + ajustesBanda(textoVariado(caracteres)));
    arrancarEnMarcha(programa);
    const Observado observado(programa.proceso().id(), programa.ejecutable());
    const Pesos pesos(programa, VISORES);
    exigir(concentrador.abrirSesion(), "no session with the concentrator");
    Lecturas lecturas(concentrador);
    seguir(programa, observado, cifras);
    const std::vector<int> faltan = pesos.sinDecir(std::to_string(lecturas.terminar()));
    if (!faltan.empty()) nota("do not say the last reading: " + quienes(faltan, pesos));
    cifras.perdidas += faltan.size();
}

bool escribir(int caracteres, const Cifras& cifras) {
    const std::string nombre = std::to_string(caracteres) + " characters";
    fila(nombre + ", processor", cifras.cpu, "%");
    if (cifras.perdidas > 0) nota(nombre + ", last readings not shown: " + std::to_string(cifras.perdidas));
    const std::vector<double> debida(cifras.velocidad.size(), PIXELES_POR_SEGUNDO);
    fila(nombre + ", speed, beside what it should be", cifras.velocidad, debida, "px/s");
    fila(nombre + ", worst gap between movements", cifras.pausa, "ms");
    if (cifras.sinCasar > 0) nota(nombre + ", looks that no shift explains: " + std::to_string(cifras.sinCasar));
    const double desvio = mediana(cifras.velocidad) / PIXELES_POR_SEGUNDO - 1;
    const bool aSuPaso = desvio < DESVIO_ADMITIDO && -desvio < DESVIO_ADMITIDO;
    const bool sinParar = mediana(cifras.pausa) <= PAUSA_ADMITIDA;
    if (!aSuPaso) nota(nombre + ", speed: over the limit of 5 %");
    if (!sinParar) nota(nombre + ", worst gap: over the limit of 50 ms");
    return aSuPaso && sinParar && cifras.perdidas == 0;
}

}  // namespace

bool medirBanda(int veces) {
    const std::vector<int> largos{10, 100, 10000};
    std::map<int, Cifras> cifras;
    for (int vuelta = 0; vuelta < veces; ++vuelta)
        for (const int largo : largos) medirUna(largo, cifras[largo]);
    titulo("64 displays of the concentrator at 20 readings a second, and the message");
    bool bien = true;
    for (const int largo : largos) bien = escribir(largo, cifras[largo]) && bien;
    return bien;
}

}  // namespace sorvanel::medidas
