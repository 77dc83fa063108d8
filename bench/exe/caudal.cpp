// The processor's time for 100 000 readings over 64 displays, beside the bare program that only receives the same and
// prints it; and how many were lost.

#include <algorithm>
#include <cstdlib>
#include <stdexcept>
#include <vector>

#include "escena.h"
#include "harness/concentrador.h"
#include "harness/emisorUDP.h"
#include "harness/esperar.h"
#include "harness/trama.h"
#include "partes.h"
#include "tabla.h"

namespace sorvanel::medidas {
namespace {

constexpr int RONDAS = 1563;  // of 64: 100 032 readings
constexpr double RONDAS_POR_SEGUNDO = 100;
// A machine that cannot follow is waited for: so many rounds fit in a port's receive buffer several times over, so
// what is lost is the program's fault. Then fewer readings a second are sent than were meant to.
constexpr int RONDAS_DE_VENTAJA = 100;
constexpr int RONDAS_ENTRE_MIRADAS = 20;
constexpr long LECTURAS = static_cast<long>(RONDAS) * VISORES;

struct Pasada {
    double cpu = 0;       // seconds
    double segundos = 0;  // that sending took
    long perdidas = 0;
};

using Ronda = std::function<void(int)>;

// Warm first: what is made once does not count. `alcanzada` says which round has come so far, `mostrada` waits for
// one and tells how many readings are missing.
template <class Alcanzada, class Mostrada>
Pasada pasar(const Observado& observado, const Ronda& ronda, Alcanzada alcanzada, Mostrada mostrada) {
    ronda(1);
    mostrada(1);
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

Pasada pasarDesnudo(const Desnudo& desnudo, const Ronda& ronda) {
    return pasar(
        desnudo.observado(), ronda, [&] { return static_cast<int>(desnudo.recibidas() / VISORES); },
        [&](int rondas) {
            const long debidas = static_cast<long>(rondas) * VISORES;
            pruebas::esperar([&] { return desnudo.recibidas() >= debidas; });
            return debidas - desnudo.recibidas();
        });
}

// A display says its last weight only: what the system dropped before is asked of the system.
Pasada pasarReal(const pruebas::Programa& programa, const Ronda& ronda, int puerto) {
    const Observado observado(programa.proceso().id(), programa.ejecutable());
    const auto alcanzada = [&] {
        return std::min(std::atoi(programa.texto(IdControl::picRep, 1).c_str()),
                        std::atoi(programa.texto(IdControl::picRep, VISORES).c_str()));
    };
    return pasar(observado, ronda, alcanzada, [&](int ultima) {
        const auto atrasados = sinMostrar(programa, VISORES, std::to_string(ultima), [&] { ronda(ultima); });
        return static_cast<long>(atrasados.size()) + (puerto > 0 ? std::max(descartados(puerto, VISORES), 0L) : 0);
    });
}

void abrirSesion(pruebas::Concentrador& concentrador) {
    if (!concentrador.abrirSesion()) throw std::runtime_error("no session with the concentrator");
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
    Pasada medida;
    {
        Desnudo desnudo(Desnudo::Modo::udp, puerto);
        desnudo.arrancar();
        desnudo.esperarVentana();
        medida = pasarDesnudo(desnudo, ronda);
    }
    pruebas::Programa programa(ajustes(VISORES, puerto, 0, 0));
    arrancarEnMarcha(programa);
    familia.anotar(pasarReal(programa, ronda, puerto), medida);
}

void medirPavona(Familia& familia) {
    pruebas::Concentrador concentrador;
    const Ronda ronda = [&](int valor) {
        if (!concentrador.decir(lineas(VISORES, valor))) throw std::runtime_error("the session was lost");
    };
    Pasada medida;
    {
        Desnudo desnudo(Desnudo::Modo::tcp, concentrador.puerto());
        desnudo.arrancar();
        abrirSesion(concentrador);
        desnudo.esperarVentana();
        medida = pasarDesnudo(desnudo, ronda);
    }
    pruebas::Programa programa(ajustes(0, 0, VISORES, concentrador.puerto()));
    arrancarEnMarcha(programa);
    abrirSesion(concentrador);
    familia.anotar(pasarReal(programa, ronda, 0), medida);
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
