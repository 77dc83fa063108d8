#pragma once

#include <windows.h>

#include <string>

#include "platform/color.h"
#include "platform/control.h"
#include "platform/win32/base/escala.h"
#include "platform/win32/painting/lienzo.h"

// The one look of everything that is pressed or filled in: colours, and lengths in design pixels.
namespace sorvanel::apariencia {

constexpr float RADIO = 6;       // corners of buttons
constexpr float RADIO_CAJA = 4;  // of boxes and frames
constexpr float GROSOR_FOCO = 2;
constexpr float ALTO_LETRA = 13;

constexpr Color CARA = rgb(0xFC, 0xFD, 0xFE);
constexpr Color CARA_ENCIMA = rgb(0xE3, 0xF0, 0xFC);
constexpr Color CARA_PULSADA = rgb(0xBF, 0xDB, 0xF6);
constexpr Color CARA_INHABIL = rgb(0xEC, 0xEE, 0xF0);
constexpr Color BORDE = rgb(0xB9, 0xC2, 0xCC);
// Of what is filled in: it has no face to be known by, so its line is darker.
constexpr Color BORDE_CAMPO = rgb(0x8E, 0x99, 0xA4);
constexpr Color BORDE_ENCIMA = rgb(0x5B, 0x9B, 0xD9);
constexpr Color FOCO = rgb(0x0B, 0x5C, 0xC4);
constexpr Color LETRA = rgb(0x1F, 0x29, 0x33);
constexpr Color LETRA_INHABIL = rgb(0x9A, 0xA3, 0xAC);

// What it looks like for the moment.
struct Estado {
    bool pulsado = false;
    bool foco = false;
    bool encima = false;
    bool habilitado = true;
};

inline COLORREF aColor(Color color) {
    return static_cast<COLORREF>(colorPintable(color));
}

// A length that must not vanish, device pixels.
inline int px(const Escala& escala, float pixelesDeDiseno) {
    return escala.y.largo(aTwips(pixelesDeDiseno));
}

// The line of a button, and the face within.
Color lineaDe(const Estado& estado);
Color caraDe(const Estado& estado);
// The colour of a picture on a button.
Color tintaDe(Dibujo dibujo);

// A box with round corners, all lengths device pixels; a negative face is left free. Of a box that is
// larger than the picture only what falls within the cut is painted.
void pintarCaja(Lienzo& lienzo, const RECT& caja, int radio, int grosor, Color linea, Color cara,
                const RECT* recorte = nullptr);
// The box of a button, in its state.
void pintarCara(Lienzo& lienzo, const RECT& caja, const Escala& escala, const Estado& estado);
// One line of text in the middle of that place, in the font that is selected; what does not fit ends in dots.
void escribir(HDC dc, const std::wstring& texto, RECT sitio, Color tinta, UINT ajuste = DT_LEFT);
inline Color letraDe(bool habilitado) {
    return habilitado ? LETRA : LETRA_INHABIL;
}
// The box of what is filled in.
void pintarCampo(Lienzo& lienzo, const RECT& caja, const Escala& escala, const Estado& estado, Color cara);

}  // namespace sorvanel::apariencia
