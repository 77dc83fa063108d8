#pragma once

#include <windows.h>

#include <cstdint>
#include <vector>

namespace sorvanel::medidas {

// How a strip of text moves to the left, as its pixels on the screen tell: each look is laid over the one before, and
// the shift by which they agree is what it moved. Looks at an empty strip tell nothing and are left out.
class Desplazamiento {
public:
    explicit Desplazamiento(const RECT& zona) : m_zona(zona) {}

    void mirar();

    double pixelesPorSegundo() const { return m_segundos > 0 ? static_cast<double>(m_pixeles) / m_segundos : 0; }
    // Longest time between two looks that saw it moved since the look before, milliseconds.
    double peorPausa() const { return m_peorPausa; }
    double segundos() const { return m_segundos; }  // for which it could be followed
    // Looks that no shift explains: the text jumped, or stood anew.
    int sinCasar() const { return m_sinCasar; }

private:
    using Columnas = std::vector<std::uint32_t>;

    Columnas columnas() const;
    void perder();

    RECT m_zona;
    Columnas m_antes;
    double m_instante = 0;
    double m_ultimoPaso = -1;
    double m_segundos = 0;
    double m_peorPausa = 0;
    long m_pixeles = 0;
    int m_sinCasar = 0;
};

}  // namespace sorvanel::medidas
