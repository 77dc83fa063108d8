#include "dialogs/recepcionVisor.h"

#include <utility>

namespace sorvanel {

namespace {

constexpr int LATIDO = 250;                      // milliseconds
constexpr std::int64_t REFRESCO_EQUIPO = 5'000;  // milliseconds: a cable may be put in meanwhile
constexpr const char* ABRIR_REGISTRO = "Abrir registro";
constexpr const char* SIN_DIRECCION = "sin dirección: ¿falta el cable de red?";

}  // namespace

RecepcionVisor::RecepcionVisor(TallerDialogo& taller, const UtilesDialogo& utiles, MesaConfiguracion& mesa,
                               std::function<std::int16_t()> elegido)
    : m_taller(taller),
      m_utiles(utiles),
      m_mesa(mesa),
      m_elegido(std::move(elegido)),
      m_marco(taller.marco("Recepción")),
      m_titulo(taller.rotuloGrupo("Recepción")),
      m_lbRecepcion(taller.rotulo(IdControl::lbRecepcion, 0, {})),
      m_tituloEquipo(taller.rotulo("Este equipo:")),
      m_lbEquipo(taller.rotulo(IdControl::lbEquipo, 0, {})),
      m_botRegistro(
          taller.botonTexto(IdControl::botRegistro, 0, ABRIR_REGISTRO,
                            "Qué ha pasado y cuándo: qué visor se quedó sin datos, desde qué hora y por qué")),
      m_medico(utiles.com, utiles.enlaces, utiles.reloj),
      m_tim(utiles.enlaces.crearTemporizador()) {
    m_lbEquipo->sugerencia("Las direcciones de este equipo en la red: la que hay que poner en el indicador");
    m_botRegistro->alActuar([this] { abrirRegistro(); });
    m_tim->intervalo(LATIDO);
    m_tim->alTic([this] { latido(); });
    m_tim->habilitado(true);
    mostrar();
}

ConsultaPort RecepcionVisor::consulta() const {
    ConsultaPort c;
    Visores& visores = m_mesa.visores();
    const std::int16_t n = m_elegido();
    visor* const suyo = visores.uno(n);
    if (suyo == nullptr) return c;
    c.familia = &suyo->familia();
    c.port = suyo->port();
    c.modo = suyo->modoBulk();
    if (c.familia->compartida) {
        c.destino = consultarDestinoPavona(m_utiles.com);
        return c;
    }
    c.origen = suyo->origen();
    c.origenEscrito = suyo->origenEscrito();
    for (std::int16_t i = 1; i <= visores.cuantos() && c.gemelo == 0; ++i) {
        visor& otro = *visores.uno(i);
        if (i != n && !otro.familia().compartida && otro.port() == c.port) c.gemelo = i;
    }
    return c;
}

void RecepcionVisor::seguir() {
    m_medico.observar(consulta());
    mostrar();
}

// The box later: not from within the button.
void RecepcionVisor::abrirRegistro() {
    if (m_utiles.bitacora.abrir()) return;
    m_utiles.cola.despues(
        [&utiles = m_utiles] { utiles.avisos.informacion("No hay registro que abrir: " + utiles.com.rutaRegistro()); });
}

void RecepcionVisor::latido() {
    m_medico.observar(consulta());
    m_medico.latido();
    mostrarEquipo();
    mostrar();
}

void RecepcionVisor::mostrar() {
    DiagnosticoPort nuevo = diagnosticar(m_medico.sintomas(), m_equipo);
    if (nuevo.linea != m_dicho.linea) m_lbRecepcion->texto(nuevo.linea);
    // A tip that is put there again goes away under the mouse.
    if (nuevo.consejo != m_dicho.consejo) m_lbRecepcion->sugerencia(nuevo.consejo);
    m_dicho = std::move(nuevo);
}

// Not before the window is seen.
void RecepcionVisor::mostrarEquipo() {
    const std::int64_t ahora = m_utiles.reloj.ahora();
    if (!m_equipo.empty() && ahora - m_preguntado < REFRESCO_EQUIPO) return;
    m_preguntado = ahora;
    std::string texto;
    for (const std::string& una : m_utiles.enlaces.direcciones()) texto.append(texto.empty() ? "" : ", ").append(una);
    m_equipo = texto.empty() ? SIN_DIRECCION : texto;
    m_lbEquipo->texto(m_equipo);
}

Pieza RecepcionVisor::comoPieza() {
    Rejilla filas;
    filas.estirar(1);
    const float alto = m_taller.texto("0").alto;
    filas.poner(0, 0, m_taller.piezaRotuloGrupo(*m_titulo));
    // What it says may be long; the addresses are not.
    filas.poner(0, 1, aLoAncho(pieza(*m_lbRecepcion, {0, alto})), 2);
    filas.poner(1, 0, m_taller.piezaRotulo(*m_tituloEquipo));
    filas.poner(1, 1, aLoAncho(pieza(*m_lbEquipo, {0, alto})));
    filas.poner(1, 2, pieza(*m_botRegistro, m_taller.botonTexto(ABRIR_REGISTRO)));
    return panel(*m_marco, filas.comoPieza());
}

}  // namespace sorvanel
