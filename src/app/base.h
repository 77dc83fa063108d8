#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "app/anotaciones.h"
#include "app/asasParrilla.h"
#include "app/barraBotones.h"
#include "app/cronica.h"
#include "app/montaje.h"
#include "dialogs/dialogoConfiguracion.h"
#include "platform/dialogo.h"

namespace sorvanel {

// The main window: the run states of the whole program, what is built on entering and leaving them,
// the order in which it is torn down, and the one configuration tool that is open at a time. It takes
// the form over and leaves it bare when it goes.
class base final : private OyenteFormulario {
public:
    base(const Entorno& entorno, Formulario& formulario, FabricaDialogos& dialogos, EnlacePeso& compartido);
    ~base() override;
    base(const base&) = delete;
    base& operator=(const base&) = delete;

    // Shows the window, empty, on the monitor in use. The rest follows once it is active.
    void cargar();
    Estado estado() const { return m_estado; }
    // Repaints the button bar, after the grid was moved under it.
    void refrescos() { m_barra.refrescar(); }
    // Enters and leaves size mode: the handles on the grid's corners.
    void cfgSizeMostrar();
    void unloadCfgSize();

private:
    void alActivar() override;
    void alMoverRaton(ZonaRaton zona) override;
    bool alUsarRaton(GestoRaton gesto, Punto donde) override;
    void alDescargar(MotivoCierre motivo) override;
    void alCambiarMonitores() override;
    void alDormir(bool duerme) override;
    void alPedirAyuda() override;
    void alCambiarColores() override { m_barra.repintar(); }
    // Of the manual: where what is open is explained.
    std::string apartado() const;

    void unirBotones();
    void prepararTemporizadores();
    void primeraActivacion();
    // What the operator is told while the settings cannot be read; empty when they can.
    std::string ilegible() const;
    void construir(std::string& errores);
    void mostrarAsas();
    void ponerEnMarcha(std::string& errores);
    void arrancarLosQueFaltan();
    void despertar();
    void pausar();
    void configurar();
    void entrarEnConfiguracion();
    void aceptar();
    void cancelar();
    void estado(Estado nuevo);
    void anotar(std::string_view texto) { m_entorno.bitacora.anotar(texto); }
    void mostrarHerramientas();
    void decirPrimerPaso();
    void avisar(const std::string& errores);
    void avisarSinNadie(const std::string& errores);
    void retenerCursor();
    void alternar(DialogoConfiguracion& pedida);
    void alternarTamano();
    // False when a tool refuses to close; those after it are then still open.
    bool cerrarHerramientas(bool descartar, const DialogoConfiguracion* menosEsta = nullptr);

    const Entorno& m_entorno;
    Formulario& m_formulario;
    Estado m_estado = Estado::iniciando;
    bool m_activado = false;
    bool m_descargado = false;
    const std::unique_ptr<Temporizador> m_espera;     // until the start has come to its end
    const std::unique_ptr<Temporizador> m_reintento;  // of displays that could not be started
    const std::unique_ptr<Temporizador> m_plazoAviso;
    bool m_conCopia = false;   // of the settings as they were when the configuration was entered
    bool m_cancelada = false;  // and nothing has been configured since
    bool m_conBoton = false;   // asked to end by its own button
    bool m_modoTamano = false;
    BarraBotones m_barra;
    Montaje m_montaje;
    Cronica m_cronica;
    AsasParrilla m_asas;
    std::unique_ptr<DialogoConfiguracion> m_cfgContexto;
    std::unique_ptr<DialogoConfiguracion> m_cfgVisor;
    std::unique_ptr<DialogoConfiguracion> m_cfgMensaje;
};

}  // namespace sorvanel
