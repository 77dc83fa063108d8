// medir [--veces N] [arranque] [caudal] [banda] [reconexion] [herramienta] [asas]: prints the figures of those parts,
// or of all. Ends with 0; with 1 when a figure shows a fault or could not be had, with 2 for bad usage.

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>
#include <vector>

#include "harness/emisorUDP.h"
#include "partes.h"

namespace {

using namespace sorvanel::medidas;

struct Parte {
    const char* nombre;
    bool (*medir)(int);
    int veces;  // runs, unless told otherwise
};

constexpr Parte PARTES[] = {
    {"arranque", medirArranque, 7},     {"caudal", medirCaudal, 3},           {"banda", medirBanda, 3},
    {"reconexion", medirReconexion, 5}, {"herramienta", medirHerramienta, 3}, {"asas", medirAsas, 3}};

bool ejecutar(const Parte& parte, int veces) {
    try {
        return parte.medir(veces > 0 ? veces : parte.veces);
    } catch (const std::exception& fallo) {
        std::printf("  %s: %s\n", parte.nombre, fallo.what());
        return false;
    }
}

int uso() {
    std::puts("medir [--veces N] [arranque] [caudal] [banda] [reconexion] [herramienta] [asas]");
    return 2;
}

}  // namespace

int main(int argc, char** argv) {
    int veces = 0;
    std::vector<const Parte*> elegidas;
    for (int i = 1; i < argc; ++i) {
        const std::string palabra = argv[i];
        if (palabra == "--veces" && i + 1 < argc) {
            veces = std::atoi(argv[++i]);
            if (veces < 1 || veces > 1000) return uso();
            continue;
        }
        const std::size_t antes = elegidas.size();
        for (const Parte& parte : PARTES)
            if (palabra == parte.nombre) elegidas.push_back(&parte);
        if (elegidas.size() == antes) return uso();
    }
    if (elegidas.empty())
        for (const Parte& parte : PARTES) elegidas.push_back(&parte);
    const sorvanel::pruebas::Winsock winsock;
    bool bien = true;
    for (const Parte* parte : elegidas) bien = ejecutar(*parte, veces) && bien;
    return bien ? 0 : 1;
}
