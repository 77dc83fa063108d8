#pragma once

#include <memory>
#include <span>
#include <string>
#include <vector>

#include "platform/formulario.h"
#include "platform/win32/controls/anfitrion.h"
#include "platform/win32/windows/formaWin.h"
#include "platform/win32/windows/sucesosSistema.h"

namespace sorvanel {

// The main window. The grid lies below the displays, the message and the bar above them, the handles above all
// surfaces and the buttons above all.
class FormularioWin final : public Formulario, private Anfitrion {
public:
    // Hidden and without size until it covers a monitor. Throws std::runtime_error when the system
    // gives no window.
    FormularioWin(RecursosVentanas& recursos, const std::string& titulo);
    ~FormularioWin() override;

    using Anfitrion::hwnd;
    // While on, neither the screen saver nor the monitor's sleep may begin over this window.
    void reposoImpedido(bool si) { m_reposoImpedido = si; }

    void oyente(OyenteFormulario* oyente) override { m_oyente = oyente; }
    void cubrir(const Monitor& monitor) override;
    void recortar(std::span<const RectPixel> zonas) override { m_forma.recortar(hwnd(), zonas); }
    std::unique_ptr<Superficie> crearSuperficie(IdControl id, int elemento) override;
    MedidaTexto medir(std::string_view texto) const override { return medirLetra(texto); }
    void puntero(Puntero puntero) override;
    void refrescar() override;
    std::optional<ColoresSistema> colores() const override;
    void mostrar() override;
    void cerrar() override;

private:
    std::unique_ptr<Control> crearControl(TipoControl tipo, IdControl id, int elemento) override {
        return hacerControl(tipo, id, elemento);
    }
    void alMoverRaton(int id) override;
    void alPulsarSuperficie(const SuperficieWin& superficie, POINT donde) override;
    void pasarFoco(const ControlWin& desde, int sentido) override;
    void pintarSuelo(Lienzo& destino, const RECT& parte) const override;
    void apilar() override;
    HWND encimaDeNuevas() const override { return m_picBot; }
    void alMorir() override;
    void alCambiarColores() override;

    LRESULT alMensaje(UINT mensaje, WPARAM w, LPARAM l) override;
    LRESULT alMensajePropio(UINT mensaje, WPARAM w, LPARAM l);
    void alSuceder(Suceso suceso);
    LRESULT alOrdenSistema(WPARAM w, LPARAM l);
    LRESULT alTerminar(UINT mensaje, WPARAM w, LPARAM l);
    // Between a press on a surface that was taken up and its end. True: the message is dealt with.
    bool seguirRaton(UINT mensaje, WPARAM w, LPARAM l);
    void dejarRaton(GestoRaton gesto, Punto donde);
    Punto enTwips(POINT donde) const;
    void mantenerSitio(WINDOWPOS& cambio) const;
    void pedirActivacion();
    void cambioDeMonitores();
    void monitoresQuietos();
    void descargar(MotivoCierre motivo);
    void pintarFondo();
    bool ponerPuntero() const;

    FormaWin m_forma;
    SucesosSistema m_sucesos;
    int m_intentos = 0;                 // to hear of what happens to the session
    HCURSOR m_punteroNormal = nullptr;  // both shared, the system's to release
    HCURSOR m_punteroMarcha = nullptr;

    OyenteFormulario* m_oyente = nullptr;
    HWND m_picBot = HWND_BOTTOM;  // once it stands in its place; no surface is made after it has gone
    RECT m_sitio{};               // of the monitor that it covers, screen pixels; empty before it covers any
    Puntero m_puntero = Puntero::normal;
    bool m_reposoImpedido = false;
    bool m_siguiendo = false;  // the mouse, which is ours meanwhile
    DWORD m_habilitada = 0;    // when the last box closed, milliseconds of the system's start
    bool m_activacionPendiente = false;
    bool m_descargado = false;
};

}  // namespace sorvanel
