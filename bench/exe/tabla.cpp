#include "tabla.h"

#include <algorithm>
#include <cstdio>

namespace sorvanel::medidas {
namespace {

// Seen at once also where the output is a pipe.
void soltar() {
    std::fflush(stdout);
}

}  // namespace

double mediana(std::vector<double> valores) {
    if (valores.empty()) return 0;
    std::sort(valores.begin(), valores.end());
    const std::size_t medio = valores.size() / 2;
    return valores.size() % 2 == 1 ? valores[medio] : (valores[medio - 1] + valores[medio]) / 2;
}

double mayor(const std::vector<double>& valores) {
    return valores.empty() ? 0 : *std::max_element(valores.begin(), valores.end());
}

void titulo(const std::string& texto) {
    std::printf("\n%s\n", texto.c_str());
    soltar();
}

void fila(const std::string& nombre, const std::vector<double>& programa, const std::vector<double>& desnudo,
          const char* unidad) {
    const double suyo = mediana(programa);
    const double medida = mediana(desnudo);
    std::printf("  %-46s %10.3f %-5s beside %9.3f", nombre.c_str(), suyo, unidad, medida);
    if (medida > 0) {
        std::printf("   ratio %6.2f\n", suyo / medida);
    } else {
        std::printf("   no ratio\n");
    }
    soltar();
}

void fila(const std::string& nombre, const std::vector<double>& valores, const char* unidad) {
    const auto [menor, tope] = std::minmax_element(valores.begin(), valores.end());
    if (valores.empty()) {
        std::printf("  %-46s no figure\n", nombre.c_str());
    } else {
        std::printf("  %-46s %10.3f %-5s (%.3f to %.3f)\n", nombre.c_str(), mediana(valores), unidad, *menor, *tope);
    }
    soltar();
}

void nota(const std::string& texto) {
    std::printf("  %s\n", texto.c_str());
    soltar();
}

}  // namespace sorvanel::medidas
