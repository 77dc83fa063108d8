#pragma once

#include <functional>
#include <vector>

#include "platform/dialogo.h"
#include "platform/geometria.h"

// How the tools are laid out: pieces of a known least size in rows and columns, which are pieces again.
// Sizes come from measured texts, so nothing is cut whatever the scale, the font or the language.

namespace sorvanel {

// The same distances in all tools, twips.
constexpr float MARGEN = aTwips(14);     // along the window's edge
constexpr float SEPARACION = aTwips(8);  // between what belongs together
constexpr float HUECO = aTwips(12);      // between groups
constexpr float RELLENO = aTwips(10);    // from a group's frame to what is in it

struct Tamano {
    float ancho = 0;
    float alto = 0;

    bool operator==(const Tamano&) const = default;
};

// Something that can be placed. It gets its least size, at the left and in the middle of its cell's
// height, but where it says that it takes all the room there is.
struct Pieza {
    Tamano minimo;
    std::function<void(const Rectangulo&)> colocar;
    bool todoElAncho = false;
    bool todoElAlto = false;
};

Pieza pieza(Control& control, Tamano minimo);
// The same piece, as wide as its cell.
Pieza aLoAncho(Pieza pieza);
// A group: the frame with the piece inside it. It fills its cell.
Pieza panel(Marco& marco, Pieza contenido);

// Rows and columns, counted from 0; a column is as wide as its widest piece, a row as high as its
// highest. Room that is left over goes to one column.
class Rejilla {
public:
    explicit Rejilla(float entreColumnas = SEPARACION, float entreFilas = SEPARACION)
        : m_entreColumnas(entreColumnas), m_entreFilas(entreFilas) {}

    void poner(int fila, int columna, Pieza pieza, int columnas = 1);
    // Which column takes the room that is left over; the last unless told.
    void estirar(int columna) { m_estirada = columna; }

    Tamano minimo() const;
    void colocar(const Rectangulo& zona) const;
    // The whole as one piece, which takes all the width and height of its cell.
    Pieza comoPieza() const;

private:
    struct Celda {
        int fila;
        int columna;
        int columnas;
        Pieza pieza;
    };

    std::vector<float> anchos() const;
    std::vector<float> altos() const;
    int columnaEstirada(std::size_t cuantas) const;

    float m_entreColumnas;
    float m_entreFilas;
    int m_estirada = -1;
    std::vector<Celda> m_celdas;
};

}  // namespace sorvanel
