#pragma once

#include <windows.h>

#include "platform/control.h"
#include "platform/win32/painting/lienzo.h"

namespace sorvanel {

// The pictures on the buttons, made of lines and shapes: drawn at whatever size is asked for, in
// one colour, over what is there. `caja` is a square, device pixels.
void dibujarPictograma(Lienzo& lienzo, Dibujo dibujo, const RECT& caja, COLORREF tinta);

}  // namespace sorvanel
