#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "dialogs/marcaUbicacion.h"
#include "dialogs/mesaConfiguracion.h"
#include "platform/formulario.h"

namespace sorvanel {

// Places displays by pointing at the grid itself: a click on a free cell gives it to the selected display or to a new
// one, one on a display selects it, and dragged to another cell it moves there, or changes places with the one that is
// there. Nothing is done before the button is up, and then all of it or nothing.
class Ubicador {
public:
    struct Datos {
        // No, and told why, while a field holds something that its display did not take.
        std::function<bool()> puedeDejarCampo;
        // The selected display; 0: none.
        std::function<std::int16_t()> elegido;
        // The display that a free cell is for, which was clicked just now; it may be made for it. 0: none.
        std::function<std::int16_t()> paraLibre;
        // Selects it, and gives the keyboard to its row.
        std::function<void(std::int16_t)> elegir;
        // They have another place now.
        std::function<void(const std::vector<std::int16_t>&)> alUbicar;
    };

    Ubicador(MesaConfiguracion& mesa, Datos datos) : m_mesa(mesa), m_datos(std::move(datos)) {}

    // See OyenteFormulario.
    bool usar(GestoRaton gesto, Punto donde);
    // Nothing comes of what is being dragged. No when nothing is.
    bool cancelar();

private:
    // Where the button went down.
    struct Presa {
        std::int16_t visor = 0;  // 0: on a free cell
        Ubicacion celda;
        Punto donde;
        bool arrastrada = false;
    };

    bool pulsar(Punto donde);
    void llevar(Punto donde);
    void soltar(const Presa& presa, Ubicacion celda);
    std::optional<Ubicacion> celdaEn(Punto donde) const;
    Rectangulo lugarDe(Ubicacion celda) const;
    // The display that has it; 0: none.
    std::int16_t ocupante(Ubicacion celda) const;
    bool sigueAhi(const Presa& presa) const;
    void situar(std::int16_t n, Ubicacion celda);

    MesaConfiguracion& m_mesa;
    const Datos m_datos;
    std::optional<Presa> m_presa;
    std::unique_ptr<MarcaUbicacion> m_marca;  // while something is dragged
};

}  // namespace sorvanel
