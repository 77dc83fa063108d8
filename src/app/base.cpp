#include "app/base.h"

#include <cmath>

#include "config/almacenPerfil.h"
#include "config/comun.h"

namespace sorvanel {

std::string textoVersion(const Version& version) {
    std::string texto = std::to_string(version.mayor);
    texto += version.menor < 10 ? ".0" : ".";
    texto += std::to_string(version.menor);
    texto += static_cast<char>('A' - 1 + version.revision);
    return texto;
}

base::base(const Entorno& entorno, Formulario& formulario, EnlaceCompartido& compartido)
    : m_entorno(entorno),
      m_formulario(formulario),
      m_compartido(compartido),
      m_picRep(formulario.crearSuperficie(IdControl::picRep, 0)),
      m_barra(formulario) {
    unirBotones();
    m_formulario.oyente(this);
}

base::~base() {
    m_formulario.oyente(nullptr);
    desmontar();
}

void base::unirBotones() {
    m_barra.alPulsar(IdControl::botOff, [this] { m_formulario.cerrar(); });
    m_barra.alPulsar(IdControl::botRun, [this] {
        std::string errores;
        ponerEnMarcha(errores);
        avisar(errores);
    });
    m_barra.alPulsar(IdControl::botPau, [this] { pausar(); });
    m_barra.alPulsar(IdControl::botCfg, [this] { configurar(); });
    m_barra.alPulsar(IdControl::botOk, [this] { aceptar(); });
    m_barra.alPulsar(IdControl::botCan, [this] { cancelar(); });
}

void base::cargar() {
    m_barra.version(textoVersion(m_entorno.programa.version()));
    estado(Estado::iniciando);
    cubrirMonitor();
    vaciarRepresentacion();
    m_formulario.mostrar();
}

void base::alActivar() {
    if (m_activado) return;
    m_activado = true;
    // Not from within the window's activation: an error box would open in the middle of it.
    m_entorno.cola.despues([this] { primeraActivacion(); });
}

void base::primeraActivacion() {
    if (m_descargado) return;
    std::string errores;
    construir(errores);
    if (m_visores->cuantos() > 0) {
        // The errors wait until all that can run does: nobody may be there to answer the box.
        ponerEnMarcha(errores);
        avisar(errores);
        return;
    }
    comun(m_entorno).hacerCopiaDeINI();
    desmontar();
    m_formulario.refrescar();
    estado(Estado::configurando);
}

void base::cubrirMonitor() {
    if (!m_pantalla) m_pantalla = std::make_unique<oScreen>(m_entorno);
    m_monitor = m_pantalla->monitor();
    m_formulario.cubrir(m_monitor);
    const float ancho = m_pantalla->Width();
    const float alto = m_pantalla->Height();
    m_barra.disponer(ancho, alto);
    m_picRep->colocar({0, 0, ancho, alto});
    m_picRep->mostrar(true);
}

void base::construir(std::string& errores) {
    cubrirMonitor();
    m_parrilla = std::make_unique<Parrilla>(m_entorno);
    m_parrilla->definir(*m_picRep);
    m_parrilla->pintarReticula();
    m_visores = std::make_unique<Visores>(m_entorno, m_compartido);
    crearVisores();
    m_visores->ubicar(errores);
    estado(Estado::pausa);
}

void base::crearVisores() {
    for (std::int16_t i = 1; i <= m_visores->cuantos(); ++i) {
        m_picReps.push_back(m_formulario.crearSuperficie(IdControl::picRep, i));
        m_picCaps.push_back(m_formulario.crearSuperficie(IdControl::picCap, i));
        m_visores->uno(i)->definir(*m_parrilla, *m_picCaps.back(), *m_picReps.back());
    }
}

void base::ponerEnMarcha(std::string& errores) {
    m_visores->letsRun(errores);
    estado(Estado::marcha);
}

void base::pausar() {
    m_visores->Run(false);
    estado(Estado::pausa);
}

void base::desmontar() {
    if (m_visores) {
        m_visores->Run(false);
        m_visores->desubicar();
    }
    while (!m_picReps.empty()) m_picReps.pop_back();
    while (!m_picCaps.empty()) m_picCaps.pop_back();
    m_visores.reset();
    m_parrilla.reset();
    m_pantalla.reset();
    vaciarRepresentacion();
}

// Nothing but the application's colour, as the file has it.
void base::vaciarRepresentacion() {
    Parrilla parrilla(m_entorno);
    m_picRep->colorFondo(parrilla.colorAplicacion() < 0 ? BLANCO : parrilla.colorAplicacion());
    m_picRep->limpiar();
}

void base::configurar() {
    if (!comun(m_entorno).hacerCopiaDeINI()) {
        m_entorno.avisos.critico("Error al hacer copia de configuración");
        return;
    }
    desmontar();
    m_formulario.refrescar();
    estado(Estado::configurando);
}

void base::aceptar() {
    std::string errores;
    construir(errores);
    avisar(errores);
}

void base::cancelar() {
    comun(m_entorno).restaurarCopiaDeINI();
    // The restored file may name another monitor and other colours.
    m_pantalla.reset();
    cubrirMonitor();
    vaciarRepresentacion();
    m_pantalla.reset();
}

void base::estado(Estado nuevo) {
    m_barra.estado(nuevo);
    m_formulario.puntero(nuevo == Estado::marcha ? Puntero::marcha : Puntero::normal);
    m_entorno.reposo.impedir(nuevo == Estado::marcha);
    m_estado = nuevo;
}

void base::avisar(const std::string& errores) {
    if (!errores.empty()) m_entorno.avisos.critico(errores);
}

void base::refrescos() { m_barra.refrescar(); }

void base::alMoverRaton(ZonaRaton zona) {
    const bool enMarcha = m_estado == Estado::marcha && zona != ZonaRaton::barra;
    m_formulario.puntero(enMarcha ? Puntero::marcha : Puntero::normal);
    if (m_estado == Estado::marcha) retenerCursor();
}

// While running the cursor stays in the upper three quarters of the bar, where the buttons are.
void base::retenerCursor() {
    const Rectangulo barra = m_barra.lugar();
    const auto pixeles = [this](float twips) {
        return static_cast<std::int32_t>(std::lround(twips / m_monitor.twipsPorPixelY));
    };
    const std::int32_t techo = m_monitor.area.top + pixeles(barra.y);
    const std::int32_t suelo = techo + pixeles(barra.alto) * 3 / 4;
    PuntoPixel cursor = m_entorno.cursor.posicion();
    if (cursor.y >= techo && cursor.y <= suelo) return;
    cursor.y = cursor.y < techo ? techo : suelo;
    m_entorno.cursor.posicion(cursor);
}

void base::alDescargar() {
    m_descargado = true;
    desmontar();
    estado(Estado::iniciando);
    // At the end of a Windows session nothing is run after this.
    m_entorno.perfil.volcar();
}

void base::alCambiarMonitores() {
    if (m_estado == Estado::iniciando || m_descargado) return;
    auto pantalla = std::make_unique<oScreen>(m_entorno);
    // Between two monitors there may be none for a while: what stands, stands.
    if (pantalla->numMonitores() == 0 || pantalla->monitor() == m_monitor) return;
    m_pantalla = std::move(pantalla);
    cubrirMonitor();
    if (!m_parrilla) {
        vaciarRepresentacion();
        m_pantalla.reset();
        return;
    }
    m_parrilla->recargar();
    m_parrilla->pintarReticula();
    m_visores->reubicar();
}

}  // namespace sorvanel
