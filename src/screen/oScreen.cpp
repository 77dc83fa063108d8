#include "screen/oScreen.h"

#include "config/comun.h"

namespace sorvanel {

namespace {

constexpr const char* SECCION = "MONITORES";
constexpr const char* CLAVE = "EnUso";

float enTwips(std::int32_t pixeles, float twipsPorPixel) {
    return static_cast<float>(pixeles) * twipsPorPixel;
}

}  // namespace

oScreen::oScreen(const Entorno& entorno) : m_entorno(&entorno), m_monitores(entorno.monitores) {
    const comun com(entorno);
    m_actual = com.valDflt(com.abrir(SECCION), CLAVE, m_monitores.primario());
}

void oScreen::monitorActual(std::int16_t indice) {
    m_actual = m_monitores.existe(indice) ? indice : m_monitores.primario();
    comun(*m_entorno).abrir(SECCION).escribir(CLAVE, std::to_string(m_actual));
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
