#pragma once

#include <array>
#include <memory>
#include <string>

#include "dialogs/mesaConfiguracion.h"

namespace sorvanel {

// Shows on the grid what a drag would do: a frame around the cell, above the display that it may hold, and a few words
// in its middle. Gone when it goes.
class MarcaUbicacion {
public:
    explicit MarcaUbicacion(MesaConfiguracion& mesa);

    void poner(const Rectangulo& celda, const std::string& texto);
    void quitar();

private:
    static constexpr std::size_t LADOS = 4;

    void ponerTexto(const Rectangulo& celda);

    const oScreen& m_pantalla;
    std::array<std::unique_ptr<Superficie>, LADOS> m_lados;
    std::unique_ptr<Superficie> m_letrero;
    Rectangulo m_celda;  // empty while nothing is shown
    std::string m_texto;
};

}  // namespace sorvanel
