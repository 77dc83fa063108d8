#pragma once

#include <charconv>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace sorvanel {

// An IPv4 address, its first byte the highest; 0: none.
using DireccionIP = std::uint32_t;

// "192.168.1.40".
inline std::string textoDireccionIP(DireccionIP ip) {
    std::string texto;
    for (unsigned bit = 32; bit > 0; bit -= 8)
        texto.append(texto.empty() ? "" : ".").append(std::to_string(ip >> (bit - 8) & 0xFFU));
    return texto;
}

// That text and nothing else: four decimal numbers, also with zeros in front, as many an instrument shows them. Only
// what a computer can have for its own: nothing below 1.0.0.0, nor from 224.0.0.0 on.
inline std::optional<DireccionIP> leerDireccionIP(std::string_view texto) {
    constexpr DireccionIP PRIMERA = 0x01000000, TOPE = 0xE0000000;
    DireccionIP ip = 0;
    const char *aqui = texto.data(), *const fin = aqui + texto.size();
    for (int parte = 0; parte < 4; ++parte) {
        if (parte > 0 && (aqui == fin || *aqui++ != '.')) return std::nullopt;
        std::uint8_t byte = 0;
        const auto leido = std::from_chars(aqui, fin, byte);
        if (leido.ec != std::errc()) return std::nullopt;
        aqui = leido.ptr;
        ip = ip << 8U | byte;
    }
    return aqui == fin && ip >= PRIMERA && ip < TOPE ? std::optional(ip) : std::nullopt;
}

}  // namespace sorvanel
