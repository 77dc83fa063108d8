#include "pesos.h"

#include <numeric>
#include <stdexcept>

#include "escena.h"
#include "harness/sistema.h"

namespace sorvanel::medidas {
namespace {

constexpr double PLAZO = 10;  // seconds

std::vector<int> hasta(std::size_t visores) {
    std::vector<int> todos(visores);
    std::iota(todos.begin(), todos.end(), 1);
    return todos;
}

}  // namespace

Pesos::Pesos(const pruebas::Programa& programa, int visores) {
    for (int i = 1; i <= visores; ++i) {
        m_superficies.push_back(programa.control(IdControl::picRep, i));
        if (m_superficies.back() == nullptr) throw std::runtime_error("display " + std::to_string(i) + " is not there");
    }
}

std::string Pesos::texto(int visor) const {
    return pruebas::pesoDicho(pruebas::texto(m_superficies[static_cast<std::size_t>(visor - 1)]));
}

std::vector<int> Pesos::sinDecir(const std::string& esperado) const {
    std::vector<int> faltan = hasta(m_superficies.size());
    for (const double fin = ahora() + PLAZO;; Sleep(1)) {
        std::erase_if(faltan, [&](int visor) { return texto(visor) == esperado; });
        if (faltan.empty() || ahora() > fin) return faltan;
    }
}

std::vector<int> Pesos::distintos(const std::string& esperado) const {
    std::vector<int> otros = hasta(m_superficies.size());
    std::erase_if(otros, [&](int visor) { return texto(visor) == esperado; });
    return otros;
}

std::string quienes(const std::vector<int>& visores, const Pesos& pesos) {
    if (visores.empty()) return "no display";
    return std::to_string(visores.size()) + " displays, " + std::to_string(visores.front()) + " to " +
           std::to_string(visores.back()) + "; the first of them says \"" + pesos.texto(visores.front()) + "\"";
}

}  // namespace sorvanel::medidas
