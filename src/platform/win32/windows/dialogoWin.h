#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/dialogo.h"
#include "platform/win32/base/bucle.h"
#include "platform/win32/base/ventanaWin.h"
#include "platform/win32/controls/anfitrionDialogo.h"
#include "platform/win32/controls/ordenControles.h"
#include "platform/win32/controls/sugerenciasWin.h"
#include "platform/win32/controls/superficieWin.h"
#include "platform/win32/windows/focoDialogo.h"
#include "platform/win32/windows/fondoDialogo.h"
#include "platform/win32/windows/recursosDialogo.h"

namespace sorvanel {

// A tool window: its ground, its scale, and the messages between the system and its controls.
class DialogoWin final : public FormularioDialogo, private VentanaWin, private AnfitrionDialogo {
public:
    // Owned by that window, hidden. Its class is "SorvanelDialogo" and the number of its id, by which
    // it is found from outside. Throws std::runtime_error when the system gives no window.
    DialogoWin(RecursosDialogo& recursos, Bucle& bucle, HWND propietaria, IdControl id);
    ~DialogoWin() override;

    using VentanaWin::hwnd;

    void oyente(OyenteDialogo* oyente) override { m_oyente = oyente; }
    void titulo(const std::string& texto) override;
    void tamano(float ancho, float alto) override;
    void centrarEn(const Monitor& monitor) override;
    void mostrar() override;
    void ocultar() override;
    Superficie& fondo() override { return m_fondo; }
    MedidaTexto medir(std::string_view texto) const override;
    void soltarRaton() override { ReleaseCapture(); }
    void agarrarTitulo() override;

    std::unique_ptr<CajaTexto> crearCajaTexto(IdControl id, int elemento) override;
    std::unique_ptr<CasillaMarca> crearCasilla(IdControl id, int elemento) override;
    std::unique_ptr<Lista> crearLista(IdControl id, int elemento) override;
    std::unique_ptr<Rotulo> crearRotulo(IdControl id, int elemento) override;
    std::unique_ptr<BotonImagen> crearBotonImagen(IdControl id, int elemento) override;
    std::unique_ptr<MarcoColor> crearMarcoColor(IdControl id, int elemento) override;
    std::unique_ptr<BotonTexto> crearBotonTexto(IdControl id, int elemento) override;
    std::unique_ptr<Marco> crearMarco(IdControl id, int elemento) override;
    std::unique_ptr<Superficie> crearSuperficie(IdControl id, int elemento) override;
    void ordenTeclado(std::span<Control* const> orden) override;

private:
    HWND ventana() const override { return hwnd(); }
    const Escala& escala() const override { return m_escala; }
    FuentesWin& fuentes() override { return m_recursos.fuentes; }
    void alMoverRaton(ZonaRaton) override {}
    HFONT letra() const override { return m_letra->get(); }
    int altoLetra() const override { return m_altoLetra; }
    Lienzo& borrador() override { return m_recursos.borrador; }
    void pintarDetras(Lienzo& destino, const RECT& parte) const override;
    void tocarDetras(const RECT& parte) override;
    void sugerencia(HWND control, const std::wstring& texto) override { m_sugerencias.poner(control, texto); }
    void nombreAccesible(HWND control, const std::wstring& texto) override;
    void alPulsarFondo() override;
    void enfocar(ControlWin& control) override { m_foco.enfocar(control); }
    bool tieneFoco(const ControlWin& control) const override { return m_foco.tieneFoco(control); }
    void alRecibirFoco(ControlWin& control) override { m_foco.alRecibir(control); }
    void alPerderFoco(ControlWin& control, HWND nueva) override { m_foco.alPerder(control, nueva); }
    void alRetirar(ControlWin& control) override { m_foco.alRetirar(control); }
    void baja(ControlWin& control) override;
    void baja(SuperficieWin& superficie) override;

    template <typename Tipo>
    std::unique_ptr<Tipo> crearUno(IdControl id, int elemento);
    LRESULT alMensaje(UINT mensaje, WPARAM w, LPARAM l) override;
    LRESULT alMensajePropio(UINT mensaje, WPARAM w, LPARAM l);
    // To the control that it is about; the system's answer where it is about none of ours.
    LRESULT devolver(HWND control, UINT mensaje, WPARAM w, LPARAM l);
    void cambiarEscala(const Escala& escala);
    void elegirLetra();
    void situarVentana(bool centrar);
    void alAnadir();
    void seguirRaton();
    void pedirCierre();
    void alMorir();

    RecursosDialogo& m_recursos;
    Bucle& m_bucle;
    OyenteDialogo* m_oyente = nullptr;
    Escala m_escala;
    Monitor m_monitor;
    bool m_agarrado = false;  // the button is down on the ground
    POINT m_agarre{};         // where, on the screen
    std::shared_ptr<FuenteWin> m_letra;
    int m_altoLetra = 0;
    SugerenciasWin m_sugerencias;
    FondoDialogo m_fondo;
    OrdenControles m_orden;
    FocoDialogo m_foco{m_orden};
    std::vector<SuperficieWin*> m_superficies;
};

}  // namespace sorvanel
