#include "platform/win32/controls/marcoColorWin.h"

namespace sorvanel {

namespace {

constexpr const wchar_t* CLASE = L"SorvanelMarcoColor";
constexpr float ORLA = 3;  // between the line and the colour, design pixels

}  // namespace

MarcoColorWin::MarcoColorWin(AnfitrionDialogo& anfitrion, IdControl id, int elemento) : ControlDe(anfitrion) {
    crearPulsador(CLASE, id, elemento);
}

void MarcoColorWin::color(Color color) {
    if (color == m_color) return;
    m_color = color;
    invalidar();
}

// The colour lies on a button's face: so it is seen as one also where it is white.
void MarcoColorWin::pintar(Lienzo& lienzo, const RECT& zona) {
    aspecto::pintarCara(lienzo, zona, escala(), estado());
    const int orla = px(ORLA);
    const RECT muestra{orla, orla, zona.right - orla, zona.bottom - orla};
    if (muestra.right <= muestra.left || muestra.bottom <= muestra.top) return;
    aspecto::pintarCaja(lienzo, muestra, px(aspecto::RADIO_CAJA), px(1), aspecto::BORDE_CAMPO, colorPintable(m_color));
}

}  // namespace sorvanel
