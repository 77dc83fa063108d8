#pragma once

#include <string>

#include "platform/formulario.h"
#include "platform/win32/base/ventanaWin.h"
#include "platform/win32/painting/anfitrion.h"

namespace sorvanel {

// A push button of the system, painted by us: it keeps the system's behaviour, its messages and its
// name for screen readers, and has our look.
class BotonWin final : public Boton, private VentanaWin {
public:
    BotonWin(Anfitrion& anfitrion, IdControl id);
    ~BotonWin() override;

    using VentanaWin::hwnd;
    void alCambiarEscala();
    const Rectangulo& lugar() const { return m_lugar; }
    // Can the keyboard reach it?
    bool alcanzable() const { return m_visible && m_habilitado && hwnd(); }

    void colocar(const Rectangulo& lugar) override;
    void mostrar(bool visible) override;
    void habilitar(bool si) override;
    void dibujo(Dibujo dibujo) override;
    void rotulo(const std::string& texto) override;
    void nombre(const std::string& texto) override;
    void colorDetras(Color color) override;
    float anchoRotulo(const std::string& texto) const override;
    void refrescar() override;
    void alPulsar(std::function<void()> accion) override { m_accion = std::move(accion); }

private:
    LRESULT alMensaje(UINT mensaje, WPARAM w, LPARAM l) override;
    bool alTeclear(WPARAM tecla, LPARAM detalle);
    LRESULT teclasPropias(LPARAM mensaje);
    void alMoverRaton();
    void pulsar();
    void pintar(const DRAWITEMSTRUCT& pedido);
    void pintarContenido(Lienzo& lienzo, const RECT& zona, bool habilitado) const;
    int ladoDibujo() const;
    int anchoTexto(HDC dc, const std::wstring& texto) const;
    int px(float pixelesDeDiseno) const;

    Anfitrion& m_anfitrion;
    Rectangulo m_lugar;
    bool m_visible = false;
    bool m_habilitado = true;
    bool m_encima = false;
    Dibujo m_dibujo = Dibujo::ninguno;
    std::wstring m_rotulo;
    Color m_detras = BLANCO;
    std::function<void()> m_accion;
};

}  // namespace sorvanel
