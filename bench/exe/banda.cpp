// A usual busy hall: 64 displays of the concentrator at 20 readings a second each, and the message scrolls meanwhile.
// The processor's share beside the paused program's; whether the message keeps its speed and its pace; and whether
// either depends on how long the message is.

#include <algorithm>
#include <atomic>
#include <map>
#include <stdexcept>
#include <thread>
#include <vector>

#include "desplazamiento.h"
#include "escena.h"
#include "harness/concentrador.h"
#include "harness/ventana.h"
#include "partes.h"
#include "tabla.h"

namespace sorvanel::medidas {
namespace {

constexpr double LECTURAS_POR_SEGUNDO = 20;
constexpr double PIXELES_POR_SEGUNDO = 400;  // 4 each 10 ms
constexpr double SEGUNDOS_EN_PAUSA = 2;
constexpr double SEGUNDOS_EN_MARCHA = 6;
constexpr int SIN_BANDA = 0;
// What is worse than this the eye sees as a stop; a busy machine may cause it too, so it is told, not judged.
constexpr double DESVIO_ADMITIDO = 0.05;

// The concentrator's readings, from a thread of its own, for as long as it lives.
class Lecturas {
public:
    explicit Lecturas(pruebas::Concentrador& concentrador)
        : m_hilo([this, &concentrador] {
              const double inicio = ahora();
              for (int ronda = 0; !m_fin; ++ronda) {
                  while (!m_fin && ahora() < inicio + ronda / LECTURAS_POR_SEGUNDO) Sleep(2);
                  if (!concentrador.decir(lineas(VISORES, 1 + ronda))) return;
              }
          }) {}
    ~Lecturas() {
        m_fin = true;
        m_hilo.join();
    }
    Lecturas(const Lecturas&) = delete;
    Lecturas& operator=(const Lecturas&) = delete;

private:
    std::atomic<bool> m_fin = false;
    std::thread m_hilo;
};

struct Cifras {
    std::vector<double> enPausa, enMarcha;  // percent of one processor
    std::vector<double> velocidad, pausa, entreMiradas;
    int sinCasar = 0;
};

template <class Hacer>
double porcentajeCPU(const Observado& observado, double segundos, Hacer hacer) {
    const double antes = observado.segundosCPU(), inicio = ahora();
    while (ahora() < inicio + segundos) hacer();
    return (observado.segundosCPU() - antes) * 100 / (ahora() - inicio);
}

double cpuEnPausa(const pruebas::Programa& programa, const Observado& observado) {
    programa.pulsar(IdControl::botPau);
    if (!programa.esperarVisible(IdControl::botRun)) throw std::runtime_error("the program does not pause");
    Sleep(300);
    const double cpu = porcentajeCPU(observado, SEGUNDOS_EN_PAUSA, [] { Sleep(10); });
    programa.pulsar(IdControl::botRun);
    if (!programa.esperarVisible(IdControl::botPau)) throw std::runtime_error("the program does not run again");
    return cpu;
}

// Some rows through the middle of the letters.
RECT zonaBanda(const pruebas::Programa& programa) {
    RECT zona = pruebas::lugar(programa.control(IdControl::picMsg));
    zona.top = (zona.top + zona.bottom) / 2 - 3;
    zona.bottom = zona.top + 6;
    return zona;
}

void medirUna(int caracteres, Cifras& cifras) {
    pruebas::Concentrador concentrador;
    std::string ini = ajustes(0, 0, VISORES, concentrador.puerto());
    if (caracteres != SIN_BANDA) ini += ajustesBanda(textoVariado(caracteres));
    pruebas::Programa programa(ini);
    arrancarEnMarcha(programa);
    const Observado observado(programa.proceso().id(), programa.ejecutable());
    cifras.enPausa.push_back(cpuEnPausa(programa, observado));
    if (!concentrador.abrirSesion()) throw std::runtime_error("no session with the concentrator");
    const Lecturas lecturas(concentrador);
    if (caracteres == SIN_BANDA) {
        cifras.enMarcha.push_back(porcentajeCPU(observado, SEGUNDOS_EN_MARCHA, [] { Sleep(10); }));
        return;
    }
    Desplazamiento desplazamiento(zonaBanda(programa));
    Sleep(300);
    cifras.enMarcha.push_back(porcentajeCPU(observado, SEGUNDOS_EN_MARCHA, [&] {
        desplazamiento.mirar();
        Sleep(1);
    }));
    if (desplazamiento.segundos() < SEGUNDOS_EN_MARCHA / 10)
        throw std::runtime_error("the message is not seen to move");
    cifras.velocidad.push_back(desplazamiento.pixelesPorSegundo());
    cifras.pausa.push_back(desplazamiento.peorPausa());
    cifras.entreMiradas.push_back(desplazamiento.entreMiradas());
    cifras.sinCasar += desplazamiento.sinCasar();
}

bool escribir(int caracteres, const Cifras& cifras) {
    const std::string nombre = caracteres == SIN_BANDA ? "no message" : std::to_string(caracteres) + " characters";
    fila(nombre + ", processor, beside paused", cifras.enMarcha, cifras.enPausa, "%");
    if (caracteres == SIN_BANDA) return true;
    const std::vector<double> debida(cifras.velocidad.size(), PIXELES_POR_SEGUNDO);
    fila(nombre + ", speed, beside what it should be", cifras.velocidad, debida, "px/s");
    fila(nombre + ", worst gap between movements", cifras.pausa, "ms");
    fila(nombre + ", time between two looks", cifras.entreMiradas, "ms");
    if (cifras.sinCasar > 0) nota(nombre + ", looks that no shift explains: " + std::to_string(cifras.sinCasar));
    const double desvio = mediana(cifras.velocidad) / PIXELES_POR_SEGUNDO - 1;
    return desvio < DESVIO_ADMITIDO && -desvio < DESVIO_ADMITIDO;
}

}  // namespace

bool medirBanda(int veces) {
    const std::vector<int> largos{SIN_BANDA, 10, 100, 10000};
    std::map<int, Cifras> cifras;
    for (int vuelta = 0; vuelta < veces; ++vuelta)
        for (const int largo : largos) medirUna(largo, cifras[largo]);
    titulo("64 displays of the concentrator at 20 readings a second, and the message");
    bool bien = true;
    for (const int largo : largos) bien = escribir(largo, cifras[largo]) && bien;
    // A message of ten characters leaves the strip empty most of the time: compare full strips.
    fila("processor, 10000 beside 100 characters", cifras[10000].enMarcha, cifras[100].enMarcha, "%");
    return bien;
}

}  // namespace sorvanel::medidas
