#include "platform/win32/network/direccionesWin.h"

#include <algorithm>
#include <cstring>
#include <memory>

#include "platform/win32/base/textoWin.h"

namespace sorvanel {

void Direccion::puerto(std::uint16_t puerto) {
    const std::uint16_t enRed = htons(puerto);
    if (familia() == AF_INET6) {
        reinterpret_cast<sockaddr_in6*>(&datos)->sin6_port = enRed;
    } else {
        reinterpret_cast<sockaddr_in*>(&datos)->sin_port = enRed;
    }
}

bool Direccion::interna() const {
    constexpr std::uint32_t RED_INTERNA = 127;  // its first byte
    if (familia() == AF_INET6) return IN6_IS_ADDR_LOOPBACK(&reinterpret_cast<const sockaddr_in6*>(&datos)->sin6_addr);
    return ntohl(reinterpret_cast<const sockaddr_in*>(&datos)->sin_addr.s_addr) >> 24U == RED_INTERNA;
}

Direcciones buscarDirecciones(const std::string& host, bool soloNumero) {
    ADDRINFOW deseo{};
    deseo.ai_family = AF_UNSPEC;
    deseo.ai_socktype = SOCK_STREAM;
    deseo.ai_protocol = IPPROTO_TCP;
    deseo.ai_flags = soloNumero ? AI_NUMERICHOST : 0;
    ADDRINFOW* primera = nullptr;
    if (GetAddrInfoW(aAncho(host).c_str(), nullptr, &deseo, &primera) != 0) return {};
    const std::unique_ptr<ADDRINFOW, void (*)(ADDRINFOW*)> lista(primera, [](ADDRINFOW* una) { FreeAddrInfoW(una); });

    Direcciones direcciones;
    for (const ADDRINFOW* una = primera; una; una = una->ai_next) {
        if (una->ai_family != AF_INET && una->ai_family != AF_INET6) continue;
        if (una->ai_addrlen > sizeof(sockaddr_storage)) continue;
        Direccion direccion;
        std::memcpy(&direccion.datos, una->ai_addr, una->ai_addrlen);
        direccion.tamano = static_cast<int>(una->ai_addrlen);
        direcciones.push_back(direccion);
    }
    std::stable_partition(direcciones.begin(), direcciones.end(),
                          [](const Direccion& una) { return una.familia() == AF_INET; });
    return direcciones;
}

}  // namespace sorvanel
