#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/zocalo.h"

namespace sorvanel {

class ZocaloDoble;

// What the sockets of one test share.
struct RedDoble {
    std::vector<ZocaloDoble*> zocalos;  // alive, in the order they were made
    std::set<std::int32_t> ocupados;    // ports that another program holds
    std::set<std::int32_t> vedados;     // and those that the system gives to nobody
};

// A socket played by the test: it records what is asked of it and tells what the test says.
class ZocaloDoble : public Zocalo {
public:
    ZocaloDoble(OyenteZocalo& oyente, std::shared_ptr<RedDoble> red) : m_oyente(oyente), m_red(std::move(red)) {
        m_red->zocalos.push_back(this);
    }
    ~ZocaloDoble() override { std::erase(m_red->zocalos, this); }

    std::vector<std::string> conexiones;  // "equipo:9084": each attempt, in order
    std::string enviado;                  // all that was sent

    // ---- what the socket is asked ----
    void cerrar() override {
        m_puerto = 0;
        m_conectando = m_conectado = false;
        m_entrada.clear();
    }
    void protocolo(ProtocoloZocalo protocolo) override { m_protocolo = protocolo; }
    bool enlazar(std::int32_t puerto) override {
        cerrar();
        porque = tomado(puerto) ? MotivoFallo::ocupado : MotivoFallo::sinRespuesta;
        if (puerto < 0 || puerto > 65535 || tomado(puerto) || m_red->vedados.contains(puerto)) return false;
        m_puerto = puerto == 0 ? 49152 : puerto;
        return true;
    }
    bool conectar(const std::string& host, std::int32_t puerto) override {
        conexiones.push_back(host + ":" + std::to_string(puerto));
        cerrar();
        if (host.empty() || puerto < 1 || puerto > 65535) return false;
        m_conectando = true;
        return true;
    }
    bool enviar(std::string_view datos) override {
        if (!m_conectado) return false;
        enviado += datos;
        return true;
    }
    std::size_t leer(std::string& destino) override {
        if (m_entrada.empty()) return 0;
        const std::size_t n = m_entrada.front().size();
        destino += m_entrada.front();
        m_entrada.pop_front();
        return n;
    }
    std::size_t leerDe(std::string& destino, DireccionIP& remitente) override {
        remitente = m_puerto != 0 && !m_entrada.empty() ? leerDireccionIP(quien).value() : 0;
        return leer(destino);
    }
    MotivoFallo motivo() const override { return porque; }

    std::string quien = "192.168.1.40";              // sends the datagrams
    MotivoFallo porque = MotivoFallo::sinRespuesta;  // it fails

    // ---- what the test says; each answers whether the listener was told ----
    // The attempt to connect succeeded.
    bool conectado() {
        if (!m_conectando) return false;
        m_conectando = false;
        m_conectado = true;
        m_oyente.alConectar();
        return true;
    }
    // Bytes (for UDP, one datagram) arrive; told until they are read or a call reads nothing.
    bool llegar(std::string datos) {
        if (m_puerto == 0 && !m_conectado) return false;
        m_entrada.push_back(std::move(datos));
        const std::weak_ptr<int> vivo = m_vivo;
        std::size_t antes = 0;
        do {
            antes = m_entrada.size();
            m_oyente.alLlegarDatos();
        } while (!vivo.expired() && !m_entrada.empty() && m_entrada.size() != antes);
        return true;
    }
    // An attempt or a connection failed.
    bool fallar() {
        if (!abierto()) return false;
        m_conectando = m_conectado = false;
        m_oyente.alFallar();
        return true;
    }
    // The other side closed.
    bool cerrarse() {
        if (!m_conectado) return false;
        m_conectado = false;
        m_oyente.alCerrarse();
        return true;
    }

    // Who is told, also of what comes too late.
    OyenteZocalo& oyente() { return m_oyente; }

    // ---- what the test may look at ----
    ProtocoloZocalo protocolo() const { return m_protocolo; }
    std::int32_t puerto() const { return m_puerto; }  // 0 while not bound
    bool estaConectando() const { return m_conectando; }
    bool abierto() const { return m_puerto != 0 || m_conectando || m_conectado; }

private:
    bool tomado(std::int32_t puerto) const {
        return m_red->ocupados.contains(puerto) ||
               std::any_of(m_red->zocalos.begin(), m_red->zocalos.end(), [&](const ZocaloDoble* z) {
                   return z != this && z->m_puerto == puerto && z->m_protocolo == m_protocolo;
               });
    }

    OyenteZocalo& m_oyente;
    std::shared_ptr<RedDoble> m_red;
    std::shared_ptr<int> m_vivo = std::make_shared<int>(0);
    std::deque<std::string> m_entrada;
    ProtocoloZocalo m_protocolo = ProtocoloZocalo::TCP;
    std::int32_t m_puerto = 0;
    bool m_conectando = false;
    bool m_conectado = false;
};

}  // namespace sorvanel
