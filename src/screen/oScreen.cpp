#include "screen/oScreen.h"

#include <algorithm>

namespace sorvanel {

namespace {

constexpr const char* SECCION = "MONITORES";
constexpr const char* CLAVE = "EnUso";

float enTwips(std::int32_t pixeles, float twipsPorPixel) {
    return static_cast<float>(pixeles) * twipsPorPixel;
}

}  // namespace

std::int16_t Monitores::primario() const {
    const auto hallado = std::find_if(m_tabla.begin(), m_tabla.end(), [](const Monitor& m) { return m.primario; });
    return hallado == m_tabla.end() ? std::int16_t{0} : static_cast<std::int16_t>(hallado - m_tabla.begin() + 1);
}

Monitor Monitores::monitor(std::int16_t indice) const {
    const std::int16_t usado = existe(indice) ? indice : primario();
    return existe(usado) ? m_tabla[static_cast<std::size_t>(usado - 1)] : Monitor{};
}

oScreen::oScreen(const comun& com, SistemaMonitores& sistema)
    : m_com(&com), m_monitores(sistema), m_actual(com.valDflt(com.consultar(SECCION), CLAVE, m_monitores.primario())) {}

bool oScreen::monitorActual(std::int16_t indice) {
    m_actual = existe(indice) ? indice : m_monitores.primario();
    m_com->abrir(SECCION).escribir(CLAVE, std::to_string(m_actual));
    return m_actual == indice;
}

float oScreen::X0() const {
    const Monitor m = monitor();
    return enTwips(m.area.left, m.twipsPorPixelX);
}

float oScreen::Y0() const {
    const Monitor m = monitor();
    return enTwips(m.area.top, m.twipsPorPixelY);
}

float oScreen::Width() const {
    const Monitor m = monitor();
    return enTwips(m.area.right - m.area.left, m.twipsPorPixelX);
}

float oScreen::Height() const {
    const Monitor m = monitor();
    return enTwips(m.area.bottom - m.area.top, m.twipsPorPixelY);
}

}  // namespace sorvanel
