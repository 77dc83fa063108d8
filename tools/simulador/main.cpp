#include <exception>
#include <random>
#include <string>
#include <vector>

#include "simulador/opciones.h"
#include "simulador/papeles.h"
#include "simulador/red.h"
#include "simulador/sistema.h"

namespace {

using namespace sorvanel::simulador;

int ejecutar(const std::vector<std::string>& argumentos) {
    const Opciones opciones = leerOpciones(argumentos);
    if (opciones.ayuda) {
        decir(textoAyuda());
        return 0;
    }
    iniciarRed();
    // Chance that can be told, so that a run worth repeating can be repeated.
    const std::int64_t semilla = opciones.semilla ? *opciones.semilla : std::random_device{}();
    decir("Indicadores: " + std::to_string(opciones.indicadores()) + ". Semilla: " + std::to_string(semilla) +
          ". Ctrl+C para terminar.\n");
    if (!opciones.concentrador) return indicar(opciones, static_cast<std::uint64_t>(semilla)) ? 0 : 1;
    concentrar(opciones, static_cast<std::uint64_t>(semilla));
    return 0;
}

}  // namespace

int main(int cuantos, char** valores) {
    const Consola consola;
    try {
        return ejecutar({valores + (cuantos > 0 ? 1 : 0), valores + cuantos});
    } catch (const ErrorUso& error) {
        quejarse("simulador: " + std::string(error.what()) + "\nCon --help se ven las opciones.\n");
        return 2;
    } catch (const std::exception& error) {
        quejarse("simulador: " + std::string(error.what()) + "\n");
        return 1;
    }
}
