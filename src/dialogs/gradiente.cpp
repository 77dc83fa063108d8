#include "dialogs/gradiente.h"

#include <algorithm>
#include <array>

namespace sorvanel {

namespace {

constexpr Color COLOR_CONTORNO = rgb(0x8E, 0x9C, 0xAA);

// One channel of a colour, `parte` of `total` of the way from one to the other.
int mezclar(int desde, int hasta, int parte, int total) {
    return desde + (hasta - desde) * parte / total;
}

}  // namespace

void Gradiente::Grado(int bandas) {
    m_grado = std::clamp(bandas, 1, GRADO_MAXIMO);
}

void Gradiente::Profundidad(int porCiento) {
    m_profundidad = std::clamp(porCiento, 0, PROFUNDIDAD_MAXIMA);
}

Color Gradiente::tono(int banda) const {
    const int total = std::max(m_grado - 1, 1) * PROFUNDIDAD_MAXIMA;
    const int parte = banda * m_profundidad;
    const auto canal = [&](int bits) {
        return mezclar(m_aclarado >> bits & 0xFF, m_color >> bits & 0xFF, parte, total);
    };
    return rgb(canal(0), canal(8), canal(16));
}

void Gradiente::pintar(Superficie& destino, ModoGradiente modo) const {
    const Rectangulo lugar = destino.lugar();
    const bool vertical = modo == ModoGradiente::vertical;
    const float largo = vertical ? lugar.alto : lugar.ancho;
    for (int i = 0; i < m_grado; ++i) {
        const float desde = largo * static_cast<float>(i) / static_cast<float>(m_grado);
        const float hasta = largo * static_cast<float>(i + 1) / static_cast<float>(m_grado);
        destino.caja(vertical ? Rectangulo{0, desde, lugar.ancho, hasta - desde}
                              : Rectangulo{desde, 0, hasta - desde, lugar.alto},
                     tono(i));
    }
}

void Gradiente::PintarGradiente(Superficie& destino) const {
    pintar(destino, m_modo);
}

void Gradiente::PintarGradienteVertical(Superficie& destino) const {
    pintar(destino, ModoGradiente::vertical);
}

void Gradiente::PintarContorno(Superficie& destino) const {
    const Rectangulo lugar = destino.lugar();
    const float grueso = destino.pixel();
    const std::array<Rectangulo, 4> lados{{{0, 0, lugar.ancho, grueso},
                                           {0, lugar.alto - grueso, lugar.ancho, grueso},
                                           {0, grueso, grueso, lugar.alto - 2 * grueso},
                                           {lugar.ancho - grueso, grueso, grueso, lugar.alto - 2 * grueso}}};
    for (const Rectangulo& lado : lados) destino.caja(lado, COLOR_CONTORNO);
}

}  // namespace sorvanel
