#pragma once

#include <cstdint>
#include <optional>

#include "config/comun.h"
#include "platform/color.h"
#include "platform/formaVentana.h"
#include "platform/geometria.h"
#include "platform/superficie.h"
#include "screen/oScreen.h"

namespace sorvanel {

// What the grid needs of the window in which it is drawn.
class VentanaParrilla {
public:
    virtual ~VentanaParrilla() = default;

    virtual FormaVentana& forma() = 0;
    // What stays visible below the grid also when the rest of the window is transparent, twips.
    virtual Rectangulo franjaInferior() const = 0;
};

// What the section "RETICULA" holds, its fractions of the screen turned into twips.
struct AjustesParrilla {
    Rectangulo zona;
    std::int16_t filas;
    std::int16_t columnas;
    std::int16_t gruesoVertical;
    std::int16_t gruesoHorizontal;
    Color colorReticula;
    Color colorFondo;
    Color colorAplicacion;
};

// Below this height the button bar lies: a stored height is a fraction of what is above it.
constexpr float RESERVA_INFERIOR = aTwips(32);

// For that screen. What the file holds beyond its limits comes clamped, what is missing or unreadable
// comes as its default.
AjustesParrilla leerParrilla(const comun& com, const oScreen& pantalla);

// Its colours alone, which need no screen.
void leerColoresParrilla(const comun& com, AjustesParrilla& ajustes);

// Without a screen to measure by, the stored fractions stay as they are.
void guardarParrilla(const comun& com, const oScreen& pantalla, const AjustesParrilla& ajustes);

// The grid of equal cells on which the displays stand. Positions and sizes are twips from the
// window's top-left corner, thicknesses are pixels. Every accepted change is saved and painted;
// a write that does not take the value as it is answers no.
class Parrilla {
public:
    static constexpr Color TRANSPARENTE = -1;

    // Loads the grid for the monitor in use there.
    Parrilla(const comun& com, oScreen pantalla);

    // The surface to paint on and the window that it fills (not owned; they must outlive this or be
    // taken back by indefinir). No when it cannot be painted on.
    bool definir(Superficie& lienzo, VentanaParrilla& ventana);
    bool indefinir();
    bool definida() const;

    // Loads again for another screen; what is painted on stays.
    void recargar(oScreen pantalla);

    std::int16_t filas() const { return m_a.filas; }
    bool filas(std::int16_t n);  // 1 to 8
    std::int16_t columnas() const { return m_a.columnas; }
    bool columnas(std::int16_t n);  // 1 to 8
    std::int16_t gruesoVertical() const { return m_a.gruesoVertical; }
    bool gruesoVertical(std::int16_t pixeles);  // clamped to 0 to 32
    std::int16_t gruesoHorizontal() const { return m_a.gruesoHorizontal; }
    bool gruesoHorizontal(std::int16_t pixeles);  // clamped to 0 to 32
    Color colorReticula() const { return m_a.colorReticula; }
    void colorReticula(Color color);
    Color colorFondo() const { return m_a.colorFondo; }
    void colorFondo(Color color);
    Color colorAplicacion() const { return m_a.colorAplicacion; }
    void colorAplicacion(Color color);  // negative: transparent

    float Left() const { return m_a.zona.x; }
    float Top() const { return m_a.zona.y; }
    float Width() const { return m_a.zona.ancho; }
    float Height() const { return m_a.zona.alto; }
    // Moves that edge; the opposite one stays, so a grid moved past it has no size and shows nothing.
    // Ignored outside the screen.
    bool Left(float x);
    bool Top(float y);
    // Moves the right or lower edge. Ignored when the grid would leave the screen.
    bool Width(float ancho);
    bool Height(float alto);

    // All four at once, painted and saved once. Ignored unless it lies within the screen.
    bool mover(const Rectangulo& zona);

    // Each cell then says its row and column, "2,1", wherever nothing covers it. Not stored; painted with the next
    // pintarReticula().
    void numerada(bool si) { m_numerada = si; }
    void pintarReticula();
    // Cuts the window anew, after what is kept below the grid has changed.
    void darForma();
    // The cell's inside, between the lines; nothing when there is no such cell to paint.
    std::optional<Rectangulo> getCell(std::int16_t fila, std::int16_t columna) const;
    // From the first cell to the last, with the lines between them.
    std::optional<Rectangulo> Dimensiones(std::int16_t fila1, std::int16_t columna1, std::int16_t fila2,
                                          std::int16_t columna2) const;
    void fondoCelda(Color color, std::int16_t fila, std::int16_t columna);

private:
    void guardar() const;
    bool cambiarZona(const Rectangulo& zona);
    void pintarZona();
    void pintarNumero(std::int16_t fila, std::int16_t columna);
    float lineaVertical() const { return aTwips(m_a.gruesoVertical); }
    float lineaHorizontal() const { return aTwips(m_a.gruesoHorizontal); }
    float anchoCelda() const;
    float altoCelda() const;

    const comun& m_com;
    oScreen m_pantalla;
    AjustesParrilla m_a;
    bool m_numerada = false;
    Superficie* m_lienzo = nullptr;
    VentanaParrilla* m_ventana = nullptr;
};

// Where there is no grid: cuts the window to what would be seen of it.
void darForma(VentanaParrilla& ventana, const Monitor& monitor, const AjustesParrilla& ajustes);
// The same, and paints the application's colour alone, or its transparency.
void pintarAplicacion(Superficie& lienzo, VentanaParrilla& ventana, const Monitor& monitor,
                      const AjustesParrilla& ajustes);

}  // namespace sorvanel
