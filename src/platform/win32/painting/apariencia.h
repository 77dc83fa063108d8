#pragma once

#include <windows.h>

#include <string>

#include "platform/color.h"
#include "platform/control.h"
#include "platform/win32/base/escala.h"
#include "platform/win32/painting/lienzo.h"
#include "platform/win32/painting/paleta.h"

// The one look of everything that is pressed or filled in: colours, and lengths in design pixels.
namespace sorvanel::apariencia {

constexpr float RADIO = 6;       // corners of buttons
constexpr float RADIO_CAJA = 4;  // of boxes and frames
constexpr float GROSOR_FOCO = 2;
constexpr float ALTO_LETRA = 13;

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

// Our own colours, or where the user wants high contrast the system's. What is asked of the system is kept: it is asked
// at the start and when it says that something has changed.
Paleta paletaDelSistema();

// The line of a button, and the face within.
Color lineaDe(const Paleta& paleta, const Estado& estado);
Color caraDe(const Paleta& paleta, const Estado& estado);
// Of what is written on that face, and of a picture on it.
Color letraDe(const Paleta& paleta, const Estado& estado);
Color tintaDe(const Paleta& paleta, const Estado& estado, Dibujo dibujo);

// A box with round corners, all lengths device pixels; a negative face is left free. Of a box that is
// larger than the picture only what falls within the cut is painted.
void pintarCaja(Lienzo& lienzo, const RECT& caja, int radio, int grosor, Color linea, Color cara,
                const RECT* recorte = nullptr);
// The box of a button, in its state.
void pintarCara(Lienzo& lienzo, const RECT& caja, const Escala& escala, const Paleta& paleta, const Estado& estado);
// One line of text in the middle of that place, in the font that is selected; what does not fit ends in dots.
void escribir(HDC dc, const std::wstring& texto, RECT sitio, Color tinta, UINT ajuste = DT_LEFT);
// The box of what is filled in, with that face where it can be.
void pintarCampo(Lienzo& lienzo, const RECT& caja, const Escala& escala, const Paleta& paleta, const Estado& estado,
                 Color cara);
// What it is filled with, given the one that was asked for.
Color campoDe(const Paleta& paleta, bool habilitado, Color pedida);
// Of what is written there.
inline Color letraCampo(const Paleta& paleta, bool habilitado) {
    return habilitado ? paleta.letra : paleta.letraInhabil;
}

}  // namespace sorvanel::apariencia
