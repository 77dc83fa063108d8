#pragma once

#include <winsock2.h>
#include <ws2tcpip.h>

#include <cstdint>
#include <string>
#include <vector>

namespace sorvanel {

// An IPv4 or IPv6 address as connect() takes it.
struct Direccion {
    sockaddr_storage datos{};
    int tamano = 0;

    int familia() const { return datos.ss_family; }
    // This machine's own.
    bool interna() const;
    void puerto(std::uint16_t puerto);
};

using Direcciones = std::vector<Direccion>;

// The host's addresses, IPv4 before IPv6 (the instruments speak IPv4, and on Windows a refused
// attempt costs two seconds), empty when there are none. With soloNumero only the text of an
// address is understood, and the call returns at once; without, it may block for long.
Direcciones buscarDirecciones(const std::string& host, bool soloNumero);

// This computer's own, of the network cards that are up, without the loopback. Asked of the system's tables: it never
// blocks.
std::vector<std::string> direccionesPropias();

}  // namespace sorvanel
