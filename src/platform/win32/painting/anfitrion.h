#pragma once

#include <windows.h>

#include <string>

#include "platform/formulario.h"
#include "platform/win32/base/escala.h"
#include "platform/win32/painting/fuentesWin.h"
#include "platform/win32/painting/lienzo.h"

namespace sorvanel {

class AsaWin;
class BotonWin;
class SuperficieWin;

// What a window's surfaces have of it. It outlives them.
class AnfitrionSuperficies {
public:
    virtual HWND ventana() const = 0;
    virtual const Escala& escala() const = 0;
    virtual FuentesWin& fuentes() = 0;

    virtual void alMoverRaton(ZonaRaton zona) = 0;
    // The tool tip of a control; an empty text takes it off.
    virtual void sugerencia(HWND control, const std::wstring& texto) = 0;
    virtual void baja(SuperficieWin& superficie) = 0;

protected:
    ~AnfitrionSuperficies() = default;
};

// What the main form's surfaces, buttons and handles have of it.
class Anfitrion : public AnfitrionSuperficies {
public:
    virtual const Fuente& fuenteBoton() const = 0;
    // Where a button is put together before it is shown: one for all, since they paint in turn.
    virtual Lienzo& borrador() = 0;

    // Something that the keyboard reaches was placed, shown, hidden, enabled or disabled: order and
    // focus may have to follow.
    virtual void alCambiarControl() = 0;
    // The focus goes to the neighbour in keyboard order: 1 the next, -1 the one before.
    virtual void pasarFoco(const BotonWin& desde, int sentido) = 0;
    virtual void alRecibirFoco(const BotonWin& boton) = 0;
    // The mouse goes down on it, there on the screen. No when that is the second half of a double click
    // that began on another button, whose place this one has taken.
    virtual bool admitirPulsacion(const BotonWin& boton, POINT donde) = 0;

    using AnfitrionSuperficies::baja;
    virtual void baja(BotonWin& boton) = 0;
    virtual void baja(AsaWin& asa) = 0;

protected:
    ~Anfitrion() = default;
};

}  // namespace sorvanel
