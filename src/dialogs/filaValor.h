#pragma once

#include <functional>
#include <memory>
#include <string>

#include "dialogs/tallerDialogo.h"

namespace sorvanel {

// A whole number with a plus and a minus button, step 1; held down they go on. A value outside the
// bounds, as a file may have it, is shown as it is and can only be brought nearer.
class FilaValor {
public:
    struct Datos {
        IdControl valor;  // the label that shows it
        IdControl mas;
        IdControl menos;
        // What stands before the value; empty where something else does.
        std::string rotulo;
        // For screen readers and tool tips, as in "Filas": "Filas: más", "Filas: menos".
        std::string nombre;
        int inferior = 0;
        // Not where a step moves the window away from under the mouse.
        bool repetir = true;
        // Asked at each press of plus, so that it may change.
        std::function<int()> superior = {};
        // The value that is asked for; answers the one that was accepted, which is shown.
        std::function<int(int)> alCambiar = {};
    };

    FilaValor(TallerDialogo& taller, Datos datos);

    int valor() const { return m_valor; }
    // Shows it; alCambiar is not told.
    void valor(int valor);
    // The value and its buttons, and the label before them.
    void mostrar(bool visible);

    Control& mas() { return *m_mas; }
    Control& menos() { return *m_menos; }

    // The label, where there is one.
    Pieza piezaRotulo() { return m_taller.piezaRotulo(*m_rotulo); }
    // Minus, the value, plus.
    Pieza piezaValor();

private:
    void pasar(int paso);

    TallerDialogo& m_taller;
    const Datos m_datos;
    int m_valor = 0;
    std::unique_ptr<Rotulo> m_rotulo;
    std::unique_ptr<Boton> m_menos;
    std::unique_ptr<Rotulo> m_lbValor;
    std::unique_ptr<Boton> m_mas;
};

}  // namespace sorvanel
