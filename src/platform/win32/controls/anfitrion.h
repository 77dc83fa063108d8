#pragma once

#include <windows.h>

#include <memory>
#include <vector>

#include "platform/control.h"
#include "platform/controles.h"
#include "platform/win32/base/escala.h"
#include "platform/win32/base/estiloWin.h"
#include "platform/win32/base/pulsacionesRaton.h"
#include "platform/win32/base/sesionOLE.h"
#include "platform/win32/base/tandas.h"
#include "platform/win32/base/ventanaWin.h"
#include "platform/win32/controls/accesible.h"
#include "platform/win32/controls/ayudasWin.h"
#include "platform/win32/controls/focoVentana.h"
#include "platform/win32/controls/ordenControles.h"
#include "platform/win32/painting/apariencia.h"
#include "platform/win32/painting/fuentesWin.h"
#include "platform/win32/painting/lienzo.h"
#include "platform/win32/painting/tipos.h"

namespace sorvanel {

class ElementoWin;
class SuperficieWin;

// What all windows share, so that opening one makes nothing that another has made already.
struct RecursosVentanas {
    RecursosVentanas(Tandas& deMensajes, SesionOLE& delHilo) : tandas(deMensajes), ole(delHilo) {}

    Tandas& tandas;
    SesionOLE& ole;
    FuentesWin fuentes;
    Lienzo borrador;  // where a control is put together before it is shown: one for all, since they paint in turn
    CajaTipos tipos{borrador};
    EstiloWin estilo;
    NombresAccesibles nombres{ole};
    PulsacionesRaton pulsaciones;
    apariencia::Paleta paleta = apariencia::paletaDelSistema();
    Fuente letra = fuenteInterfaz(aTwips(apariencia::ALTO_LETRA));
};

// A window with controls: the main one and each tool's. Its scale, the font that controls share, tool tips, keyboard
// order and focus, the labels and frames that it paints itself, and the messages between the system and its controls.
class Anfitrion : public VentanaWin, protected FuenteElementos {
public:
    HWND ventana() const override { return hwnd(); }
    const Escala& escala() const { return m_escala; }
    RecursosVentanas& recursos() const { return m_recursos; }
    HFONT letra() const { return m_letra->get(); }
    const apariencia::Paleta& paleta() const { return m_recursos.paleta; }
    int altoLetra() const { return m_altoLetra; }  // of a line, device pixels
    SugerenciasWin& sugerencias() { return m_sugerencias; }
    FocoVentana& foco() { return m_foco; }
    PulsacionesRaton& pulsaciones() { return m_recursos.pulsaciones; }

    // Paints what lies beneath the controls of that part of the window; its corner becomes the picture's.
    void pintarDetras(Lienzo& destino, const RECT& parte) const;
    // That part of what the window paints itself is not what it was; what lies beneath the controls there neither,
    // where they stand on it.
    void tocar(const RECT& parte) const;
    void tocarDetras(const RECT& parte) const;
    // The mouse moved over the child with that id.
    virtual void alMoverRaton(int) {}
    // An arrow key on a button of a bar: 1 the next in keyboard order, -1 the one before.
    virtual void pasarFoco(const ControlWin&, int) {}
    // The child beneath which a new surface is put, until all are put into their order.
    virtual HWND encimaDeNuevas() const { return HWND_BOTTOM; }
    // It was pressed on that surface, there within the window.
    virtual void alPulsarSuperficie(const SuperficieWin&, POINT) {}
    // The mouse was pressed where there is nothing to press.
    virtual void alPulsarFondo() {}
    // The colours of the controls are others than they were.
    virtual void alCambiarColores() {}

    void alta(ControlWin& control);
    void alta(ElementoWin& elemento);
    void alta(SuperficieWin& superficie);
    void baja(ControlWin& control);
    void baja(ElementoWin& elemento);
    void baja(SuperficieWin& superficie);
    // Children were made: they are put into their order once for all of them.
    void pedirApilado();

protected:
    explicit Anfitrion(RecursosVentanas& recursos);

    // Throws std::runtime_error when the system gives no window.
    void crearVentana(const MoldeVentana& molde);
    // While the window can still answer: at its destruction, and when it goes with its owner.
    virtual void alMorir();
    void cambiarEscala(const Escala& escala);
    MedidaTexto medirLetra(std::string_view texto) const;
    std::unique_ptr<Control> hacerControl(TipoControl tipo, IdControl id, int elemento);
    // The ground itself, beneath frames and controls.
    virtual void pintarSuelo(Lienzo& destino, const RECT& parte) const = 0;
    // Puts the children into their order; asked for once for all that were made.
    virtual void apilar() { m_orden.apilar(); }
    // What every window answers alike.
    LRESULT alMensaje(UINT mensaje, WPARAM w, LPARAM l) override;

    OrdenControles& orden() { return m_orden; }
    const std::vector<SuperficieWin*>& superficies() const { return m_superficies; }

private:
    void recorrer(const std::function<void(const ElementoPintado&)>& ver) const override;
    void elegirLetra();
    void pintarZona(HDC destino, const RECT& zona) const;
    void pintarFranja(HDC destino, const RECT& franja) const;
    LRESULT alPintar();
    LRESULT alRaton(UINT mensaje, LPARAM l);
    // The one that lies uppermost there; null for the bare ground.
    ElementoWin* elementoEn(POINT donde) const;
    // To the control that it is about; the system's answer where it is about none of ours.
    LRESULT devolver(HWND control, UINT mensaje, WPARAM w, LPARAM l);
    LRESULT alMensajePropio(UINT mensaje, WPARAM w, LPARAM l);
    void releerColores();

    RecursosVentanas& m_recursos;
    Escala m_escala;
    std::shared_ptr<FuenteWin> m_letra;
    int m_altoLetra = 0;
    SugerenciasWin m_sugerencias{m_recursos.estilo};
    OrdenControles m_orden;
    FocoVentana m_foco{m_orden};
    std::vector<ElementoWin*> m_elementos;  // frames first, then labels: so they lie
    std::vector<SuperficieWin*> m_superficies;
    ElementoWin* m_apretado = nullptr;  // the label that the mouse went down on
    bool m_apiladoPendiente = false;
    AccesibleVentana m_accesible{*this, m_recursos.ole};
};

}  // namespace sorvanel
