#pragma once

#include <windows.h>

#include <cstdint>

#include "platform/win32/base/manejadores.h"
#include "platform/win32/painting/formas.h"
#include "platform/win32/painting/fuentesWin.h"

namespace sorvanel {

// The background of an empty text: a filled box for which no brush is made. False where the system fails.
bool llenarZona(HDC destino, const RECT& zona, COLORREF color);

// A picture in memory with a device context to paint on it, device pixels.
class Lienzo {
public:
    Lienzo();

    // False when there is no device context, or no memory for a picture that was asked for.
    bool utilizable() const { return m_dc && (m_mapa || m_ancho == 0 || m_alto == 0); }
    HDC dc() const { return m_dc.get(); }
    int ancho() const { return m_ancho; }
    int alto() const { return m_alto; }
    RECT entero() const { return {0, 0, m_ancho, m_alto}; }

    // A new picture of that size, filled with the colour. With `conservar`, what fits of the old
    // one is kept.
    void dimensionar(int ancho, int alto, COLORREF fondo, bool conservar);
    // At least that size; the picture is undefined when it had to grow. For passing use.
    void alcanzar(int ancho, int alto);
    bool llenar(const RECT& zona, COLORREF color) { return llenarZona(dc(), zona, color); }
    // In which is printed and measured from now on, unless another is selected meanwhile.
    void letra(const std::shared_ptr<FuenteWin>& fuente) { m_letra.poner(m_dc.get(), fuente); }
    // While it lives, what is painted at that point comes to the picture's top-left corner.
    class Origen {
    public:
        Origen(Lienzo& lienzo, POINT punto) : m_lienzo(lienzo), m_antes(lienzo.m_origen) { lienzo.ponerOrigen(punto); }
        ~Origen() { m_lienzo.ponerOrigen(m_antes); }
        Origen(const Origen&) = delete;
        Origen& operator=(const Origen&) = delete;

    private:
        Lienzo& m_lienzo;
        const POINT m_antes;
    };
    // A shape with smooth edges: `distancia` tells for a point, device pixels, how far it lies from
    // the shape's edge, negative inside (never more than it does; a union or a difference may tell
    // less). Nothing outside the zone is touched.
    template <typename Distancia>
    void pintarForma(RECT zona, COLORREF color, Distancia distancia);

private:
    void ponerOrigen(POINT punto);

    POINT m_origen{};
    int m_ancho = 0;
    int m_alto = 0;
    std::uint32_t* m_puntos = nullptr;  // the picture's own, row by row from the top
    // In this order: what is selected leaves the context before it is deleted.
    DCMemoria m_dc;
    MapaBits m_mapa;
    Seleccion m_seleccion;
    LetraPuesta m_letra;
};

template <typename Distancia>
void Lienzo::pintarForma(RECT zona, COLORREF color, Distancia distancia) {
    if (!m_puntos) return;
    zona = {std::max(zona.left, m_origen.x), std::max(zona.top, m_origen.y),
            std::min<LONG>(zona.right, m_origen.x + m_ancho), std::min<LONG>(zona.bottom, m_origen.y + m_alto)};
    const std::uint32_t tinta = RGB(GetBValue(color), GetGValue(color), GetRValue(color));
    GdiFlush();  // what the system still had to paint there comes first
    for (LONG y = zona.top; y < zona.bottom; ++y) {
        std::uint32_t* fila = m_puntos + static_cast<std::ptrdiff_t>(y - m_origen.y) * m_ancho - m_origen.x;
        for (LONG x = zona.left; x < zona.right;) {
            const float d = distancia({static_cast<float>(x) + 0.5F, static_cast<float>(y) + 0.5F});
            const LONG hasta = std::min(x + static_cast<LONG>(formas::iguales(d)), zona.right);
            const std::uint32_t parte = formas::cobertura(d);
            if (parte == 256) {
                std::fill(fila + x, fila + hasta, tinta);
            } else if (parte > 0) {
                fila[x] = formas::mezclar(fila[x], tinta, parte);
            }
            x = hasta;
        }
    }
}

}  // namespace sorvanel
