#pragma once

#include <cstdint>
#include <optional>

#include "config/entorno.h"
#include "grid/ventanaParrilla.h"
#include "platform/color.h"
#include "platform/geometria.h"
#include "platform/superficie.h"
#include "screen/oScreen.h"

namespace sorvanel {

// The grid of equal cells on which the displays stand. Positions and sizes are twips from the
// window's top-left corner, thicknesses are pixels. Every accepted change is saved and painted.
class Parrilla {
public:
    static constexpr Color TRANSPARENTE = -1;

    // Loads the grid for the monitor in use.
    explicit Parrilla(const Entorno& entorno);

    // The surface to paint on and the window that it fills (not owned; they must outlive this or be
    // taken back by indefinir). No when it cannot be painted on.
    bool definir(Superficie& lienzo, VentanaParrilla& ventana);
    bool indefinir();
    bool definida() const;

    // Loads again for the monitors as they are now; what is painted on stays.
    void recargar();

    std::int16_t filas() const { return m_filas; }
    void filas(std::int16_t n);  // 1 to 8, anything else is ignored
    std::int16_t columnas() const { return m_columnas; }
    void columnas(std::int16_t n);  // 1 to 8, anything else is ignored
    std::int16_t gruesoVertical() const { return m_gruesoVertical; }
    void gruesoVertical(std::int16_t pixeles);  // clamped to 0 to 32
    std::int16_t gruesoHorizontal() const { return m_gruesoHorizontal; }
    void gruesoHorizontal(std::int16_t pixeles);  // clamped to 0 to 32
    Color colorReticula() const { return m_colorReticula; }
    void colorReticula(Color color);
    Color colorFondo() const { return m_colorFondo; }
    void colorFondo(Color color);
    Color colorAplicacion() const { return m_colorAplicacion; }
    void colorAplicacion(Color color);  // negative: transparent

    float Left() const { return m_zona.x; }
    float Top() const { return m_zona.y; }
    float Width() const { return m_zona.ancho; }
    float Height() const { return m_zona.alto; }
    // Moves that edge; the opposite one stays, so a grid moved past it has no size and shows nothing.
    // Ignored outside the screen.
    void Left(float x);
    void Top(float y);
    // Moves the right or lower edge. Ignored when the grid would leave the screen.
    void Width(float ancho);
    void Height(float alto);

    // All four at once, painted and saved once. Ignored unless it lies within the screen.
    void mover(const Rectangulo& zona);

    void pintarReticula();
    // The application's colour alone, or its transparency.
    void pintarAplicacion();
    // Cuts the window anew, after what is kept below the grid has changed.
    void darForma();
    // The cell's inside, between the lines; nothing when there is no such cell to paint.
    std::optional<Rectangulo> getCell(std::int16_t fila, std::int16_t columna) const;
    // From the first cell to the last, with the lines between them.
    std::optional<Rectangulo> Dimensiones(std::int16_t fila1, std::int16_t columna1, std::int16_t fila2,
                                          std::int16_t columna2) const;
    void fondoCelda(Color color, std::int16_t fila, std::int16_t columna);

private:
    void cargar();
    void guardar() const;
    void cambiarZona(const Rectangulo& zona);
    void pintarZona();
    float lineaVertical() const { return aTwips(m_gruesoVertical); }
    float lineaHorizontal() const { return aTwips(m_gruesoHorizontal); }
    float anchoCelda() const;
    float altoCelda() const;

    const Entorno& m_entorno;
    oScreen m_pantalla;
    Superficie* m_lienzo = nullptr;
    VentanaParrilla* m_ventana = nullptr;
    Rectangulo m_zona;
    std::int16_t m_filas = 4;
    std::int16_t m_columnas = 1;
    std::int16_t m_gruesoVertical = 4;
    std::int16_t m_gruesoHorizontal = 4;
    Color m_colorReticula = NEGRO;
    Color m_colorFondo = rgb(0x80, 0x80, 0x80);
    Color m_colorAplicacion = BLANCO;
};

}  // namespace sorvanel
