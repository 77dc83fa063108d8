#pragma once

#include <cstdint>

namespace sorvanel {

// A Windows colour reference, 0x00BBGGRR. A negative value is never painted; it marks
// "transparent" where a property says so.
using Color = std::int32_t;

constexpr Color rgb(int rojo, int verde, int azul) {
    return rojo | verde << 8 | azul << 16;
}

constexpr Color NEGRO = rgb(0, 0, 0);
constexpr Color BLANCO = rgb(255, 255, 255);
constexpr Color ROJO = rgb(255, 0, 0);

// What a file holds may be larger than a colour: only 24 bits ever reach the painter.
constexpr Color colorPintable(Color color) {
    return color & 0xFFFFFF;
}

}  // namespace sorvanel
