// Displays and links: the bytes are the choices of what happens next.

#include <cstdint>
#include <span>

#include "doubles/modeloVisores.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t largo) {
    std::span<const std::uint8_t> quedan(datos, largo);
    const auto octeto = [&] {
        if (quedan.empty()) return 0U;
        const unsigned primero = quedan.front();
        quedan = quedan.subspan(1);
        return primero;
    };
    sorvanel::ModeloVisores modelo([&](unsigned n) { return (n > 256 ? octeto() * 256 + octeto() : octeto()) % n; });
    while (!quedan.empty()) modelo.paso();
    return 0;
}
