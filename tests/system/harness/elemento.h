#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace sorvanel::pruebas {

// The labels and group frames that a window paints, as a screen reader finds them: under the
// number of the control.

// Empty when there is none.
std::string textoPintado(HWND ventana, int id);
// Virtual screen, device pixels; nothing when it is hidden or absent.
std::optional<RECT> lugarPintado(HWND ventana, int id);

}  // namespace sorvanel::pruebas
