#pragma once

#include "platform/win32/controls/pulsadorWin.h"

namespace sorvanel {

class MarcoColorWin final : public ControlDe<MarcoColor, PulsadorWin> {
public:
    MarcoColorWin(AnfitrionDialogo& anfitrion, IdControl id, int elemento);

    void color(Color color) override;
    Color color() const override { return m_color; }
    void alPulsar(std::function<void()> accion) override { alActuar(std::move(accion)); }

private:
    void pintar(Lienzo& lienzo, const RECT& zona) override;

    Color m_color = BLANCO;
};

}  // namespace sorvanel
