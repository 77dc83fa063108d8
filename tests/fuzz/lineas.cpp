// What the network brings, in datagrams of any cut, is handed over in the same lines as if it had
// come in one piece, and nothing is kept that has no end.

#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "doubles/entornoDoble.h"
#include "links/frWsk.h"

namespace {

using namespace sorvanel;

class Anotador : public SuscriptorPeso {
public:
    std::vector<std::string> lineas;
    std::int32_t port() const override { return 3001; }
    std::int16_t modoBulk() const override { return 0; }
    bool frWsk_refrescoPeso(std::string_view linea) override {
        lineas.emplace_back(linea);
        return true;
    }
    bool mmTCP_refrescoPeso(std::int16_t, std::int16_t, std::string_view) override { return false; }
};

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
    Anotador visor;
    frWsk enlace(e.fabrica, e.reloj);
    if (!enlace.enMarcha(visor)) std::abort();
    ZocaloDoble& zocalo = *e.fabrica.ultimoZocalo();
    std::string todo;
    // Each datagram's length is the byte before it.
    for (std::size_t i = 0; i < largo;) {
        const std::size_t trozo = std::min<std::size_t>(datos[i] + std::size_t{1}, largo - i - 1);
        const std::string datagrama(reinterpret_cast<const char*>(datos) + i + 1, trozo);
        zocalo.llegar(datagrama);
        todo += datagrama;
        i += trozo + 1;
    }
    if (todo.size() < frWsk::BUFER_MAXIMO && visor.lineas != cortar(todo)) std::abort();
    return 0;
}
