#pragma once

#include <span>
#include <string>
#include <string_view>

#include "display/encajeVisor.h"
#include "display/formatoPeso.h"
#include "display/letrasPeso.h"
#include "display/rayasSinDatos.h"
#include "display/trama.h"
#include "platform/superficie.h"

namespace sorvanel {

// Paints one weight display on two surfaces that it does not own: the caption and, to its right or
// below, the weight. Sizes and positions are fixed by encajar(), so digits neither jump nor change size while
// readings run. Before a successful encajar() the painting operations do nothing.
class PinturaVisor {
public:
    PinturaVisor(Superficie& etiqueta, Superficie& peso) : m_etiqueta(etiqueta), m_peso(peso) {}

    // Fits the fonts and places both surfaces in the cell (twips of the form). Both are
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
    // Five red dashes, below them why, if there is such a text (the whole first, then shorter ones for where that has
    // no room), and the family's marks erased.
    void pintarSinDatos(const MarcasVisor& suyas, std::span<const std::string> porque = {});
    // Neither weight nor marks.
    void limpiarPeso();

private:
    void colores();
    void borrarTexto();
    // The caption, then that.
    std::string& leyendaCon(std::string_view texto);
    void imprimirPeso();
    void imprimirDesbordado();
    // Of the text that begins at x, in letters so high, what is not as it stands on the surface; all of the text's area
    // where that is not known.
    Rectangulo cambiado(const LetrasPeso::Letra& letra, float x);
    void ponerMarcas(const MarcasVisor& marcas);

    Superficie& m_etiqueta;
    Superficie& m_peso;
    AspectoVisor m_aspecto;
    FormatoPeso m_formato{""};
    EncajeVisor m_encaje;
    LetrasPeso m_letras{m_peso};
    bool m_encajado = false;
    MarcasVisor m_marcas;          // as they stand on the surface
    bool m_marcasSeguras = false;  // false: the surface may show something else
    float m_pixel = 0;             // of the surface's picture when that was written
    std::string m_escrito;         // the weight that stands on the surface; empty when none surely does
    float m_altoEscrito = 0;       // of its letters
    TintasAviso m_tintas;
    std::string m_texto;            // kept for its memory
    std::string m_leyenda;          // the same; it begins with the caption
    std::size_t m_largoTitulo = 0;  // of that beginning
};

}  // namespace sorvanel
