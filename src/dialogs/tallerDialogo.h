#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "dialogs/disposicion.h"
#include "platform/controles.h"
#include "platform/dialogo.h"

namespace sorvanel {

// Makes the controls of one tool window, each with its name, and knows what room they need. What it
// makes belongs to the caller and goes before the window does.
class TallerDialogo {
public:
    explicit TallerDialogo(FormularioDialogo& formulario) : m_formulario(formulario) {}

    FormularioDialogo& formulario() const { return m_formulario; }

    // A label or frame that nothing refers to; numbered in the order of making.
    std::unique_ptr<Rotulo> rotulo(const std::string& texto);
    // The same in the larger letters of a group's heading.
    std::unique_ptr<Rotulo> rotuloGrupo(const std::string& texto);
    std::unique_ptr<Rotulo> rotulo(IdControl id, int elemento, const std::string& texto);
    // A group's ground; what stands on it is made after it.
    std::unique_ptr<Marco> marco(IdControl id, int elemento, const std::string& nombre);
    std::unique_ptr<Marco> marco(const std::string& nombre) { return marco(IdControl::marco, m_marcos++, nombre); }
    // Whether what is made from now on is shown later, by whoever has it made.
    void ocultos(bool si) { m_ocultos = si; }
    // `nombre` names it for screen readers; `sugerencia` is its tool tip, the name where empty.
    std::unique_ptr<CajaTexto> cajaTexto(IdControl id, int elemento, const std::string& nombre,
                                         const std::string& sugerencia = {});
    std::unique_ptr<CasillaMarca> casilla(IdControl id, int elemento, const std::string& texto,
                                          const std::string& sugerencia = {});
    std::unique_ptr<Lista> lista(IdControl id, int elemento, std::span<const std::string_view> textos,
                                 const std::string& nombre, const std::string& sugerencia = {});
    std::unique_ptr<Boton> botonImagen(IdControl id, int elemento, Dibujo dibujo, const std::string& nombre);
    std::unique_ptr<MarcoColor> marcoColor(IdControl id, int elemento, const std::string& nombre);
    std::unique_ptr<Boton> botonTexto(IdControl id, int elemento, const std::string& texto,
                                      const std::string& sugerencia = {});

    // Least sizes, for the scale that the window has now.
    Tamano texto(std::string_view texto) const;
    Tamano textoGrupo(std::string_view texto) const;
    Tamano textoCon(const Fuente& fuente, std::string_view texto) const;
    // Room to type something as wide as the sample.
    Tamano cajaTexto(std::string_view muestra) const;
    Tamano casilla(std::string_view texto) const;
    Tamano lista(std::span<const std::string_view> textos) const;
    Tamano botonImagen() const;
    Tamano marcoColor() const;
    Tamano botonTexto(std::string_view texto, bool conDibujo = false) const;

    // A label as a piece, measured with what it says.
    Pieza piezaRotulo(Rotulo& rotulo) const { return pieza(rotulo, texto(rotulo.texto())); }
    Pieza piezaRotuloGrupo(Rotulo& rotulo) const { return pieza(rotulo, textoGrupo(rotulo.texto())); }

private:
    template <typename Tipo>
    std::unique_ptr<Tipo> hacer(IdControl id, int elemento);
    // Boxes, lists and buttons of one row are equally high.
    float altoControl() const;

    FormularioDialogo& m_formulario;
    int m_rotulos = 0;
    int m_marcos = 0;
    bool m_ocultos = false;
};

// Before they are hidden: where one of them has the focus, that one gets it.
void cederFoco(const std::vector<Control*>& unos, Control& otro);

// The letters of a tool's headings; controls have the system's own.
Fuente fuenteTitulo();
Fuente fuenteSubtitulo();
Fuente fuenteGrupo();
// A group's ground.
constexpr Color COLOR_PANEL = rgb(0xF8, 0xF9, 0xFB);
constexpr Color COLOR_TITULO = rgb(0x2B, 0x3A, 0x49);
constexpr Color COLOR_SUBTITULO = rgb(0x5A, 0x65, 0x70);

}  // namespace sorvanel
