#include "platform/win32/painting/apariencia.h"

#include <algorithm>

namespace sorvanel::apariencia {

namespace {

constexpr Color VERDE = rgb(0x15, 0x87, 0x3C);
constexpr Color GRANATE = rgb(0xC4, 0x24, 0x1F);
constexpr Color AMBAR = rgb(0xB8, 0x66, 0x00);
constexpr Color PIZARRA = rgb(0x2C, 0x4A, 0x66);

}  // namespace

Color lineaDe(const Estado& estado) {
    if (estado.foco) return FOCO;
    return estado.encima || estado.pulsado ? BORDE_ENCIMA : BORDE;
}

Color caraDe(const Estado& estado) {
    if (!estado.habilitado) return CARA_INHABIL;
    if (estado.pulsado) return CARA_PULSADA;
    return estado.encima ? CARA_ENCIMA : CARA;
}

Color tintaDe(Dibujo dibujo) {
    switch (dibujo) {
        case Dibujo::marcha:
        case Dibujo::aceptar:
            return VERDE;
        case Dibujo::apagar:
        case Dibujo::cancelar:
        case Dibujo::eliminar:
            return GRANATE;
        case Dibujo::pausa:
            return AMBAR;
        default:
            return PIZARRA;
    }
}

// The line first, as a full shape, and the face over it; without a face, as a ring.
void pintarCaja(Lienzo& lienzo, const RECT& caja, int radio, int grosor, Color linea, Color cara, const RECT* recorte) {
    RECT zona = caja;
    if (recorte && !IntersectRect(&zona, &caja, recorte)) return;
    const auto distancia = [&](Punto p, int dentro) {
        const auto d = static_cast<float>(dentro);
        const Rectangulo r{static_cast<float>(caja.left) + d, static_cast<float>(caja.top) + d,
                           static_cast<float>(caja.right - caja.left) - 2 * d,
                           static_cast<float>(caja.bottom - caja.top) - 2 * d};
        return formas::aRedondeado(p, r, static_cast<float>(std::max(radio - dentro, 0)));
    };
    if (cara < 0) {
        lienzo.pintarForma(zona, aColor(linea),
                           [&](Punto p) { return std::max(distancia(p, 0), -distancia(p, grosor)); });
        return;
    }
    lienzo.pintarForma(zona, aColor(linea), [&](Punto p) { return distancia(p, 0); });
    lienzo.pintarForma(zona, aColor(cara), [&](Punto p) { return distancia(p, grosor); });
}

void escribir(HDC dc, const std::wstring& texto, RECT sitio, Color tinta, UINT ajuste) {
    SetTextColor(dc, aColor(tinta));
    DrawTextW(dc, texto.data(), static_cast<int>(texto.size()), &sitio,
              ajuste | DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
}

void pintarCara(Lienzo& lienzo, const RECT& caja, const Escala& escala, const Estado& estado) {
    pintarCaja(lienzo, caja, px(escala, RADIO), px(escala, estado.foco ? GROSOR_FOCO : 1), lineaDe(estado),
               caraDe(estado));
}

void pintarCampo(Lienzo& lienzo, const RECT& caja, const Escala& escala, const Estado& estado, Color cara) {
    Color linea = estado.foco ? FOCO : BORDE_CAMPO;
    if (!estado.habilitado) linea = BORDE;
    pintarCaja(lienzo, caja, px(escala, RADIO_CAJA), px(escala, estado.foco ? GROSOR_FOCO : 1), linea,
               estado.habilitado ? cara : CARA_INHABIL);
}

}  // namespace sorvanel::apariencia
