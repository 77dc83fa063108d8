#include "harness/emisorUDP.h"

#include <windows.h>

#include <random>
#include <stdexcept>
#include <string>

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

}  // namespace

Winsock::Winsock() {
    WSADATA datos{};
    if (WSAStartup(MAKEWORD(2, 2), &datos) != 0) throw std::runtime_error("no Winsock");
}

Winsock::~Winsock() {
    WSACleanup();
}

EmisorUDP::EmisorUDP() : m_zocalo(socket(AF_INET, SOCK_DGRAM, IPPROTO_UDP)) {
    if (m_zocalo == INVALID_SOCKET) throw std::runtime_error("no socket");
}

EmisorUDP::~EmisorUDP() {
    closesocket(m_zocalo);
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

}  // namespace sorvanel::pruebas
