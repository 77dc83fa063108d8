#include "platform/win32/painting/apariencia.h"

#include <algorithm>

namespace sorvanel::apariencia {

namespace {

constexpr Color VERDE = rgb(0x15, 0x87, 0x3C);
constexpr Color GRANATE = rgb(0xC4, 0x24, 0x1F);
constexpr Color AMBAR = rgb(0xA8, 0x5C, 0x00);
constexpr Color PIZARRA = rgb(0x2C, 0x4A, 0x66);

}  // namespace

Paleta paletaDelSistema() {
    Paleta paleta;
    HIGHCONTRASTW contraste{};
    contraste.cbSize = sizeof contraste;
    const bool pedido = SystemParametersInfoW(SPI_GETHIGHCONTRAST, contraste.cbSize, &contraste, 0) &&
                        (contraste.dwFlags & HCF_HIGHCONTRASTON) != 0;
    if (!pedido) return paleta;
    const auto del = [](int cual) { return static_cast<Color>(GetSysColor(cual)); };
    paleta.contraste = true;
    paleta.ventana = del(COLOR_WINDOW);
    paleta.letra = paleta.bordeMarco = del(COLOR_WINDOWTEXT);
    paleta.letraInhabil = del(COLOR_GRAYTEXT);
    paleta.cara = paleta.caraEncima = paleta.caraInhabil = del(COLOR_BTNFACE);
    paleta.letraCara = paleta.borde = del(COLOR_BTNTEXT);
    paleta.foco = paleta.bordeEncima = paleta.caraPulsada = del(COLOR_HIGHLIGHT);
    paleta.letraPulsada = paleta.marca = del(COLOR_HIGHLIGHTTEXT);
    return paleta;
}

Color lineaDe(const Paleta& paleta, const Estado& estado) {
    if (estado.foco) return paleta.foco;
    if (!estado.habilitado && paleta.contraste) return paleta.letraInhabil;
    return estado.encima || estado.pulsado ? paleta.bordeEncima : paleta.borde;
}

Color caraDe(const Paleta& paleta, const Estado& estado) {
    if (!estado.habilitado) return paleta.caraInhabil;
    if (estado.pulsado) return paleta.caraPulsada;
    return estado.encima ? paleta.caraEncima : paleta.cara;
}

Color letraDe(const Paleta& paleta, const Estado& estado) {
    if (!estado.habilitado) return paleta.letraInhabil;
    return estado.pulsado ? paleta.letraPulsada : paleta.letraCara;
}

Color tintaDe(const Paleta& paleta, const Estado& estado, Dibujo dibujo) {
    if (paleta.contraste || !estado.habilitado) return letraDe(paleta, estado);
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

void pintarCara(Lienzo& lienzo, const RECT& caja, const Escala& escala, const Paleta& paleta, const Estado& estado) {
    pintarCaja(lienzo, caja, px(escala, RADIO), px(escala, estado.foco ? GROSOR_FOCO : 1), lineaDe(paleta, estado),
               caraDe(paleta, estado));
}

Color campoDe(const Paleta& paleta, bool habilitado, Color pedida) {
    if (paleta.contraste) return paleta.ventana;
    return habilitado ? colorPintable(pedida) : paleta.caraInhabil;
}

void pintarCampo(Lienzo& lienzo, const RECT& caja, const Escala& escala, const Paleta& paleta, const Estado& estado,
                 Color cara) {
    const Color linea = paleta.contraste && !estado.foco ? letraCampo(paleta, estado.habilitado)
                                                         : (estado.foco ? paleta.foco : paleta.borde);
    pintarCaja(lienzo, caja, px(escala, RADIO_CAJA), px(escala, estado.foco ? GROSOR_FOCO : 1), linea,
               campoDe(paleta, estado.habilitado, cara));
}

}  // namespace sorvanel::apariencia
