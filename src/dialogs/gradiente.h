#pragma once

#include "platform/color.h"
#include "platform/superficie.h"

namespace sorvanel {

enum class ModoGradiente { vertical, horizontal };

// Fills a surface from a light tone to a darker one, in bands: one painted box a band.
class Gradiente {
public:
    static constexpr int GRADO_MAXIMO = 64;
    static constexpr int PROFUNDIDAD_MAXIMA = 100;

    // Bands, 1 to GRADO_MAXIMO; clamped.
    int Grado() const { return m_grado; }
    void Grado(int bandas);
    // How far the last band goes from the light tone to the dark one, percent; clamped.
    int Profundidad() const { return m_profundidad; }
    void Profundidad(int porCiento);
    ModoGradiente modo() const { return m_modo; }
    void modo(ModoGradiente modo) { m_modo = modo; }
    // The tone of the first band.
    Color colorAclarado() const { return m_aclarado; }
    void colorAclarado(Color color) { m_aclarado = colorPintable(color); }
    // The tone that a depth of 100 reaches.
    Color color() const { return m_color; }
    void color(Color color) { m_color = colorPintable(color); }

    // The whole surface, in the direction that modo() says.
    void PintarGradiente(Superficie& destino) const;
    // From top to bottom, whatever modo() says.
    void PintarGradienteVertical(Superficie& destino) const;
    // A thin line along the inside of the surface's edge.
    void PintarContorno(Superficie& destino) const;

private:
    Color tono(int banda) const;
    void pintar(Superficie& destino, ModoGradiente modo) const;

    int m_grado = 16;
    int m_profundidad = PROFUNDIDAD_MAXIMA;
    ModoGradiente m_modo = ModoGradiente::vertical;
    Color m_aclarado = rgb(0xFA, 0xFB, 0xFC);
    Color m_color = rgb(0xDA, 0xE1, 0xE8);
};

}  // namespace sorvanel
