#pragma once

#ifdef _WIN32
// clang-format off
#include <winsock2.h>
#include <ws2tcpip.h>
// clang-format on
#else
#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#endif

#include <cstdint>
#include <string>
#include <vector>

// What the systems' sockets call by different names, for sistemaRed.cpp.
namespace sorvanel::simulador {

#ifdef _WIN32
using Zocalo = SOCKET;
using Sondeo = WSAPOLLFD;
using LargoDatos = int;
constexpr Zocalo SINZOCALO = INVALID_SOCKET;
constexpr int SINSENAL = 0;
#else
using Zocalo = int;
using Sondeo = pollfd;
using LargoDatos = std::size_t;
constexpr Zocalo SINZOCALO = -1;
constexpr int SINSENAL = MSG_NOSIGNAL;
#endif

// The network is up as long as one lives.
class ArranqueRed {
public:
    ArranqueRed();
    // NOLINTNEXTLINE(performance-trivially-destructible): trivial only where no network must be ended
    ~ArranqueRed();
    ArranqueRed(const ArranqueRed&) = delete;
    ArranqueRed& operator=(const ArranqueRed&) = delete;
};

enum class ErrorZocalo { Otro, Espera, EnUso, SinFamilia };

// Of the call that has just failed in this thread.
int ultimoError();
ErrorZocalo clase(int error);
std::string textoError(int error);

void cerrarZocalo(Zocalo zocalo);
// No call on it waits, and no child process has it.
bool sinEsperas(Zocalo zocalo);
// Nobody else may have the port, but what is left of past connections is no hindrance.
void reservarPuerto(Zocalo zocalo);
// Waits at most `milisegundos`, less if the user asks for the end.
void sondear(std::vector<Sondeo>& sondeos, int milisegundos);

}  // namespace sorvanel::simulador
