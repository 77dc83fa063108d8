#pragma once

#include <memory>
#include <span>
#include <string>
#include <vector>

#include "platform/formulario.h"
#include "platform/win32/base/pulsacionesRaton.h"
#include "platform/win32/base/ventanaWin.h"
#include "platform/win32/controls/asaWin.h"
#include "platform/win32/controls/botonWin.h"
#include "platform/win32/controls/sugerenciasWin.h"
#include "platform/win32/controls/superficieWin.h"
#include "platform/win32/painting/anfitrion.h"
#include "platform/win32/windows/formaWin.h"

namespace sorvanel {

// The main window. The grid lies below the displays, the message and the bar above them, the handles above all
// surfaces and the buttons above all; the keyboard goes from button to button as the eye reads.
class FormularioWin final : public Formulario, private VentanaWin, private Anfitrion {
public:
    // Hidden and without size until it covers a monitor. Throws std::runtime_error when the system
    // gives no window.
    explicit FormularioWin(const std::string& titulo);
    ~FormularioWin() override;

    using VentanaWin::hwnd;
    // While on, neither the screen saver nor the monitor's sleep may begin over this window.
    void reposoImpedido(bool si) { m_reposoImpedido = si; }

    void oyente(OyenteFormulario* oyente) override { m_oyente = oyente; }
    void cubrir(const Monitor& monitor) override;
    void recortar(std::span<const RectPixel> zonas) override { m_forma.recortar(hwnd(), zonas); }
    std::unique_ptr<Superficie> crearSuperficie(IdControl id, int elemento) override;
    std::unique_ptr<Boton> crearBoton(IdControl id) override;
    std::unique_ptr<Asa> crearAsa(IdControl id) override;
    void puntero(Puntero puntero) override;
    void refrescar() override;
    void mostrar() override;
    void cerrar() override;

private:
    HWND ventana() const override { return hwnd(); }
    const Escala& escala() const override { return m_escala; }
    FuentesWin& fuentes() override { return m_fuentes; }
    const Fuente& fuenteBoton() const override { return m_fuenteBoton; }
    Lienzo& borrador() override { return m_borrador; }
    void alMoverRaton(ZonaRaton zona) override;
    void alCambiarControl() override;
    void pasarFoco(const BotonWin& desde, int sentido) override;
    void alRecibirFoco(const BotonWin& boton) override;
    bool admitirPulsacion(const BotonWin& boton, POINT donde) override {
        return m_pulsaciones.admitir(boton.hwnd(), donde);
    }
    void sugerencia(HWND control, const std::wstring& texto) override;
    void baja(SuperficieWin& superficie) override;
    void baja(BotonWin& boton) override;
    void baja(AsaWin& asa) override;

    LRESULT alMensaje(UINT mensaje, WPARAM w, LPARAM l) override;
    LRESULT alMensajePropio(UINT mensaje, WPARAM w, LPARAM l);
    LRESULT alOrdenSistema(WPARAM w, LPARAM l);
    void mantenerSitio(WINDOWPOS& cambio) const;
    void pedirActivacion();
    void activar();
    void cambioDeMonitores();
    void monitoresQuietos();
    void descargar();
    void pintarFondo();
    void cambiarEscala(const Escala& escala);
    bool ponerPuntero() const;
    void ordenarBotones();
    void apilar();
    void recuperarFoco();

    Escala m_escala;
    FuentesWin m_fuentes;
    Fuente m_fuenteBoton;
    std::shared_ptr<FuenteWin> m_fuenteSugerencias;
    Lienzo m_borrador;
    SugerenciasWin m_sugerencias;
    FormaWin m_forma;
    // Told to all windows when Explorer has made the task bar anew.
    const UINT m_barraDeTareasNueva = RegisterWindowMessageW(L"TaskbarCreated");
    HCURSOR m_punteroNormal = nullptr;  // both shared, the system's to release
    HCURSOR m_punteroMarcha = nullptr;

    OyenteFormulario* m_oyente = nullptr;
    std::vector<SuperficieWin*> m_superficies;
    std::vector<BotonWin*> m_botones;  // in keyboard order
    std::vector<AsaWin*> m_asas;
    RECT m_sitio{};      // of the monitor that it covers, screen pixels; empty before it covers any
    Punto m_ultimoFoco;  // middle of the button that had it
    PulsacionesRaton m_pulsaciones;
    Puntero m_puntero = Puntero::normal;
    bool m_reposoImpedido = false;
    bool m_activacionPendiente = false;
    bool m_apiladoPendiente = false;
    bool m_descargado = false;
};

}  // namespace sorvanel
