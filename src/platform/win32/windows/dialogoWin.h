#pragma once

#include <memory>
#include <string>

#include "platform/dialogo.h"
#include "platform/win32/base/bucle.h"
#include "platform/win32/controls/anfitrion.h"
#include "platform/win32/painting/pinturaWin.h"

namespace sorvanel {

// The picture on which a tool window's controls stand. The window shows it.
class FondoDialogo final : public PinturaWin {
public:
    explicit FondoDialogo(const Anfitrion& dialogo)
        : PinturaWin(dialogo.escala(), dialogo.recursos().fuentes, dialogo.recursos().borrador), m_dialogo(dialogo) {}

    void dimensionar(float ancho, float alto) { situarPintura({0, 0, ancho, alto}); }
    void alCambiarEscala() { cambiarEscalaPintura(); }

    // Its size and place are the window's.
    void colocar(const Rectangulo&) override {}
    void mostrar(bool) override {}
    bool visible() const override { return true; }
    void leyenda(std::string_view) override {}
    void sugerencia(std::string_view) override {}
    void refrescar() override { UpdateWindow(m_dialogo.hwnd()); }

private:
    void tocar(const RECT* zona) override { m_dialogo.tocarDetras(zona ? *zona : entero()); }

    const Anfitrion& m_dialogo;
};

// A tool window: a picture of its own as the ground, which is also what it is dragged by.
class DialogoWin final : public FormularioDialogo, private Anfitrion {
public:
    // Owned by that window, hidden. Its class is "SorvanelDialogo" and the number of its id, by which
    // it is found from outside. Throws std::runtime_error when the system gives no window.
    DialogoWin(RecursosVentanas& recursos, Bucle& bucle, HWND propietaria, IdControl id);
    ~DialogoWin() override;

    void oyente(OyenteDialogo* oyente) override { m_oyente = oyente; }
    void titulo(const std::string& texto) override;
    void tamano(float ancho, float alto) override;
    void escala(float twipsPorPixelX, float twipsPorPixelY) override;
    void centrarEn(const RectPixel& zona) override;
    void mostrar() override;
    void ocultar() override;
    Superficie& fondo() override { return m_fondo; }
    MedidaTexto medir(std::string_view texto) const override { return medirLetra(texto); }
    void soltarRaton() override { ReleaseCapture(); }
    void agarrarTitulo() override;
    std::unique_ptr<Superficie> crearSuperficie(IdControl id, int elemento) override;
    void ordenTeclado(std::span<Control* const> orden) override;

private:
    std::unique_ptr<Control> crearControl(TipoControl tipo, IdControl id, int elemento) override {
        return hacerControl(tipo, id, elemento);
    }
    void pintarSuelo(Lienzo& destino, const RECT& parte) const override;
    void alPulsarFondo() override;
    void alMorir() override;
    LRESULT alMensaje(UINT mensaje, WPARAM w, LPARAM l) override;
    void situarVentana(const RectPixel* centro);
    void seguirRaton();
    void pedirCierre();

    Bucle& m_bucle;
    OyenteDialogo* m_oyente = nullptr;
    bool m_agarrado = false;  // the button is down on the ground
    POINT m_agarre{};         // where, on the screen
    FondoDialogo m_fondo;
};

}  // namespace sorvanel
