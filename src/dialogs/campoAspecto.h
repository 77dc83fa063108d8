#pragma once

#include <array>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "dialogs/filaColor.h"
#include "dialogs/filaValor.h"
#include "dialogs/tallerDialogo.h"
#include "display/aspecto.h"
#include "platform/programa.h"

namespace sorvanel {

// Of a text box, which says more than the others.
struct TextosCaja {
    std::string_view nombre;
    // Among the values of one display, and in the shared design: its tool tip and what it has room for.
    std::string_view sugerenciaPropio, sugerenciaComun;
    std::string_view muestraPropio, muestraComun;
};

// How a value of the look stands in the tools.
struct FilaCampo {
    Rasgo rasgo;
    IdControl casilla;  // ticked where a display has its own
    // What that box says, and what stands before the control, or on it, in the shared design.
    std::string_view propio, comun;
    // A number's label, plus and minus; a colour's button and frame; else one.
    IdControl control, segundo = control, tercero = control;
    std::span<const std::string_view> opciones = {};
    const TextosCaja* caja = nullptr;
};

// In the order in which the tools show them.
extern const std::array<FilaCampo, RASGOS.size()> CAMPOS;

// The control of one value of the look, as the value's kind asks for it.
class CampoAspecto {
public:
    struct Datos {
        const FilaCampo& fila;
        bool propio;  // one display's, beside a box that says what it is
        // What is in force; empty when there is nothing to edit.
        std::function<ValorRasgo()> actual;
        // The user has changed it.
        std::function<void(const ValorRasgo&)> alCambiar;
    };

    CampoAspecto(TallerDialogo& taller, DialogosSistema& sistema, const comun& com, Datos datos);

    // alCambiar is not told.
    void mostrarValor(const ValorRasgo& valor);
    // A ratio in force that is finer than its box tells is not rounded by being looked at.
    ValorRasgo leer(const ValorRasgo& enVigor) const;
    void mostrar(bool visible);

    // What the keyboard reaches.
    std::vector<Control*> teclado() const;
    // Null where the control says what it is, or a box beside it.
    Rotulo* rotulo() const { return m_rotulo.get(); }
    Pieza comoPieza();

private:
    ClaseRasgo clase() const { return filaDe(m_datos.fila.rasgo).clase; }
    std::string texto() const { return std::string(m_datos.propio ? m_datos.fila.propio : m_datos.fila.comun); }
    void crearNumero();
    void crearColor(DialogosSistema& sistema);
    void crearCaja(const TextosCaja& textos);
    void escribir(std::string texto);
    void alEscribir();
    void redondear();

    TallerDialogo& m_taller;
    const comun& m_com;
    const Datos m_datos;
    std::unique_ptr<Rotulo> m_rotulo;
    // One of these.
    std::unique_ptr<FilaValor> m_numero;
    std::unique_ptr<Lista> m_lista;
    std::unique_ptr<FilaColor> m_color;
    std::unique_ptr<CajaTexto> m_caja;
    std::string m_escrito;  // as long as the user leaves it, it stands for the exact ratio
};

}  // namespace sorvanel
