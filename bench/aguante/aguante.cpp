// aguante [--breve | --romper] PART: one part of the proof under stress. Ends with 0; with 1 where a limit was passed
// or something did not come, with 2 for bad usage. With --romper the part itself breaks what it checks, and 1 is right.

#include <cstdio>
#include <exception>
#include <string_view>

#include "harness/red.h"
#include "modo.h"
#include "partes.h"
#include "tabla.h"

namespace {

using namespace sorvanel::medidas;

bool aguantarRemojo(const Modo& modo) {
    const int millones = modo.veces(10, 1);
    const bool bien = medirRemojo(millones);
    nota("= " + std::to_string(millones) + " million readings" + (bien ? ", none lost, nothing grew" : ": FAILED"));
    return bien;
}

struct Parte {
    std::string_view nombre;
    bool (*aguantar)(const Modo&);
};
constexpr Parte PARTES[] = {{"corte", aguantarCorte},
                            {"estorbos", aguantarEstorbos},
                            {"basura", aguantarBasura},
                            {"avalancha", aguantarAvalancha},
                            {"reconexiones", aguantarReconexiones},
                            {"configuraciones", aguantarConfiguraciones},
                            {"monitores", aguantarMonitores},
                            {"remojo", aguantarRemojo}};

bool ejecutar(const Parte& parte, const Modo& modo) {
    try {
        const sorvanel::pruebas::Winsock winsock;
        return parte.aguantar(modo);
    } catch (const std::exception& fallo) {
        nota(std::string("= FAILED: ") + fallo.what());
        return false;
    }
}

}  // namespace

int main(int argc, char** argv) {
    Modo modo;
    const Parte* elegida = nullptr;
    for (int i = 1; i < argc; ++i) {
        const std::string_view palabra = argv[i];
        if (palabra == "--breve") modo.breve = true;
        if (palabra == "--romper") modo.romper = true;
        for (const Parte& una : PARTES)
            if (una.nombre == palabra) elegida = &una;
    }
    if (elegida == nullptr) {
        std::puts(
            "aguante [--breve | --romper] "
            "corte|estorbos|basura|avalancha|reconexiones|configuraciones|monitores|remojo");
        return 2;
    }
    return ejecutar(*elegida, modo) ? 0 : 1;
}
