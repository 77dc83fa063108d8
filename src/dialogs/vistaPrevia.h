#pragma once

#include <memory>

#include "dialogs/tallerDialogo.h"
#include "display/aspecto.h"

namespace sorvanel {

// A sample of a display: the caption's picture and, right of it or below, the weight's.
class VistaPrevia {
public:
    explicit VistaPrevia(TallerDialogo& taller);

    // Paints it, whatever the caption says.
    void aspecto(const AspectoVisor& aspecto);
    // Hidden it keeps its place.
    void mostrar(bool visible);

    // As wide as its cell.
    Pieza comoPieza();

private:
    void colocar(const Rectangulo& zona);
    void disponer();
    void pintarEtiqueta(float unidad);
    // Of the weight's letters.
    float altoLetra() const;
    void pintarPeso();

    TallerDialogo& m_taller;
    std::unique_ptr<Superficie> m_picEjEtq;
    std::unique_ptr<Superficie> m_picEjVis;
    AspectoVisor m_aspecto;
    Rectangulo m_zona;
    bool m_visible = true;
};

}  // namespace sorvanel
