#pragma once

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <stdexcept>
#include <string>

namespace comparar {

constexpr int CICLO = 16;  // readings until a display repeats itself

inline double ahora() {
    timespec t{};
    clock_gettime(CLOCK_MONOTONIC, &t);
    return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_nsec) * 1e-9;
}

inline void dormirHasta(double instante) {
    timespec t{static_cast<time_t>(instante), 0};
    t.tv_nsec = static_cast<long>((instante - static_cast<double>(t.tv_sec)) * 1e9);
    clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &t, nullptr);
}

// All displays' indicators, or the concentrator that speaks for them.
class Emisor {
public:
    Emisor(int visores, int puerto, bool tcp) : m_visores(visores), m_puerto(puerto), m_tcp(tcp) {
        m_zocalo = socket(AF_INET, tcp ? SOCK_STREAM : SOCK_DGRAM, 0);
        if (!tcp) return;
        const int si = 1;
        setsockopt(m_zocalo, SOL_SOCKET, SO_REUSEADDR, &si, sizeof si);
        const sockaddr_in propia = direccion(puerto);
        if (bind(m_zocalo, reinterpret_cast<const sockaddr*>(&propia), sizeof propia) != 0 || listen(m_zocalo, 8) != 0)
            throw std::runtime_error("the concentrator's port is taken");
        fcntl(m_zocalo, F_SETFL, O_NONBLOCK);
    }

    static int valor(int n, int visor) { return 10000 + n % CICLO * 137 + visor * 1009; }
    int lectura() const { return m_lectura; }
    bool tcp() const { return m_tcp; }

    void enviar(int n, int visor) {
        std::array<char, 32> trama{};
        const int largo = std::snprintf(trama.data(), trama.size(), "XXX+%08d\r", valor(n, visor) * 1000);
        const sockaddr_in destino = direccion(m_puerto + visor);
        // The first after a closed port was found may tell of that instead.
        for (int i = 0; i < 2; ++i)
            if (sendto(m_zocalo, trama.data(), static_cast<std::size_t>(largo), 0,
                       reinterpret_cast<const sockaddr*>(&destino), sizeof destino) == largo)
                return;
    }

    void ronda(bool nueva = true) {
        if (nueva) ++m_lectura;
        if (m_tcp) return lineas();
        for (int i = 0; i < m_visores; ++i) enviar(m_lectura, i);
    }

    // Each display at the rate, their beats spread over the period in no order; one write a beat over the shared
    // link. `enviada` is told the reading and the display before it goes.
    template <class Enviada>
    long aRitmo(double porSegundo, double segundos, Enviada enviada) {
        const int rondas = static_cast<int>(porSegundo * segundos), partes = m_tcp ? 1 : m_visores;
        const double inicio = ahora() + 0.001;
        for (int i = 0; i < rondas; ++i) {
            ++m_lectura;
            for (int j = 0; j < partes; ++j) {
                dormirHasta(inicio + (i + static_cast<double>(j) / partes) / porSegundo);
                const int visor = partes > 1 ? j * 29 % partes : 0;  // 29 shares no factor with 8 or 64
                enviada(m_lectura, visor);
                if (m_tcp) {
                    lineas();
                } else {
                    enviar(m_lectura, visor);
                }
            }
        }
        return static_cast<long>(rondas) * m_visores;
    }

private:
    static sockaddr_in direccion(int puerto) {
        sockaddr_in lugar{};
        lugar.sin_family = AF_INET;
        lugar.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        lugar.sin_port = htons(static_cast<std::uint16_t>(puerto));
        return lugar;
    }

    void decir(const std::string& texto) {
        if (send(m_cliente, texto.data(), texto.size(), MSG_NOSIGNAL) < 0) m_cliente = -1;
    }

    bool haySesion() {
        if (m_cliente >= 0) return true;
        m_cliente = accept(m_zocalo, nullptr, nullptr);
        if (m_cliente < 0) return false;
        const int si = 1;
        setsockopt(m_cliente, IPPROTO_TCP, TCP_NODELAY, &si, sizeof si);
        decir("LIN>");
        std::array<char, 4> respuesta{};
        pollfd espera{m_cliente, POLLIN, 0};
        if (poll(&espera, 1, 2000) != 1 || recv(m_cliente, respuesta.data(), 4, MSG_WAITALL) != 4) {
            close(m_cliente);
            m_cliente = -1;
            return false;
        }
        decir("XXX>");
        dormirHasta(ahora() + 0.1);  // what shares an arrival with the prompt would spoil it
        return true;
    }

    void lineas() {
        if (!haySesion()) return;
        std::string todas;
        std::array<char, 40> linea{};
        for (int i = 0; i < m_visores; ++i) {
            std::snprintf(linea.data(), linea.size(), "01/%02d -- %08d 00000000\r\n", i + 1, valor(m_lectura, i));
            todas += linea.data();
        }
        decir(todas);
    }

    int m_visores, m_puerto;
    bool m_tcp;
    int m_zocalo, m_cliente = -1;
    int m_lectura = 0;
};

}  // namespace comparar
