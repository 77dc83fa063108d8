// The processor's time for 100 000 readings over 64 displays, beside the bare program that only receives the same and
// prints it; and how many were lost. What is looked at for that: whether each of the displays comes to say the last
// value without its being sent again, and how many datagrams the system threw away. The bare program counts what it
// prints.

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <stdexcept>
#include <vector>

#include "escena.h"
#include "harness/red.h"
#include "harness/sistema.h"
#include "partes.h"
#include "pesos.h"
#include "tabla.h"

namespace sorvanel::medidas {
namespace {

constexpr int RONDAS = 1563;  // of 64: 100 032 readings
constexpr double RONDAS_POR_SEGUNDO = 100;
// A machine that cannot follow is waited for: so many rounds fit in a port's receive buffer several times over, so
// what is lost is the program's fault. Then fewer readings a second are sent than were meant to.
constexpr int RONDAS_DE_VENTAJA = 100;
constexpr int INTENTOS = 3;
constexpr int RONDAS_ENTRE_MIRADAS = 20;
constexpr long LECTURAS = static_cast<long>(RONDAS) * VISORES;

struct Pasada {
    double cpu = 0;       // seconds
    double segundos = 0;  // that sending took
    long perdidas = 0;
};

using Ronda = std::function<void(int)>;
using Preparar = std::function<void()>;

// What is made once does not count.
template <class Mostrada>
void calentar(const Preparar& preparar, const Ronda& ronda, int intentos, Mostrada mostrada) {
    for (; intentos > 0; --intentos) {
        preparar();
        ronda(1);
        if (mostrada(1) == 0) return;
    }
    throw std::runtime_error("the first readings do not come");
}

// `alcanzada` says which round has come so far, `mostrada` waits for one and tells how many readings are missing.
template <class Alcanzada, class Mostrada>
Pasada pasar(const Observado& observado, const Ronda& ronda, Alcanzada alcanzada, Mostrada mostrada) {
    Pasada pasada;
    const double antes = observado.segundosCPU(), inicio = ahora();
    aRitmo(RONDAS, RONDAS_POR_SEGUNDO, [&](int i) {
        ronda(i + 2);
        if (i % RONDAS_ENTRE_MIRADAS == 0) pruebas::esperar([&] { return alcanzada() + RONDAS_DE_VENTAJA > i; });
    });
    pasada.segundos = ahora() - inicio;
    pasada.perdidas = mostrada(RONDAS + 1);
    pasada.cpu = observado.segundosCPU() - antes;
    return pasada;
}

Pasada pasarDesnudo(const Desnudo& desnudo, const Preparar& preparar, const Ronda& ronda) {
    const auto mostrada = [&](int rondas) {
        const long debidas = static_cast<long>(rondas) * VISORES;
        pruebas::esperar([&] { return desnudo.recibidas() >= debidas; });
        return debidas - desnudo.recibidas();
    };
    // Once only: it counts all that it prints.
    calentar(preparar, ronda, 1, mostrada);
    const auto alcanzada = [&] { return static_cast<int>(desnudo.recibidas() / VISORES); };
    return pasar(desnudo.observado(), ronda, alcanzada, mostrada);
}

// A display says its last weight only: what the system dropped before is asked of the system.
Pasada pasarReal(const pruebas::Programa& programa, const Preparar& preparar, const Ronda& ronda, int puerto) {
    const Observado observado(programa.proceso().id(), programa.ejecutable());
    const Pesos pesos(programa, VISORES);
    const auto alcanzada = [&] {
        return std::min(std::atoi(pesos.texto(1).c_str()), std::atoi(pesos.texto(VISORES).c_str()));
    };
    const auto mostrada = [&](int ultima) {
        const std::vector<int> faltan = pesos.sinDecir(std::to_string(ultima));
        if (!faltan.empty()) nota("do not say reading " + std::to_string(ultima) + ": " + quienes(faltan, pesos));
        return static_cast<long>(faltan.size()) + (puerto > 0 ? descartados(puerto, VISORES) : 0);
    };
    // On a busy machine the first painting may last until the first readings are forgotten, or the session given up.
    calentar(preparar, ronda, INTENTOS, mostrada);
    return pasar(observado, ronda, alcanzada, mostrada);
}

struct Familia {
    std::vector<double> real, desnudo, ritmo;
    std::vector<double> perdidasReal, perdidasDesnudo;

    void anotar(const Pasada& suya, const Pasada& medida) {
        real.push_back(suya.cpu);
        desnudo.push_back(medida.cpu);
        ritmo.push_back(static_cast<double>(LECTURAS) / suya.segundos);
        perdidasReal.push_back(static_cast<double>(suya.perdidas));
        perdidasDesnudo.push_back(static_cast<double>(medida.perdidas));
    }

    bool escribir(const std::string& nombre) const {
        fila(nombre + ", processor", real, desnudo, "s");
        fila(nombre + ", readings sent", ritmo, "1/s");
        const double perdidas = mayor(perdidasReal);
        nota(nombre + ", lost in the worst run: " + std::to_string(static_cast<long>(perdidas)) + " of " +
             std::to_string(LECTURAS) + " (bare program " + std::to_string(static_cast<long>(mayor(perdidasDesnudo))) +
             ")");
        return perdidas == 0;
    }
};

void medirTessel(Familia& familia) {
    const int puerto = pruebas::puertosLibres(VISORES);
    pruebas::EmisorUDP indicadores;
    const Ronda ronda = [&](int valor) {
        for (int i = 0; i < VISORES; ++i) indicadores.enviar(puerto + i, pruebas::trama(valor * 1000));
    };
    const Preparar nada = [] {};
    Pasada medida;
    {
        Desnudo desnudo(Desnudo::Modo::udp, puerto);
        desnudo.arrancar();
        desnudo.esperarVentana();
        medida = pasarDesnudo(desnudo, nada, ronda);
    }
    pruebas::Programa programa(ajustes(VISORES, puerto, 0, 0));
    arrancarEnMarcha(programa);
    familia.anotar(pasarReal(programa, nada, ronda, puerto), medida);
}

void medirPavona(Familia& familia) {
    pruebas::Concentrador concentrador;
    const Preparar preparar = [&] { exigir(concentrador.abrirSesion(), "no session with the concentrator"); };
    const Ronda ronda = [&](int valor) { exigir(concentrador.decir(lineas(VISORES, valor)), "the session was lost"); };
    Pasada medida;
    {
        Desnudo desnudo(Desnudo::Modo::tcp, concentrador.puerto());
        desnudo.arrancar();
        desnudo.esperarVentana();
        medida = pasarDesnudo(desnudo, preparar, ronda);
    }
    pruebas::Programa programa(ajustes(0, 0, VISORES, concentrador.puerto()));
    arrancarEnMarcha(programa);
    familia.anotar(pasarReal(programa, preparar, ronda, 0), medida);
}

}  // namespace

bool medirCaudal(int veces) {
    Familia tessel, pavona;
    for (int vuelta = 0; vuelta < veces; ++vuelta) {
        medirTessel(tessel);
        medirPavona(pavona);
    }
    titulo(std::to_string(LECTURAS) + " readings over 64 displays, beside a program that only receives and prints");
    const bool entera = tessel.escribir("own ports (UDP)");
    return pavona.escribir("concentrator (TCP)") && entera;
}

}  // namespace sorvanel::medidas
