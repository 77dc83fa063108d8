#include "links/frTCP.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <utility>

#include "config/numeros.h"
#include "links/pausaVigilancia.h"

namespace sorvanel {

namespace {

constexpr std::string_view AVISO_LINEA = "LIN>";
constexpr std::string_view AVISO_SEGUNDO = "XXX>";
constexpr std::string_view RESPUESTA = "REP\r";
constexpr std::int64_t NUNCA = -1'000'000;
constexpr const char* SECCION = "PAVONA";
constexpr std::int32_t PORT_OMISION = 9084;

// The connection keeps no borders: the first readings may come together with the prompt. How long they are at the end
// of that text; 0 unless there is nothing else behind the prompt, but that the last one may go on.
std::size_t largoLecturas(std::string_view texto) {
    const std::size_t aviso = texto.rfind(AVISO_SEGUNDO);
    if (aviso == std::string_view::npos) return 0;
    std::string_view resto = texto.substr(aviso + AVISO_SEGUNDO.size());
    const std::size_t largo = resto.size();
    for (std::size_t fin = 0; (fin = resto.find('\r')) != std::string_view::npos; resto.remove_prefix(fin + 1))
        if (!leerLineaPavona(resto.substr(0, fin))) return 0;
    return empiezaLineaPavona(resto) ? largo : 0;
}

// Seconds; 0 alone means never, and a fraction is no 0. What is missing, below 0 or no number counts as not written.
std::int64_t leerCaducidad(std::string_view texto) {
    constexpr double MAXIMA = 86'400;  // a day
    const double segundos = leerNumero(texto).value_or(-1);
    if (segundos < 0) return DestinoPavona::CADUCIDAD_OMISION;
    if (segundos > 0) return static_cast<std::int64_t>(std::ceil(std::min(segundos, MAXIMA))) * 1000;
    return DestinoPavona::SIN_CADUCIDAD;
}

}  // namespace

DestinoPavona leerDestinoPavona(const comun& com) {
    com.refrescar();
    return consultarDestinoPavona(com);
}

DestinoPavona consultarDestinoPavona(const comun& com) {
    const AccesorINI ini = com.consultar(SECCION);
    return {com.valDflt(ini, "Host", "localhost"), com.valDflt(ini, "Port", PORT_OMISION),
            leerCaducidad(ini.leer("Caducidad"))};
}

void guardarHostPavona(const comun& com, std::string_view host) {
    com.abrir(SECCION).escribir("Host", host);
}

void guardarPortPavona(const comun& com, std::int32_t port) {
    com.abrir(SECCION).escribir("Port", std::to_string(port));
}

frTCP::frTCP(const comun& com, Fabrica& fabrica, const Reloj& reloj)
    : m_com(com), m_reloj(reloj), m_tim(fabrica.crearTemporizador()), m_wsk(fabrica.crearZocalo(*this)) {
    m_tim->intervalo(VIGILANCIA);
    m_tim->alTic([this] { tic(); });
    m_intentos.fill(NUNCA);
}

frTCP::~frTCP() {
    soltar();
}

void frTCP::hola() {
    if (m_usuarios == 0) soltar();
    ++m_usuarios;
}

void frTCP::adios() {
    if (m_usuarios > 0 && --m_usuarios == 0) soltar();
}

void frTCP::soltar() {
    m_estado = Estado::cerrado;
    m_sesiones = 0;
    m_wsk->cerrar();
    m_tim->habilitado(false);
    m_bufer.clear();
}

bool frTCP::enMarcha(SuscriptorPeso& visor) {
    if (m_suscriptores.empty()) {
        if (!conectar()) return false;
        // Already while connecting, so that the displays show that there is no data.
        m_tim->habilitado(true);
    }
    m_suscriptores.push_back({&visor, m_reloj.ahora(), NUNCA, false});
    return true;
}

void frTCP::Cerrar(SuscriptorPeso& visor) {
    const auto suya = std::find_if(m_suscriptores.begin(), m_suscriptores.end(),
                                   [&](const Suscripcion& s) { return s.visor == &visor; });
    if (suya == m_suscriptores.end()) return;
    m_suscriptores.erase(suya);
    if (m_suscriptores.empty()) soltar();
}

MotivoSilencio frTCP::motivo(const SuscriptorPeso& visor) const {
    const std::int64_t desde = m_reloj.ahora() - PACIENCIA;
    if (!enSesion() || m_ultimaLectura <= desde) return MotivoSilencio::sinRespuesta;
    const Suscripcion* const s = suya(visor);
    const bool oido = s != nullptr && std::max(s->ultimaAceptada, s->ultimaNegada) > desde;
    return oido ? MotivoSilencio::callado : MotivoSilencio::noOido;
}

std::int64_t frTCP::ultimaAceptada(const SuscriptorPeso& visor) const {
    const Suscripcion* const s = suya(visor);
    return s != nullptr ? s->ultimaAceptada : m_reloj.ahora();
}

const frTCP::Suscripcion* frTCP::suya(const SuscriptorPeso& visor) const {
    const auto esta = std::find_if(m_suscriptores.begin(), m_suscriptores.end(),
                                   [&](const Suscripcion& s) { return s.visor == &visor; });
    return esta == m_suscriptores.end() ? nullptr : &*esta;
}

bool frTCP::conectar() {
    // Until it is under way: should anything throw, the next beat tries again.
    m_estado = Estado::fallado;
    m_wsk->cerrar();
    m_bufer.clear();
    m_trasRetorno = false;
    m_wsk->protocolo(ProtocoloZocalo::TCP);
    const DestinoPavona destino = leerDestinoPavona(m_com);
    m_caducidad = destino.caducidad;
    const bool iniciada = m_wsk->conectar(destino.host, destino.port);
    if (iniciada) m_estado = Estado::conectando;
    m_inicioConexion = m_reloj.ahora();
    m_intentos[m_siguienteIntento] = m_inicioConexion;
    m_siguienteIntento = (m_siguienteIntento + 1) % m_intentos.size();
    return iniciada;
}

bool frTCP::demasiadosIntentos() const {
    const std::int64_t masViejo = m_intentos[m_siguienteIntento];
    return m_reloj.ahora() - masViejo < VIGILANCIA;
}

// A peer that refuses is asked again at once, but never in a busy circle.
void frTCP::reconectar() {
    vigilarSilencios();
    // What has failed waits for the next beat, whatever is still told of it.
    if (m_estado == Estado::cerrado || m_estado == Estado::fallado) return;
    if (demasiadosIntentos()) {
        fallar();
    } else {
        conectar();
    }
}

void frTCP::fallar() {
    m_bufer.clear();
    m_wsk->cerrar();
    m_estado = Estado::fallado;
}

void frTCP::alConectar() {
    if (m_estado != Estado::conectando) return;
    m_tim->habilitado(false);
    m_tim->intervalo(VIGILANCIA);
    m_tim->habilitado(true);
    m_estado = Estado::esperaLinea;
    vigilarSilencios();
}

EstadoConexion frTCP::conexion() const {
    return {!m_suscriptores.empty(), m_estado == Estado::leyendo, m_sesiones, m_motivo};
}

void frTCP::alFallar() {
    using Motivo = EstadoConexion::Motivo;
    const MotivoFallo motivo = m_wsk->motivo();
    m_motivo = motivo == MotivoFallo::noEncontrado ? Motivo::noEncontrado
               : motivo == MotivoFallo::rechazado  ? Motivo::rechazada
                                                   : Motivo::sinRespuesta;
    reconectar();
}

void frTCP::alCerrarse() {
    m_motivo = EstadoConexion::Motivo::cerrada;
    reconectar();
}

void frTCP::tic() {
    // An end that comes now would make half an old line whole.
    m_bufer.clear();
    repartir({});
    switch (m_estado) {
        case Estado::conectando:
            // Asked once a beat, and no beat is exact: the nearest one counts.
            if (m_reloj.ahora() - m_inicioConexion < ESPERA_CONEXION - VIGILANCIA / 2) break;
            m_motivo = EstadoConexion::Motivo::sinRespuesta;
            conectar();
            break;
        case Estado::esperaLinea:
        case Estado::esperaSegundo:
        case Estado::abierta:
            m_motivo = EstadoConexion::Motivo::sinLecturas;
            conectar();
            break;
        case Estado::fallado:
            conectar();
            break;
        case Estado::cerrado:
        case Estado::leyendo:
            break;
    }
}

void frTCP::alLlegarDatos() {
    const std::size_t antes = m_bufer.size();
    m_wsk->leer(m_bufer);
    normalizarFinales(antes);
    recibir();
    if (m_bufer.size() >= BUFER_MAXIMO) m_bufer.clear();
}

// "\r\n" becomes "\r", also when the two came apart. Only what is new is looked at.
void frTCP::normalizarFinales(std::size_t desde) {
    std::size_t destino = desde;
    for (std::size_t i = desde; i < m_bufer.size(); ++i) {
        const char c = m_bufer[i];
        if (!(c == '\n' && m_trasRetorno)) m_bufer[destino++] = c;
        m_trasRetorno = c == '\r';
    }
    m_bufer.resize(destino);
}

void frTCP::recibir() {
    switch (m_estado) {
        case Estado::esperaLinea:
            atender(AVISO_LINEA, Estado::esperaSegundo, RESPUESTA);
            break;
        case Estado::esperaSegundo:
            atenderSegundo();
            break;
        case Estado::abierta:
        case Estado::leyendo:
            entregarLineas();
            break;
        default:
            m_bufer.clear();
    }
}

void frTCP::atender(std::string_view aviso, Estado siguiente, std::string_view respuesta) {
    if (m_bufer.size() < aviso.size()) return;
    if (!m_bufer.ends_with(aviso)) {
        m_motivo = EstadoConexion::Motivo::sinLecturas;
        fallar();
        return;
    }
    m_tim->habilitado(false);
    if (!respuesta.empty()) m_wsk->enviar(respuesta);
    m_bufer.clear();
    m_estado = siguiente;
    m_tim->habilitado(true);
    vigilarSilencios();
}

void frTCP::atenderSegundo() {
    const std::size_t avisos = m_bufer.size() - largoLecturas(m_bufer);
    const std::string lecturas = m_bufer.substr(avisos);
    m_bufer.resize(avisos);
    atender(AVISO_SEGUNDO, Estado::abierta, {});
    if (!enSesion()) return;
    m_ultimaLectura = m_reloj.ahora();
    for (Suscripcion& s : m_suscriptores) s.aceptada = false;
    if (lecturas.empty()) return;
    m_bufer = lecturas;
    entregarLineas();
}

void frTCP::entregarLineas() {
    if (repartirLineas()) vigilarSilencios();
}

// False when the session is no longer there: a display may have closed the link, even opened it again.
bool frTCP::repartirLineas() {
    const PausaVigilancia pausa(*m_tim, [this] { return enSesion(); });
    m_bufer.erase(0, leerLineas());
    if (m_lecturas.empty()) return true;
    if (m_estado != Estado::leyendo) ++m_sesiones;
    m_estado = Estado::leyendo;
    m_ultimaLectura = m_reloj.ahora();
    // Whatever they do meanwhile, these are theirs.
    std::vector<LecturaPavona> lecturas = std::exchange(m_lecturas, {});
    const bool sigue = repartir(lecturas);
    m_lecturas = std::move(lecturas);  // for its memory
    return sigue;
}

// The readings that have arrived. Answers how much of the buffer is done with: what has no end yet is kept, unless it
// is a whole reading already.
std::size_t frTCP::leerLineas() {
    m_lecturas.clear();
    std::size_t inicio = 0;
    while (inicio < m_bufer.size()) {
        const std::size_t fin = m_bufer.find('\r', inicio);
        const bool entera = fin != std::string::npos;
        const auto lectura = leerLineaPavona(std::string_view(m_bufer).substr(inicio, entera ? fin - inicio : fin));
        if (lectura) m_lecturas.push_back(*lectura);
        if (!entera && !lectura) break;
        inicio = entera ? fin + 1 : m_bufer.size();
    }
    return inicio;
}

// One display's turn: the newest reading of its address, so that many in one arrival cost one picture. It alone counts:
// where it says that there is no weight, an older one would be shown as live. Without readings, that there are none.
// False when it has left the table meanwhile: who stood behind it has then taken its place.
bool frTCP::avisar(std::size_t i, std::span<const LecturaPavona> lecturas) {
    SuscriptorPeso* const visor = m_suscriptores[i].visor;
    const auto sigue = [&] { return i < m_suscriptores.size() && m_suscriptores[i].visor == visor; };
    bool leida = false, aceptada = false;
    try {
        if (lecturas.empty()) visor->mmTCP_refrescoPeso(0, 0, {});
        const std::int32_t port = visor->port();
        if (port == SuscriptorPeso::TODAS) {
            for (const auto& l : lecturas) visor->mmTCP_refrescoPeso(l.primero, l.segundo, l.texto());
        }
        const auto una = std::find_if(lecturas.rbegin(), lecturas.rend(),
                                      [port](const auto& l) { return l.primero * BASE_DIRECCION + l.segundo == port; });
        leida = una != lecturas.rend();
        aceptada = leida && visor->mmTCP_refrescoPeso(una->primero, una->segundo, una->texto());
    } catch (const std::exception&) {
        // It has not shown it. The others must get theirs.
    }
    if (!sigue()) return false;
    Suscripcion& esta = m_suscriptores[i];
    if (leida) {
        esta.aceptada = aceptada;
        (aceptada ? esta.ultimaAceptada : esta.ultimaNegada) = m_reloj.ahora();
    }
    return true;
}

// Nobody is told more than once, however the table changes. False when the session that these came in is over.
bool frTCP::repartir(std::span<const LecturaPavona> lecturas) {
    std::size_t i = 0;
    for (std::size_t turnos = m_suscriptores.size(); turnos > 0 && i < m_suscriptores.size(); --turnos) {
        if (avisar(i, lecturas)) ++i;
        if (!lecturas.empty() && !enSesion()) return false;
    }
    return true;
}

// How long a weight is believed that nothing confirms. The settings have their say only of an address that is not
// spoken of: not of one that is said to have no weight, nor of what a session before this one told, nor where nothing
// is read.
std::int64_t frTCP::paciencia(const Suscripcion& s, std::int64_t ahora) const {
    const bool viva = enSesion() && m_ultimaLectura > ahora - PACIENCIA;
    return viva && s.aceptada ? m_caducidad : std::min(m_caducidad, PACIENCIA);
}

// While others read on, or a session is long in opening, the timer begins its second anew again and again, and may
// never tick: a display whose own indicator says nothing must not stand there as live.
void frTCP::vigilarSilencios() {
    const std::int64_t ahora = m_reloj.ahora();
    for (std::size_t i = 0; i < m_suscriptores.size();) {
        const Suscripcion& s = m_suscriptores[i];
        if (ahora - s.ultimaAceptada < paciencia(s, ahora) || avisar(i, {})) ++i;
    }
}

}  // namespace sorvanel
