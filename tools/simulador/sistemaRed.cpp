#include <algorithm>
#include <array>
#include <cstring>
#include <map>
#include <utility>

#include "simulador/sistema.h"
#include "simulador/sistemaZocalo.h"

namespace sorvanel::simulador {

namespace {

class ZocaloPropio {
public:
    explicit ZocaloPropio(Zocalo zocalo = SINZOCALO) : m_zocalo(zocalo) {}
    ~ZocaloPropio() {
        if (m_zocalo != SINZOCALO) cerrarZocalo(m_zocalo);
    }
    ZocaloPropio(ZocaloPropio&& otro) noexcept : m_zocalo(std::exchange(otro.m_zocalo, SINZOCALO)) {}
    ZocaloPropio& operator=(ZocaloPropio&& otro) noexcept {
        std::swap(m_zocalo, otro.m_zocalo);
        return *this;
    }
    Zocalo zocalo() const { return m_zocalo; }
    bool hay() const { return m_zocalo != SINZOCALO; }

private:
    Zocalo m_zocalo;
};

template <class Valor>
void poner(Zocalo zocalo, int nivel, int opcion, const Valor& valor) {
    setsockopt(zocalo, nivel, opcion, reinterpret_cast<const char*>(&valor), sizeof valor);
}

std::string textoDireccion(const sockaddr* direccion, socklen_t largo) {
    std::array<char, 64> host{};
    std::array<char, 16> puerto{};
    if (getnameinfo(direccion, largo, host.data(), static_cast<socklen_t>(host.size()), puerto.data(),
                    static_cast<socklen_t>(puerto.size()), NI_NUMERICHOST | NI_NUMERICSERV) != 0)
        return "?";
    const std::string texto = direccion->sa_family == AF_INET6 ? "[" + std::string(host.data()) + "]" : host.data();
    return texto + ":" + puerto.data();
}

class RedZocalos : public Red {
public:
    RedZocalos(std::vector<std::string> escucha, std::uint16_t puerto)
        : m_escucha(std::move(escucha)), m_puerto(puerto) {}

    std::string escuchar() override {
        m_oyentes.clear();
        m_donde.clear();
        for (const auto& host : m_escucha) {
            std::string motivo = escuchar(host, m_oyentes.empty());
            if (motivo.empty()) continue;
            m_oyentes.clear();
            return motivo;
        }
        return {};
    }
    void dejarDeEscuchar() override { m_oyentes.clear(); }
    std::string donde() const override { return m_donde; }

    void esperar(Instante cuanto, bool acepta, std::vector<Suceso>& sucesos) override {
        m_sondeos.clear();
        if (acepta)
            for (const auto& oyente : m_oyentes) m_sondeos.push_back({oyente.zocalo(), POLLIN, 0});
        const std::size_t oyentes = m_sondeos.size();
        m_numeros.clear();
        for (const auto& [numero, conexion] : m_conexiones) {
            const int interes = conexion.quiereEnviar ? POLLIN | POLLOUT : POLLIN;
            m_sondeos.push_back({conexion.zocalo.zocalo(), static_cast<short>(interes), 0});
            m_numeros.push_back(numero);
        }
        // Rounded up: too early would be a turn for nothing.
        constexpr Instante MILISEGUNDO = std::chrono::milliseconds{1};
        sondear(m_sondeos, static_cast<int>((cuanto + MILISEGUNDO - Instante{1}) / MILISEGUNDO));
        for (std::size_t i = oyentes; i < m_sondeos.size(); ++i)
            if (m_sondeos[i].revents != 0) atender(m_numeros[i - oyentes], m_sondeos[i].revents, sucesos);
        for (std::size_t i = 0; i < oyentes; ++i)
            if (m_sondeos[i].revents != 0) aceptar(m_sondeos[i].fd, sucesos);
    }

    std::size_t enviar(std::int64_t numero, std::string_view datos) override {
        const auto hallada = m_conexiones.find(numero);
        if (hallada == m_conexiones.end() || hallada->second.rota) return 0;
        Conexion& conexion = hallada->second;
        const auto enviados =
            send(conexion.zocalo.zocalo(), datos.data(), static_cast<LargoDatos>(datos.size()), SINSENAL);
        // What fails for another reason is told by the next wait: the connection can be read to its end.
        if (enviados < 0 && clase(ultimoError()) != ErrorZocalo::Espera) conexion.rota = true;
        const std::size_t cuantos = enviados > 0 ? static_cast<std::size_t>(enviados) : 0;
        conexion.quiereEnviar = !conexion.rota && cuantos < datos.size();
        return cuantos;
    }

    void cerrar(std::int64_t numero) override { m_conexiones.erase(numero); }

    void reiniciar(std::int64_t numero) override {
        const auto hallada = m_conexiones.find(numero);
        if (hallada == m_conexiones.end()) return;
        poner(hallada->second.zocalo.zocalo(), SOL_SOCKET, SO_LINGER, linger{1, 0});
        m_conexiones.erase(hallada);
    }

private:
    struct Conexion {
        ZocaloPropio zocalo;
        bool quiereEnviar = false;
        bool rota = false;
    };

    std::string escuchar(const std::string& host, bool imprescindible) {
        addrinfo filtro{};
        filtro.ai_family = AF_UNSPEC;
        filtro.ai_socktype = SOCK_STREAM;
        filtro.ai_flags = AI_PASSIVE;
        addrinfo* respuesta = nullptr;
        if (getaddrinfo(host.c_str(), nullptr, &filtro, &respuesta) != 0)
            return imprescindible ? "no se encuentra «" + host + "»" : std::string();
        const std::unique_ptr<addrinfo, decltype(&freeaddrinfo)> dueno(respuesta, freeaddrinfo);
        for (const addrinfo* una = respuesta; una != nullptr; una = una->ai_next) {
            const int error = escuchar(*una);
            if (error == 0 || (!imprescindible && clase(error) == ErrorZocalo::SinFamilia)) continue;
            const bool enUso = clase(error) == ErrorZocalo::EnUso;
            return "no se puede escuchar en el puerto " + std::to_string(m_puerto) + " de «" + host +
                   "»: " + (enUso ? "está en uso" : textoError(error));
        }
        return {};
    }

    // 0, or the error.
    int escuchar(const addrinfo& donde) {
        ZocaloPropio oyente(socket(donde.ai_family, SOCK_STREAM, IPPROTO_TCP));
        if (!oyente.hay()) return ultimoError();
        const Zocalo zocalo = oyente.zocalo();
        // Each family has a socket of its own, whatever this system does by itself.
        if (donde.ai_family == AF_INET6) poner(zocalo, IPPROTO_IPV6, IPV6_V6ONLY, 1);
        reservarPuerto(zocalo);
        sockaddr_storage propia{};
        auto largo = static_cast<socklen_t>(donde.ai_addrlen);
        std::memcpy(&propia, donde.ai_addr, donde.ai_addrlen);
        // Both families have it in the same place.
        reinterpret_cast<sockaddr_in*>(&propia)->sin_port = htons(m_puerto);
        auto* const direccion = reinterpret_cast<sockaddr*>(&propia);
        if (!sinEsperas(zocalo) || bind(zocalo, direccion, largo) != 0 || listen(zocalo, SOMAXCONN) != 0 ||
            getsockname(zocalo, direccion, &largo) != 0)
            return ultimoError();
        m_puerto = ntohs(reinterpret_cast<sockaddr_in*>(&propia)->sin_port);
        m_donde += (m_donde.empty() ? "" : ", ") + textoDireccion(direccion, largo);
        m_oyentes.push_back(std::move(oyente));
        return 0;
    }

    void aceptar(Zocalo oyente, std::vector<Suceso>& sucesos) {
        sockaddr_storage quien{};
        socklen_t largo = sizeof quien;
        ZocaloPropio zocalo(accept(oyente, reinterpret_cast<sockaddr*>(&quien), &largo));
        if (!zocalo.hay() || !sinEsperas(zocalo.zocalo())) return;
        // Pieces are to arrive as pieces.
        poner(zocalo.zocalo(), IPPROTO_TCP, TCP_NODELAY, 1);
        const std::int64_t numero = ++m_ultima;
        m_conexiones.emplace(numero, Conexion{.zocalo = std::move(zocalo)});
        sucesos.push_back({Suceso::Tipo::Llega, numero, textoDireccion(reinterpret_cast<sockaddr*>(&quien), largo)});
    }

    void atender(std::int64_t numero, int que, std::vector<Suceso>& sucesos) {
        Conexion& conexion = m_conexiones.at(numero);
        if ((que & ~POLLOUT) != 0) {
            std::array<char, 4096> datos{};
            const auto leidos = recv(conexion.zocalo.zocalo(), datos.data(), static_cast<LargoDatos>(datos.size()), 0);
            if (leidos > 0) {
                sucesos.push_back(
                    {Suceso::Tipo::Datos, numero, std::string(datos.data(), static_cast<std::size_t>(leidos))});
            } else if (leidos == 0 || clase(ultimoError()) != ErrorZocalo::Espera) {
                m_conexiones.erase(numero);
                sucesos.push_back({Suceso::Tipo::SeVa, numero, {}});
                return;
            }
        }
        if ((que & POLLOUT) != 0) {
            conexion.quiereEnviar = false;
            sucesos.push_back({Suceso::Tipo::Cabe, numero, {}});
        }
    }

    ArranqueRed m_arranque;  // first made, last undone
    std::vector<std::string> m_escucha;
    std::uint16_t m_puerto;
    std::string m_donde;
    std::vector<ZocaloPropio> m_oyentes;
    std::map<std::int64_t, Conexion> m_conexiones;
    std::int64_t m_ultima = 0;
    std::vector<Sondeo> m_sondeos;
    std::vector<std::int64_t> m_numeros;
};

}  // namespace

std::unique_ptr<Red> crearRed(const std::vector<std::string>& escucha, std::uint16_t puerto) {
    return std::make_unique<RedZocalos>(escucha, puerto);
}

}  // namespace sorvanel::simulador
