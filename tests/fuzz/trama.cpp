// Any bytes as a weight frame: what is accepted means exactly what its characters say.
#include "display/trama.h"

#include <cstdint>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t largo) {
    const std::string texto(reinterpret_cast<const char*>(datos), largo);
    const auto trama = sorvanel::leerTrama(texto);
    if (!trama) return 0;
    // Written again from its meaning, only the letters that say nothing may differ.
    std::string cifras = std::to_string(trama->milesimas);
    cifras.insert(0, 8 - cifras.size(), '0');
    const bool igual = texto.size() == 12 && (texto[0] == 'E') == trama->E && (texto[1] == 'C') == trama->C &&
                       (texto[2] == 'D') == trama->D && texto.substr(3) == "+" + cifras;
    if (!igual) std::abort();
    return 0;
}
