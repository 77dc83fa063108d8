#pragma once

#include <optional>

#include "platform/color.h"
#include "platform/formaVentana.h"
#include "platform/monitor.h"
#include "platform/ventana.h"

namespace sorvanel {

enum class Puntero { normal, marcha };

// The colours that the user has chosen for all programs.
struct ColoresSistema {
    Color fondo = BLANCO;
    Color texto = NEGRO;
};

// Where on the form the mouse moved.
enum class ZonaRaton { representacion, barra };

// Why the form goes away: its window was closed, the Windows session ends, or somebody who installs wants its files.
enum class MotivoCierre { ventana, sesion, instalacion };

// What the left button does there. Between a press that is taken up and its release every movement is told, wherever
// the mouse is; instead of the release it may be told that the system has taken the mouse away.
enum class GestoRaton { pulsar, llevar, soltar, perder };

class OyenteFormulario {
public:
    virtual ~OyenteFormulario() = default;
    virtual void alActivar() = 0;
    virtual void alMoverRaton(ZonaRaton zona) = 0;
    // On the representation and what displays have; where, in twips of the form: left of it and above where the mouse
    // is over another window. Yes: more of it is wanted. The second half of a double click on what stood there is not
    // told.
    virtual bool alUsarRaton(GestoRaton gesto, Punto donde) = 0;
    // The form is going away.
    virtual void alDescargar(MotivoCierre motivo) = 0;
    // Monitors may have come, gone or changed; told once they have settled.
    virtual void alCambiarMonitores() = 0;
    // The computer is about to sleep, or has slept: what was received before must not stand there afterwards.
    virtual void alDormir(bool duerme) = 0;
    // F1, in whatever window of the program. Never while a box is open.
    virtual void alPedirAyuda() = 0;
    // What colores() says may be something else.
    virtual void alCambiarColores() = 0;
};

// The borderless main window. From below: the representation, what displays have, the message strip,
// the bar, handles, buttons. When the control that has the keyboard goes, the nearest takes over.
class Formulario : public Ventana, public FormaVentana {
public:
    virtual void oyente(OyenteFormulario* oyente) = 0;
    // Covers exactly that monitor, task bar too, and takes its scale.
    virtual void cubrir(const Monitor& monitor) = 0;
    virtual void puntero(Puntero puntero) = 0;
    // Only where the user wants high contrast: ours then stand back.
    virtual std::optional<ColoresSistema> colores() const = 0;
    virtual void refrescar() = 0;
    // Ends the program: alDescargar follows.
    virtual void cerrar() = 0;
};

}  // namespace sorvanel
