#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "dialogs/filaVisor.h"
#include "dialogs/tallerDialogo.h"

namespace sorvanel {

// The rows of the displays, of which a page of eight is seen. A row is made when it first comes onto the
// page, and then kept: so opening costs the same for 64 displays as for eight.
class PaginaVisores {
public:
    static constexpr std::int16_t FILAS = 8;

    PaginaVisores(TallerDialogo& taller, TablaVisores& tabla);
    ~PaginaVisores();
    PaginaVisores(const PaginaVisores&) = delete;
    PaginaVisores& operator=(const PaginaVisores&) = delete;

    std::int16_t cuantos() const { return m_cuantos; }
    // How many displays there are now; rows are neither made nor dropped before the next call that does so.
    void cuantos(std::int16_t n) { m_cuantos = n; }
    // The display in the uppermost row, 1 also when there is none.
    std::int16_t primera() const { return m_primera; }
    void primera(std::int16_t n) { m_primera = n < 1 ? std::int16_t{1} : n; }
    std::int16_t ultima() const;
    bool muestra(std::int16_t n) const { return n >= m_primera && n <= ultima(); }

    // 1 to cuantos(); made if it has to be.
    FilaVisor& fila(std::int16_t n);

    // Shows and places what is on the page now. What is not stays until it is taken away, so that the focus can
    // move from the one to the other.
    void desplegar();
    // Until completar() only the first row of the page is made: the rest may come when the window is seen.
    void soloPrimera() { m_soloPrimera = true; }
    void completar();
    // Hides what is off the page, drops what is beyond the last display. The focus goes to the nearest row
    // that stays, where there is one.
    void recoger();
    // Nothing was made, dropped or moved since then.
    bool alDia() const { return m_vista == Vista{m_primera, m_cuantos}; }
    // All rows say what their displays have.
    void rehacer();

    // The display has another place.
    void reubicada(std::int16_t n);

    // The selected row, and the one whose panel is open; 0 for none.
    void elegida(std::int16_t n);
    void ensanchada(std::int16_t n);

    // Which displays are seen, in words.
    std::string texto() const;

    // With or without the column of the mark beside the port.
    Pieza comoPieza(bool conMarca);
    void anadirTeclado(std::vector<Control*>& orden);

private:
    struct Vista {
        std::int16_t primera = 0;
        std::int16_t cuantos = 0;
        bool operator==(const Vista&) const = default;
    };

    // Null when it was not made.
    FilaVisor* hecha(std::int16_t n) const;
    std::int16_t ultimaHecha() const;
    void colocar(const Rectangulo& zona);
    void colocarTitulos();
    void colocarFila(FilaVisor& fila);
    Rectangulo lugarDe(std::int16_t n) const;
    void marcarElegida();

    TallerDialogo& m_taller;
    TablaVisores& m_tabla;
    std::int16_t m_cuantos = 0;
    std::int16_t m_primera = 1;
    Vista m_vista;
    bool m_soloPrimera = false;
    std::int16_t m_elegida = 0;
    std::int16_t m_ensanchada = 0;
    ColumnasFila m_columnas;
    float m_altoTitulos = 0;
    Rectangulo m_zona;
    std::unique_ptr<Marco> m_frTodo;
    std::vector<std::unique_ptr<Rotulo>> m_titulos;
    std::unique_ptr<Rotulo> m_lbElegida;  // a bar at the edge of the selected row
    std::vector<std::unique_ptr<FilaVisor>> m_filas;
};

}  // namespace sorvanel
