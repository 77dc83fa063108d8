#pragma once

#include "platform/color.h"

namespace sorvanel::apariencia {

// The colours of everything that is pressed or filled in. As they stand here they are our own: lines are told from all
// grounds that there are by 3 to 1, letters by 4.5 to 1, what is disabled too.
struct Paleta {
    // The system's, in which no colour of ours, and no tint, means anything.
    bool contraste = false;

    Color ventana = rgb(0xFF, 0xFF, 0xFF);
    Color letra = rgb(0x1F, 0x29, 0x33);
    Color letraInhabil = rgb(0x5B, 0x65, 0x6F);

    Color cara = rgb(0xFC, 0xFD, 0xFE);
    Color caraEncima = rgb(0xE3, 0xF0, 0xFC);
    Color caraPulsada = rgb(0xBF, 0xDB, 0xF6);
    Color caraInhabil = rgb(0xEC, 0xEE, 0xF0);
    Color letraCara = letra;
    Color letraPulsada = letra;

    Color borde = rgb(0x6C, 0x78, 0x84);
    Color bordeEncima = rgb(0x29, 0x74, 0xBD);
    Color bordeMarco = rgb(0xB9, 0xC2, 0xCC);  // round a group: nothing depends on its being seen
    Color foco = rgb(0x0B, 0x5C, 0xC4);
    Color marca = BLANCO;  // on a ground of the focus colour
};

}  // namespace sorvanel::apariencia
