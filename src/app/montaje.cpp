#include "app/montaje.h"

#include <utility>

#include "app/letrero.h"

namespace sorvanel {

Montaje::Montaje(const Entorno& entorno, Formulario& formulario, EnlacePeso& compartido, BarraBotones& barra)
    : m_entorno(entorno),
      m_formulario(formulario),
      m_compartido(compartido),
      m_barra(barra),
      m_pantalla(entorno.com, entorno.monitores),
      m_picRep(formulario.crearSuperficie(IdControl::picRep, 0)),
      m_picMsg(formulario.crearSuperficie(IdControl::picMsg, 0)) {}

Montaje::~Montaje() {
    soltar();
    while (!m_superficies.empty()) m_superficies.pop_back();
}

void Montaje::cubrir() {
    cubrir(oScreen(m_entorno.com, m_entorno.monitores));
}

void Montaje::cubrir(oScreen pantalla) {
    m_pantalla = std::move(pantalla);
    m_formulario.cubrir(m_pantalla.monitor());
    m_barra.disponer(m_pantalla.Width(), m_pantalla.Height());
    m_picRep->colocar({0, 0, m_pantalla.Width(), m_pantalla.Height()});
    m_picRep->mostrar(true);
}

void Montaje::construir(std::string& errores) {
    desmontar();
    cubrir();
    hacerParrilla();
    hacerVisores();
    situarVisores(errores);
    hacerMensaje();
}

void Montaje::hacerParrilla(bool numerada) {
    m_parrilla = std::make_unique<Parrilla>(m_entorno.com, m_pantalla);
    m_parrilla->numerada(numerada);
    m_parrilla->definir(*m_picRep, *this);
    m_parrilla->pintarReticula();
}

void Montaje::hacerVisores() {
    m_visores = std::make_unique<Visores>(m_entorno.com, m_entorno.fabrica, m_entorno.reloj, m_compartido);
    m_porSituar = true;
}

void Montaje::hacerMensaje() {
    MuelleMensaje& muelle = *this;
    m_mensaje = std::make_unique<clsMsg>(m_entorno.com, m_entorno.programa, m_entorno.fabrica, m_entorno.reloj, muelle);
}

void Montaje::montarParrilla() {
    m_entorno.com.refrescar();
    hacerParrilla();
}

void Montaje::hacerMesaVisores() {
    m_entorno.com.refrescar();
    hacerParrilla(true);
    hacerVisores();
}

void Montaje::montarVisores() {
    hacerMesaVisores();
    situarVisoresLuego();
}

// Their surfaces a moment later: the tool that asks for them is seen before.
void Montaje::situarVisoresLuego() {
    m_entorno.cola.despues([this] { situarVisores(); });
}

void Montaje::montarMensaje() {
    montarParrilla();
    hacerVisores();
    hacerMensaje();
    situarVisoresLuego();
}

void Montaje::montarTamano() {
    montarParrilla();
    hacerMensaje();
}

void Montaje::desmontarMesa() {
    desmontar();
    m_entorno.com.volcar();
}

visor* Montaje::nuevoVisor() {
    situarVisores();
    visor* const nuevo = m_visores->nuevo(0, "");
    while (m_enUso < static_cast<std::size_t>(m_visores->cuantos())) {
        visor& suyo = *m_visores->uno(static_cast<std::int16_t>(m_enUso + 1));
        anadirSuperficies(suyo);
        suyo.reubicar();
    }
    return nuevo;
}

bool Montaje::eliminarVisor(std::int16_t posicion) {
    if (!m_visores->eliminar(posicion)) return false;
    // The displays behind it have other numbers now, and their surfaces go by number.
    desmontar();
    hacerMesaVisores();
    situarVisores();
    return true;
}

void Montaje::situarVisores(std::string& errores) {
    if (!std::exchange(m_porSituar, false)) return;
    for (std::int16_t i = 1; i <= m_visores->cuantos(); ++i) anadirSuperficies(*m_visores->uno(i));
    m_visores->ubicar(errores);
}

// What cannot be placed is told when the configuration is accepted.
void Montaje::situarVisores() {
    std::string errores;
    situarVisores(errores);
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
    if (!m_parrilla && !m_visores && !m_mensaje) return;
    soltar();
    vaciar();
}

void Montaje::vaciar() {
    pintarAplicacion(*m_picRep, *this, m_pantalla.monitor(), ajustes());
    m_picRep->leyenda(m_letrero);
    if (!m_letrero.empty()) pintarLetrero(*m_picRep, m_letrero);
}

void Montaje::letrero(const std::string& texto) {
    if (texto == m_letrero) return;
    m_letrero = texto;
    vaciar();
}

void Montaje::darForma() {
    if (m_parrilla) {
        m_parrilla->darForma();
    } else {
        // Only the message may be there: what would be seen of the grid is kept all the same.
        sorvanel::darForma(*this, m_pantalla.monitor(), ajustes());
    }
}

void Montaje::cambiarMonitor(std::int16_t indice) {
    oScreen pantalla(m_entorno.com, m_entorno.monitores);
    pantalla.monitorActual(indice);
    cubrir(std::move(pantalla));
    redisponer();
}

bool Montaje::seguirMonitores(bool igualmente) {
    m_entorno.com.refrescar();
    oScreen pantalla(m_entorno.com, m_entorno.monitores);
    // Between two monitors there may be none for a while: what stands, stands.
    if (pantalla.monitor().vacio()) return false;
    if (!igualmente && pantalla.monitor() == m_pantalla.monitor()) {
        m_pantalla = std::move(pantalla);
        // Meanwhile the system may have put the window elsewhere.
        m_formulario.cubrir(m_pantalla.monitor());
        return false;
    }
    cubrir(std::move(pantalla));
    redisponer();
    return true;
}

void Montaje::redisponer() {
    if (m_parrilla) {
        m_parrilla->recargar(m_pantalla);
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
