#include "links/frWsk.h"

#include <exception>

#include "links/pausaVigilancia.h"

namespace sorvanel {

frWsk::frWsk(Fabrica& fabrica, const Reloj& reloj)
    : m_reloj(reloj), m_tim(fabrica.crearTemporizador()), m_wsk(fabrica.crearZocalo(*this)) {
    m_tim->alTic([this] { tic(); });
}

frWsk::~frWsk() {
    m_enMarcha = false;
}

bool frWsk::enMarcha(SuscriptorPeso& visor) {
    m_wsk->cerrar();
    m_bufer.clear();
    m_wsk->protocolo(ProtocoloZocalo::UDP);
    if (!m_wsk->enlazar(visor.port())) return false;
    m_visor = &visor;
    m_origen = visor.origen();
    m_ultimoSuyo = m_ultimoAjeno = NUNCA;
    m_ultimaAceptada = m_reloj.ahora();
    m_tim->habilitado(false);
    m_tim->intervalo(VIGILANCIA);
    m_tim->habilitado(true);
    m_enMarcha = true;
    return true;
}

void frWsk::Cerrar() {
    m_wsk->cerrar();
    // Any free port: the display's own one is left to whoever wants it.
    m_wsk->enlazar(0);
    m_tim->habilitado(false);
    m_enMarcha = false;
    m_bufer.clear();
}

void frWsk::alLlegarDatos() {
    if (!leer()) return;
    if (m_enMarcha) {
        entregarLineas();
        if (m_bufer.size() >= BUFER_MAXIMO) m_bufer.clear();
    } else {
        m_bufer.clear();
    }
}

// False when nothing of its own has come.
bool frWsk::leer() {
    if (m_origen == SuscriptorPeso::CUALQUIERA) {
        m_wsk->leer(m_bufer);
        return true;
    }
    const std::size_t antes = m_bufer.size();
    DireccionIP remitente = 0;
    if (m_wsk->leerDe(m_bufer, remitente) == 0) return false;
    const bool suyo = remitente == m_origen;
    (suyo ? m_ultimoSuyo : m_ultimoAjeno) = m_reloj.ahora();
    if (!suyo) m_bufer.resize(antes);
    return suyo;
}

MotivoSilencio frWsk::motivo(const SuscriptorPeso&) const {
    const std::int64_t desde = m_reloj.ahora() - MEMORIA;
    const bool soloAjeno = m_ultimoAjeno > desde && m_ultimoSuyo <= desde;
    if (soloAjeno) return MotivoSilencio::otroEquipo;
    return m_sinLectura ? MotivoSilencio::sinLectura : MotivoSilencio::callado;
}

void frWsk::entregarLineas() {
    std::size_t inicio = 0;
    while (m_enMarcha) {
        const std::size_t fin = m_bufer.find('\r', inicio);
        if (fin == std::string::npos) break;
        entregar(std::string_view(m_bufer).substr(inicio, fin - inicio));
        // The display may have closed the link meanwhile, and the buffer with it.
        inicio = m_bufer.empty() ? 0 : fin + 1;
    }
    m_bufer.erase(0, inicio);
}

void frWsk::entregar(std::string_view linea) {
    const PausaVigilancia pausa(*m_tim, [this] { return m_enMarcha; });
    if (mostrar(linea)) {
        m_ultimaAceptada = m_reloj.ahora();
        return;
    }
    m_sinLectura = true;
    if (m_reloj.ahora() - m_ultimaAceptada >= PACIENCIA) avisarSilencio();
}

// A display that throws has not taken it: the next frame, or the silence, must still reach it.
bool frWsk::mostrar(std::string_view trama) {
    try {
        return m_visor->frWsk_refrescoPeso(trama);
    } catch (const std::exception&) {
        return false;
    }
}

// An end that comes now would make half an old line whole, and show a weight that nobody has sent.
void frWsk::tic() {
    m_sinLectura = !m_bufer.empty();
    m_bufer.clear();
    avisarSilencio();
}

void frWsk::avisarSilencio() {
    if (m_enMarcha) mostrar({});
}

}  // namespace sorvanel
