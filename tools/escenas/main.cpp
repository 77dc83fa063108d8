// escenas FOLDER [ACT...]: plays those acts, or all, and leaves a picture of the primary monitor for each scene. The
// Sorvanel.exe beside this program is what is seen. Ends with 0; with 1 when a scene could not be played.

#include "escena.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <string_view>

namespace {

using namespace sorvanel;

bool jugar(escenas::Escena& escena, const escenas::Acto& acto) {
    bool bien = true;
    try {
        acto.jugar(escena);
    } catch (const std::exception& fallo) {
        std::printf("%ls: %s\n", acto.nombre, fallo.what());
        bien = false;
    }
    escena.vaciar();
    return bien;
}

}  // namespace

int wmain(int cuantos, wchar_t** palabras) {
    if (cuantos < 2) {
        std::puts("escenas FOLDER [ACT...]");
        return 2;
    }
    SetProcessDPIAware();  // pixels are those of the screen
    const std::vector<std::wstring_view> pedidos(palabras + 2, palabras + cuantos);
    bool bien = true;
    try {
        const pruebas::Winsock winsock;
        escenas::Escena escena(palabras[1]);
        for (const auto* actos : {&escenas::PARRILLAS, &escenas::HERRAMIENTAS, &escenas::MANUAL})
            for (const escenas::Acto& acto : *actos)
                if (pedidos.empty() || std::find(pedidos.begin(), pedidos.end(), acto.nombre) != pedidos.end())
                    bien = jugar(escena, acto) && bien;
    } catch (const std::exception& fallo) {
        std::printf("%s\n", fallo.what());
        bien = false;
    }
    return bien ? 0 : 1;
}
