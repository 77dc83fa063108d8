#pragma once

#include <functional>
#include <memory>
#include <string>

#include "grid/parrilla.h"
#include "platform/formulario.h"

namespace sorvanel {

// The two handles with which the operator moves and sizes the grid on the screen itself: imDrgXY at
// its top-left corner, imDrgWH at its bottom-right one. The grid follows every move at once.
class AsasParrilla {
public:
    // What must be done after each move: the bar is painted over what the grid painted.
    AsasParrilla(Formulario& formulario, std::function<void()> trasMover);
    ~AsasParrilla();
    AsasParrilla(const AsasParrilla&) = delete;
    AsasParrilla& operator=(const AsasParrilla&) = delete;

    // Shows the handles on the grid's corners. The grid must outlive the call to ocultar. Window width
    // and the limit below which the grid may not be drawn out are twips. Numbers are shown with that separator.
    void mostrar(Parrilla& parrilla, float anchoVentana, float limiteInferior, std::string separador = ",");
    void ocultar();

private:
    enum class Arrastre { ninguno = 0, posicion = 1, tamano = 2 };

    // Tells the one handle from the other.
    class Oyente final : public OyenteAsa {
    public:
        Oyente(AsasParrilla& asas, Arrastre cual) : m_asas(asas), m_cual(cual) {}
        void alPulsarAsa(Punto raton) override { m_asas.pulsar(m_cual, raton); }
        void alMoverAsa(Punto raton) override { m_asas.mover(m_cual, raton); }
        void alSoltarAsa() override { m_asas.soltar(); }
        void alEmpujarAsa(Punto paso) override { m_asas.llevar(m_cual, paso); }
        void alDobleAsa() override { m_asas.llevarAlTope(m_cual); }

    private:
        AsasParrilla& m_asas;
        const Arrastre m_cual;
    };

    void pulsar(Arrastre cual, Punto raton);
    void mover(Arrastre cual, Punto raton);
    // Moves that handle by so much, within its limits, and the grid with it.
    void llevar(Arrastre cual, Punto paso);
    // That corner, as far out as it goes.
    void llevarAlTope(Arrastre cual);
    void soltar();
    void llevarPosicion(Punto paso);
    void llevarTamano(Punto paso);
    void aplicar();
    void ponerEnEsquinas();
    // Beside the handle: how much of the room there is the grid leaves free, or takes.
    void mostrarMedida(Arrastre cual);

    const std::function<void()> m_trasMover;
    Oyente m_oyenteXY{*this, Arrastre::posicion};
    Oyente m_oyenteWH{*this, Arrastre::tamano};
    std::unique_ptr<Asa> m_imDrgXY;
    std::unique_ptr<Asa> m_imDrgWH;
    std::unique_ptr<Superficie> m_lbMedida;
    std::string m_separador;
    Rectangulo m_xy;
    Rectangulo m_wh;
    Parrilla* m_parrilla = nullptr;
    float m_anchoVentana = 0;
    float m_limite = 0;
    Arrastre m_arrastre = Arrastre::ninguno;
    Punto m_agarre;  // where within the handle it was taken
};

}  // namespace sorvanel
