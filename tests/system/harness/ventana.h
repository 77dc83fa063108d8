#pragma once

#include <windows.h>

#include <string>

namespace sorvanel::pruebas {

// What can be done to a window of another program. Nothing here waits longer than two seconds for a
// program that does not answer.

// At any depth; null when there is none.
HWND hijo(HWND ventana, int id);
std::string texto(HWND ventana);
RECT lugar(HWND ventana);  // virtual screen, device pixels
// Shown, and all that holds it too.
bool seVe(HWND ventana);
// As the mouse would, in the middle; returns at once.
void pulsar(HWND ventana);
// What has the focus in that window's program; null for nothing.
HWND foco(HWND ventana);
// As the keyboard would, to whatever has the focus in that window's program; returns at once.
void teclear(HWND ventana, int teclaVirtual);

}  // namespace sorvanel::pruebas
