#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "app/barraBotones.h"
#include "app/entorno.h"
#include "dialogs/mesaConfiguracion.h"
#include "links/enlacePeso.h"
#include "platform/formulario.h"

namespace sorvanel {

// What stands on the window for the length of one build: the monitor that it covers, the grid, the displays
// with their surfaces, and the message band. Each part is made from the file. It is the desk of the tools, too.
class Montaje final : public MesaConfiguracion, private VentanaParrilla, private MuelleMensaje {
public:
    // The bar must outlive this.
    Montaje(const Entorno& entorno, Formulario& formulario, EnlacePeso& compartido, BarraBotones& barra);
    ~Montaje() override;
    Montaje(const Montaje&) = delete;
    Montaje& operator=(const Montaje&) = delete;

    // The window covers the monitor that the file names, its bar laid out; before anything else.
    void cubrir();
    // Covers it, and makes everything. The file is not asked anew. Errors are appended, one a line.
    void construir(std::string& errores);
    // Stops and drops all of it, where there is anything: nothing but the empty screen is left.
    void desmontar();
    // Paints that: the application's colour, or its transparency.
    void vaciar();
    // Says that in the middle of the empty screen; an empty text takes it away.
    void letrero(const std::string& texto);
    // Monitors have come, gone or changed. True when the window covers another one, or the same at another size,
    // or must do so anyhow: everything is then laid out anew, nothing is read but the grid's fractions, and no
    // link stops.
    bool seguirMonitores(bool igualmente);
    // The grid, painted, and the message strip alone, not running.
    void montarTamano();

    void montarParrilla() override;
    void montarVisores() override;
    void montarMensaje() override;
    void desmontarMesa() override;
    Parrilla& parrilla() override { return *m_parrilla; }
    Visores& visores() override { return *m_visores; }
    clsMsg& mensaje() override { return *m_mensaje; }
    visor* nuevoVisor() override;
    bool eliminarVisor(std::int16_t posicion) override;
    std::unique_ptr<Superficie> crearMarca(int elemento) override {
        return m_formulario.crearSuperficie(IdControl::picMarca, elemento);
    }
    const oScreen& pantalla() override { return m_pantalla; }
    void cambiarMonitor(std::int16_t indice) override;
    float limiteInferior() const override { return franjaInferior().y; }
    float altoSobreBarra() const override { return m_barra.lugar().y; }
    void refrescarBarra() override { m_barra.refrescar(); }

private:
    struct Superficies {
        std::unique_ptr<Superficie> picRep, picCap;
    };

    FormaVentana& forma() override { return m_formulario; }
    Rectangulo franjaInferior() const override;
    Superficie& picMsg() override { return *m_picMsg; }
    void acoplar(float alto) override;
    void alMostrarFranja(bool visible) override;

    void cubrir(oScreen pantalla);
    void redisponer();
    void hacerParrilla(bool numerada = false);
    void hacerMesaVisores();
    void hacerVisores();
    void hacerMensaje();
    // Those that are loaded, once, on the grid, which must be there. Errors are appended, one a line.
    void situarVisores(std::string& errores);
    void situarVisores();
    void situarVisoresLuego();
    void anadirSuperficies(visor& nuevo);
    void soltar();
    void darForma();
    AjustesParrilla ajustes() const { return leerParrilla(m_entorno.com, m_pantalla); }

    const Entorno& m_entorno;
    Formulario& m_formulario;
    EnlacePeso& m_compartido;
    BarraBotones& m_barra;
    oScreen m_pantalla;
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
