// medir [--veces N] [PART ...]: prints the figures of those parts, or of all but the soak. Ends with 0; with 1 when a
// figure shows a fault or could not be had, with 2 for bad usage.

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>
#include <vector>

#include "harness/red.h"
#include "partes.h"

namespace {

using namespace sorvanel::medidas;

struct Parte {
    const char* nombre;
    bool (*medir)(int);
    int veces;     // unless told otherwise
    bool elegida;  // so too
};

bool ejecutar(const Parte& parte, int veces) {
    try {
        return parte.medir(veces > 0 ? veces : parte.veces);
    } catch (const std::exception& fallo) {
        std::printf("  %s: %s\n", parte.nombre, fallo.what());
        return false;
    }
}

}  // namespace

int main(int argc, char** argv) {
    Parte partes[] = {{"arranque", medirArranque, 7, true},
                      {"caudal", medirCaudal, 3, true},
                      {"banda", medirBanda, 3, true},
                      {"reconexion", medirReconexion, 5, true},
                      {"herramienta", medirHerramienta, 3, true},
                      {"asas", medirAsas, 3, true},
                      {"remojo", medirRemojo, 10, false}};
    int veces = 0;
    std::vector<std::string> pedidas;
    for (int i = 1; i < argc; ++i) {
        pedidas.emplace_back(argv[i]);
        if (pedidas.back() != "--veces" || i + 1 == argc) continue;
        pedidas.pop_back();
        veces = std::atoi(argv[++i]);
    }
    std::size_t conocidas = pedidas.empty() ? 0 : pedidas.size();
    for (Parte& parte : partes) {
        const bool pedida = std::find(pedidas.begin(), pedidas.end(), parte.nombre) != pedidas.end();
        if (!pedidas.empty()) parte.elegida = pedida;
        conocidas -= pedida ? 1 : 0;
    }
    if (conocidas != 0 || veces < 0 || veces > 1000) {
        std::puts("medir [--veces N] [arranque] [caudal] [banda] [reconexion] [herramienta] [asas] [remojo]");
        return 2;
    }
    const sorvanel::pruebas::Winsock winsock;
    bool bien = true;
    for (const Parte& parte : partes)
        if (parte.elegida) bien = ejecutar(parte, veces) && bien;
    return bien ? 0 : 1;
}
