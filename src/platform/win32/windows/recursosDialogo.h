#pragma once

#include "platform/win32/controls/nombresAccesibles.h"
#include "platform/win32/painting/aspecto.h"
#include "platform/win32/painting/fuentesWin.h"
#include "platform/win32/painting/lienzo.h"

namespace sorvanel {

// What all tool windows share: so opening one makes nothing that another has made already.
struct RecursosDialogo {
    FuentesWin fuentes;
    Lienzo borrador;
    NombresAccesibles nombres;
    Fuente letra = fuenteInterfaz(aTwips(aspecto::ALTO_LETRA));
};

}  // namespace sorvanel
