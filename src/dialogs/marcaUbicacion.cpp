#include "dialogs/marcaUbicacion.h"

#include <algorithm>

namespace sorvanel {

namespace {

constexpr Color AZUL = rgb(0x0B, 0x5C, 0xC4);
// The frame: a light line within a dark one, to be seen on any ground.
constexpr float GRUESO = aTwips(6), CLARO = aTwips(2);
constexpr float MARGEN_X = aTwips(10), MARGEN_Y = aTwips(5);

}  // namespace

MarcaUbicacion::MarcaUbicacion(MesaConfiguracion& mesa) : m_pantalla(mesa.pantalla()) {
    int elemento = 0;
    for (auto& lado : m_lados) lado = mesa.crearMarca(elemento++);
    m_letrero = mesa.crearMarca(elemento);
}

void MarcaUbicacion::quitar() {
    m_celda = {};
    for (const auto& lado : m_lados) lado->mostrar(false);
    m_letrero->mostrar(false);
}

void MarcaUbicacion::poner(const Rectangulo& celda, const std::string& texto) {
    if (celda == m_celda && texto == m_texto) return;
    m_celda = celda;
    m_texto = texto;
    const float g = std::min({GRUESO, celda.ancho / 4, celda.alto / 4});
    const std::array<Rectangulo, LADOS> sitios{{{celda.x, celda.y, celda.ancho, g},
                                                {celda.x, celda.abajo() - g, celda.ancho, g},
                                                {celda.x, celda.y + g, g, celda.alto - 2 * g},
                                                {celda.derecha() - g, celda.y + g, g, celda.alto - 2 * g}}};
    // The light line lies at the inner edge: within each side, where that is.
    const std::array<Rectangulo, LADOS> claros{{{g - CLARO, g - CLARO, celda.ancho - 2 * (g - CLARO), CLARO},
                                                {g - CLARO, 0, celda.ancho - 2 * (g - CLARO), CLARO},
                                                {g - CLARO, 0, CLARO, celda.alto - 2 * g},
                                                {0, 0, CLARO, celda.alto - 2 * g}}};
    for (std::size_t i = 0; i < LADOS; ++i) {
        Superficie& lado = *m_lados[i];
        lado.colocar(sitios[i]);
        lado.colorFondo(AZUL);
        lado.limpiar();
        if (g > CLARO) lado.caja(claros[i], BLANCO);
        lado.mostrar(true);
    }
    ponerTexto(celda);
}

// In the middle of the cell, and beyond it where that is too small; never off the screen.
void MarcaUbicacion::ponerTexto(const Rectangulo& celda) {
    m_letrero->fuente({"Segoe UI", aTwips(14), true, false, false});
    const MedidaTexto medida = m_letrero->medir(m_texto);
    const float ancho = medida.ancho + 2 * MARGEN_X, alto = medida.alto + 2 * MARGEN_Y;
    const float libre = std::max(m_pantalla.Width() - ancho, 0.0F);
    m_letrero->colocar({std::clamp(celda.x + (celda.ancho - ancho) / 2, 0.0F, libre),
                        std::max(celda.y + (celda.alto - alto) / 2, 0.0F), ancho, alto});
    m_letrero->colorFondo(AZUL);
    m_letrero->limpiar();
    m_letrero->imprimir(MARGEN_X, MARGEN_Y, m_texto, BLANCO);
    m_letrero->leyenda(m_texto);
    m_letrero->mostrar(true);
}

}  // namespace sorvanel
