#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/color.h"
#include "platform/controles.h"
#include "platform/formaVentana.h"
#include "platform/geometria.h"
#include "platform/monitor.h"
#include "platform/superficie.h"

namespace sorvanel {

enum class Dibujo {
    ninguno,
    apagar,
    marcha,
    pausa,
    ajustes,
    aceptar,
    cancelar,
    parrilla,
    visores,
    tamano,
    mensaje,
    mas,
    menos,
    cerrar,
    tessel,  // one indicator, one port
    pavona,  // many on one connection
    diseno,  // a display's own look
    plegar,
    nuevo,
    eliminar,
    subir,
    bajar,
};

// A rounded push button with a drawn picture, a text, or both. Reached by Tab, pressed by Enter or
// the space bar.
class Boton {
public:
    virtual ~Boton() = default;

    virtual void colocar(const Rectangulo& lugar) = 0;
    virtual void mostrar(bool visible) = 0;
    virtual void habilitar(bool si) = 0;
    virtual void dibujo(Dibujo dibujo) = 0;
    // The text on the button; empty shows the picture alone.
    virtual void rotulo(const std::string& texto) = 0;
    // What the button is called: tool tip and name for screen readers.
    virtual void nombre(const std::string& texto) = 0;
    // The colour of what lies behind its rounded corners.
    virtual void colorDetras(Color color) = 0;
    // Room that the text needs within the button, twips.
    virtual float anchoRotulo(const std::string& texto) const = 0;
    virtual void refrescar() = 0;
    virtual void alPulsar(std::function<void()> accion) = 0;
};

// A handle that is dragged, by the mouse or, when it has the focus, by the arrow keys.
class OyenteAsa {
public:
    virtual ~OyenteAsa() = default;
    // Where within the handle the mouse is, twips. Between a press and its release the mouse may be
    // anywhere; a release is told also when the system takes the mouse away.
    virtual void alPulsarAsa(Punto raton) = 0;
    virtual void alMoverAsa(Punto raton) = 0;
    virtual void alSoltarAsa() = 0;
    // An arrow key: so many twips to the right and down.
    virtual void alEmpujarAsa(Punto paso) = 0;
};

class Asa {
public:
    virtual ~Asa() = default;
    virtual void colocar(const Rectangulo& lugar) = 0;
    virtual void mostrar(bool visible) = 0;
    virtual void nombre(const std::string& texto) = 0;
    virtual void oyente(OyenteAsa* oyente) = 0;
};

enum class Puntero { normal, marcha };

// Where on the form the mouse moved.
enum class ZonaRaton { representacion, barra };

class OyenteFormulario {
public:
    virtual ~OyenteFormulario() = default;
    virtual void alActivar() = 0;
    virtual void alMoverRaton(ZonaRaton zona) = 0;
    // The form is going away (button, Alt+F4, end of the Windows session).
    virtual void alDescargar() = 0;
    // Monitors may have come, gone or changed; told once they have settled.
    virtual void alCambiarMonitores() = 0;
};

// The borderless main window. From below: the representation, what displays have, the message strip,
// the bar, handles, buttons. The keyboard goes through the buttons as the eye reads, wherever they are
// put; when the one that has it goes, the nearest takes over.
class Formulario : public FormaVentana {
public:
    virtual void oyente(OyenteFormulario* oyente) = 0;
    // Covers exactly that monitor, task bar too, and takes its scale.
    virtual void cubrir(const Monitor& monitor) = 0;
    // A hidden surface; the caller owns it and drops it before the form goes.
    virtual std::unique_ptr<Superficie> crearSuperficie(IdControl id, int elemento) = 0;
    // A hidden button; the same.
    virtual std::unique_ptr<Boton> crearBoton(IdControl id) = 0;
    // A hidden handle, above the surfaces; the same.
    virtual std::unique_ptr<Asa> crearAsa(IdControl id) = 0;
    virtual void puntero(Puntero puntero) = 0;
    virtual void refrescar() = 0;
    virtual void mostrar() = 0;
    // Ends the program: alDescargar follows.
    virtual void cerrar() = 0;
};

}  // namespace sorvanel
