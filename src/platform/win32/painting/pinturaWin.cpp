#include "platform/win32/painting/pinturaWin.h"

#include <algorithm>

#include "platform/win32/base/textoWin.h"
#include "platform/win32/base/ventanaWin.h"

namespace sorvanel {

namespace {

COLORREF aColor(Color color) {
    return static_cast<COLORREF>(colorPintable(color));
}

}  // namespace

PinturaWin::PinturaWin(const Escala& escala, FuentesWin& fuentes) : m_escala(escala), m_fuentes(fuentes) {
    m_fuente.alto = 180;  // nine points, until somebody says otherwise
    elegirFuente();
}

void PinturaWin::situarPintura(const Rectangulo& lugar) {
    const bool mismoTamano = lugar.ancho == m_lugar.ancho && lugar.alto == m_lugar.alto;
    m_lugar = lugar;
    const RectPixel r = lugarPixeles();
    const int ancho = r.right - r.left, alto = r.bottom - r.top;
    // A surface that only moves keeps its picture, also where rounding makes it a pixel larger.
    if (!mismoTamano || ancho != m_lienzo.ancho() || alto != m_lienzo.alto()) {
        m_lienzo.dimensionar(ancho, alto, aColor(m_fondo), mismoTamano);
    }
}

void PinturaWin::cambiarEscalaPintura() {
    const RectPixel r = lugarPixeles();
    elegirFuente();
    m_lienzo.dimensionar(r.right - r.left, r.bottom - r.top, aColor(m_fondo), false);
}

void PinturaWin::limpiar() {
    m_lienzo.llenar(m_lienzo.entero(), aColor(m_fondo));
    tocar(nullptr);
}

void PinturaWin::fuente(const Fuente& fuente) {
    if (fuente == m_fuente) return;
    m_fuente = fuente;
    elegirFuente();
}

void PinturaWin::elegirFuente() {
    std::shared_ptr<FuenteWin> nueva = m_fuentes.pedir(m_fuente, m_escala.y.largo(m_fuente.alto));
    if (nueva == m_hecha) return;
    m_seleccion.devolver();
    m_hecha = std::move(nueva);
    m_seleccion = Seleccion(m_lienzo.dc(), m_hecha->get());
}

const std::wstring& PinturaWin::ancho(std::string_view texto) const {
    aAncho(texto, m_texto);
    return m_texto;
}

MedidaTexto PinturaWin::medir(std::string_view texto) const {
    return medirTexto(m_lienzo.dc(), *m_hecha, m_escala, ancho(texto));
}

void PinturaWin::imprimir(float x, float y, std::string_view texto, Color color) {
    const std::wstring& letras = ancho(texto);
    trazarTexto(x, y, letras, color, nullptr);
    const SIZE medida = extension(m_lienzo.dc(), letras);
    const int px = m_escala.x.aPixel(x), py = m_escala.y.aPixel(y);
    // Slanted letters lean out of their box, a little to each side.
    const int vuelo = medida.cy / 3 + 1;
    const RECT tocado{px - vuelo, py, px + medida.cx + vuelo, py + medida.cy};
    tocar(&tocado);
}

void PinturaWin::imprimirEn(const Rectangulo& zona, float x, float y, std::string_view texto, Color color) {
    const RECT recorte = aRECT(m_escala.aPixeles(zona, m_lugar.x, m_lugar.y));
    trazarTexto(x, y, ancho(texto), color, &recorte);
    tocar(&recorte);
}

// Printed at a point, never formatted: no character is a prefix or a line break.
void PinturaWin::trazarTexto(float x, float y, const std::wstring& letras, Color color, const RECT* recorte) {
    SetTextColor(m_lienzo.dc(), aColor(color));
    ExtTextOutW(m_lienzo.dc(), m_escala.x.aPixel(x), m_escala.y.aPixel(y), recorte ? ETO_CLIPPED : 0, recorte,
                letras.data(), static_cast<UINT>(letras.size()), nullptr);
}

void PinturaWin::caja(const Rectangulo& zona, Color color) {
    const RECT r = aRECT(m_escala.aPixeles(zona, m_lugar.x, m_lugar.y));
    m_lienzo.llenar(r, aColor(color));
    tocar(&r);
}

void PinturaWin::poligono(std::span<const Punto> vertices, Color color) {
    if (vertices.size() < 3) return;
    m_vertices.clear();
    for (const Punto& v : vertices) m_vertices.push_back({m_escala.x.aPixelReal(v.x), m_escala.y.aPixelReal(v.y)});
    const auto [x0, x1] = std::minmax_element(m_vertices.begin(), m_vertices.end(),
                                              [](const Punto& a, const Punto& b) { return a.x < b.x; });
    const auto [y0, y1] = std::minmax_element(m_vertices.begin(), m_vertices.end(),
                                              [](const Punto& a, const Punto& b) { return a.y < b.y; });
    const RECT tocado{static_cast<LONG>(x0->x) - 1, static_cast<LONG>(y0->y) - 1, static_cast<LONG>(x1->x) + 2,
                      static_cast<LONG>(y1->y) + 2};
    m_lienzo.pintarForma(tocado, aColor(color), [this](Punto p) { return formas::aPoligono(p, m_vertices); });
    tocar(&tocado);
}

void PinturaWin::desplazar(float twips) {
    const int paso = std::min(m_escala.x.aPixel(twips), m_lienzo.ancho());
    if (paso <= 0) return;
    const int quedan = m_lienzo.ancho() - paso;
    BitBlt(m_lienzo.dc(), 0, 0, quedan, m_lienzo.alto(), m_lienzo.dc(), paso, 0, SRCCOPY);
    m_lienzo.llenar({quedan, 0, m_lienzo.ancho(), m_lienzo.alto()}, aColor(m_fondo));
    tocar(nullptr);
}

void PinturaWin::volcar(HDC destino, const RECT& zona) const {
    BitBlt(destino, zona.left, zona.top, zona.right - zona.left, zona.bottom - zona.top, m_lienzo.dc(), zona.left,
           zona.top, SRCCOPY);
}

}  // namespace sorvanel
