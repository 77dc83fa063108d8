#pragma once

#include <windows.h>

namespace sorvanel {

// Every message that windows of ours send or post to themselves or to each other. (Those to the window that sockets and
// timers report to are numbers that it hands out itself: see VentanaMensajes.)
enum Mensaje : UINT {
    // From a window to its control: what that told it by WM_COMMAND; w is what was told.
    MENSAJE_NOTIFICADO = WM_APP + 1,
    // A drop-down list to itself: the system's control has done with what the user did.
    MENSAJE_ELEGIDO,
    // A window to itself, for what must not be done within the message that called for it: the focus to where it
    // belongs, what it has left asked whether it is in order, the children put in their order, the activation told.
    MENSAJE_FOCO,
    MENSAJE_VALIDAR,
    MENSAJE_APILAR,
    MENSAJE_ACTIVAR,
    // From the loop, before a mouse message for the window or one of its children is handed out: the MSG, in l.
    MENSAJE_RATON,
};

}  // namespace sorvanel
