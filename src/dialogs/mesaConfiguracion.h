#pragma once

#include <cstdint>
#include <memory>

#include "display/visores.h"
#include "grid/parrilla.h"
#include "message/clsMsg.h"
#include "screen/oScreen.h"

namespace sorvanel {

// The desk that the tools work on. It makes the objects from the file when a tool opens, and drops them when
// it closes, so that every tool sees what the others saved and nothing is left that could write an old value
// back.
class MesaConfiguracion {
public:
    virtual ~MesaConfiguracion() = default;

    // The grid, painted.
    virtual void montarParrilla() = 0;
    // The grid, its free cells numbered, and all displays, defined and placed where they can be.
    virtual void montarVisores() = 0;
    // The same, and over it the message band, not running.
    virtual void montarMensaje() = 0;
    // Drops whatever was made, puts what was changed on the disk; the screen is empty again.
    virtual void desmontarMesa() = 0;

    // Only between the call that makes them and desmontarMesa.
    virtual Parrilla& parrilla() = 0;
    virtual Visores& visores() = 0;
    virtual clsMsg& mensaje() = 0;

    // A new display at the end, and behind it those that the file goes on with then; all with their surfaces, and
    // placed where they can be. Null when there are 64.
    virtual visor* nuevoVisor() = 0;
    // A surface of its own above the displays, hidden; it goes before desmontarMesa.
    virtual std::unique_ptr<Superficie> crearMarca(int elemento) = 0;
    // Deletes it; all displays are then made anew from the file, under their new numbers.
    virtual bool eliminarVisor(std::int16_t posicion) = 0;

    // The monitors as they were at the last layout, and the one that the window covers.
    virtual const oScreen& pantalla() = 0;
    // The upper edge of what lies over the lower end of the grid: the bar, or the band above it. Twips.
    virtual float limiteInferior() const = 0;
    // Selects and saves it, and moves the window there at once with its bar and grid.
    virtual void cambiarMonitor(std::int16_t indice) = 0;

    // How much of the window lies above the bar, twips of that monitor.
    virtual float altoSobreBarra() const = 0;
    // Shows the bar anew over what was painted.
    virtual void refrescarBarra() = 0;
};

}  // namespace sorvanel
