#include "muestrario.h"

#include <random>

namespace sorvanel::medidas {
namespace {

using Azar = std::mt19937;

std::size_t hasta(Azar& azar, std::size_t tope) {
    return std::uniform_int_distribution<std::size_t>(0, tope)(azar);
}

std::string alAzar(Azar& azar, std::size_t cuantos) {
    std::string bytes(cuantos, '\0');
    for (char& uno : bytes) uno = static_cast<char>(hasta(azar, 255));
    return bytes;
}

std::string utf16(const std::string& texto) {
    std::string bytes = "\xff\xfe";
    for (const char una : texto) bytes += {una, '\0'};
    return bytes;
}

std::string repetido(const std::string& trozo, int veces) {
    std::string todo;
    for (int i = 0; i < veces; ++i) todo += trozo;
    return todo;
}

// Each value of the good file replaced by that.
std::string conValores(const std::string& buena, const std::string& valor) {
    std::string todo;
    bool dentro = false;
    for (const char una : buena) {
        if (una == '\r') dentro = false;
        if (!dentro) todo += una;
        if (una != '=') continue;
        dentro = true;
        todo += valor;
    }
    return todo;
}

std::string estropeada(Azar& azar, std::string bytes) {
    switch (hasta(azar, 2)) {
        case 0:
            for (std::size_t veces = 1 + hasta(azar, 9); veces > 0; --veces)
                bytes[hasta(azar, bytes.size() - 1)] = static_cast<char>(hasta(azar, 255));
            return bytes;
        case 1:
            return bytes.substr(0, hasta(azar, bytes.size() - 1));
        default:
            return bytes.insert(hasta(azar, bytes.size()), bytes.substr(hasta(azar, bytes.size() - 1)));
    }
}

}  // namespace

std::vector<Basura> muestrario(const std::string& buena, int cuantasAlAzar, unsigned semilla) {
    Azar azar(semilla);
    constexpr std::size_t MEGA = 1U << 20U;
    std::vector<Basura> todas{
        {"nothing", ""},
        {"one byte", "["},
        {"64 KiB by chance", alAzar(azar, 1U << 16U)},
        {"3 MiB by chance", alAzar(azar, 3 * MEGA)},
        {"5 MiB by chance", alAzar(azar, 5 * MEGA)},
        {"NULs", std::string(1000, '\0')},
        {"the good one behind 1000 NULs", std::string(1000, '\0') + buena},
        {"UTF-16", utf16(buena)},
        {"UTF-8 with its mark", "\xef\xbb\xbf" + buena},
        {"Windows-1252 and UTF-8 mixed", "[MENSAJE]\r\nTexto=A\xf1o a\xc3\xb1o \x80 \xe2\x82\xac\xff\xc3\r\n" + buena},
        {"half a line", buena.substr(0, buena.rfind('=') + 1)},
        {"lines ended by CR alone", "[RETICULA]\rFilasColumnas=2x2\r[VISOR_1]\rPort=1\r"},
        {"one line of 1 MiB", "[VISOR_1]\r\nPort=" + std::string(MEGA, '7')},
        {"100 000 sections", repetido("[VISOR_1]\r\n", 100'000)},
        {"the good one 200 times", repetido(buena, 200)},
        {"numbers far too large", conValores(buena, "99999999999999999999")},
        {"negative numbers", conValores(buena, "-2147483649")},
        {"no numbers", conValores(buena, "%s%n\x01\xff")},
        {"a folder of that name", "", true}};
    for (int i = 1; i <= cuantasAlAzar; ++i)
        todas.push_back({"the good one spoilt, " + std::to_string(i), estropeada(azar, buena)});
    return todas;
}

}  // namespace sorvanel::medidas
