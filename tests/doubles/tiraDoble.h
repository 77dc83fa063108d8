#pragma once

#include <algorithm>
#include <cmath>
#include <utility>

#include "doubles/superficieDoble.h"

namespace sorvanel {

// A surface that also keeps its picture, as one row of pixels: what stands in each since its ground was painted last.
// Of a letter that is which part of it.
class TiraDoble : public SuperficieDoble {
public:
    std::vector<std::string> puntos = std::vector<std::string>(1200);
    double impresos = 0;  // pixels of letters

    void limpiar() override {
        SuperficieDoble::limpiar();
        puntos.assign(puntos.size(), "#" + std::to_string(colorFondo()));
    }
    void caja(const Rectangulo& zona, Color color) override {
        SuperficieDoble::caja(zona, color);
        const bool fondo = color == colorFondo();
        anotar(zona.x, zona.derecha(), (fondo ? "" : lineas().back()) + "#" + std::to_string(color), fondo);
        // A line that is covered in its whole width, but not in its height, would be painted under the next for ever.
        if (m_linea.ancho > 0 && zona.x <= m_linea.x && zona.derecha() >= m_linea.derecha() &&
            (zona.y > m_linea.y || zona.abajo() < m_linea.abajo()))
            anotar(0, 15, "remains", false);
    }
    void poligono(std::span<const Punto> vertices, Color color) override {
        SuperficieDoble::poligono(vertices, color);
        anotar(vertices[0].x, vertices[1].x, lineas().back(), false);
    }
    void imprimir(float x, float y, std::string_view texto, Color color) override {
        SuperficieDoble::imprimir(x, y, texto, color);
        letras(TODA, x, texto, color);
        const float arriba = std::max(y, 0.0F), abajo = std::min(y + medir(texto).alto, lugar().alto);
        m_linea = {x, arriba, medir(texto).ancho, abajo - arriba};
    }
    void imprimirEn(const Rectangulo& zona, float x, float y, std::string_view texto, Color color) override {
        SuperficieDoble::imprimirEn(zona, x, y, texto, color);
        letras(zona, x, texto, color);
        const MedidaTexto m = medir(texto);
        if (zona.y > y + m.tintaSuperior || zona.abajo() < y + m.tintaInferior)
            anotar(zona.x, zona.derecha(), "cut", false);
    }
    void cambiarTexto(const Rectangulo& zona, Color fondo, float x, float y, std::string_view texto,
                      Color color) override {
        const Rectangulo linea = std::exchange(m_linea, {});  // it stays the one that stands there
        SuperficieDoble::cambiarTexto(zona, fondo, x, y, texto, color);
        m_linea = linea;
    }
    void desplazar(float twips) override {
        SuperficieDoble::desplazar(twips);
        puntos.erase(puntos.begin(), puntos.begin() + static_cast<std::ptrdiff_t>(pixelDe(twips)));
        puntos.resize(1200, "#" + std::to_string(colorFondo()));
    }

private:
    Rectangulo m_linea;  // printed last
    static constexpr Rectangulo TODA{0, 0, 1200 * TWIPS_POR_PIXEL, 1e9F};

    static std::size_t pixelDe(float twips) {
        return static_cast<std::size_t>(std::max(std::lround(twips / TWIPS_POR_PIXEL), 0L));
    }
    void anotar(float desde, float hasta, const std::string& que, bool encima) {
        for (std::size_t p = pixelDe(desde); p < pixelDe(hasta); ++p) puntos.at(p) = encima ? que : puntos[p] + que;
    }
    void letras(const Rectangulo& zona, float x, std::string_view texto, Color color) {
        for (const char letra : texto) {
            const float ancho = medir({&letra, 1}).ancho;
            for (std::size_t p = pixelDe(std::max(x, zona.x)); p < pixelDe(std::min(x + ancho, zona.derecha())); ++p) {
                puntos.at(p) += letra + std::to_string(std::lround(static_cast<float>(p) - x / TWIPS_POR_PIXEL)) + "/" +
                                std::to_string(fuente().alto) + "#" + std::to_string(color);
                ++impresos;
            }
            x += ancho;
        }
    }
};

}  // namespace sorvanel
