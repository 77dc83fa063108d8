#include "app/base.h"

#include <cmath>

#include "config/almacenPerfil.h"
#include "config/comun.h"
#include "dialogs/cfgContexto.h"
#include "dialogs/cfgMensaje.h"
#include "dialogs/cfgVisor.h"

namespace sorvanel {

namespace {

// Milliseconds.
constexpr int ENTRE_ESPERAS = 250;
constexpr int ENTRE_REINTENTOS = 10'000;
constexpr int PLAZO_AVISO = 60'000;

}  // namespace

std::string textoVersion(const Version& version) {
    std::string texto = std::to_string(version.mayor);
    texto += version.menor < 10 ? ".0" : ".";
    texto += std::to_string(version.menor);
    texto += static_cast<char>('A' - 1 + version.revision);
    return texto;
}

base::base(const Entorno& entorno, Formulario& formulario, FabricaDialogos& dialogos, EnlaceCompartido& compartido)
    : m_entorno(entorno),
      m_formulario(formulario),
      m_espera(entorno.fabrica.crearTemporizador()),
      m_reintento(entorno.fabrica.crearTemporizador()),
      m_plazoAviso(entorno.fabrica.crearTemporizador()),
      m_barra(formulario),
      m_montaje(entorno, formulario, compartido, m_barra),
      m_asas(formulario, [this] { refrescos(); }) {
    MesaConfiguracion& mesa = *this;
    m_cfgContexto = std::make_unique<cfgContexto>(entorno, dialogos, mesa);
    m_cfgVisor = std::make_unique<cfgVisor>(entorno, dialogos, mesa);
    m_cfgMensaje = std::make_unique<cfgMensaje>(entorno, dialogos, mesa);
    unirBotones();
    prepararTemporizadores();
    m_formulario.oyente(this);
}

base::~base() {
    m_formulario.oyente(nullptr);
}

void base::prepararTemporizadores() {
    m_espera->intervalo(ENTRE_ESPERAS);
    m_espera->alTic([this] {
        m_espera->habilitado(false);
        m_entorno.cola.despues([this] { primeraActivacion(); });
    });
    m_reintento->intervalo(ENTRE_REINTENTOS);
    m_reintento->alTic([this] { arrancarLosQueFaltan(); });
    m_plazoAviso->intervalo(PLAZO_AVISO);
    m_plazoAviso->alTic([this] {
        m_plazoAviso->habilitado(false);
        m_entorno.avisos.cerrar();
    });
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
    m_barra.alPulsar(IdControl::botDise, [this] { alternar(*m_cfgContexto); });
    m_barra.alPulsar(IdControl::botVisores, [this] { alternar(*m_cfgVisor); });
    m_barra.alPulsar(IdControl::botMensaje, [this] { alternar(*m_cfgMensaje); });
    m_barra.alPulsar(IdControl::botSize, [this] { alternarTamano(); });
}

void base::cargar() {
    m_barra.version(textoVersion(m_entorno.programa.version()));
    estado(Estado::iniciando);
    cubrirMonitor();
    m_montaje.vaciar();
    m_formulario.mostrar();
}

void base::alActivar() {
    if (m_activado) return;
    m_activado = true;
    // Not from within the window's activation: an error box would open in the middle of it.
    m_entorno.cola.despues([this] { primeraActivacion(); });
}

void base::primeraActivacion() {
    if (m_descargado || m_estado != Estado::iniciando) return;
    // What throws half-way is tried again, too: nobody may be there to do it.
    m_espera->habilitado(true);
    const std::string motivo = ilegible();
    m_montaje.letrero(motivo);
    if (!motivo.empty()) return;
    if (m_montaje.parrilla() != nullptr) m_montaje.desmontar();
    std::string errores;
    construir(errores);
    m_espera->habilitado(false);
    if (visores().cuantos() > 0) {
        // The errors wait until all that can run does: nobody may be there to answer the box.
        ponerEnMarcha(errores);
        avisarSinNadie(errores);
        return;
    }
    m_conCopia = comun(m_entorno).hacerCopiaDeINI();
    entrarEnConfiguracion();
}

// Others look through files too, at start-up above all. One that cannot be read is not an empty one: it would be a
// screen without displays until somebody comes, and what is typed there would replace it.
std::string base::ilegible() const {
    const std::string motivo = comun(m_entorno).ilegible();
    return motivo.empty() ? motivo : "No se puede leer la configuración: " + motivo;
}

void base::cubrirMonitor() {
    const oScreen pantalla(m_entorno);
    m_monitor = pantalla.monitor();
    m_formulario.cubrir(m_monitor);
    m_barra.disponer(pantalla.Width(), pantalla.Height());
    m_montaje.dimensionar(pantalla.Width(), pantalla.Height());
}

void base::construir(std::string& errores) {
    cubrirMonitor();
    m_montaje.montarParrilla();
    m_montaje.cargarVisores();
    m_montaje.situarVisores(errores);
    const std::string motivo = ilegible();
    if (!motivo.empty()) errores += motivo + "\n";
    m_montaje.montarMensaje();
    estado(Estado::pausa);
}

void base::ponerEnMarcha(std::string& errores) {
    visores().letsRun(errores);
    estado(Estado::marcha);
    m_barra.incidencia(errores);
    mensaje().marcha();
}

// Somebody else may have given the port back.
void base::arrancarLosQueFaltan() {
    std::string yaDichos;
    visores().letsRun(yaDichos);
}

void base::pausar() {
    visores().Run(false);
    mensaje().paro();
    estado(Estado::pausa);
}

void base::configurar() {
    if (comun(m_entorno).hacerCopiaDeINI()) {
        m_conCopia = true;
        entrarEnConfiguracion();
    } else {
        avisar("Error al hacer copia de configuración\n" + ilegible());
    }
}

void base::entrarEnConfiguracion() {
    m_montaje.desmontar();
    m_formulario.refrescar();
    estado(Estado::configurando);
}

// The order is fixed; a tool that refuses keeps those after it open.
void base::aceptar() {
    if (!cerrarHerramientas(false)) return;
    m_montaje.desmontar();
    std::string errores;
    construir(errores);
    avisar(errores);
}

void base::cancelar() {
    cerrarHerramientas(true);
    m_montaje.desmontar();
    // An earlier session's copy is none of this one.
    if (m_conCopia) {
        comun(m_entorno).restaurarCopiaDeINI();
    } else {
        comun(m_entorno).descartarCambios();
    }
    // The restored file may name another monitor and other colours.
    cubrirMonitor();
    m_montaje.vaciar();
}

bool base::cerrarHerramientas(bool descartar, const Herramienta* menosEsta) {
    const auto cerrar = [&](Herramienta& una) {
        return &una == menosEsta || !una.cargado() || una.Descargar(descartar) || descartar;
    };
    if (!cerrar(*m_cfgContexto) || !cerrar(*m_cfgVisor)) return false;
    if (m_modoTamano) unloadCfgSize();
    return cerrar(*m_cfgMensaje);
}

void base::alternar(Herramienta& pedida) {
    if (pedida.cargado()) {
        pedida.Descargar(false);
    } else if (cerrarHerramientas(false, &pedida)) {
        pedida.Mostrar();
    }
}

void base::alternarTamano() {
    if (m_modoTamano) {
        unloadCfgSize();
    } else if (cerrarHerramientas(false)) {
        cfgSizeMostrar();
    }
}

void base::cfgSizeMostrar() {
    m_montaje.montarParrilla();
    // The strip, where there is one, takes room from the grid.
    m_montaje.montarMensaje();
    const oScreen pantalla(m_entorno);
    m_asas.mostrar(parrilla(), pantalla.Width(), m_montaje.limiteInferior());
    m_modoTamano = true;
}

void base::unloadCfgSize() {
    m_asas.ocultar();
    desmontarMesa();
    m_modoTamano = false;
    refrescos();
}

void base::montarParrilla() {
    m_montaje.montarParrilla();
}

void base::montarVisores() {
    m_montaje.montarParrilla();
    m_montaje.cargarVisores();
    // Their surfaces a moment later: the tool that asks for them is seen before.
    m_entorno.cola.despues([this] { situarVisores(); });
}

// Those that are loaded and do not stand on the grid yet.
void base::situarVisores() {
    // What cannot be placed is told when the configuration is accepted.
    std::string errores;
    m_montaje.situarVisores(errores);
}

void base::montarMensaje() {
    m_montaje.montarMensaje();
}

void base::desmontarMesa() {
    m_montaje.desmontar();
    m_entorno.perfil.volcar();
}

visor* base::nuevoVisor() {
    situarVisores();
    visor* const nuevo = visores().nuevo(0, "");
    m_montaje.situarNuevos();
    return nuevo;
}

bool base::eliminarVisor(std::int16_t posicion) {
    if (!visores().eliminar(posicion)) return false;
    // The displays behind it have other numbers now, and their surfaces go by number.
    m_montaje.desmontar();
    montarVisores();
    situarVisores();
    return true;
}

void base::cambiarMonitor(std::int16_t indice) {
    oScreen(m_entorno).monitorActual(indice);
    redisponer();
}

void base::alCambiarMonitores() {
    if (m_descargado) return;
    const oScreen pantalla(m_entorno);
    // Between two monitors there may be none for a while: what stands, stands.
    if (pantalla.monitor().vacio()) return;
    if (m_estado == Estado::iniciando || pantalla.monitor() != m_monitor) {
        redisponer();
    } else {
        // Meanwhile the system may have put the window elsewhere.
        m_formulario.cubrir(m_monitor);
    }
}

void base::redisponer() {
    cubrirMonitor();
    m_montaje.redisponer();
    // A display that had no room until now has not started yet.
    if (m_estado == Estado::marcha) arrancarLosQueFaltan();
    if (m_modoTamano) {
        const oScreen pantalla(m_entorno);
        m_asas.mostrar(parrilla(), pantalla.Width(), m_montaje.limiteInferior());
    }
    for (Herramienta* una : {m_cfgContexto.get(), m_cfgVisor.get(), m_cfgMensaje.get()}) {
        if (una->cargado()) una->seguirMonitor(m_monitor);
    }
}

void base::estado(Estado nuevo) {
    m_barra.estado(nuevo);
    m_formulario.puntero(nuevo == Estado::marcha ? Puntero::marcha : Puntero::normal);
    m_entorno.reposo.impedir(nuevo == Estado::marcha);
    m_reintento->habilitado(nuevo == Estado::marcha);
    m_estado = nuevo;
}

void base::avisar(const std::string& errores) {
    if (!errores.empty()) m_entorno.avisos.critico(errores.substr(0, errores.find_last_not_of('\n') + 1));
}

// At a start nobody may be there: the box must not stand over the weights until somebody comes. What it said stays.
void base::avisarSinNadie(const std::string& errores) {
    m_plazoAviso->habilitado(!errores.empty());
    avisar(errores);
    m_plazoAviso->habilitado(false);
}

void base::refrescos() {
    m_barra.refrescar();
}

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
    cerrarHerramientas(true);
    m_montaje.desmontar();
    estado(Estado::iniciando);
    // At the end of a Windows session nothing is run after this.
    m_entorno.perfil.volcar();
}

}  // namespace sorvanel
