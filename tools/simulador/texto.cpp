#include "simulador/texto.h"

#include <array>
#include <cstdio>

namespace sorvanel::simulador {

namespace {

double segundos(Instante tiempo) {
    return std::chrono::duration<double>(tiempo).count();
}

}  // namespace

std::string suceso(Instante cuando, const std::string& que) {
    std::array<char, 32> texto{};
    std::snprintf(texto.data(), texto.size(), "%10.3f s  ", segundos(cuando));
    return texto.data() + que + "\n";
}

std::string visible(std::string_view datos) {
    constexpr std::string_view BYTES = "\r\n\t\\";
    constexpr std::string_view LETRAS = "rnt\\";
    std::string texto;
    for (const char c : datos) {
        const auto byte = static_cast<unsigned char>(c);
        if (const std::size_t lugar = BYTES.find(c); lugar != std::string_view::npos) {
            texto += {'\\', LETRAS[lugar]};
        } else if (byte < 0x20 || byte > 0x7E) {
            std::array<char, 8> cifras{};
            std::snprintf(cifras.data(), cifras.size(), "\\x%02X", static_cast<unsigned>(byte));
            texto += cifras.data();
        } else {
            texto += c;
        }
    }
    return texto;
}

std::string resumen(std::int64_t cuantas, const std::string& cosas, Instante tiempo) {
    const double ritmo = tiempo > Instante{0} ? static_cast<double>(cuantas) / segundos(tiempo) : 0;
    std::array<char, 96> cifras{};
    std::snprintf(cifras.data(), cifras.size(), " en %.3f s (%.1f por segundo)\n", segundos(tiempo), ritmo);
    return "Enviadas: " + std::to_string(cuantas) + " " + cosas + cifras.data();
}

}  // namespace sorvanel::simulador
