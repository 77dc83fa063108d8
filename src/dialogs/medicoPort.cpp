#include "dialogs/medicoPort.h"

#include <algorithm>

#include "display/registroVisor.h"
#include "links/frWsk.h"

namespace sorvanel {

namespace {

constexpr std::int64_t NUNCA = -1'000'000;
constexpr std::size_t MUESTRA_MAXIMA = 256;  // bytes
constexpr std::size_t REMITENTES_MAXIMOS = 3;
constexpr std::int64_t SEGUNDO = 1000;  // milliseconds

AvanceEnlace avanceDe(MotivoFallo motivo) {
    switch (motivo) {
        case MotivoFallo::noEncontrado:
            return AvanceEnlace::noEncontrado;
        case MotivoFallo::rechazado:
            return AvanceEnlace::rechazado;
        default:
            return AvanceEnlace::sinRespuesta;
    }
}

bool mismoEnlace(const ConsultaPort& a, const ConsultaPort& b) {
    if (a.familia != b.familia || a.familia == nullptr) return a.familia == b.familia;
    if (!a.familia->compartida) return a.port == b.port && a.gemelo == b.gemelo && a.origen == b.origen;
    return a.destino.host == b.destino.host && a.destino.port == b.destino.port;
}

}  // namespace

MedicoPort::MedicoPort(const comun& com, Fabrica& fabrica, const Reloj& reloj)
    : m_com(com), m_reloj(reloj), m_fabrica(fabrica, *this), m_ultimaTomada(NUNCA), m_ultimaSinPeso(NUNCA) {}

MedicoPort::~MedicoPort() = default;

std::int32_t MedicoPort::port() const {
    return compartida() ? TODAS : m_consulta.port;
}

// ---- what it is about ----

// One connection serves all displays that share it: it is not opened anew for the next of them.
void MedicoPort::observar(const ConsultaPort& consulta) {
    const bool mismo = mismoEnlace(consulta, m_consulta);
    const bool otro = !mismo || consulta.port != m_consulta.port || consulta.modo != m_consulta.modo;
    if (!mismo) soltar();
    m_consulta = consulta;
    if (otro) olvidar();
    if (mismo) return;
    m_turno = m_reloj.ahora() + (compartida() ? REPOSO_HOST : REPOSO);
}

bool MedicoPort::abrible() const {
    if (m_consulta.familia == nullptr || m_consulta.port == 0) return false;
    return compartida() || (m_consulta.gemelo == 0 && m_consulta.origen != NADIE);
}

void MedicoPort::soltar() {
    m_enlace.reset();
    m_abierto = false;
    m_avance = m_antes = AvanceEnlace::espera;
    m_otras.clear();
    m_muestra.clear();
}

// What was heard for another display. What is spoken of on the connection stays.
void MedicoPort::olvidar() {
    m_inicio = m_reloj.ahora();
    m_tomadas = 0;
    m_cuentas.clear();
    m_ultimaTomada = m_ultimaSinPeso = NUNCA;
    m_remitentes.clear();
    m_ajeno = 0;
}

void MedicoPort::abrir() {
    if (!m_enlace) {
        if (compartida()) {
            m_enlace = std::make_unique<frTCP>(m_com, m_fabrica, m_reloj);
        } else {
            m_enlace = std::make_unique<frWsk>(m_fabrica, m_reloj);
        }
    }
    m_inicio = m_reloj.ahora();
    m_turno = m_inicio + REINTENTO;
    m_abierto = m_enlace->enMarcha(*this);
}

void MedicoPort::latido() {
    const std::int64_t ahora = m_reloj.ahora();
    if (!abrible()) {
        soltar();
    } else if (!m_abierto && ahora >= m_turno) {
        abrir();
    }
    m_cuentas.push_back({ahora, m_tomadas});
    while (m_cuentas.size() > 1 && m_cuentas.front().cuando < ahora - VENTANA) m_cuentas.pop_front();
}

// ---- what it hears ----

bool MedicoPort::tomar(std::string_view trama) {
    if (trama.empty() || !m_consulta.familia->leer(trama)) return false;
    ++m_tomadas;
    m_ultimaTomada = m_reloj.ahora();
    m_muestra.clear();
    std::erase_if(m_remitentes, [&](const auto& r) { return !fresco(r.second); });
    if (m_remitentes.size() < REMITENTES_MAXIMOS || m_remitentes.contains(m_remitente))
        m_remitentes[m_remitente] = m_ultimaTomada;
    return true;
}

bool MedicoPort::frWsk_refrescoPeso(std::string_view linea) {
    return tomar(linea);
}

bool MedicoPort::mmTCP_refrescoPeso(std::int16_t primero, std::int16_t segundo, std::string_view carga) {
    if (carga.empty()) return false;
    m_avance = AvanceEnlace::lecturas;
    m_muestra.clear();
    const std::int32_t direccion = primero * BASE_DIRECCION + segundo;
    m_otras[direccion] = m_reloj.ahora();
    if (direccion != m_consulta.port) return false;
    const auto modo = static_cast<std::size_t>(std::clamp<std::int16_t>(m_consulta.modo, 0, MODO_BULK_MAXIMO));
    const auto trama = tramaPavona(carga, modo);
    if (trama && tomar(*trama)) return true;
    m_ultimaSinPeso = m_reloj.ahora();
    return false;
}

void MedicoPort::alLeer(std::string_view datos, DireccionIP remitente) {
    if (!compartida() && m_consulta.origen != CUALQUIERA && remitente != m_consulta.origen) {
        m_ajeno = remitente;
        m_cuandoAjeno = m_reloj.ahora();
        return;
    }
    if (m_avance == AvanceEnlace::mudo) m_avance = AvanceEnlace::extrano;
    m_remitente = remitente;
    // The second prompt is none of it, and what comes first is taken back if it was the prompt.
    if (m_avance == AvanceEnlace::saludado && datos.ends_with('>')) return;
    m_muestra = datos.substr(0, MUESTRA_MAXIMA);
    m_cuandoMuestra = m_reloj.ahora();
}

// An attempt is over: how far it came is what is known until the next gets farther.
void MedicoPort::acabar(AvanceEnlace como) {
    if (m_avance == AvanceEnlace::conectando || (m_avance == AvanceEnlace::mudo && como == AvanceEnlace::cortado)) {
        m_antes = como;
    } else if (m_avance >= AvanceEnlace::mudo) {
        m_antes = m_avance;
    }
    m_avance = AvanceEnlace::espera;
}

void MedicoPort::alSuceder(SucesoZocalo suceso, MotivoFallo motivo) {
    switch (suceso) {
        case SucesoZocalo::enlazado:
            m_avance = AvanceEnlace::oyendo;
            break;
        case SucesoZocalo::sinPort:
            m_avance = motivo == MotivoFallo::ocupado ? AvanceEnlace::sinPort : AvanceEnlace::portNegado;
            break;
        case SucesoZocalo::inutil:
            m_avance = AvanceEnlace::inutil;
            break;
        case SucesoZocalo::intento:
            acabar(AvanceEnlace::sinRespuesta);
            m_avance = AvanceEnlace::conectando;
            break;
        case SucesoZocalo::conectado:
            m_avance = AvanceEnlace::mudo;
            break;
        case SucesoZocalo::enviado:
            m_avance = AvanceEnlace::saludado;
            // A session without a reading is opened anew again and again: that is one silence.
            if (m_antes < AvanceEnlace::saludado) m_inicio = m_reloj.ahora();
            m_muestra.clear();
            break;
        case SucesoZocalo::fallado:
            acabar(m_avance == AvanceEnlace::conectando ? avanceDe(motivo) : AvanceEnlace::cortado);
            break;
        case SucesoZocalo::cerrado:
            acabar(AvanceEnlace::cortado);
            break;
    }
}

// ---- what it tells ----

// As long as the link itself waits before it says that there is none.
std::int64_t MedicoPort::frescura() const {
    return compartida() ? frTCP::PACIENCIA : frWsk::PACIENCIA;
}

AvanceEnlace MedicoPort::avance() const {
    const bool adelantado = !compartida() || m_avance >= AvanceEnlace::saludado || m_avance == AvanceEnlace::inutil;
    if (adelantado) return m_avance;
    return m_antes != AvanceEnlace::espera ? m_antes : AvanceEnlace::conectando;
}

Sintomas MedicoPort::sintomas() const {
    Sintomas s;
    s.consulta = m_consulta;
    s.enlace = avance();
    s.asentado = m_abierto && m_reloj.ahora() - m_inicio >= ASIENTO;
    s.recibiendo =
        fresco(m_ultimaTomada) && (!compartida() || m_reloj.ahora() - m_ultimaTomada < m_consulta.destino.caducidad);
    s.sinPeso = fresco(m_ultimaSinPeso);
    if (!m_cuentas.empty() && m_cuentas.back().cuando - m_cuentas.front().cuando >= SEGUNDO) {
        const std::int64_t lapso = m_cuentas.back().cuando - m_cuentas.front().cuando;
        const std::int64_t cuantas = m_cuentas.back().tomadas - m_cuentas.front().tomadas;
        s.porSegundo = (cuantas * SEGUNDO + lapso / 2) / lapso;
    }
    for (const auto& [quien, cuando] : m_remitentes) {
        if (fresco(cuando) && quien != 0) s.remitentes.push_back(textoDireccionIP(quien));
    }
    if (fresco(m_cuandoMuestra) && !m_muestra.empty()) {
        s.muestra = m_muestra;
        if (!s.recibiendo && m_remitente != 0) s.remitentes = {textoDireccionIP(m_remitente)};
    }
    if (m_ajeno != 0 && fresco(m_cuandoAjeno)) s.ajeno = textoDireccionIP(m_ajeno);
    for (const auto& [direccion, cuando] : m_otras) {
        if (fresco(cuando) && direccion != m_consulta.port) s.otras.push_back(direccion);
    }
    return s;
}

}  // namespace sorvanel
