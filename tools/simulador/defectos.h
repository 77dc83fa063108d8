#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace sorvanel::simulador {

// What can be wrong with a `Tessel` frame.
enum class ClaseTrama { Letras, Signo, Corta, Larga, Cifras };

constexpr std::array<std::string_view, 5> CLASESTRAMA = {"letras", "signo", "corta", "larga", "cifras"};

// Each comes before (or to) every so many frames of an indicator; 0 is never.
struct DefectosTrama {
    std::int64_t malas = 0;
    std::vector<ClaseTrama> clases;  // in turn; not empty where `malas` is above 0
    std::int64_t basura = 0;
    std::int64_t partir = 0;  // in two datagrams
    std::int64_t juntar = 1;  // good frames in each datagram
};

// `trama` is a good frame with its carriage return, which stays; the rest is no longer a frame.
std::string tramaMala(ClaseTrama clase, std::string_view trama, std::uint64_t azar);

// Up to 64 bytes of any value, carriage returns among them, that end in one (or none at all) and hold no
// frame or line of either family: what follows stays whole.
std::string basura(std::uint64_t azar);

// Whether number `numero`, from 0, is one of those that come each `cada`.
constexpr bool toca(std::int64_t numero, std::int64_t cada) {
    return cada > 0 && numero % cada == cada - 1;
}

}  // namespace sorvanel::simulador
