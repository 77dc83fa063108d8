#include "app/asasParrilla.h"

#include <algorithm>

namespace sorvanel {

namespace {

constexpr float LADO = aTwips(24);

}  // namespace

AsasParrilla::AsasParrilla(Formulario& formulario, std::function<void()> trasMover)
    : m_trasMover(std::move(trasMover)),
      m_imDrgXY(formulario.crear<Asa>(IdControl::imDrgXY)),
      m_imDrgWH(formulario.crear<Asa>(IdControl::imDrgWH)) {
    m_imDrgXY->nombre("Mover la esquina superior izquierda de la parrilla (ratón o flechas)");
    m_imDrgWH->nombre("Mover la esquina inferior derecha de la parrilla (ratón o flechas)");
    m_imDrgXY->oyente(&m_oyenteXY);
    m_imDrgWH->oyente(&m_oyenteWH);
}

AsasParrilla::~AsasParrilla() {
    m_imDrgXY->oyente(nullptr);
    m_imDrgWH->oyente(nullptr);
}

void AsasParrilla::mostrar(Parrilla& parrilla, float anchoVentana, float limiteInferior) {
    m_parrilla = &parrilla;
    m_anchoVentana = anchoVentana;
    m_limite = limiteInferior;
    m_arrastre = Arrastre::ninguno;
    ponerEnEsquinas();
    m_imDrgXY->mostrar(true);
    m_imDrgWH->mostrar(true);
}

void AsasParrilla::ocultar() {
    m_arrastre = Arrastre::ninguno;
    m_parrilla = nullptr;
    m_imDrgXY->mostrar(false);
    m_imDrgWH->mostrar(false);
}

void AsasParrilla::ponerEnEsquinas() {
    m_xy = {m_parrilla->Left(), m_parrilla->Top(), LADO, LADO};
    m_wh = {m_parrilla->Left() + m_parrilla->Width() - LADO, m_parrilla->Top() + m_parrilla->Height() - LADO, LADO,
            LADO};
    m_imDrgXY->colocar(m_xy);
    m_imDrgWH->colocar(m_wh);
}

void AsasParrilla::pulsar(Arrastre cual, Punto raton) {
    m_arrastre = cual;
    m_agarre = raton;
}

void AsasParrilla::mover(Arrastre cual, Punto raton) {
    if (m_arrastre == cual) llevar(cual, {raton.x - m_agarre.x, raton.y - m_agarre.y});
}

void AsasParrilla::llevar(Arrastre cual, Punto paso) {
    if (m_parrilla == nullptr || paso == Punto{}) return;
    if (cual == Arrastre::posicion) {
        llevarPosicion(paso);
    } else {
        llevarTamano(paso);
    }
    aplicar();
}

// Up to the other handle, and not out of the window.
void AsasParrilla::llevarPosicion(Punto paso) {
    m_xy.x = std::max(0.0F, std::min(m_xy.x + paso.x, m_wh.x - LADO));
    m_xy.y = std::max(0.0F, std::min(m_xy.y + paso.y, m_wh.y - LADO));
}

// Up to the other handle, and not out of the window: that comes first where a tiny grid stands at its edge,
// which would refuse to leave it, and not be moved at all.
void AsasParrilla::llevarTamano(Punto paso) {
    m_wh.x = std::min(std::max(m_wh.x + paso.x, m_xy.derecha()), m_anchoVentana - LADO);
    m_wh.y = std::min(std::max(m_wh.y + paso.y, m_xy.abajo()), m_limite - LADO);
}

void AsasParrilla::aplicar() {
    m_parrilla->mover({m_xy.x, m_xy.y, m_wh.derecha() - m_xy.x, m_wh.abajo() - m_xy.y});
    // The grid may have refused: the handles stand where it says.
    ponerEnEsquinas();
    m_trasMover();
}

}  // namespace sorvanel
