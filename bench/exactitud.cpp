// Sends each of the 100 000 000 weights that a frame can carry through the four usual formats and compares
// the text with what the digits give on paper. Ends with 0 when all are equal.
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <string>

#include "display/formatoPeso.h"
#include "display/trama.h"
#include "doubles/oraculoPeso.h"

namespace {

struct Caso {
    const char* texto;
    std::size_t enteros, decimales;
    sorvanel::FormatoPeso formato{texto};
};

// The next group of digits; false after the last.
bool siguiente(std::string& trama) {
    std::size_t i = trama.size();
    while (trama[--i] == '9') trama[i] = '0';
    if (trama[i] == '+') return false;
    ++trama[i];
    return true;
}

}  // namespace

int main() {
    const Caso casos[] = {{"####0", 1, 0}, {"0000.0", 4, 1}, {"#0.00", 1, 2}, {"0.000", 1, 3}};
    constexpr int AVISOS = 20;
    const auto inicio = std::chrono::steady_clock::now();
    std::string trama = "XNZ+00000000";
    std::string obtenido;
    long comparados = 0;
    long distintos = 0;
    do {
        const auto leida = sorvanel::leerTrama(trama);
        for (const Caso& caso : casos) {
            obtenido.clear();
            if (leida) caso.formato.escribir(leida->milesimas, obtenido);
            const std::string esperado = sorvanel::oraculoPeso(trama.substr(4), caso.enteros, caso.decimales);
            ++comparados;
            if (obtenido == esperado) continue;
            if (++distintos <= AVISOS) {
                std::printf("%s \"%s\": \"%s\", expected \"%s\"\n", trama.c_str(), caso.texto, obtenido.c_str(),
                            esperado.c_str());
            }
        }
    } while (siguiente(trama));
    const std::chrono::duration<double> tiempo = std::chrono::steady_clock::now() - inicio;
    std::printf("%ld compared, %ld different, %.0f s\n", comparados, distintos, tiempo.count());
    return distintos == 0 && comparados > 0 ? 0 : 1;
}
