#pragma once

#include <memory>
#include <string>
#include <vector>

#include "app/barraBotones.h"
#include "app/estado.h"
#include "config/entorno.h"
#include "display/visores.h"
#include "grid/parrilla.h"
#include "links/enlaceCompartido.h"
#include "platform/formulario.h"
#include "screen/oScreen.h"

namespace sorvanel {

// The main window: the run states of the whole program, what is built on entering and leaving them,
// and the order in which it is torn down. It takes the form over and leaves it bare when it goes.
class base final : private OyenteFormulario {
public:
    base(const Entorno& entorno, Formulario& formulario, EnlaceCompartido& compartido);
    ~base() override;
    base(const base&) = delete;
    base& operator=(const base&) = delete;

    // Shows the window, empty, on the monitor in use. The rest follows once it is active.
    void cargar();
    Estado estado() const { return m_estado; }
    // Repaints the button bar, after the grid was moved under it.
    void refrescos();

private:
    void alActivar() override;
    void alMoverRaton(ZonaRaton zona) override;
    void alDescargar() override;
    void alCambiarMonitores() override;

    void unirBotones();
    void primeraActivacion();
    void construir(std::string& errores);
    void crearVisores();
    void cubrirMonitor();
    void ponerEnMarcha(std::string& errores);
    void pausar();
    void desmontar();
    void vaciarRepresentacion();
    void configurar();
    void aceptar();
    void cancelar();
    void estado(Estado nuevo);
    void avisar(const std::string& errores);
    void retenerCursor();

    const Entorno& m_entorno;
    Formulario& m_formulario;
    EnlaceCompartido& m_compartido;
    Estado m_estado = Estado::iniciando;
    bool m_activado = false;
    bool m_descargado = false;
    Monitor m_monitor;
    std::unique_ptr<Superficie> m_picRep;  // element 0: the whole area above the bar
    BarraBotones m_barra;
    std::vector<std::unique_ptr<Superficie>> m_picReps;  // elements 1 to n, a display each
    std::vector<std::unique_ptr<Superficie>> m_picCaps;
    std::unique_ptr<oScreen> m_pantalla;
    std::unique_ptr<Parrilla> m_parrilla;
    std::unique_ptr<Visores> m_visores;
};

// "1.02A": the minor number with two digits, the revision from 1 as a letter.
std::string textoVersion(const Version& version);

}  // namespace sorvanel
