#include "app/vaiven.h"

#include <algorithm>
#include <utility>

#include "display/silencio.h"

namespace sorvanel {

std::string textoDuracion(std::int64_t milisegundos) {
    const std::int64_t s = milisegundos / 1000, min = s / 60, h = min / 60, d = h / 24;
    const auto dos = [](std::int64_t mucho, const char* suyo, std::int64_t poco, const char* resto) {
        std::string texto = std::to_string(mucho) + suyo;
        if (poco > 0) texto += " " + std::to_string(poco) + resto;
        return texto;
    };
    if (s == 0) return "menos de 1 s";
    if (d > 0) return dos(d, " d", h % 24, " h");
    if (h > 0) return dos(h, " h", min % 60, " min");
    return min > 0 ? dos(min, " min", s % 60, " s") : dos(s, " s", 0, "");
}

Vaiven::Lineas Vaiven::mirar(const VistaVaiven& vista) {
    using Estado = VistaVaiven::Estado;
    m_ahora = m_reloj.ahora();
    // What came and went between two looks is seen by its count alone.
    for (; m_vueltas < vista.vueltas; ++m_vueltas) {
        if (!m_falta && m_conocido) perder(m_ahora, {});
        volver();
    }
    if (vista.estado == Estado::viene && (m_falta || !m_conocido)) volver();
    if (vista.estado == Estado::falta) {
        if (m_falta)
            atenderMotivo(vista.motivo);
        else
            perder(vista.desde, vista.motivo);
    }
    if (m_resumiendo) {
        const std::int64_t quieto = m_ahora - m_cambio;
        // What may be the calm already is waited for: one line then says both.
        const bool toca = m_ahora - m_resumido >= m_plazo && quieto < m_calma / 2;
        if (toca || quieto >= m_calma) resumir(quieto >= m_calma);
    }
    return std::exchange(m_lineas, {});
}

Vaiven::Lineas Vaiven::terminar() {
    m_ahora = m_reloj.ahora();
    if (m_resumiendo && m_veces > 0) resumir(true);
    return std::exchange(m_lineas, {});
}

void Vaiven::perder(std::int64_t desde, const std::string& motivo) {
    m_falta = m_conocido = true;
    m_desde = desde;
    m_motivo = motivo;
    m_otroMotivo.clear();
    m_motivos = 0;
    m_cambio = m_ahora;
    const bool yaResumia = m_resumiendo;
    contarPerdida();
    if (m_resumiendo) {
        ++m_veces;
        // What comes may be the end of the run.
        if (!yaResumia) m_lineas.push_back(conMotivo() + "; va y viene: desde aquí se resume");
        return;
    }
    // Some time has passed since the last that came, before its absence could be seen.
    const std::int64_t hace = m_ahora - desde;
    m_lineas.push_back(conMotivo() + (hace >= 3000 ? ", desde hace " + textoDuracion(hace) : ""));
}

void Vaiven::contarPerdida() {
    const std::int64_t antepenultima = *(m_perdidas.end() - 2), decima = m_perdidas.front();
    std::rotate(m_perdidas.begin(), m_perdidas.begin() + 1, m_perdidas.end());
    m_perdidas.back() = m_ahora;
    const bool muchas = m_ahora - decima < HORA;
    if (m_resumiendo || (!muchas && m_ahora - antepenultima >= MINUTO)) return;
    m_resumiendo = true;
    m_resumido = m_ahora;
    m_calma = muchas ? CALMA_LARGA : CALMA;
    m_plazo = muchas ? RESUMEN : MINUTO;
}

void Vaiven::volver() {
    const bool faltaba = std::exchange(m_falta, false);
    m_cambio = m_ahora;
    m_conocido = true;
    if (m_resumiendo) {
        if (faltaba) m_sin += m_ahora - m_desde;
    } else if (faltaba) {
        m_lineas.push_back(m_palabras.viene + (" de nuevo tras " + textoDuracion(m_ahora - m_desde)));
    } else {
        m_lineas.emplace_back(m_palabras.viene);
    }
}

// Reasons that change to and fro say no more than the first of them.
void Vaiven::atenderMotivo(const std::string& motivo) {
    if (motivo == m_motivo) {
        m_otroMotivo.clear();
    } else if (motivo != m_otroMotivo) {
        m_otroMotivo = motivo;
        m_conOtro = m_ahora;
    }
    if (m_otroMotivo.empty() || m_ahora - m_conOtro < (m_motivos == 0 ? FIRMEZA : FIRMEZA_2)) return;
    m_motivo = std::exchange(m_otroMotivo, {});
    if (m_resumiendo) return;
    ++m_motivos;
    m_lineas.push_back("sigue " + conMotivo());
}

void Vaiven::resumir(bool calma) {
    std::string linea;
    if (m_veces > 0) {
        linea = m_palabras.cambios + (" " + std::to_string(m_veces)) + (m_veces == 1 ? " vez" : " veces") + " desde " +
                hora(m_resumido);
        if (m_sin > 0) linea += " (" + textoDuracion(m_sin) + " " + m_palabras.falta + " en total)";
    }
    if (calma) {
        linea += linea.empty() ? "" : "; ";
        linea += m_falta ? falta() : m_palabras.viene + (" desde " + hora(m_cambio));
        m_resumiendo = false;
    }
    m_lineas.push_back(std::move(linea));
    m_resumido = m_ahora;
    m_plazo = std::min(2 * m_plazo, RESUMEN);
    m_veces = 0;
    m_sin = 0;
}

std::string Vaiven::conMotivo() const {
    return m_motivo.empty() ? m_palabras.falta : m_palabras.falta + (": " + m_motivo);
}

std::string Vaiven::falta() const {
    if (!m_falta) return {};
    return m_palabras.falta + (" desde " + hora(m_desde)) + (m_motivo.empty() ? "" : ": " + m_motivo);
}

std::string Vaiven::hora(std::int64_t momento) const {
    const std::int64_t hace = m_ahora - momento;
    return textoHora(m_reloj.horaLocal(hace), hace >= Silencio::UN_DIA);
}

}  // namespace sorvanel
