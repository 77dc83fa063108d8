#include "harness/red.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <random>
#include <stdexcept>
#include <utility>

namespace sorvanel::pruebas {
namespace {

sockaddr_in direccion(int puerto) {
    sockaddr_in destino{};
    destino.sin_family = AF_INET;
    destino.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    destino.sin_port = htons(static_cast<u_short>(puerto));
    return destino;
}

bool libres(int primero, int cuantos) {
    for (int puerto = primero; puerto < primero + cuantos; ++puerto) {
        EmisorUDP tanteo;
        if (!tanteo.ocupar(puerto)) return false;
    }
    return true;
}

// A reading that reaches the program in one piece with the prompt before it would spoil the prompt.
constexpr DWORD TRAS_EL_AVISO = 100;  // ms

// Something to read or to take, or the end of the connection.
bool hayAlgo(SOCKET zocalo, int milisegundos) {
    fd_set vigilados{};
    vigilados.fd_count = 1;
    vigilados.fd_array[0] = zocalo;
    timeval plazo{milisegundos / 1000, milisegundos % 1000 * 1000};
    return select(0, &vigilados, nullptr, nullptr, &plazo) == 1;
}

// Resets the connection: what a killed program leaves, and the port is free at once.
void cortar(SOCKET zocalo) {
    if (zocalo == INVALID_SOCKET) return;
    const linger nada{1, 0};
    setsockopt(zocalo, SOL_SOCKET, SO_LINGER, reinterpret_cast<const char*>(&nada), sizeof nada);
    closesocket(zocalo);
}

int restante(ULONGLONG fin) {
    const ULONGLONG ahora = GetTickCount64();
    return fin > ahora ? static_cast<int>(fin - ahora) : 0;
}

}  // namespace

Winsock::Winsock() {
    WSADATA datos{};
    if (WSAStartup(MAKEWORD(2, 2), &datos) != 0) throw std::runtime_error("no Winsock");
}

EmisorUDP::EmisorUDP() : m_zocalo(socket(AF_INET, SOCK_DGRAM, IPPROTO_UDP)) {
    if (m_zocalo == INVALID_SOCKET) throw std::runtime_error("no socket");
}

void EmisorUDP::enviar(int puerto, std::string_view datos) {
    const sockaddr_in destino = direccion(puerto);
    // The first call after an indicator's port was found closed may tell of that instead of sending.
    for (int intento = 0; intento < 2; ++intento)
        if (sendto(m_zocalo, datos.data(), static_cast<int>(datos.size()), 0,
                   reinterpret_cast<const sockaddr*>(&destino), sizeof destino) == static_cast<int>(datos.size()))
            return;
    throw std::runtime_error("cannot send to port " + std::to_string(puerto));
}

bool EmisorUDP::ocupar(int puerto) {
    const BOOL exclusivo = TRUE;
    setsockopt(m_zocalo, SOL_SOCKET, SO_EXCLUSIVEADDRUSE, reinterpret_cast<const char*>(&exclusivo), sizeof exclusivo);
    sockaddr_in propia = direccion(puerto);
    propia.sin_addr.s_addr = htonl(INADDR_ANY);
    return bind(m_zocalo, reinterpret_cast<const sockaddr*>(&propia), sizeof propia) == 0;
}

int puertosLibres(int cuantos) {
    // From anywhere, so that several runs on one machine seldom meet; below the ports that systems
    // give to senders.
    std::random_device azar;
    std::uniform_int_distribution<int> lugar(10000, 32000 - cuantos);
    for (int intento = 0; intento < 100; ++intento)
        if (const int primero = lugar(azar); libres(primero, cuantos)) return primero;
    throw std::runtime_error("no free ports");
}

Concentrador::Concentrador(int puerto, int familia) : m_escucha(socket(familia, SOCK_STREAM, IPPROTO_TCP)) {
    sockaddr_in6 propia{};  // the port stands at the same place in both
    propia.sin6_family = static_cast<short>(familia);
    propia.sin6_port = htons(static_cast<u_short>(puerto));
    int tamano = sizeof propia;
    if (familia == AF_INET6) {
        propia.sin6_addr.s6_addr[sizeof propia.sin6_addr - 1] = 1;
    } else {
        tamano = sizeof(sockaddr_in);
        reinterpret_cast<sockaddr_in*>(&propia)->sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    }
    auto* direccion = reinterpret_cast<sockaddr*>(&propia);
    if (bind(m_escucha, direccion, tamano) != 0 || listen(m_escucha, SOMAXCONN) != 0 ||
        getsockname(m_escucha, direccion, &tamano) != 0) {
        closesocket(m_escucha);
        throw std::runtime_error("cannot listen on port " + std::to_string(puerto));
    }
    m_puerto = ntohs(propia.sin6_port);
}

Concentrador::~Concentrador() {
    cortar(m_cliente);
    closesocket(m_escucha);
}

bool Concentrador::tomarCliente(int milisegundos) {
    cortar(std::exchange(m_cliente, INVALID_SOCKET));
    if (!hayAlgo(m_escucha, milisegundos)) return false;
    m_cliente = accept(m_escucha, nullptr, nullptr);
    if (m_cliente == INVALID_SOCKET) return false;
    // Each thing said is an arrival of its own.
    const BOOL si = TRUE;
    setsockopt(m_cliente, IPPROTO_TCP, TCP_NODELAY, reinterpret_cast<const char*>(&si), sizeof si);
    return true;
}

bool Concentrador::decir(std::string_view datos) {
    return send(m_cliente, datos.data(), static_cast<int>(datos.size()), 0) == static_cast<int>(datos.size());
}

std::string Concentrador::oir(std::size_t cuantos, int milisegundos) {
    const ULONGLONG fin = GetTickCount64() + static_cast<ULONGLONG>(milisegundos);
    std::string oido;
    std::array<char, 256> trozo{};
    while (oido.size() < cuantos && hayAlgo(m_cliente, restante(fin))) {
        const std::size_t faltan = std::min(cuantos - oido.size(), trozo.size());
        const int leidos = recv(m_cliente, trozo.data(), static_cast<int>(faltan), 0);
        if (leidos <= 0) break;
        oido.append(trozo.data(), static_cast<std::size_t>(leidos));
    }
    return oido;
}

bool Concentrador::esperarDespedida(int milisegundos) {
    const ULONGLONG fin = GetTickCount64() + static_cast<ULONGLONG>(milisegundos);
    std::array<char, 256> perdido{};
    while (hayAlgo(m_cliente, restante(fin)))
        if (recv(m_cliente, perdido.data(), static_cast<int>(perdido.size()), 0) <= 0) return true;
    return false;
}

bool Concentrador::abrirSesion(int milisegundos) {
    const ULONGLONG fin = GetTickCount64() + static_cast<ULONGLONG>(milisegundos);
    while (tomarCliente(restante(fin))) {
        // One that connected earlier may have given up meanwhile.
        if (!decir("LIN>") || oir(4, restante(fin)) != "REP\r" || !decir("XXX>")) continue;
        Sleep(TRAS_EL_AVISO);
        return true;
    }
    return false;
}

int puertoTCPLibre() {
    return Concentrador().puerto();
}

std::string lineaPavona(int direccion, const char* marcas, const std::string& primero, const std::string& segundo) {
    const auto cifras = [](const std::string& valor, std::size_t cuantas) {
        return std::string(cuantas - std::min(cuantas, valor.size()), '0') + valor;
    };
    return cifras(std::to_string(direccion / 100), 2) + "/" + cifras(std::to_string(direccion % 100), 2) + " " +
           marcas + " " + cifras(primero, 8) + " " + cifras(segundo, 8) + "\r\n";
}

std::string trama(int milesimas, const char* marcas) {
    std::array<char, 16> texto{};
    std::snprintf(texto.data(), texto.size(), "%.3s+%08d\r", marcas, milesimas);
    return texto.data();
}

}  // namespace sorvanel::pruebas
