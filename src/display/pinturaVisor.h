#pragma once

#include <array>
#include <string>
#include <string_view>

#include "display/encajeVisor.h"
#include "display/formatoPeso.h"
#include "display/trama.h"
#include "platform/superficie.h"

namespace sorvanel {

// Paints one weight display on two surfaces that it does not own: the caption and, to its right, the
// weight. Sizes and positions are fixed by encajar(), so digits neither jump nor change size while
// readings run. Before a successful encajar() the painting operations do nothing.
class PinturaVisor {
public:
    PinturaVisor(Superficie& etiqueta, Superficie& peso) : m_etiqueta(etiqueta), m_peso(peso) {}

    // Fits the fonts and places both surfaces side by side in the cell (twips of the form). Both are
    // left blank in their colours; shown or hidden they stay as they were. False, and nothing
    // changed, when the cell cannot hold the display: no positive size, or digits below 8 pixels.
    bool encajar(const Rectangulo& celda, const AspectoVisor& aspecto);
    // False when the caption's width is 0: its surface then has no area.
    bool hayEtiqueta() const { return m_encajado && m_encaje.anchoEtiqueta > 0; }

    // Takes over the colours and the caption's alignment, without fitting anew: what changes texts or sizes needs
    // encajar(). Shows with the next painting.
    void aspecto(const AspectoVisor& aspecto);

    void pintarEtiqueta();
    // The weight, and the frame's marks, of those that the family has.
    void pintarPeso(const Trama& trama, const MarcasVisor& suyas);
    // Five red dashes, and the family's marks erased.
    void pintarSinDatos(const MarcasVisor& suyas);
    // Neither weight nor marks.
    void limpiarPeso();

private:
    void colores();
    void borrarTexto();
    void imprimirPeso();
    void imprimirCortado();
    // Twips that the text takes in the weight's font.
    float ancho(std::string_view texto);
    // Of a text that begins at x, what is not as it stands on the surface; all of the text's area where that is not
    // known.
    Rectangulo cambiado(float x);
    void ponerMarcas(const MarcasVisor& marcas);

    Superficie& m_etiqueta;
    Superficie& m_peso;
    AspectoVisor m_aspecto;
    FormatoPeso m_formato{""};
    EncajeVisor m_encaje;
    bool m_encajado = false;
    MarcasVisor m_marcas;               // as they stand on the surface
    bool m_marcasSeguras = false;       // false: the surface may show something else
    float m_pixel = 0;                  // of the surface's picture when that was written
    std::string m_escrito;              // the weight that stands on the surface; empty when none surely does
    std::array<float, 128> m_anchos{};  // of single characters in the weight's font; 0: not measured yet
    std::string m_texto, m_leyenda;     // kept for their memory
};

}  // namespace sorvanel
