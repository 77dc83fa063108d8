#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "platform/win32/base/estiloWin.h"
#include "platform/win32/base/manejadores.h"
#include "platform/win32/base/sesionOLE.h"

struct IAccPropServices;

namespace sorvanel {

// The tool tips of one window: one window of the system's for all of its controls.
class SugerenciasWin {
public:
    explicit SugerenciasWin(EstiloWin& estilo) : m_estilo(estilo) {}

    // Once the window is there; what is told before is no tip. The system's own window is made when the mouse first
    // comes to something that has one: on a wall nobody does. Without tool tips of the system there are none, and
    // nothing else is lost.
    void ventana(HWND ventana) { m_ventana = ventana; }
    // An empty text takes the tip off.
    void poner(HWND control, const std::wstring& texto);
    // Of what the window paints itself there, device pixels, under a number of its own.
    void poner(int id, const RECT& sitio, const std::wstring& texto);
    // What the mouse does to the controls, before they are told. Without it no tip appears: to listen by
    // itself the system would hang a second procedure on each control, asked for each of its messages.
    void relevar(const MSG& mensaje);
    // The font is the caller's and stays until another is given.
    void fuente(HFONT fuente);
    void cerrar();

private:
    struct Sugerencia {
        UINT modo;
        UINT_PTR id;
        RECT sitio;
        std::wstring texto;
    };
    void poner(const Sugerencia& una);
    void crear();
    // The mouse is on something that has a tip.
    bool esperada(const MSG& mensaje) const;
    void enviar(UINT mensaje, const Sugerencia& una) const;

    EstiloWin& m_estilo;
    HWND m_ventana = nullptr;
    HFONT m_fuente = nullptr;
    VentanaPropia m_sugerencias;
    std::vector<Sugerencia> m_enEspera;  // until then
};

// Names for screen readers where a control's own text is something else: what stands in a text box
// is its value, not what it is called.
class NombresAccesibles {
public:
    // The session outlives it.
    explicit NombresAccesibles(SesionOLE& ole) : m_ole(ole) {}
    ~NombresAccesibles();
    NombresAccesibles(const NombresAccesibles&) = delete;
    NombresAccesibles& operator=(const NombresAccesibles&) = delete;

    // An empty name takes it off: at the latest before the window goes. Nothing where the system lacks the service.
    void poner(HWND control, const std::wstring& nombre);

private:
    SesionOLE& m_ole;
    bool m_pedido = false;
    IAccPropServices* m_servicio = nullptr;
};

}  // namespace sorvanel
