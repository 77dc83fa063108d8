#include "app/cronica.h"

#include "links/frTCP.h"

namespace sorvanel {

namespace {

constexpr std::int64_t PRIMER_INTENTO = 3000;  // milliseconds, until a connection that does not come about is one

std::string textoMotivo(EstadoConexion::Motivo motivo) {
    using Motivo = EstadoConexion::Motivo;
    switch (motivo) {
        case Motivo::noEncontrado:
            return "no se encuentra ese nombre";
        case Motivo::rechazada:
            return "rechaza la conexión";
        case Motivo::cerrada:
            return "ha cerrado la conexión";
        case Motivo::sinLecturas:
            return "responde, pero no da lecturas";
        case Motivo::sinRespuesta:
            break;
    }
    return "no responde";
}

VistaVaiven vistaDe(visor& uno, std::int64_t ahora) {
    using Estado = VistaVaiven::Estado;
    if (!uno.ubicacion()) return {};
    if (!uno.ubicado()) return {Estado::falta, uno.vueltas(), ahora, "no se puede mostrar en su celda"};
    if (const Silencio* const silencio = uno.silencio())
        return {Estado::falta, uno.vueltas(), silencio->inicio, uno.motivoDicho()};
    return {uno.conPeso() ? Estado::viene : Estado::espera, uno.vueltas()};
}

}  // namespace

Cronica::Cronica(const Entorno& entorno, const EnlacePeso& compartido)
    : m_entorno(entorno), m_compartido(compartido), m_tim(entorno.fabrica.crearTemporizador()) {
    m_tim->intervalo(LATIDO);
    m_tim->alTic([this] { mirar(); });
}

void Cronica::empezar(Visores& visores) {
    terminar();
    m_visores = &visores;
    const auto cuantos = static_cast<std::size_t>(visores.cuantos());
    for (std::size_t i = 0; i < cuantos; ++i) m_vaivenes.emplace_back(m_entorno.reloj);
    m_conexion = std::make_unique<Vaiven>(
        m_entorno.reloj, PalabrasVaiven{"conectado", "sin conexión", "ha perdido y recuperado la conexión"});
    m_hora = m_empezado = m_entorno.reloj.ahora();
    m_tim->habilitado(true);
}

void Cronica::terminar() {
    if (m_visores == nullptr) return;
    mirar();
    m_tim->habilitado(false);
    for (std::int16_t n = 1; n <= m_visores->cuantos(); ++n) decir(nombre(n), vaiven(n).terminar());
    decir(nombreConexion(), m_conexion->terminar());
    m_vaivenes.clear();
    m_visores = nullptr;
}

void Cronica::mirar() {
    const std::int64_t ahora = m_entorno.reloj.ahora();
    // First what the displays' silence may come from.
    const EstadoConexion conexion = m_compartido.conexion();
    if (conexion.enUso) {
        const Vaiven::Lineas lineas = m_conexion->mirar(vistaConexion(conexion));
        if (!lineas.empty()) decir(nombreConexion(), lineas);
    }
    for (std::int16_t n = 1; n <= m_visores->cuantos(); ++n) {
        const Vaiven::Lineas lineas = vaiven(n).mirar(vistaDe(*m_visores->uno(n), ahora));
        if (!lineas.empty()) decir(nombre(n), lineas);
    }
    if (ahora - m_hora < CADA_HORA) return;
    m_hora = ahora;
    sigueEnMarcha();
}

// So that the log tells until when it speaks, and what it said long ago does not go with its older half.
void Cronica::sigueEnMarcha() {
    int todos = 0, conDatos = 0;
    Vaiven::Lineas faltan;
    for (std::int16_t n = 1; n <= m_visores->cuantos(); ++n) {
        const visor& uno = *m_visores->uno(n);
        if (uno.ubicacion()) ++todos;
        if (uno.conPeso()) ++conDatos;
        const std::string falta = vaiven(n).falta();
        if (!falta.empty()) faltan.push_back(nombre(n) + ": " + falta);
    }
    m_entorno.bitacora.anotar("Sigue en marcha: " + std::to_string(conDatos) + " de " + std::to_string(todos) +
                              " visores con datos");
    for (const std::string& una : faltan) m_entorno.bitacora.anotar(una);
}

VistaVaiven Cronica::vistaConexion(const EstadoConexion& conexion) const {
    using Estado = VistaVaiven::Estado;
    const std::int64_t ahora = m_entorno.reloj.ahora();
    if (conexion.abierta) return {Estado::viene, conexion.veces};
    if (conexion.veces > 0) return {Estado::falta, conexion.veces, ahora, textoMotivo(conexion.motivo)};
    if (ahora - m_empezado < PRIMER_INTENTO) return {};
    return {Estado::falta, 0, m_empezado, textoMotivo(conexion.motivo)};
}

void Cronica::decir(const std::string& quien, const Vaiven::Lineas& lineas) {
    for (const std::string& una : lineas) m_entorno.bitacora.anotar((quien + ": ").append(una));
}

std::string Cronica::nombre(std::int16_t n) const {
    return nombreVisor(n, m_visores->uno(n)->caption());
}

std::string Cronica::nombreConexion() const {
    const DestinoPavona destino = consultarDestinoPavona(m_entorno.com);
    return "Concentrador " + destino.host + ":" + std::to_string(destino.port);
}

}  // namespace sorvanel
