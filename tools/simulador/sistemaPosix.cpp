#include <fcntl.h>
#include <netdb.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <ctime>
#include <map>

#include "simulador/sistema.h"
#include "simulador/sistemaZocalo.h"

namespace sorvanel::simulador {

namespace {

// A signal handler is handed nothing, so this has to be found without it.
volatile std::sig_atomic_t g_finPedido = 0;

constexpr std::array SENALES = {SIGINT, SIGTERM, SIGHUP};

class RelojPosix : public Reloj {
public:
    Instante ahora() override {
        timespec hora{};
        clock_gettime(CLOCK_MONOTONIC, &hora);
        return std::chrono::seconds{hora.tv_sec} + Instante{hora.tv_nsec};
    }

    void esperarHasta(Instante instante) override {
        // In slices: a signal that comes just before the sleep does not cut it short.
        constexpr Instante REBANADA = std::chrono::milliseconds{100};
        while (!finPedido()) {
            const Instante falta = instante - ahora();
            if (falta <= Instante{0}) return;
            const timespec espera{0, static_cast<long>(std::min(falta, REBANADA).count())};
            nanosleep(&espera, nullptr);
        }
    }

    bool finPedido() override { return g_finPedido != 0; }
};

sockaddr_in direccion(const std::string& host) {
    addrinfo filtro{};
    filtro.ai_family = AF_INET;
    filtro.ai_socktype = SOCK_DGRAM;
    addrinfo* respuesta = nullptr;
    if (const int error = getaddrinfo(host.c_str(), nullptr, &filtro, &respuesta); error != 0)
        throw ErrorSistema("no se encuentra el equipo «" + host + "» (" + gai_strerror(error) + ")");
    const std::unique_ptr<addrinfo, decltype(&freeaddrinfo)> dueno(respuesta, freeaddrinfo);
    sockaddr_in hallada{};
    std::memcpy(&hallada, respuesta->ai_addr, sizeof hallada);
    return hallada;
}

class EmisorPosix : public Emisor {
public:
    explicit EmisorPosix(const std::vector<Destino>& destinos) {
        std::map<std::string, sockaddr_in> conocidas;
        for (const auto& destino : destinos) {
            auto conocida = conocidas.find(destino.host);
            if (conocida == conocidas.end()) conocida = conocidas.emplace(destino.host, direccion(destino.host)).first;
            m_direcciones.push_back(conocida->second);
            m_direcciones.back().sin_port = htons(destino.puerto);
        }
        m_zocalo = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
        if (m_zocalo < 0) throw ErrorSistema(std::string("no se puede abrir la red: ") + std::strerror(errno));
    }
    ~EmisorPosix() override { close(m_zocalo); }
    EmisorPosix(const EmisorPosix&) = delete;
    EmisorPosix& operator=(const EmisorPosix&) = delete;

    bool enviar(std::size_t indicador, std::string_view datos) override {
        const sockaddr_in& destino = m_direcciones[indicador];
        ssize_t enviados = -1;
        do {
            enviados = sendto(m_zocalo, datos.data(), datos.size(), 0, reinterpret_cast<const sockaddr*>(&destino),
                              sizeof destino);
        } while (enviados < 0 && errno == EINTR);
        return enviados == static_cast<ssize_t>(datos.size());
    }

private:
    std::vector<sockaddr_in> m_direcciones;
    int m_zocalo = -1;
};

}  // namespace

Consola::Consola() {
    struct sigaction accion {};
    accion.sa_handler = [](int) { g_finPedido = 1; };
    for (const int senal : SENALES) sigaction(senal, &accion, nullptr);
}

Consola::~Consola() {
    for (const int senal : SENALES) std::signal(senal, SIG_DFL);
}

std::vector<std::string> argumentos(int cuantos, char** valores) {
    return cuantos > 1 ? std::vector<std::string>(valores + 1, valores + cuantos) : std::vector<std::string>{};
}

std::unique_ptr<Reloj> crearReloj() {
    return std::make_unique<RelojPosix>();
}

std::unique_ptr<Emisor> crearEmisorUDP(const std::vector<Destino>& destinos) {
    return std::make_unique<EmisorPosix>(destinos);
}

ArranqueRed::ArranqueRed() = default;

ArranqueRed::~ArranqueRed() = default;

int ultimoError() {
    return errno;
}

ErrorZocalo clase(int error) {
    switch (error) {
        case EAGAIN:
        case EINTR:
            return ErrorZocalo::Espera;
        case EADDRINUSE:
            return ErrorZocalo::EnUso;
        case EAFNOSUPPORT:
        case EADDRNOTAVAIL:
            return ErrorZocalo::SinFamilia;
        default:
            return ErrorZocalo::Otro;
    }
}

std::string textoError(int error) {
    return std::strerror(error);
}

void cerrarZocalo(Zocalo zocalo) {
    close(zocalo);
}

bool sinEsperas(Zocalo zocalo) {
    return fcntl(zocalo, F_SETFD, FD_CLOEXEC) == 0 && fcntl(zocalo, F_SETFL, fcntl(zocalo, F_GETFL) | O_NONBLOCK) == 0;
}

void reservarPuerto(Zocalo zocalo) {
    const int si = 1;
    setsockopt(zocalo, SOL_SOCKET, SO_REUSEADDR, &si, sizeof si);
}

void sondear(std::vector<Sondeo>& sondeos, int milisegundos) {
    for (auto& sondeo : sondeos) sondeo.revents = 0;
    if (poll(sondeos.data(), sondeos.size(), milisegundos) < 0)
        for (auto& sondeo : sondeos) sondeo.revents = 0;
}

}  // namespace sorvanel::simulador
