#include "app/asasParrilla.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace sorvanel {

namespace {

constexpr float LADO = aTwips(24);
constexpr float LETRA_MEDIDA = aTwips(17);
constexpr float MARGEN_MEDIDA = aTwips(8);
constexpr float ORLA = aTwips(2);
constexpr Color COLOR_ORLA = rgb(0x0B, 0x5C, 0xC4);
// No screen is as wide.
constexpr float LEJOS = aTwips(100'000);

// Of a whole, as in "37,5 %".
std::string porCiento(float parte, float total, const std::string& separador) {
    const long milesimas = total > 0 ? std::lround(parte / total * 1000) : 0;
    return std::to_string(milesimas / 10) + separador + std::to_string(milesimas % 10) + " %";
}

}  // namespace

AsasParrilla::AsasParrilla(Formulario& formulario, std::function<void()> trasMover)
    : m_trasMover(std::move(trasMover)),
      m_imDrgXY(formulario.crear<Asa>(IdControl::imDrgXY)),
      m_imDrgWH(formulario.crear<Asa>(IdControl::imDrgWH)),
      m_lbMedida(formulario.crearSuperficie(IdControl::lbMedida, 0)) {
    m_imDrgXY->nombre("Mover la esquina superior izquierda de la parrilla (ratón o flechas)");
    m_imDrgWH->nombre("Mover la esquina inferior derecha de la parrilla (ratón o flechas)");
    m_imDrgXY->sugerencia("Arrastre la esquina o use las flechas. Doble clic: hasta el borde");
    m_imDrgWH->sugerencia("Arrastre la esquina o use las flechas. Doble clic: hasta el borde");
    m_imDrgXY->oyente(&m_oyenteXY);
    m_imDrgWH->oyente(&m_oyenteWH);
}

AsasParrilla::~AsasParrilla() {
    m_imDrgXY->oyente(nullptr);
    m_imDrgWH->oyente(nullptr);
}

void AsasParrilla::mostrar(Parrilla& parrilla, float anchoVentana, float limiteInferior, std::string separador) {
    m_separador = std::move(separador);
    m_parrilla = &parrilla;
    m_anchoVentana = anchoVentana;
    m_limite = limiteInferior;
    soltar();
    ponerEnEsquinas();
    m_imDrgXY->mostrar(true);
    m_imDrgWH->mostrar(true);
}

void AsasParrilla::soltar() {
    m_arrastre = Arrastre::ninguno;
    m_lbMedida->mostrar(false);
}

void AsasParrilla::ocultar() {
    soltar();
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
    if (m_parrilla != nullptr) mostrarMedida(cual);
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
    mostrarMedida(cual);
}

void AsasParrilla::llevarAlTope(Arrastre cual) {
    llevar(cual, cual == Arrastre::posicion ? Punto{-LEJOS, -LEJOS} : Punto{LEJOS, LEJOS});
    soltar();
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

// Dark on light within a line, so that it is read on any ground; inside the grid, which is where there is room.
void AsasParrilla::mostrarMedida(Arrastre cual) {
    const bool posicion = cual == Arrastre::posicion;
    const Punto medida = posicion ? Punto{m_xy.x, m_xy.y} : Punto{m_parrilla->Width(), m_parrilla->Height()};
    const std::string texto = (posicion ? "Izquierda " : "Ancho ") + porCiento(medida.x, m_anchoVentana, m_separador) +
                              (posicion ? " · Arriba " : " · Alto ") + porCiento(medida.y, m_limite, m_separador);
    m_lbMedida->fuente({"Segoe UI", LETRA_MEDIDA, true, false, false});
    const MedidaTexto letras = m_lbMedida->medir(texto);
    const float ancho = letras.ancho + 2 * MARGEN_MEDIDA, alto = letras.alto + MARGEN_MEDIDA;
    const float x = posicion ? m_xy.derecha() + MARGEN_MEDIDA : m_wh.x - MARGEN_MEDIDA - ancho;
    const float y = posicion ? m_xy.y : m_wh.abajo() - alto;
    m_lbMedida->colocar({std::clamp(x, 0.0F, std::max(m_anchoVentana - ancho, 0.0F)),
                         std::clamp(y, 0.0F, std::max(m_limite - alto, 0.0F)), ancho, alto});
    m_lbMedida->colorFondo(BLANCO);
    m_lbMedida->caja({0, 0, ancho, alto}, COLOR_ORLA);
    m_lbMedida->caja({ORLA, ORLA, ancho - 2 * ORLA, alto - 2 * ORLA}, BLANCO);
    m_lbMedida->imprimir(MARGEN_MEDIDA, (alto - letras.alto) / 2, texto, NEGRO);
    m_lbMedida->leyenda(texto);
    m_lbMedida->mostrar(true);
}

}  // namespace sorvanel
