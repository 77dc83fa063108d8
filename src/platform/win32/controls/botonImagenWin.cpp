#include "platform/win32/controls/botonImagenWin.h"

#include <algorithm>

#include "platform/win32/painting/pictogramas.h"

namespace sorvanel {

namespace {

constexpr const wchar_t* CLASE = L"SorvanelBotonImagen";
constexpr float PARTE_DIBUJO = 0.72F;

}  // namespace

BotonImagenWin::BotonImagenWin(AnfitrionDialogo& anfitrion, IdControl id, int elemento) : ControlDe(anfitrion) {
    crearPulsador(CLASE, id, elemento);
}

void BotonImagenWin::dibujo(Dibujo dibujo) {
    if (dibujo == m_dibujo) return;
    m_dibujo = dibujo;
    invalidar();
}

void BotonImagenWin::pintar(Lienzo& lienzo, const RECT& zona) {
    aspecto::pintarCara(lienzo, zona, escala(), estado());
    const int lado = static_cast<int>(static_cast<float>(std::min(zona.right, zona.bottom)) * PARTE_DIBUJO);
    // The same on both sides, or it looks shifted.
    const int ancho = lado - (zona.right - lado) % 2;
    const int x = (zona.right - ancho) / 2, y = (zona.bottom - ancho) / 2;
    const Color tinta = habilitado() ? aspecto::tintaDe(m_dibujo) : aspecto::LETRA_INHABIL;
    dibujarPictograma(lienzo, m_dibujo, {x, y, x + ancho, y + ancho}, aspecto::aColor(tinta));
}

}  // namespace sorvanel
