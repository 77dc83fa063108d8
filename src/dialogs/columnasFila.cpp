#include "dialogs/columnasFila.h"

#include <algorithm>
#include <utility>

#include "display/familia.h"

namespace sorvanel {

namespace {

// The widest that the boxes usually hold; more can be typed.
constexpr std::string_view MUESTRA_NUMERO = "#64";
constexpr std::string_view MUESTRA_PORT = "000/00";
constexpr std::string_view MUESTRA_ETIQUETA = "Báscula de camión";
constexpr std::string_view MUESTRA_UBICACION = "00,00";

constexpr float ENTRE_COLUMNAS = aTwips(6);
constexpr float BORDE_FILA = aTwips(7);
constexpr float AIRE_FILA = aTwips(3);  // above and below

}  // namespace

constexpr std::array<std::string_view, 6> MODOS_BULK{"Peso carga",        "Acumulado",         "Suma",
                                                     "Suma en carga (1)", "Suma en carga (2)", "Suma en descarga"};

ColumnasFila::ColumnasFila(const TallerDialogo& taller, bool conMarca) : m_altoControl(taller.botonImagen().alto) {
    m_anchos = {taller.texto(MUESTRA_NUMERO).ancho,
                taller.botonImagen().ancho,
                taller.cajaTexto(MUESTRA_PORT).ancho,
                0,
                taller.lista(MODOS_BULK).ancho,
                taller.cajaTexto(MUESTRA_ETIQUETA).ancho,
                taller.cajaTexto(MUESTRA_UBICACION).ancho,
                taller.botonImagen().ancho};
    for (const Familia* f : familias()) m_anchos[marca] = std::max(m_anchos[marca], taller.texto(f->formaPort).ancho);
    for (std::size_t i = 0; i < m_anchos.size(); ++i) {
        if (!TITULOS[i].empty()) m_anchos[i] = std::max(m_anchos[i], taller.texto(TITULOS[i]).ancho);
    }
    // As wide as a gap is wide, but negative, a column takes no room.
    if (!conMarca) m_anchos[etiqueta] += std::exchange(m_anchos[marca], -ENTRE_COLUMNAS) + ENTRE_COLUMNAS;
    float x = BORDE_FILA;
    for (std::size_t i = 0; i < m_anchos.size(); ++i) {
        m_x[i] = x;
        x += m_anchos[i] + ENTRE_COLUMNAS;
    }
    m_ancho = x - ENTRE_COLUMNAS + BORDE_FILA;
    m_alto = m_altoControl + 2 * AIRE_FILA;
}

Rectangulo ColumnasFila::lugar(Columna columna, const Rectangulo& fila, float alto) const {
    return {fila.x + m_x[columna], fila.y + (fila.alto - alto) / 2, std::max(m_anchos[columna], 0.0F), alto};
}

}  // namespace sorvanel
