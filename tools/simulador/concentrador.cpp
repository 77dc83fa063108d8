#include "simulador/concentrador.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <tuple>

namespace sorvanel::simulador {

namespace {

// Beyond them clients wait to be accepted.
constexpr std::size_t MAXSESIONES = 500;
constexpr Instante REINTENTO = std::chrono::milliseconds{200};
// Long enough to rest, short enough to see the user's wish to end.
constexpr Instante MAXESPERA = std::chrono::milliseconds{100};

void sumar(CuentaSesion& total, const CuentaSesion& otra) {
    total.lineas += otra.lineas;
    total.avalancha += otra.avalancha;
    total.defectuosas += otra.defectuosas;
    total.inesperadas += otra.inesperadas;
    total.bytesDeMas += otra.bytesDeMas;
    total.retrasos += otra.retrasos;
    total.respuestas += otra.respuestas;
}

}  // namespace

Concentrador::Concentrador(const OpcionesConcentrador& opciones, std::uint64_t semilla, Red& red, Reloj& reloj,
                           TestigoConcentrador& testigo)
    : m_opciones(opciones), m_semilla(semilla), m_red(red), m_reloj(reloj), m_testigo(testigo) {}

ResumenConcentrador Concentrador::correr() {
    m_comienzo = m_reloj.ahora();
    std::vector<Suceso> sucesos;
    while (!termina() && atenderPuerto()) {
        const bool acepta = !m_opciones.sinAceptar && m_sesiones.size() < MAXSESIONES;
        sucesos.clear();
        m_red.esperar(espera(), acepta, sucesos);
        m_ahora = m_reloj.ahora() - m_comienzo;
        for (const auto& suceso : sucesos) atender(suceso);
        avanzar();
    }
    while (!m_sesiones.empty()) terminar(m_sesiones.begin()->first, "fin de la ejecución");
    m_red.dejarDeEscuchar();
    m_resumen.tiempo = m_reloj.ahora() - m_comienzo;
    return m_resumen;
}

bool Concentrador::termina() const {
    return m_reloj.finPedido() || (m_opciones.duracion && m_ahora >= *m_opciones.duracion) ||
           (m_opciones.sesiones && m_terminadas >= *m_opciones.sesiones);
}

bool Concentrador::ausente() const {
    const auto& ausencias = m_opciones.ausencias;
    return std::any_of(ausencias.begin(), ausencias.end(), [&](const Ventana& v) { return v.contiene(m_ahora); });
}

bool Concentrador::atenderPuerto() {
    if (ausente()) {
        if (m_escucha) {
            m_red.dejarDeEscuchar();
            m_escucha = false;
            m_testigo.alCallar(m_ahora);
            while (!m_sesiones.empty()) {
                m_red.cerrar(m_sesiones.begin()->first);
                terminar(m_sesiones.begin()->first, "ausente");
            }
        }
        return true;
    }
    if (m_escucha || m_ahora < m_reintento) return true;
    const std::string motivo = m_red.escuchar();
    m_escucha = motivo.empty();
    m_reintento = m_ahora + REINTENTO;
    if (!m_escucha) {
        m_testigo.alFallar(m_ahora, motivo);
        m_resumen.fallo = !m_resumen.escucho;
        return m_resumen.escucho;
    }
    m_resumen.escucho = true;
    m_testigo.alEscuchar(m_ahora, m_red.donde());
    return true;
}

void Concentrador::atender(const Suceso& suceso) {
    if (suceso.tipo == Suceso::Tipo::Llega) {
        const bool conFaltas = !m_opciones.veces || m_resumen.sesiones < *m_opciones.veces;
        ++m_resumen.sesiones;
        m_sesiones.emplace(std::piecewise_construct, std::forward_as_tuple(suceso.conexion),
                           std::forward_as_tuple(m_opciones, conFaltas ? m_opciones.faltas : m_sinFaltas, m_semilla));
        m_testigo.alLlegar(m_ahora, suceso.conexion, suceso.datos);
        return;
    }
    const auto sesion = m_sesiones.find(suceso.conexion);
    if (sesion == m_sesiones.end()) return;
    if (suceso.tipo == Suceso::Tipo::SeVa) {
        terminar(suceso.conexion, "se fue el cliente");
    } else if (suceso.tipo == Suceso::Tipo::Datos) {
        m_testigo.alRecibir(m_ahora, suceso.conexion, suceso.datos);
        sesion->second.alRecibir(suceso.datos);
    }
}

void Concentrador::avanzar() {
    std::vector<std::int64_t> numeros;
    numeros.reserve(m_sesiones.size());
    for (const auto& [numero, sesion] : m_sesiones) numeros.push_back(numero);
    for (const std::int64_t numero : numeros) {
        Sesion& sesion = m_sesiones.at(numero);
        if (avanzar(numero, sesion)) continue;
        const bool cierra = sesion.fin() == Sesion::Fin::Cierra;
        if (cierra)
            m_red.cerrar(numero);
        else
            m_red.reiniciar(numero);
        terminar(numero, cierra ? "cerrada" : "reiniciada");
    }
}

bool Concentrador::avanzar(std::int64_t numero, Sesion& sesion) {
    sesion.avanzar(m_ahora);
    std::string& salida = sesion.salida();
    if (!salida.empty()) {
        const std::size_t enviados = m_red.enviar(numero, salida);
        if (enviados > 0) m_testigo.alEnviar(m_ahora, numero, std::string_view(salida).substr(0, enviados));
        salida.erase(0, enviados);
    }
    return sesion.fin() == Sesion::Fin::Sigue || !salida.empty();
}

void Concentrador::terminar(std::int64_t numero, std::string_view motivo) {
    const auto sesion = m_sesiones.find(numero);
    sumar(m_resumen.cuenta, sesion->second.cuenta());
    m_testigo.alTerminar(m_ahora, numero, motivo, sesion->second.cuenta());
    m_sesiones.erase(sesion);
    ++m_terminadas;
}

Instante Concentrador::espera() const {
    Instante hasta = m_ahora + MAXESPERA;
    for (const auto& [numero, sesion] : m_sesiones)
        if (const auto proximo = sesion.proximo(m_ahora)) hasta = std::min(hasta, *proximo);
    for (const auto& ausencia : m_opciones.ausencias)
        for (const Instante cambio : {Instante{ausencia.desde}, Instante{ausencia.hasta}})
            if (cambio > m_ahora) hasta = std::min(hasta, cambio);
    if (m_opciones.duracion) hasta = std::min<Instante>(hasta, *m_opciones.duracion);
    return hasta > m_ahora ? hasta - m_ahora : Instante{0};
}

std::string textoResumen(const ResumenConcentrador& resumen) {
    const CuentaSesion& cuenta = resumen.cuenta;
    std::string texto = "Sesiones: " + std::to_string(resumen.sesiones) +
                        ", abiertas con REP: " + std::to_string(cuenta.respuestas) + "\n";
    texto += "Enviadas: " + textoRitmo(cuenta.lineas, "lecturas", resumen.tiempo);
    const auto contar = [&](const char* que, std::int64_t cuantas) {
        if (cuantas > 0) texto += std::string(que) + ": " + std::to_string(cuantas) + "\n";
    };
    contar("De ellas en la avalancha", cuenta.avalancha);
    contar("Además, líneas defectuosas y basura", cuenta.defectuosas);
    contar("Respuestas que no eran REP", cuenta.inesperadas);
    contar("Bytes que el cliente no tenía que enviar", cuenta.bytesDeMas);
    contar("Retrasos de más de un segundo", cuenta.retrasos);
    return texto;
}

std::string visible(std::string_view datos) {
    std::string texto;
    for (const char c : datos) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '\r') {
            texto += "\\r";
        } else if (c == '\n') {
            texto += "\\n";
        } else if (c == '\t') {
            texto += "\\t";
        } else if (c == '\\') {
            texto += "\\\\";
        } else if (byte < 0x20 || byte > 0x7E) {
            std::array<char, 8> cifras{};
            std::snprintf(cifras.data(), cifras.size(), "\\x%02X", static_cast<unsigned>(byte));
            texto += cifras.data();
        } else {
            texto += c;
        }
    }
    return texto;
}

}  // namespace sorvanel::simulador
