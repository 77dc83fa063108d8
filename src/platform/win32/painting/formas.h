#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <numbers>
#include <span>

#include "platform/geometria.h"

// Shapes as distances: each function says how far a point lies from a shape's edge, negative
// inside. A union is the smaller of two distances, a difference the larger of one and the other's
// negative. From the distance of a pixel's centre follows how much of the pixel is covered: that is
// what makes edges smooth, alike on every system and at every size.
namespace sorvanel::formas {

// Lengths of the screen are far from any overflow: hypot's care would cost most of the time.
inline float largo(float x, float y) {
    return std::sqrt(x * x + y * y);
}

inline float a(Punto p, Punto q) {
    return largo(p.x - q.x, p.y - q.y);
}

// The square of the distance to a line between two points.
inline float aSegmento2(Punto p, Punto desde, Punto hasta) {
    const float dx = hasta.x - desde.x, dy = hasta.y - desde.y;
    const float px = p.x - desde.x, py = p.y - desde.y;
    const float base = dx * dx + dy * dy;
    const float parte = base > 0 ? std::clamp((px * dx + py * dy) / base, 0.0F, 1.0F) : 0.0F;
    const float x = px - parte * dx, y = py - parte * dy;
    return x * x + y * y;
}

// Less half of its thickness, a stroke with round ends.
inline float aSegmento(Punto p, Punto desde, Punto hasta) {
    return std::sqrt(aSegmento2(p, desde, hasta));
}

inline float aLinea(Punto p, std::span<const Punto> puntos) {
    float menor = aSegmento2(p, puntos.front(), puntos.front());
    for (std::size_t i = 1; i < puntos.size(); ++i) menor = std::min(menor, aSegmento2(p, puntos[i - 1], puntos[i]));
    return std::sqrt(menor);
}

// To a closed polygon, whichever way round its corners are told; what it crosses twice is outside.
inline float aPoligono(Punto p, std::span<const Punto> puntos) {
    bool dentro = false;
    float menor = aSegmento2(p, puntos.front(), puntos.front());
    Punto anterior = puntos.back();
    for (const Punto& punto : puntos) {
        menor = std::min(menor, aSegmento2(p, anterior, punto));
        if ((punto.y > p.y) != (anterior.y > p.y) &&
            p.x < punto.x + (anterior.x - punto.x) * (p.y - punto.y) / (anterior.y - punto.y)) {
            dentro = !dentro;
        }
        anterior = punto;
    }
    return dentro ? -std::sqrt(menor) : std::sqrt(menor);
}

inline float aRedondeado(Punto p, const Rectangulo& r, float radio) {
    const float semiancho = r.ancho / 2, semialto = r.alto / 2;
    const float esquina = std::clamp(radio, 0.0F, std::min(semiancho, semialto));
    const float dx = std::abs(p.x - r.x - semiancho) - semiancho + esquina;
    const float dy = std::abs(p.y - r.y - semialto) - semialto + esquina;
    const float fuera = largo(std::max(dx, 0.0F), std::max(dy, 0.0F));
    return fuera + std::min(std::max(dx, dy), 0.0F) - esquina;
}

// To a circle's line, open at the top by so many degrees to either side.
inline float aArcoAbierto(Punto p, Punto centro, float radio, float grados) {
    const float angulo = grados * std::numbers::pi_v<float> / 180;
    const float x = std::abs(p.x - centro.x), y = centro.y - p.y;
    if (std::atan2(x, y) >= angulo) return std::abs(largo(x, y) - radio);
    return a({x, y}, {radio * std::sin(angulo), radio * std::cos(angulo)});
}

// The covered share of a pixel, 0 to 256, whose centre has that distance in pixels.
inline std::uint32_t cobertura(float distancia) {
    return static_cast<std::uint32_t>(std::lround(std::clamp(0.5F - distancia, 0.0F, 1.0F) * 256));
}

// How many pixels of the same row, this one included, are surely as this one is: all free or all
// covered. No edge can come nearer than a pixel a step.
inline std::int32_t iguales(float distancia) {
    return std::max(static_cast<std::int32_t>(std::lround(std::abs(distancia))), std::int32_t{1});
}

// One pixel, 0x00RRGGBB, after `parte` (0 to 256) of it was painted over.
inline std::uint32_t mezclar(std::uint32_t debajo, std::uint32_t encima, std::uint32_t parte) {
    std::uint32_t resultado = 0;
    for (const int bits : {0, 8, 16}) {
        const std::uint32_t b = debajo >> bits & 0xFF, e = encima >> bits & 0xFF;
        resultado |= (b * (256 - parte) + e * parte + 128) >> 8 << bits;
    }
    return resultado;
}

}  // namespace sorvanel::formas
