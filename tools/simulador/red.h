#pragma once

#ifdef _WIN32
// clang-format off
#include <winsock2.h>
#include <ws2tcpip.h>
// clang-format on
#else
#include <netinet/in.h>
#include <poll.h>
#endif

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "simulador/lectura.h"

// Sockets, over IPv4, by one name for both systems.
namespace sorvanel::simulador {

#ifdef _WIN32
using NumeroZocalo = SOCKET;
using Sondeo = WSAPOLLFD;
constexpr NumeroZocalo SINZOCALO = INVALID_SOCKET;
#else
using NumeroZocalo = int;
using Sondeo = pollfd;
constexpr NumeroZocalo SINZOCALO = -1;
#endif

// What the network cannot do, told in Spanish.
class ErrorRed : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Once, before all else; it lasts as long as the program.
void iniciarRed();

// A socket and its owner.
class Zocalo {
public:
    explicit Zocalo(NumeroZocalo numero = SINZOCALO) : m_numero(numero) {}
    ~Zocalo();
    Zocalo(Zocalo&& otro) noexcept;
    Zocalo& operator=(Zocalo&& otro) noexcept;

    bool hay() const { return m_numero != SINZOCALO; }
    NumeroZocalo numero() const { return m_numero; }

    // How much was taken; less than all where there is no more room. Nothing if the connection is broken.
    std::optional<std::size_t> enviar(std::string_view datos) const;
    // What has come; nothing if the other side is gone.
    std::optional<std::string> recibir() const;
    // A datagram of UDP. False if it could not be sent.
    bool enviarA(sockaddr_in equipo, int puerto, std::string_view datos) const;
    // The client that waits and who it is; none if there is none.
    Zocalo aceptar(std::string& quien) const;
    // Closing it resets the connection: what is still on its way may be lost.
    void reiniciar() const;
    std::uint16_t puerto() const;

private:
    NumeroZocalo m_numero;
};

// Without a port. Throws ErrorRed.
sockaddr_in buscar(const std::string& host);
Zocalo abrirUDP();
// On that TCP port, or any free one if it is 0, of this machine alone or for all others too. Throws ErrorRed.
Zocalo escuchar(bool todas, std::uint16_t puerto);

// Waits at most that long, until something comes to those that are asked about.
void sondear(std::vector<Sondeo>& sondeos, Instante cuanto);

}  // namespace sorvanel::simulador
