#pragma once

#include <span>
#include <string>
#include <string_view>

#include "platform/color.h"
#include "platform/geometria.h"

namespace sorvanel {

struct Fuente {
    std::string nombre = "Arial";
    float alto = 0;  // em height, twips (a point is 20)
    bool negrita = false;
    bool cursiva = false;
    bool subrayado = false;

    bool operator==(const Fuente&) const = default;
};

// How much room a text takes, twips. The ink lies between tintaSuperior and tintaInferior, both
// measured from the top of the line: what must look centred is the ink, not the line.
struct MedidaTexto {
    float ancho = 0;
    float alto = 0;
    float tintaSuperior = 0;
    float tintaInferior = 0;
};

// A rectangle of the window with a picture of its own. What is painted stays until it is painted
// over: the surface keeps it while it is covered or hidden. Coordinates are twips from its own
// top-left corner. Destroying it takes it off the window.
class Superficie {
public:
    virtual ~Superficie() = default;

    // Place within the form. A change of size keeps nothing of the picture: it becomes the
    // background colour, and the owner paints again.
    virtual void colocar(const Rectangulo& lugar) = 0;
    virtual Rectangulo lugar() const = 0;
    virtual void mostrar(bool visible) = 0;
    virtual bool visible() const = 0;

    // False when nothing can be painted (no device context, no memory for the picture).
    virtual bool hasDC() const = 0;

    // The colour that limpiar() fills with; setting it paints nothing.
    virtual void colorFondo(Color color) = 0;
    virtual Color colorFondo() const = 0;
    virtual void limpiar() = 0;

    // The font that medir() and imprimir() use from now on.
    virtual void fuente(const Fuente& fuente) = 0;
    virtual MedidaTexto medir(std::string_view texto) const = 0;
    // Prints one line, its top-left corner at (x, y), without painting a background. UTF-8.
    virtual void imprimir(float x, float y, std::string_view texto, Color color) = 0;
    // The same, but only what falls within the zone.
    virtual void imprimirEn(const Rectangulo& zona, float x, float y, std::string_view texto, Color color) = 0;

    // The line of text that stands there becomes this one. They differ within the zone alone, and only that is painted
    // anew, its ground first.
    virtual void cambiarTexto(const Rectangulo& zona, Color fondo, float x, float y, std::string_view texto,
                              Color color) = 0;

    virtual void caja(const Rectangulo& zona, Color color) = 0;
    // A filled polygon with smooth edges.
    virtual void poligono(std::span<const Punto> vertices, Color color) = 0;
    // Moves the picture left by that many twips, a whole number of its pixels, and fills what came
    // free with colorFondo().
    virtual void desplazar(float twips) = 0;
    // Twips across one pixel of the picture.
    virtual float pixel() const = 0;

    // What the surface says in words: read by screen readers, never painted.
    virtual void leyenda(std::string_view texto) = 0;
    // What appears while the mouse rests on it, lines apart by "\n"; an empty text takes it off.
    virtual void sugerencia(std::string_view texto) = 0;
    // Paints what is pending without waiting for the queue.
    virtual void refrescar() = 0;
};

}  // namespace sorvanel
