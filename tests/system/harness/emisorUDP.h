#pragma once

#include <winsock2.h>

#include <string_view>

namespace sorvanel::pruebas {

// Winsock for as long as it lives.
class Winsock {
public:
    Winsock();
    ~Winsock();
    Winsock(const Winsock&) = delete;
    Winsock& operator=(const Winsock&) = delete;
};

// A datagram socket on this machine: an indicator that sends, or someone who holds a port.
class EmisorUDP {
public:
    EmisorUDP();
    ~EmisorUDP();
    EmisorUDP(const EmisorUDP&) = delete;
    EmisorUDP& operator=(const EmisorUDP&) = delete;

    // One datagram to that port of this machine. Throws when the system refuses.
    void enviar(int puerto, std::string_view datos);
    // Takes a port for itself alone; false when it is taken.
    bool ocupar(int puerto);

private:
    SOCKET m_zocalo;
};

// So many ports, one after another, that nobody holds just now; the first of them.
int puertosLibres(int cuantos = 1);

}  // namespace sorvanel::pruebas
