#pragma once

#include <winsock2.h>
#include <ws2tcpip.h>

#include <string>
#include <string_view>
#include <utility>

#include "harness/sistema.h"

// The other ends of the program's links, played by hand.

namespace sorvanel::pruebas {

// Winsock for as long as it lives.
class Winsock : private SinCopia {
public:
    Winsock();
    ~Winsock() { WSACleanup(); }
};

// A datagram socket on this machine: an indicator that sends, or someone who holds a port.
class EmisorUDP : private SinCopia {
public:
    EmisorUDP();
    ~EmisorUDP() { closesocket(m_zocalo); }

    // One datagram to that port of this machine. Throws when the system refuses.
    void enviar(int puerto, std::string_view datos);
    // Takes a port for itself alone; false when it is taken.
    bool ocupar(int puerto);

private:
    SOCKET m_zocalo;
};

// So many ports, one after another, that nobody holds just now; the first of them.
int puertosLibres(int cuantos = 1);

// The concentrator, played by hand: a listener on this machine and the one client that it serves.
// Every wait ends with its condition, or false when the time is over.
class Concentrador : private SinCopia {
public:
    // Listens at this machine's own address of that family from now on; 0: on a port that the system chooses. Throws
    // when it cannot be had. Whoever connects is known to the system, and so not refused, before it is taken here.
    explicit Concentrador(int puerto = 0, int familia = AF_INET);
    // Goes as if its program had been killed: client and listener are cut off.
    ~Concentrador();

    int puerto() const { return m_puerto; }

    // Takes the next client that has connected, in place of the one so far.
    bool tomarCliente(int milisegundos = PLAZO);
    // One send. False when the client is gone.
    bool decir(std::string_view datos);
    // Reads until so many bytes have come; what has come so far if they do not.
    std::string oir(std::size_t cuantos, int milisegundos = PLAZO);
    // The client has closed its end; what it still said is lost.
    bool esperarDespedida(int milisegundos = PLAZO);
    // Greets clients until one answers as it should: a session in which readings may follow.
    bool abrirSesion(int milisegundos = PLAZO);
    // Closes the client's connection in good order; goes on listening.
    void despedir() { closesocket(std::exchange(m_cliente, INVALID_SOCKET)); }

private:
    SOCKET m_escucha;
    SOCKET m_cliente = INVALID_SOCKET;
    int m_puerto = 0;
};

// A port of this machine on which nobody listens.
int puertoTCPLibre();

// A whole reading line, ended as the concentrator ends it. The address is AABB; values shorter than
// their eight characters get zeros in front.
std::string lineaPavona(int direccion, const char* marcas, const std::string& primero,
                        const std::string& segundo = "0");

// A whole frame as an indicator sends it; the weight in thousandths.
std::string trama(int milesimas, const char* marcas = "XXX");

}  // namespace sorvanel::pruebas
