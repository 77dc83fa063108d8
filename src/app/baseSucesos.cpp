// The main window: what the form tells it that no button asked for.

#include <cmath>

#include "app/base.h"

namespace sorvanel {

void base::alCambiarMonitores() {
    if (m_descargado || !m_montaje.seguirMonitores(m_estado == Estado::iniciando)) return;
    anotar("Han cambiado los monitores: " + textoMonitor(m_montaje.pantalla()));
    // A display that had no room until now has not started yet.
    if (m_estado == Estado::marcha) arrancarLosQueFaltan();
    if (m_modoTamano) mostrarAsas();
    for (DialogoConfiguracion* una : {m_cfgContexto.get(), m_cfgVisor.get(), m_cfgMensaje.get()}) {
        if (una->cargado()) una->seguirMonitor(m_montaje.pantalla().monitor());
    }
}

// Before it sleeps nothing is left that could be taken for live afterwards. Whatever the sockets still hold when it
// wakes, and connections of which nobody knows that they are dead, go with them.
void base::alDormir(bool duerme) {
    anotar(duerme ? "El equipo se va a dormir" : "El equipo ha despertado");
    if (m_estado != Estado::marcha) return;
    if (!duerme) return m_entorno.cola.despues([this] { despertar(); });
    m_cronica.terminar();
    m_montaje.visores().Run(false);
    m_formulario.refrescar();
}

void base::despertar() {
    if (m_estado != Estado::marcha) return;
    m_cronica.terminar();
    m_montaje.visores().Run(false);
    arrancarLosQueFaltan();
    m_montaje.visores().enmudecer();
    m_cronica.empezar(m_montaje.visores());
}

std::string base::apartado() const {
    if (m_cfgContexto->cargado()) return "contexto";
    if (m_cfgVisor->cargado()) return "visores";
    if (m_cfgMensaje->cargado()) return "mensaje";
    if (m_modoTamano) return "tamano";
    if (m_estado == Estado::configurando) return "configurar";
    return m_estado == Estado::marcha ? "marcha" : "pausa";
}

// Not from within the key that asks for it, which a text box may be at work on.
void base::alPedirAyuda() {
    m_entorno.cola.despues([this] {
        if (m_descargado || m_entorno.programa.abrirManual(apartado())) return;
        m_entorno.avisos.informacion("No se encuentra el manual (manual.html) junto al programa.");
    });
}

void base::alMoverRaton(ZonaRaton zona) {
    const bool enMarcha = m_estado == Estado::marcha && zona != ZonaRaton::barra;
    m_formulario.puntero(enMarcha ? Puntero::marcha : Puntero::normal);
    if (m_estado == Estado::marcha) retenerCursor();
}

bool base::alUsarRaton(GestoRaton gesto, Punto donde) {
    return m_cfgVisor->cargado() && m_cfgVisor->alUsarRaton(gesto, donde);
}

// While running the cursor stays in the upper three quarters of the bar, where the buttons are.
void base::retenerCursor() {
    const Rectangulo barra = m_barra.lugar();
    const Monitor monitor = m_montaje.pantalla().monitor();
    const auto pixeles = [&](float twips) {
        return static_cast<std::int32_t>(std::lround(twips / monitor.twipsPorPixelY));
    };
    const std::int32_t techo = monitor.area.top + pixeles(barra.y);
    const std::int32_t suelo = techo + pixeles(barra.alto) * 3 / 4;
    PuntoPixel cursor = m_entorno.cursor.posicion();
    if (cursor.y >= techo && cursor.y <= suelo) return;
    cursor.y = cursor.y < techo ? techo : suelo;
    m_entorno.cursor.posicion(cursor);
}

void base::alDescargar(MotivoCierre motivo) {
    m_descargado = true;
    m_cronica.terminar();
    cerrarHerramientas(true);
    m_montaje.desmontar();
    estado(Estado::iniciando);
    // At the end of a Windows session nothing is run after this.
    m_entorno.com.volcar();
    m_entorno.bitacora.terminar(textoCierre(motivo, m_conBoton));
}

}  // namespace sorvanel
