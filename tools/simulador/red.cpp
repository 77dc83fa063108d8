#include "simulador/red.h"

#ifndef _WIN32
#include <arpa/inet.h>
#include <fcntl.h>
#include <netdb.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#endif

#include <array>
#include <cstring>
#include <memory>
#include <thread>
#include <utility>

namespace sorvanel::simulador {

namespace {

#ifdef _WIN32
using Largo = int;
constexpr int SINSENAL = 0;
// Nobody else may have the port.
constexpr int RESERVA = SO_EXCLUSIVEADDRUSE;

void cerrar(NumeroZocalo numero) {
    closesocket(numero);
}
bool sinEsperas(NumeroZocalo numero) {
    u_long si = 1;
    return ioctlsocket(numero, static_cast<long>(FIONBIO), &si) == 0;
}
bool hayQueEsperar() {
    return WSAGetLastError() == WSAEWOULDBLOCK;
}
std::string ultimoError() {
    const int error = WSAGetLastError();
    return error == WSAEADDRINUSE || error == WSAEACCES ? "está en uso" : "error " + std::to_string(error);
}
#else
using Largo = std::size_t;
constexpr int SINSENAL = MSG_NOSIGNAL;
// What is left of past connections is no hindrance.
constexpr int RESERVA = SO_REUSEADDR;

void cerrar(NumeroZocalo numero) {
    close(numero);
}
bool sinEsperas(NumeroZocalo numero) {
    return fcntl(numero, F_SETFL, fcntl(numero, F_GETFL) | O_NONBLOCK) == 0;
}
bool hayQueEsperar() {
    return errno == EAGAIN || errno == EINTR;
}
std::string ultimoError() {
    return errno == EADDRINUSE ? "está en uso" : std::strerror(errno);
}
#endif

template <class Valor>
void poner(NumeroZocalo zocalo, int nivel, int opcion, const Valor& valor) {
    setsockopt(zocalo, nivel, opcion, reinterpret_cast<const char*>(&valor), sizeof valor);
}

}  // namespace

void iniciarRed() {
#ifdef _WIN32
    WSADATA datos{};
    if (WSAStartup(MAKEWORD(2, 2), &datos) != 0) throw ErrorRed("no se puede abrir la red");
#endif
}

Zocalo::~Zocalo() {
    if (hay()) cerrar(m_numero);
}

Zocalo::Zocalo(Zocalo&& otro) noexcept : m_numero(std::exchange(otro.m_numero, SINZOCALO)) {}

Zocalo& Zocalo::operator=(Zocalo&& otro) noexcept {
    if (hay()) cerrar(m_numero);
    m_numero = std::exchange(otro.m_numero, SINZOCALO);
    return *this;
}

std::optional<std::size_t> Zocalo::enviar(std::string_view datos) const {
    const auto enviados = send(m_numero, datos.data(), static_cast<Largo>(datos.size()), SINSENAL);
    if (enviados >= 0) return static_cast<std::size_t>(enviados);
    return hayQueEsperar() ? std::optional<std::size_t>(0) : std::nullopt;
}

std::optional<std::string> Zocalo::recibir() const {
    std::array<char, 4096> datos{};
    const auto leidos = recv(m_numero, datos.data(), static_cast<Largo>(datos.size()), 0);
    if (leidos > 0) return std::string(datos.data(), static_cast<std::size_t>(leidos));
    return leidos < 0 && hayQueEsperar() ? std::optional<std::string>("") : std::nullopt;
}

bool Zocalo::enviarA(sockaddr_in equipo, int puerto, std::string_view datos) const {
    equipo.sin_port = htons(static_cast<std::uint16_t>(puerto));
    return sendto(m_numero, datos.data(), static_cast<Largo>(datos.size()), 0,
                  reinterpret_cast<const sockaddr*>(&equipo), sizeof equipo) >= 0;
}

Zocalo Zocalo::aceptar(std::string& quien) const {
    sockaddr_in direccion{};
    socklen_t largo = sizeof direccion;
    Zocalo cliente(accept(m_numero, reinterpret_cast<sockaddr*>(&direccion), &largo));
    if (!cliente.hay() || !sinEsperas(cliente.numero())) return Zocalo();
    // Pieces are to arrive as pieces.
    poner(cliente.numero(), IPPROTO_TCP, TCP_NODELAY, 1);
    std::array<char, 16> texto{};
    inet_ntop(AF_INET, &direccion.sin_addr, texto.data(), texto.size());
    quien = texto.data() + (":" + std::to_string(ntohs(direccion.sin_port)));
    return cliente;
}

void Zocalo::reiniciar() const {
    poner(m_numero, SOL_SOCKET, SO_LINGER, linger{1, 0});
}

std::uint16_t Zocalo::puerto() const {
    sockaddr_in propia{};
    socklen_t largo = sizeof propia;
    getsockname(m_numero, reinterpret_cast<sockaddr*>(&propia), &largo);
    return ntohs(propia.sin_port);
}

sockaddr_in buscar(const std::string& host) {
    addrinfo filtro{};
    filtro.ai_family = AF_INET;
    filtro.ai_socktype = SOCK_DGRAM;
    addrinfo* respuesta = nullptr;
    if (getaddrinfo(host.c_str(), nullptr, &filtro, &respuesta) != 0)
        throw ErrorRed("no se encuentra el equipo «" + host + "»");
    const std::unique_ptr<addrinfo, decltype(&freeaddrinfo)> dueno(respuesta, freeaddrinfo);
    sockaddr_in hallada{};
    std::memcpy(&hallada, respuesta->ai_addr, sizeof hallada);
    return hallada;
}

Zocalo abrirUDP() {
    Zocalo zocalo(socket(AF_INET, SOCK_DGRAM, 0));
    if (!zocalo.hay()) throw ErrorRed("no se puede abrir la red: " + ultimoError());
    return zocalo;
}

Zocalo escuchar(bool todas, std::uint16_t puerto) {
    Zocalo oyente(socket(AF_INET, SOCK_STREAM, IPPROTO_TCP));
    sockaddr_in propia{};
    propia.sin_family = AF_INET;
    propia.sin_addr.s_addr = htonl(todas ? INADDR_ANY : INADDR_LOOPBACK);
    propia.sin_port = htons(puerto);
    if (oyente.hay()) poner(oyente.numero(), SOL_SOCKET, RESERVA, 1);
    if (!oyente.hay() || !sinEsperas(oyente.numero()) ||
        bind(oyente.numero(), reinterpret_cast<const sockaddr*>(&propia), sizeof propia) != 0 ||
        listen(oyente.numero(), SOMAXCONN) != 0)
        throw ErrorRed("no se puede escuchar en el puerto " + std::to_string(puerto) + ": " + ultimoError());
    return oyente;
}

void sondear(std::vector<Sondeo>& sondeos, Instante cuanto) {
    // Rounded up: too early would be a turn for nothing.
    constexpr Instante MILISEGUNDO = std::chrono::milliseconds{1};
    const auto plazo = static_cast<int>((cuanto + MILISEGUNDO - Instante{1}) / MILISEGUNDO);
#ifdef _WIN32
    // With nothing to look at it is an error, not a rest.
    if (sondeos.empty()) {
        std::this_thread::sleep_for(cuanto);
    } else {
        WSAPoll(sondeos.data(), static_cast<ULONG>(sondeos.size()), plazo);
    }
#else
    poll(sondeos.data(), sondeos.size(), plazo);
#endif
}

}  // namespace sorvanel::simulador
