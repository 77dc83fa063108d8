#pragma once

#include <windows.h>

#include <string>

#include "platform/formulario.h"
#include "platform/win32/escala.h"
#include "platform/win32/fuentesWin.h"
#include "platform/win32/lienzo.h"

namespace sorvanel {

class BotonWin;
class SuperficieWin;

// What a form's surfaces and buttons have of it. It outlives them.
class Anfitrion {
public:
    virtual HWND ventana() const = 0;
    virtual const Escala& escala() const = 0;
    virtual FuentesWin& fuentes() = 0;
    virtual const Fuente& fuenteBoton() const = 0;
    // Where a button is put together before it is shown: one for all, since they paint in turn.
    virtual Lienzo& borrador() = 0;

    virtual void alMoverRaton(ZonaRaton zona) = 0;
    // The button was placed, shown or hidden: keyboard order and focus may have to follow.
    virtual void alCambiarBoton() = 0;
    // The focus goes to the neighbour in keyboard order: 1 the next, -1 the one before.
    virtual void pasarFoco(const BotonWin& desde, int sentido) = 0;
    virtual void alRecibirFoco(const BotonWin& boton) = 0;
    // The tool tip of a button; an empty text takes it off.
    virtual void sugerencia(HWND control, const std::wstring& texto) = 0;

    virtual void baja(SuperficieWin& superficie) = 0;
    virtual void baja(BotonWin& boton) = 0;

protected:
    ~Anfitrion() = default;
};

}  // namespace sorvanel
