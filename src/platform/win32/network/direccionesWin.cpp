#include "platform/win32/network/direccionesWin.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <span>
#include <string_view>
#include <utility>

#include "platform/direccionIP.h"
#include "platform/win32/base/manejadoresNucleo.h"
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

std::vector<std::string> direccionesPropias() {
    // A card that nobody gave an address to takes one of these: no indicator sends there while there is a real one.
    constexpr std::string_view SIN_ASIGNAR = "169.254.";
    const SocketWin socket(::socket(AF_INET, SOCK_DGRAM, IPPROTO_UDP));
    std::array<INTERFACE_INFO, 64> tarjetas{};
    DWORD bytes = 0;
    if (!socket || WSAIoctl(socket.get(), SIO_GET_INTERFACE_LIST, nullptr, 0, tarjetas.data(), sizeof tarjetas, &bytes,
                            nullptr, nullptr) != 0) {
        return {};
    }
    std::vector<std::string> direcciones, provisionales;
    for (const INTERFACE_INFO& una : std::span(tarjetas).first(bytes / sizeof(INTERFACE_INFO))) {
        const bool sirve = (una.iiFlags & IFF_UP) != 0 && (una.iiFlags & IFF_LOOPBACK) == 0;
        if (!sirve || una.iiAddress.AddressIn.sin_addr.s_addr == 0) continue;
        std::string texto = textoDireccionIP(ntohl(una.iiAddress.AddressIn.sin_addr.s_addr));
        auto& suyas = texto.starts_with(SIN_ASIGNAR) ? provisionales : direcciones;
        if (std::find(suyas.begin(), suyas.end(), texto) == suyas.end()) suyas.push_back(std::move(texto));
    }
    return direcciones.empty() ? provisionales : direcciones;
}

}  // namespace sorvanel
