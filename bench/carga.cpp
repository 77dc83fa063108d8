// What the settings cost: loading all displays, and rewriting one section.

#include <benchmark/benchmark.h>

#include <string>

#include "display/ctrlVis.h"
#include "display/visores.h"
#include "doubles/compartidoDoble.h"
#include "doubles/entornoDoble.h"

namespace {

using namespace sorvanel;

std::string configuracion(int visores) {
    std::string ini = "[RETICULA]\r\nFilasColumnas=8x8\r\n[VISORES]\r\nanchoEtiqueta=2\r\n";
    for (int n = 1; n <= visores; ++n) {
        const std::string numero = std::to_string(n);
        ini += "[VISOR_" + numero + "]\r\nProtocolo=Tessel\r\nModoBulk=4\r\nPort=" + std::to_string(9000 + n) +
               "\r\nEtiqueta=Tolva " + numero +
               "\r\nformatoPeso=0000.0\r\nUbicacion=" + std::to_string((n - 1) / 8 + 1) + "," +
               std::to_string((n - 1) % 8 + 1) + "\r\n";
    }
    return ini;
}

// Reading the file anew each time, as at the program's start.
void cargarVisores(benchmark::State& estado) {
    EntornoDoble e;
    CompartidoDoble compartido;
    const std::string ini = configuracion(static_cast<int>(estado.range(0)));
    for (auto _ : estado) {
        e.ini(ini);
        const Visores visores(e.entorno, compartido);
        benchmark::DoNotOptimize(visores.cuantos());
    }
}
BENCHMARK(cargarVisores)->Arg(1)->Arg(8)->Arg(64)->Unit(benchmark::kMicrosecond);

// One property of one display, and the file replaced.
void reescribirSeccion(benchmark::State& estado) {
    EntornoDoble e;
    CompartidoDoble compartido;
    e.ini(configuracion(64));
    Visores visores(e.entorno, compartido);
    std::int16_t modo = 0;
    for (auto _ : estado) {
        modo = static_cast<std::int16_t>(1 - modo);
        visores.uno(32)->modoBulk(modo);
        e.perfil.ocio(true);
    }
}
BENCHMARK(reescribirSeccion)->Unit(benchmark::kMicrosecond);

// The check that each edit of a port, caption or place makes.
void comprobarDuplicados(benchmark::State& estado) {
    EntornoDoble e;
    e.ini(configuracion(64));
    for (auto _ : estado) {
        const ctrlVis control(e.entorno);
        benchmark::DoNotOptimize(control.etiquetaExiste("Tolva 65"));
    }
}
BENCHMARK(comprobarDuplicados)->Unit(benchmark::kMicrosecond);

}  // namespace
