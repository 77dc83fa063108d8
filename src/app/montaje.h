#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "app/barraBotones.h"
#include "config/entorno.h"
#include "display/visores.h"
#include "grid/parrilla.h"
#include "links/enlaceCompartido.h"
#include "message/clsMsg.h"
#include "platform/formulario.h"

namespace sorvanel {

// What stands on the window above the bar for the length of one build: the grid, the displays with
// their surfaces, and the message band. Each part is made from the file.
class Montaje final : private VentanaParrilla, private MuelleMensaje {
public:
    // The bar must have been laid out before anything is made, and outlive this.
    Montaje(const Entorno& entorno, Formulario& formulario, EnlaceCompartido& compartido, const BarraBotones& barra);
    ~Montaje() override;
    Montaje(const Montaje&) = delete;
    Montaje& operator=(const Montaje&) = delete;

    // The window's size, twips.
    void dimensionar(float ancho, float alto);

    void montarParrilla();
    // From the file; they are not seen yet.
    void cargarVisores();
    // Those that are loaded, once, on the grid, which must be there. Errors are appended, one a line.
    void situarVisores(std::string& errores);
    // Those that were added to the collection since: they get their surfaces, and are placed where they can be.
    void situarNuevos();
    void montarMensaje();
    // Stops and drops all of it; nothing but the application's colour, or its transparency, is left.
    void desmontar();
    void vaciar();
    // Says that in the middle of the empty screen; an empty text takes it away.
    void letrero(const std::string& texto);
    // The window covers another monitor, or the same at another size: everything is laid out anew,
    // nothing is read but the grid's fractions, and no link stops.
    void redisponer();

    // Null where it is not made.
    Parrilla* parrilla() const { return m_parrilla.get(); }
    Visores* visores() const { return m_visores.get(); }
    clsMsg* mensaje() const { return m_mensaje.get(); }

    // The upper edge of what lies below the grid: the bar, or the message strip above it.
    float limiteInferior() const { return franjaInferior().y; }

private:
    struct Superficies {
        std::unique_ptr<Superficie> picRep, picCap;
    };

    FormaVentana& forma() override { return m_formulario; }
    Rectangulo franjaInferior() const override;
    Superficie& picMsg() override { return *m_picMsg; }
    void acoplar(float alto) override;
    void alMostrarFranja(bool visible) override;
    void anadirSuperficies(visor& nuevo);
    void soltar();
    void darForma();

    const Entorno& m_entorno;
    Formulario& m_formulario;
    EnlaceCompartido& m_compartido;
    const BarraBotones& m_barra;
    std::unique_ptr<Superficie> m_picRep;  // element 0: the whole area above the bar
    std::string m_letrero;                 // what stands on it
    std::unique_ptr<Superficie> m_picMsg;
    // Elements 1 to n, a display each. Making a window is slow: they stay, hidden, from one build to the next.
    std::vector<Superficies> m_superficies;
    std::size_t m_enUso = 0;  // how many of them the displays of this build have
    std::unique_ptr<Parrilla> m_parrilla;
    std::unique_ptr<Visores> m_visores;
    bool m_porSituar = false;
    std::unique_ptr<clsMsg> m_mensaje;
};

}  // namespace sorvanel
