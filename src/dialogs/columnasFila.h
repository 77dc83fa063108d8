#pragma once

#include <array>
#include <string_view>

#include "dialogs/tallerDialogo.h"

namespace sorvanel {

// What the bulk mode shows, in the order of its numbers.
extern const std::array<std::string_view, 6> MODOS_BULK;

// Where the columns stand, twips from the row's left edge: the same for all rows and their headings.
class ColumnasFila {
public:
    enum Columna { orden, protocolo, port, marca, modo, etiqueta, ubicacion, diseno, CUANTAS };
    static constexpr std::array<std::string_view, CUANTAS> TITULOS{"N.º",       "Enlace",   "Port",      "",
                                                                   "Modo bulk", "Etiqueta", "Ubicación", "Diseño"};

    ColumnasFila() = default;
    // Measured with the texts that stand in them. Without the mark of an address's form the caption has its room too.
    ColumnasFila(const TallerDialogo& taller, bool conMarca);

    float ancho() const { return m_ancho; }
    float alto() const { return m_alto; }  // of one row
    // A piece of that height in its column, in the middle of the row.
    Rectangulo lugar(Columna columna, const Rectangulo& fila, float alto) const;
    float altoControl() const { return m_altoControl; }

private:
    std::array<float, CUANTAS> m_x{};
    std::array<float, CUANTAS> m_anchos{};
    float m_ancho = 0;
    float m_alto = 0;
    float m_altoControl = 0;
};

}  // namespace sorvanel
