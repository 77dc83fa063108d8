#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <string>

#include "platform/win32/base/sesionOLE.h"

namespace sorvanel {

// What a window paints itself although it is a control to everybody else: a label or a group frame.
struct ElementoPintado {
    int id;  // the control's number; 0 cannot be asked for
    bool grupo;
    bool visible;
    std::wstring nombre;
    std::wstring texto;  // what is read on it, where that is not the name: its value
    RECT lugar;          // client area, device pixels
};

class FuenteElementos {
public:
    virtual HWND ventana() const = 0;
    virtual void recorrer(const std::function<void(const ElementoPintado&)>& ver) const = 0;

protected:
    ~FuenteElementos() = default;
};

// Shows them to screen readers, user-interface automation and the like: what these know of the
// window stays the system's own answer, and the painted elements join it as children without a
// window, each under its control's number.
//
// Whoever changes a text or shows or hides an element says so with NotifyWinEvent(…, OBJID_CLIENT,
// number), as the system does by itself where there is a window.
class AccesibleVentana {
public:
    // The source outlives it, or desligar() is called before the source goes; the session does.
    AccesibleVentana(const FuenteElementos& fuente, SesionOLE& ole);
    AccesibleVentana(const AccesibleVentana&) = delete;
    AccesibleVentana& operator=(const AccesibleVentana&) = delete;
    ~AccesibleVentana();

    // The answer to WM_GETOBJECT; 0 when something else is asked for, or the system lacks what it
    // takes: the window leaves the message to the system then.
    LRESULT responder(WPARAM wParam, LPARAM lParam) noexcept;

    // At the window's death: whoever still holds one of the objects handed out learns from it that
    // the window is gone, and nothing else.
    void desligar() noexcept { *m_fuente = nullptr; }

private:
    struct Servicio;

    std::shared_ptr<const FuenteElementos*> m_fuente;
    SesionOLE& m_ole;
    std::unique_ptr<Servicio> m_servicio;
};

}  // namespace sorvanel
