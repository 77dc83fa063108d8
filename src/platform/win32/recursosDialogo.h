#pragma once

#include "platform/win32/aspecto.h"
#include "platform/win32/fuentesWin.h"
#include "platform/win32/lienzo.h"
#include "platform/win32/nombresAccesibles.h"

namespace sorvanel {

// What all tool windows share: so opening one makes nothing that another has made already.
struct RecursosDialogo {
    FuentesWin fuentes;
    Lienzo borrador;
    NombresAccesibles nombres;
    Fuente letra = fuenteInterfaz(aTwips(aspecto::ALTO_LETRA));
};

}  // namespace sorvanel
