#include "desplazamiento.h"

#include <algorithm>
#include <utility>

#include "escena.h"
#include "harness/pantalla.h"

namespace sorvanel::medidas {
namespace {

constexpr std::size_t PASO_MAXIMO = 500;  // pixels between two looks

bool vacia(const std::vector<std::uint32_t>& columnas) {
    return std::adjacent_find(columnas.begin(), columnas.end(), std::not_equal_to<>()) == columnas.end();
}

// The smallest shift to the left by which the two agree; -1 if none does.
int paso(const std::vector<std::uint32_t>& antes, const std::vector<std::uint32_t>& despues) {
    for (std::size_t s = 0; s < std::min(PASO_MAXIMO, antes.size()); ++s)
        if (std::equal(antes.begin() + static_cast<std::ptrdiff_t>(s), antes.end(), despues.begin()))
            return static_cast<int>(s);
    return -1;
}

}  // namespace

Desplazamiento::Columnas Desplazamiento::columnas() const {
    const pruebas::Fotografia foto(m_zona);
    Columnas sumas(static_cast<std::size_t>(foto.ancho()), 2166136261U);
    for (int x = 0; x < foto.ancho(); ++x)
        for (int y = 0; y < foto.alto(); ++y) {
            std::uint32_t& suma = sumas[static_cast<std::size_t>(x)];
            suma = (suma ^ static_cast<std::uint32_t>(foto.en(x, y))) * 16777619U;
        }
    return sumas;
}

void Desplazamiento::perder() {
    m_antes.clear();
    m_ultimoPaso = -1;
}

void Desplazamiento::mirar() {
    Columnas despues = columnas();
    const double instante = ahora();
    if (vacia(despues)) return perder();
    const int movido = m_antes.empty() ? 0 : paso(m_antes, despues);
    if (movido < 0) {
        ++m_sinCasar;
        perder();
    } else if (!m_antes.empty()) {
        m_segundos += instante - m_instante;
        m_pixeles += movido;
    }
    if (movido > 0) {
        if (m_ultimoPaso >= 0) m_peorPausa = std::max(m_peorPausa, (instante - m_ultimoPaso) * 1000);
        m_ultimoPaso = instante;
    }
    m_antes = std::move(despues);
    m_instante = instante;
}

}  // namespace sorvanel::medidas
