#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "dialogs/tallerDialogo.h"

namespace sorvanel {

// What a display looks like, in effect.
struct AspectoPrevia {
    std::int16_t anchoEtiqueta = 0;   // 0 to 6
    std::int16_t ajusteEtiqueta = 0;  // 0 left, 1 right, 2 centre
    Color colorFondoEtiqueta = BLANCO;
    Color colorTextoEtiqueta = NEGRO;
    Color colorFondoPeso = BLANCO;
    Color colorTextoPeso = NEGRO;
    std::string formatoPeso;
    float ratioAlturas = 1;  // the caption's letters as a share of the weight's; bounded to 0.1 to 1

    bool operator==(const AspectoPrevia&) const = default;
};

// A sample of a display: the caption's picture and, right of it, the weight's.
class VistaPrevia {
public:
    explicit VistaPrevia(TallerDialogo& taller);

    // Paints it.
    void aspecto(const AspectoPrevia& aspecto);
    // Hidden it keeps its place.
    void mostrar(bool visible);

    // As wide as its cell.
    Pieza comoPieza();

private:
    void colocar(const Rectangulo& zona);
    void disponer();
    void pintarEtiqueta(float unidad);
    void pintarPeso();

    TallerDialogo& m_taller;
    std::unique_ptr<Superficie> m_picEjEtq;
    std::unique_ptr<Superficie> m_picEjVis;
    AspectoPrevia m_aspecto;
    Rectangulo m_zona;
    bool m_visible = true;
};

}  // namespace sorvanel
