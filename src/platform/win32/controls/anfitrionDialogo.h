#pragma once

#include <windows.h>

#include <string>

#include "platform/win32/painting/anfitrion.h"

namespace sorvanel {

class ControlWin;

// What a tool window's controls have of it. It outlives them.
class AnfitrionDialogo : public AnfitrionSuperficies {
public:
    // The font that controls share, made for the window's scale.
    virtual HFONT letra() const = 0;
    virtual int altoLetra() const = 0;  // of a line, device pixels
    // Where a control is put together before it is shown: one for all, since they paint in turn.
    virtual Lienzo& borrador() = 0;
    // Paints what lies beneath that part of the window: the ground and the frames on it. Its corner
    // becomes the picture's.
    virtual void pintarDetras(Lienzo& destino, const RECT& parte) const = 0;
    // What lies beneath the controls there is not what it was.
    virtual void tocarDetras(const RECT& parte) = 0;

    // An empty text takes it off.
    virtual void nombreAccesible(HWND control, const std::wstring& texto) = 0;

    // The mouse was pressed where it drags the window once it moves.
    virtual void alPulsarFondo() = 0;

    virtual void enfocar(ControlWin& control) = 0;
    // Has it the focus, or had it when another window was made the active one?
    virtual bool tieneFoco(const ControlWin& control) const = 0;
    virtual void alRecibirFoco(ControlWin& control) = 0;
    // `nueva` is the window that gets it; null for none of this program's.
    virtual void alPerderFoco(ControlWin& control, HWND nueva) = 0;
    // The control was hidden or disabled, perhaps with the focus on it.
    virtual void alRetirar(ControlWin& control) = 0;

    using AnfitrionSuperficies::baja;
    virtual void baja(ControlWin& control) = 0;

protected:
    ~AnfitrionDialogo() = default;
};

}  // namespace sorvanel
