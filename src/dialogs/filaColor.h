#pragma once

#include <functional>
#include <memory>
#include <string>

#include "config/comun.h"
#include "dialogs/tallerDialogo.h"

namespace sorvanel {

// A button with its colour frame beside it. Both open the system's colour choice with the colour that
// there is now; cancelled, nothing is written.
class FilaColor {
public:
    struct Datos {
        IdControl boton;
        IdControl marco;
        // What the button says.
        std::string texto;
        // What the choice begins with.
        std::function<Color()> actual;
        // A colour was chosen, be it the one that there was; the frame shows it already.
        std::function<void(Color)> alElegir;
        // For screen readers and tool tips, where the button does not say what the colour is of.
        std::string nombre = {};
    };

    FilaColor(TallerDialogo& taller, DialogosSistema& sistema, const comun& com, Datos datos);

    // What the frame shows, 24 bits.
    Color color() const { return m_marco->color(); }
    // alElegir is not told. No colour (a negative one) shows as white.
    void color(Color color);
    void mostrar(bool visible);

    Control& boton() { return *m_boton; }
    Control& marco() { return *m_marco; }

    Pieza piezaBoton();
    Pieza piezaMarco();
    // Both side by side.
    Pieza comoPieza();

private:
    void elegir();

    TallerDialogo& m_taller;
    DialogosSistema& m_sistema;
    const comun& m_com;
    const Datos m_datos;
    std::unique_ptr<Boton> m_boton;
    std::unique_ptr<MarcoColor> m_marco;
};

}  // namespace sorvanel
