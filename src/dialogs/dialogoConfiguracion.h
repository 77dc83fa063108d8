#pragma once

#include <functional>
#include <memory>
#include <string>

#include "config/comun.h"
#include "dialogs/disposicion.h"
#include "dialogs/gradiente.h"
#include "dialogs/mesaConfiguracion.h"
#include "dialogs/tallerDialogo.h"
#include "platform/bitacora.h"
#include "platform/dialogo.h"
#include "platform/formulario.h"
#include "platform/sistema.h"

namespace sorvanel {

// What a tool uses besides its desk; all of it must outlive the tool.
struct UtilesDialogo {
    const comun& com;
    Cola& cola;
    Avisos& avisos;
    FabricaDialogos& fabrica;
    Fabrica& enlaces;  // makes timers and sockets
    const Reloj& reloj;
    Bitacora& bitacora;
    std::function<void()> alAbrirOCerrar = {};  // told once it has
};

// A tool of the configuration; at most one is open. Its window and all that stands on it exist only while it
// is. Changes that the program makes to a control are not told to its handlers, so filling needs no flag.
class DialogoConfiguracion : private OyenteDialogo {
public:
    ~DialogoConfiguracion() override;
    DialogoConfiguracion(const DialogoConfiguracion&) = delete;
    DialogoConfiguracion& operator=(const DialogoConfiguracion&) = delete;

    bool cargado() const { return m_formulario != nullptr; }
    // Opens it, or fills it anew when it is open.
    void Mostrar();
    // Closes; false when it refuses, as while an entry is invalid. Discarding never refuses.
    bool Descargar(bool descartar);
    // The window covers another monitor, or the same at another size: the tool follows.
    void seguirMonitor(const Monitor& monitor);
    // The mouse on what stands on the main window, while it is open; see OyenteFormulario.
    virtual bool alUsarRaton(GestoRaton, Punto) { return false; }

protected:
    // What its two title labels say; the second may be empty: then there is none.
    struct Titulos {
        std::string principal;
        std::string segundo;
        IdControl idPrincipal = IdControl::ttlo;
    };

    // The desk must outlive it.
    DialogoConfiguracion(IdControl id, Titulos titulos, UtilesDialogo utiles, MesaConfiguracion& mesa);

    // In this order when it opens. First what it works on: one of the desk's montar...
    virtual void montar() = 0;
    // Makes its controls, in the order of the keyboard. The close image is made after them.
    virtual void crearControles() = 0;
    // Shows in them what the objects have.
    virtual void rellenar() = 0;
    // Its content for the texts and the scale as they are now.
    virtual Pieza disposicion() = 0;
    // The same when it shows all that it ever shows: the window is centred for that size, so that it
    // does not grow off the screen.
    virtual Pieza disposicionMayor() { return disposicion(); }
    // After it is seen: where the focus goes.
    virtual void alMostrar() {}

    // In this order when it closes. False refuses; not asked when discarding.
    virtual bool validar() { return true; }
    // While everything is still there.
    virtual void alCerrar() {}
    // Destroys its controls and whatever it made in montar().
    virtual void soltar() = 0;

    // Lays it out again where it stands, as after a text or what is visible changed.
    void redisponer();

    // Whether the monitor is upright, and content of that width has no room on it at its own scale.
    bool esEstrecho(float ancho) const;

    // Only while it is open.
    FormularioDialogo& formulario() { return *m_formulario; }
    TallerDialogo& taller() { return *m_taller; }
    DialogosSistema& sistema() { return m_utiles.fabrica.sistema(); }
    MesaConfiguracion& mesa() { return m_mesa; }
    const UtilesDialogo& utiles() const { return m_utiles; }

private:
    void alPedirCierre() override;
    void alArrastrar() override;
    void cargar();
    void construir();
    void desmontar();
    void crearTitulos();
    void descargar();
    void avisarCambio() const {
        if (m_utiles.alAbrirOCerrar) m_utiles.alAbrirOCerrar();
    }
    void situar();
    RectPixel zona() const;
    Tamano holgura() const;
    void ponerReduccion(float reduccion);
    bool ajustarReduccion(Tamano minimo);
    Pieza cabecera();
    Rejilla componer(Pieza contenido);
    Tamano tamano(const Rejilla& todo) const;
    void disponer(const Rejilla& todo);

    const IdControl m_id;
    const Titulos m_titulos;
    const UtilesDialogo m_utiles;
    MesaConfiguracion& m_mesa;
    const Gradiente m_gradiente;
    Monitor m_monitor;
    float m_reduccion = 1;  // of the monitor's scale, so that it fits
    std::unique_ptr<FormularioDialogo> m_formulario;
    std::unique_ptr<TallerDialogo> m_taller;
    std::unique_ptr<Rotulo> m_ttlo;
    std::unique_ptr<Rotulo> m_ttlo2;
    std::unique_ptr<Boton> m_imUnload;
};

}  // namespace sorvanel
