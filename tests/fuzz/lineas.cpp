// What the network brings, in datagrams of any cut, is handed over in the same lines as if it had
// come in one piece, and nothing is kept that has no end.

#include <algorithm>
#include <cstdlib>

#include "doubles/entornoDoble.h"
#include "doubles/suscriptorDoble.h"
#include "links/frWsk.h"

namespace {

using namespace sorvanel;

std::vector<std::string> cortar(const std::string& todo) {
    std::vector<std::string> lineas;
    std::size_t inicio = 0;
    for (std::size_t fin = 0; (fin = todo.find('\r', inicio)) != std::string::npos; inicio = fin + 1) {
        lineas.push_back(todo.substr(inicio, fin - inicio));
    }
    return lineas;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t largo) {
    EntornoDoble e;
    SuscriptorDoble visor;
    frWsk enlace(e.fabrica, e.reloj);
    if (!enlace.enMarcha(visor)) std::abort();
    std::string todo;
    // Each datagram's length is the byte before it.
    for (std::size_t i = 0; i < largo;) {
        const std::size_t trozo = std::min<std::size_t>(datos[i] + std::size_t{1}, largo - i - 1);
        const std::string datagrama(reinterpret_cast<const char*>(datos) + i + 1, trozo);
        e.fabrica.ultimoZocalo()->llegar(datagrama);
        todo += datagrama;
        i += trozo + 1;
    }
    if (todo.size() < frWsk::BUFER_MAXIMO && visor.lineas != cortar(todo)) std::abort();
    return 0;
}
