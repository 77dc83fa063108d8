#include "app/montaje.h"

#include <utility>

#include "app/letrero.h"

namespace sorvanel {

Montaje::Montaje(const Entorno& entorno, Formulario& formulario, EnlaceCompartido& compartido,
                 const BarraBotones& barra)
    : m_entorno(entorno),
      m_formulario(formulario),
      m_compartido(compartido),
      m_barra(barra),
      m_picRep(formulario.crearSuperficie(IdControl::picRep, 0)),
      m_picMsg(formulario.crearSuperficie(IdControl::picMsg, 0)) {}

Montaje::~Montaje() {
    soltar();
    while (!m_superficies.empty()) m_superficies.pop_back();
}

void Montaje::dimensionar(float ancho, float alto) {
    m_picRep->colocar({0, 0, ancho, alto});
    m_picRep->mostrar(true);
}

void Montaje::montarParrilla() {
    m_parrilla = std::make_unique<Parrilla>(m_entorno);
    m_parrilla->definir(*m_picRep, *this);
    m_parrilla->pintarReticula();
}

void Montaje::cargarVisores() {
    m_visores = std::make_unique<Visores>(m_entorno, m_compartido);
    m_porSituar = true;
}

void Montaje::situarVisores(std::string& errores) {
    if (!std::exchange(m_porSituar, false)) return;
    for (std::int16_t i = 1; i <= m_visores->cuantos(); ++i) anadirSuperficies(*m_visores->uno(i));
    m_visores->ubicar(errores);
}

void Montaje::situarNuevos() {
    while (m_enUso < static_cast<std::size_t>(m_visores->cuantos())) {
        visor& nuevo = *m_visores->uno(static_cast<std::int16_t>(m_enUso + 1));
        anadirSuperficies(nuevo);
        nuevo.reubicar();
    }
}

void Montaje::anadirSuperficies(visor& nuevo) {
    if (m_enUso == m_superficies.size()) {
        const int elemento = static_cast<int>(m_enUso) + 1;
        auto picRep = m_formulario.crearSuperficie(IdControl::picRep, elemento);
        m_superficies.push_back({std::move(picRep), m_formulario.crearSuperficie(IdControl::picCap, elemento)});
    }
    const Superficies& suyas = m_superficies[m_enUso++];
    nuevo.definir(*m_parrilla, *suyas.picCap, *suyas.picRep);
}

void Montaje::montarMensaje() {
    MuelleMensaje& muelle = *this;
    m_mensaje = std::make_unique<clsMsg>(m_entorno, muelle);
}

void Montaje::soltar() {
    if (m_visores) {
        m_visores->Run(false);
        m_visores->desubicar();
    }
    // A display that was deleted since has not hidden its own.
    for (; m_enUso > 0; --m_enUso) {
        m_superficies[m_enUso - 1].picRep->mostrar(false);
        m_superficies[m_enUso - 1].picCap->mostrar(false);
    }
    m_mensaje.reset();
    m_porSituar = false;
    m_visores.reset();
    m_parrilla.reset();
}

void Montaje::desmontar() {
    soltar();
    vaciar();
}

void Montaje::vaciar() {
    Parrilla parrilla(m_entorno);
    parrilla.definir(*m_picRep, *this);
    parrilla.pintarAplicacion();
    m_picRep->leyenda(m_letrero);
    if (!m_letrero.empty()) pintarLetrero(*m_picRep, m_letrero);
}

void Montaje::letrero(const std::string& texto) {
    if (texto == m_letrero) return;
    m_letrero = texto;
    vaciar();
}

// Cuts the window to what is seen, also where only the message is there.
void Montaje::darForma() {
    if (m_parrilla) {
        m_parrilla->darForma();
        return;
    }
    Parrilla parrilla(m_entorno);
    parrilla.definir(*m_picRep, *this);
    parrilla.darForma();
}

void Montaje::redisponer() {
    if (m_parrilla) {
        m_parrilla->recargar();
        m_parrilla->pintarReticula();
    } else {
        vaciar();
    }
    if (m_visores && !m_porSituar) m_visores->reubicar();
    if (m_mensaje) m_mensaje->redisponer();
}

Rectangulo Montaje::franjaInferior() const {
    Rectangulo franja = m_barra.lugar();
    if (m_picMsg->visible()) {
        franja.alto = franja.abajo() - m_picMsg->lugar().y;
        franja.y = m_picMsg->lugar().y;
    }
    return franja;
}

void Montaje::acoplar(float alto) {
    const Rectangulo barra = m_barra.lugar();
    m_picMsg->colocar({0, barra.y - alto, barra.ancho, alto});
    darForma();
}

void Montaje::alMostrarFranja(bool) {
    darForma();
}

}  // namespace sorvanel
