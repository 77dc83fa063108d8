#pragma once

#include "platform/win32/controls/pulsadorWin.h"

namespace sorvanel {

class BotonTextoWin final : public ControlDe<BotonTexto, PulsadorWin> {
public:
    BotonTextoWin(AnfitrionDialogo& anfitrion, IdControl id, int elemento);

    void texto(const std::string& texto) override;
    void dibujo(Dibujo dibujo) override;
    void alPulsar(std::function<void()> accion) override { alActuar(std::move(accion)); }

private:
    void ponerNombre(const std::wstring& texto) override;
    void pintar(Lienzo& lienzo, const RECT& zona) override;

    std::wstring m_texto;
    bool m_conNombre = false;  // one that is not the text
    Dibujo m_dibujo = Dibujo::ninguno;
};

}  // namespace sorvanel
