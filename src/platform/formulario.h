#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/color.h"
#include "platform/controles.h"
#include "platform/geometria.h"
#include "platform/monitor.h"
#include "platform/superficie.h"

namespace sorvanel {

enum class Dibujo { ninguno, apagar, marcha, pausa, ajustes, aceptar, cancelar, parrilla, visores, tamano, mensaje };

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

// The borderless main window. Its surfaces and buttons lie on it in the order in which they were
// made, later ones above earlier ones.
class Formulario {
public:
    virtual ~Formulario() = default;

    virtual void oyente(OyenteFormulario* oyente) = 0;
    // Covers exactly that monitor, task bar too, and takes its scale.
    virtual void cubrir(const Monitor& monitor) = 0;
    // A hidden surface; the caller owns it and drops it before the form goes.
    virtual std::unique_ptr<Superficie> crearSuperficie(IdControl id, int elemento) = 0;
    // A hidden button; the same.
    virtual std::unique_ptr<Boton> crearBoton(IdControl id) = 0;
    virtual void puntero(Puntero puntero) = 0;
    virtual void refrescar() = 0;
    virtual void mostrar() = 0;
    // Ends the program: alDescargar follows.
    virtual void cerrar() = 0;
};

}  // namespace sorvanel
