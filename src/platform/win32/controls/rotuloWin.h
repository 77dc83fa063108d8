#pragma once

#include <memory>

#include "platform/win32/controls/controlWin.h"

namespace sorvanel {

// A label of the system, painted by us on the window's ground.
class RotuloWin final : public ControlDe<Rotulo> {
public:
    RotuloWin(AnfitrionDialogo& anfitrion, IdControl id, int elemento);

    bool esRotulo() const override { return true; }
    void alCambiarEscala() override;

    void texto(const std::string& texto) override;
    std::string texto() const override { return aUtf8(m_texto); }
    void fuente(const Fuente& fuente) override;
    void ajuste(Ajuste ajuste) override;
    void colorTexto(Color color) override;
    void colorFondo(Color color) override;
    void alPulsar(std::function<void()> accion) override { alActuar(std::move(accion)); }

private:
    LRESULT atender(UINT mensaje, WPARAM w, LPARAM l) override;
    void pintar(Lienzo& lienzo, const RECT& zona) override;
    void alSoltar(POINT raton);
    void elegirFuente();

    std::wstring m_texto;
    Fuente m_fuente;  // without a name: the one that the controls share
    std::shared_ptr<FuenteWin> m_hecha;
    Ajuste m_ajuste = Ajuste::izquierda;
    Color m_colorTexto = aspecto::LETRA;
    Color m_fondo = -1;
};

}  // namespace sorvanel
