#pragma once

#include <windows.h>

// What the bare program and those who start it agree on.
namespace sorvanel::medidas::desnudo {

// Variable of the environment: "ventana 0", "oculta 0" (a window that is never shown), "udp PORT" or "tcp PORT"; behind
// the port, where they are not 8, 8, the monitor's and half a cell: rows, columns, height of all cells together and of
// the font, pixels.
constexpr const wchar_t* ORDEN = L"SORVANEL_DESNUDO";
// Answered with the number of readings printed.
constexpr UINT CUANTAS = WM_APP + 1;
constexpr UINT HAY_DATOS = WM_APP + 2;
constexpr COLORREF COLOR_TEXTO = RGB(0, 255, 0);

}  // namespace sorvanel::medidas::desnudo
