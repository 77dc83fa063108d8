#pragma once

#include <functional>
#include <string>

#include "platform/control.h"
#include "platform/controles.h"
#include "platform/win32/base/textoWin.h"
#include "platform/win32/base/ventanaWin.h"
#include "platform/win32/base/vida.h"
#include "platform/win32/controls/anfitrion.h"
#include "platform/win32/painting/apariencia.h"

namespace sorvanel {

// What all controls that are windows share. Most are controls of the system with our look: they keep
// its behaviour, its messages and what screen readers make of it.
//
// A handler may destroy the control, or the window with all of them. So none is called while the
// system's own code for that control is at work: what happens is noted, and told when the outermost
// message has been dealt with; nothing is touched after it.
class ControlWin : protected VentanaWin {
public:
    ~ControlWin() override;

    using VentanaWin::hwnd;
    virtual void alCambiarEscala();
    // Can the keyboard reach it?
    bool alcanzable() const { return m_tabulable && m_visible && m_habilitado && hwnd(); }
    // Whether it may be given the focus of one that goes.
    virtual bool heredaFoco() const { return true; }
    // Asked when the focus has gone to another control of the window. May destroy the control.
    virtual bool validar() { return true; }
    virtual bool seValida() const { return false; }
    Vida::Testigo testigo() const { return m_vida.testigo(); }
    bool estaVisible() const { return m_visible; }
    // Within the window, device pixels.
    RECT sitio() const;
    POINT centro() const;

protected:
    explicit ControlWin(Anfitrion& anfitrion) : m_anfitrion(anfitrion) {}
    // `sobre` null: a window of our own. Of the style only what is special.
    void crearControl(const wchar_t* clase, const wchar_t* sobre, DWORD estilo, IdControl id, int elemento,
                      bool dobleClic = false);

    void ponerLugar(const Rectangulo& lugar);
    virtual void ponerVisible(bool visible);
    void ponerHabilitado(bool si);
    // What it is called. Here for what has another text of its own: see nombrarConTexto().
    virtual void ponerNombre(const std::wstring& texto);
    // The name is the window's text, which is not what is seen.
    void nombrarConTexto(const std::wstring& texto);
    void ponerSugerencia(const std::wstring& texto);
    void ponerAlFoco(std::function<void()> accion) { m_alRecibirFoco = std::move(accion); }
    void ponerAccion(std::function<void()> accion) { m_accion = std::move(accion); }

    // One message of those that the control knows.
    virtual LRESULT atender(UINT mensaje, WPARAM w, LPARAM l);
    // A message of the system's control that the window sent back: BN_CLICKED and its like.
    virtual void alNotificar(UINT) {}
    // The picture of the control at 0, 0; what lies behind is there already.
    virtual void pintar(Lienzo&, const RECT&) {}
    virtual void situarVentana();

    // It looks another way while the mouse is over it.
    void sensible() { m_sensible = true; }
    void alMoverRaton();
    bool encima() const { return m_encima; }

    // The action's turn comes after what is being dealt with; never for what cannot be pressed.
    void actuar();
    void actuarSiPulsable();
    // The system's part of a message, without what it would paint on the spot.
    LRESULT porDefectoSinPintar(UINT mensaje, WPARAM w, LPARAM l);
    void pintarEn(HDC dc);

    Anfitrion& anfitrion() const { return m_anfitrion; }
    const Escala& escala() const { return m_anfitrion.escala(); }
    int px(float pixelesDeDiseno) const { return apariencia::px(escala(), pixelesDeDiseno); }
    const apariencia::Paleta& paleta() const { return m_anfitrion.paleta(); }
    const Rectangulo& lugar() const { return m_lugar; }
    bool habilitado() const { return m_habilitado; }
    bool enfocado() const { return hwnd() && GetFocus() == hwnd(); }

private:
    LRESULT alMensaje(UINT mensaje, WPARAM w, LPARAM l) final;
    void avisar();
    void alPintar();
    void alCambiarAlcance();
    void sugerirNombre(const std::wstring& texto);

    Anfitrion& m_anfitrion;
    Vida m_vida;
    Rectangulo m_lugar;
    bool m_visible = false;
    bool m_habilitado = true;
    bool m_tabulable = false;
    bool m_sensible = false;
    bool m_encima = false;
    bool m_conSugerencia = false;  // a text of its own, not the name
    bool m_anotado = false;        // has a name that is not its text
    int m_nivel = 0;               // messages that are being dealt with, one within the other
    bool m_avisarFoco = false;
    bool m_avisarAccion = false;
    std::function<void()> m_alRecibirFoco;
    std::function<void()> m_accion;
};

// One kind of control: joins what it promises with what all of them do.
template <typename Interfaz, typename Base = ControlWin>
class ControlDe : public Interfaz, public Base {
public:
    void colocar(const Rectangulo& lugar) override { this->ponerLugar(lugar); }
    void mostrar(bool visible) override { this->ponerVisible(visible); }
    bool visible() const override { return this->estaVisible(); }
    void habilitar(bool si) override { this->ponerHabilitado(si); }
    void enfocar() override { this->anfitrion().foco().enfocar(*this); }
    bool tieneFoco() const override { return this->anfitrion().foco().tieneFoco(*this); }
    void nombre(const std::string& texto) override { this->ponerNombre(aAncho(texto)); }
    void sugerencia(const std::string& texto) override { this->ponerSugerencia(aAncho(texto)); }
    void alRecibirFoco(std::function<void()> accion) override { this->ponerAlFoco(std::move(accion)); }
    void alActuar(std::function<void()> accion) override { this->ponerAccion(std::move(accion)); }

protected:
    using Base::Base;
};

}  // namespace sorvanel
