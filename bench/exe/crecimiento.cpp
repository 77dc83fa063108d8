#include "crecimiento.h"

#include <string>

#include "recursos.h"
#include "tabla.h"

namespace sorvanel::medidas {

Recursos mirar(const Observado& programa) {
    return {programa.memoriaPrivada(), programa.memoriaResidente(), objetosGDI(programa.manejador()), objetosUSER(),
            manejadores(programa.manejador())};
}

namespace {

// How much more there may be at the end than after the first minute. One lost with each reading, display, silence or
// session would be tens at least.
constexpr long long KIB_DE_MAS = 1024;
constexpr long OBJETOS_DE_MAS = 4;
constexpr long MANEJADORES_DE_MAS = 4;

// True when it did not grow by more than that.
bool cabe(const char* nombre, long long antes, long long despues, long long deMas) {
    const bool bien = despues - antes <= deMas;
    nota(std::string(bien ? "ok     " : "GREW   ") + nombre + ": " + std::to_string(antes) + " to " +
         std::to_string(despues) + " (at most " + std::to_string(deMas) + " more)");
    return bien;
}

}  // namespace

bool comparar(const Recursos& antes, const Recursos& despues) {
    bool bien = cabe("private KiB", antes.privada, despues.privada, KIB_DE_MAS);
    bien = cabe("resident KiB", antes.residente, despues.residente, KIB_DE_MAS) && bien;
    bien = cabe("GDI", antes.gdi, despues.gdi, OBJETOS_DE_MAS) && bien;
    bien = cabe("USER", antes.user, despues.user, OBJETOS_DE_MAS) && bien;
    return cabe("handles", antes.manejadores, despues.manejadores, MANEJADORES_DE_MAS) && bien;
}

}  // namespace sorvanel::medidas
