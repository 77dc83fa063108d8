#include "screen/oScreen.h"

namespace sorvanel {

namespace {

constexpr const char* SECCION = "MONITORES";
constexpr const char* CLAVE = "EnUso";

float enTwips(std::int32_t pixeles, float twipsPorPixel) {
    return static_cast<float>(pixeles) * twipsPorPixel;
}

}  // namespace

oScreen::oScreen(const comun& com, SistemaMonitores& sistema)
    : m_com(&com),
      m_monitores(sistema),
      m_actual(com.valDflt(com.consultar(SECCION), CLAVE, m_monitores.primario())) {}

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
