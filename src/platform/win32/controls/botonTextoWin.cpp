#include "platform/win32/controls/botonTextoWin.h"

#include <algorithm>

#include "platform/win32/painting/pictogramas.h"

namespace sorvanel {

namespace {

constexpr const wchar_t* CLASE = L"SorvanelBotonTexto";

// Design pixels.
constexpr float MARGEN = 8, SEPARACION = 6, DIBUJO = 18;

}  // namespace

BotonTextoWin::BotonTextoWin(AnfitrionDialogo& anfitrion, IdControl id, int elemento) : ControlDe(anfitrion) {
    crearPulsador(CLASE, id, elemento);
    tomaFoco(true);
}

void BotonTextoWin::texto(const std::string& texto) {
    std::wstring nuevo = aAncho(texto);
    if (nuevo == m_texto) return;
    m_texto = std::move(nuevo);
    if (hwnd() && !m_conNombre) SetWindowTextW(hwnd(), m_texto.c_str());
    invalidar();
}

void BotonTextoWin::ponerNombre(const std::wstring& texto) {
    m_conNombre = !texto.empty();
    nombrarConTexto(m_conNombre ? texto : m_texto);
}

void BotonTextoWin::dibujo(Dibujo dibujo) {
    if (dibujo == m_dibujo) return;
    m_dibujo = dibujo;
    invalidar();
}

void BotonTextoWin::pintar(Lienzo& lienzo, const RECT& zona) {
    aspecto::pintarCara(lienzo, zona, escala(), estado());
    HDC dc = lienzo.dc();
    SIZE medida{};
    GetTextExtentPoint32W(dc, m_texto.data(), static_cast<int>(m_texto.size()), &medida);
    int lado = m_dibujo == Dibujo::ninguno ? 0 : px(DIBUJO);
    lado -= lado > 0 ? (zona.bottom - lado) % 2 : 0;
    const int hueco = lado > 0 && medida.cx > 0 ? px(SEPARACION) : 0;
    const int margen = px(MARGEN);
    int x = std::max<int>(margen, (zona.right - lado - hueco - medida.cx) / 2);
    if (lado > 0) {
        const int y = (zona.bottom - lado) / 2;
        dibujarPictograma(lienzo, m_dibujo, {x, y, x + lado, y + lado},
                          aspecto::aColor(habilitado() ? aspecto::tintaDe(m_dibujo) : aspecto::LETRA_INHABIL));
        x += lado + hueco;
    }
    RECT sitio{x, zona.top, std::max<LONG>(zona.right - margen / 2, x), zona.bottom};
    SetTextColor(dc, aspecto::aColor(habilitado() ? aspecto::LETRA : aspecto::LETRA_INHABIL));
    DrawTextW(dc, m_texto.data(), static_cast<int>(m_texto.size()), &sitio,
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
}

}  // namespace sorvanel
