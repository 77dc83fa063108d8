// Any bytes as a weight format, any number as the weight: it ends, the result is bounded and has no comma.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "display/formatoPeso.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t largo) {
    std::int64_t milesimas = 0;
    if (largo < sizeof milesimas) return 0;
    std::memcpy(&milesimas, datos, sizeof milesimas);
    const std::string_view formato(reinterpret_cast<const char*>(datos) + sizeof milesimas, largo - sizeof milesimas);

    std::string texto;
    sorvanel::FormatoPeso(formato).escribir(milesimas, texto);
    constexpr std::size_t CIFRAS_Y_SIGNO = 20;
    if (texto.find(',') != std::string::npos || texto.size() > formato.size() + CIFRAS_Y_SIGNO) std::abort();
    // A format that is nothing but places shows each digit of the weight's whole part.
    const bool soloLugares = !formato.empty() && formato.find_first_not_of("#0") == std::string_view::npos;
    if (soloLugares && milesimas >= 0) {
        const std::uint64_t entero = (static_cast<std::uint64_t>(milesimas) + 500) / 1000;
        const std::string cifras = entero > 0 ? std::to_string(entero) : "";
        const std::size_t ceros = texto.size() - std::min(texto.size(), cifras.size());
        if (!texto.ends_with(cifras) || texto.find_first_not_of('0') < ceros) std::abort();
    }
    return 0;
}
