#include "app/base.h"

#include "dialogs/cfgContexto.h"
#include "dialogs/cfgMensaje.h"
#include "dialogs/cfgVisor.h"

namespace sorvanel {

namespace {

// Milliseconds.
constexpr int ENTRE_ESPERAS = 250;
constexpr int ENTRE_REINTENTOS = 10'000;
constexpr int PLAZO_AVISO = 60'000;

constexpr const char* PRIMER_PASO =
    "Todavía no hay visores. Pulse «Definir visores», abajo a la izquierda, para añadir el primero.";

Aviso avisoDe(Estado estado) {
    switch (estado) {
        case Estado::iniciando:
            return Aviso::leyendo;
        case Estado::configurando:
            return Aviso::configurando;
        case Estado::pausa:
            return Aviso::enPausa;
        default:
            return Aviso::ninguno;
    }
}

}  // namespace

base::base(const Entorno& entorno, Formulario& formulario, FabricaDialogos& dialogos, EnlacePeso& compartido)
    : m_entorno(entorno),
      m_formulario(formulario),
      m_espera(entorno.fabrica.crearTemporizador()),
      m_reintento(entorno.fabrica.crearTemporizador()),
      m_plazoAviso(entorno.fabrica.crearTemporizador()),
      m_barra(formulario),
      m_montaje(entorno, formulario, compartido, m_barra),
      m_cronica(entorno, compartido),
      m_asas(formulario, [this] { refrescos(); }) {
    const UtilesDialogo utiles{entorno.com,     entorno.cola,  entorno.avisos,   dialogos,
                               entorno.fabrica, entorno.reloj, entorno.bitacora, [this] { mostrarHerramientas(); }};
    m_cfgContexto = std::make_unique<cfgContexto>(utiles, m_montaje);
    m_cfgVisor = std::make_unique<cfgVisor>(utiles, m_montaje);
    m_cfgMensaje = std::make_unique<cfgMensaje>(utiles, m_montaje);
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
    m_barra.alPulsar(IdControl::botOff, [this] {
        m_conBoton = true;
        m_formulario.cerrar();
    });
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
    const std::string version = textoVersion(m_entorno.programa.version());
    anotar("Inicio: Sorvanel " + version + ", configuración en " + m_entorno.com.rutaINI());
    m_barra.version(version);
    estado(Estado::iniciando);
    m_montaje.cubrir();
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
    std::string errores;
    construir(errores);
    m_espera->habilitado(false);
    anotar("Pantalla: " + textoMonitor(m_montaje.pantalla()) +
           "; visores definidos: " + std::to_string(m_montaje.visores().cuantos()));
    if (m_montaje.visores().cuantos() > 0) {
        // The errors wait until all that can run does: nobody may be there to answer the box.
        ponerEnMarcha(errores);
        avisarSinNadie(errores);
        return;
    }
    m_conCopia = m_entorno.com.hacerCopiaDeINI();
    entrarEnConfiguracion();
}

// Others look through files too, at start-up above all. One that cannot be read is not an empty one: it would be a
// screen without displays until somebody comes, and what is typed there would replace it.
std::string base::ilegible() const {
    const std::string motivo = m_entorno.com.ilegible();
    return motivo.empty() ? motivo : "No se puede leer la configuración: " + motivo;
}

void base::construir(std::string& errores) {
    m_cronica.terminar();
    m_montaje.construir(errores);
    estado(Estado::pausa);
}

void base::ponerEnMarcha(std::string& errores) {
    anotar("En marcha");
    m_montaje.visores().letsRun(errores);
    estado(Estado::marcha);
    m_cronica.empezar(m_montaje.visores());
    m_barra.incidencia(errores);
    m_montaje.mensaje().marcha();
}

// Somebody else may have given the port back.
void base::arrancarLosQueFaltan() {
    std::string yaDichos;
    m_montaje.visores().letsRun(yaDichos);
}

void base::pausar() {
    m_cronica.terminar();
    anotar("En pausa");
    m_montaje.visores().Run(false);
    m_montaje.mensaje().paro();
    estado(Estado::pausa);
}

void base::configurar() {
    if (m_entorno.com.hacerCopiaDeINI()) {
        m_conCopia = true;
        entrarEnConfiguracion();
    } else {
        avisar("Error al hacer copia de configuración\n" + ilegible());
    }
}

void base::entrarEnConfiguracion() {
    m_cancelada = false;
    anotar("Se entra en la configuración");
    m_montaje.desmontar();
    m_formulario.refrescar();
    estado(Estado::configurando);
    decirPrimerPaso();
}

// The order is fixed; a tool that refuses keeps those after it open.
void base::aceptar() {
    if (!cerrarHerramientas(false)) return;
    anotar(m_cancelada ? "Se sale de la configuración" : "Configuración aceptada");
    m_montaje.letrero({});
    const std::string motivo = ilegible();
    std::string errores;
    construir(errores);
    avisar(errores + motivo);
}

void base::cancelar() {
    cerrarHerramientas(true);
    m_montaje.desmontar();
    // An earlier session's copy is none of this one.
    m_cancelada = true;
    if (!m_conCopia) {
        m_entorno.com.descartarCambios();
        anotar("Configuración cancelada, sin copia a la que volver");
    } else if (m_entorno.com.restaurarCopiaDeINI()) {
        anotar("Configuración cancelada: vuelve la de antes");
    } else {
        anotar("Configuración cancelada; la de antes no se ha podido escribir");
    }
    // The restored file may name another monitor and other colours.
    m_entorno.com.refrescar();
    m_montaje.cubrir();
    m_montaje.vaciar();
    m_barra.avisar(Aviso::cancelado);
    decirPrimerPaso();
}

bool base::cerrarHerramientas(bool descartar, const DialogoConfiguracion* menosEsta) {
    const auto cerrar = [&](DialogoConfiguracion& una) {
        return &una == menosEsta || !una.cargado() || una.Descargar(descartar) || descartar;
    };
    if (!cerrar(*m_cfgContexto) || !cerrar(*m_cfgVisor)) return false;
    if (m_modoTamano) unloadCfgSize();
    return cerrar(*m_cfgMensaje);
}

void base::alternar(DialogoConfiguracion& pedida) {
    if (pedida.cargado()) {
        pedida.Descargar(false);
    } else if (cerrarHerramientas(false, &pedida)) {
        m_montaje.letrero({});
        try {
            pedida.Mostrar();
        } catch (...) {
            mostrarHerramientas();
            throw;
        }
    }
}

void base::alternarTamano() {
    if (m_modoTamano) {
        unloadCfgSize();
    } else if (cerrarHerramientas(false)) {
        m_montaje.letrero({});
        cfgSizeMostrar();
    }
}

void base::cfgSizeMostrar() {
    // The strip, where there is one, takes room from the grid.
    m_montaje.montarTamano();
    m_modoTamano = true;
    mostrarAsas();
    mostrarHerramientas();
}

void base::unloadCfgSize() {
    m_asas.ocultar();
    m_montaje.desmontarMesa();
    m_modoTamano = false;
    mostrarHerramientas();
    refrescos();
}

void base::mostrarAsas() {
    m_asas.mostrar(m_montaje.parrilla(), m_montaje.pantalla().Width(), m_montaje.limiteInferior(),
                   m_entorno.com.separadorDecimal());
}

void base::estado(Estado nuevo) {
    m_barra.estado(nuevo);
    m_formulario.puntero(nuevo == Estado::marcha ? Puntero::marcha : Puntero::normal);
    m_entorno.reposo.impedir(nuevo == Estado::marcha);
    m_reintento->habilitado(nuevo == Estado::marcha);
    m_estado = nuevo;
    m_barra.avisar(m_descargado ? Aviso::ninguno : avisoDe(nuevo));
}

// The button of the open one looks pressed. With none open, and none closed by a cancel, the screen is empty.
void base::mostrarHerramientas() {
    const std::pair<IdControl, bool> abiertas[] = {{IdControl::botDise, m_cfgContexto->cargado()},
                                                   {IdControl::botVisores, m_cfgVisor->cargado()},
                                                   {IdControl::botSize, m_modoTamano},
                                                   {IdControl::botMensaje, m_cfgMensaje->cargado()}};
    bool alguna = false;
    for (const auto& [id, abierta] : abiertas) {
        m_barra.hundido(id, abierta);
        alguna = alguna || abierta;
    }
    if (alguna) {
        m_cancelada = false;
        m_barra.avisar(Aviso::configurando);
    } else {
        decirPrimerPaso();
    }
}

// Whoever starts it for the first time sees an empty screen. Not asked of a form that is going away.
void base::decirPrimerPaso() {
    if (m_descargado || m_estado != Estado::configurando) return;
    const bool sinVisores = m_entorno.com.consultar(seccionVisor(1)).leer("Port").empty();
    m_montaje.letrero(sinVisores ? PRIMER_PASO : "");
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

}  // namespace sorvanel
