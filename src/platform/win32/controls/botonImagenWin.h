#pragma once

#include "platform/win32/controls/pulsadorWin.h"

namespace sorvanel {

class BotonImagenWin final : public ControlDe<BotonImagen, PulsadorWin> {
public:
    BotonImagenWin(AnfitrionDialogo& anfitrion, IdControl id, int elemento);

    void dibujo(Dibujo dibujo) override;
    void alPulsar(std::function<void()> accion) override { alActuar(std::move(accion)); }
    void repetir(bool si) override { repite(si); }

private:
    void pintar(Lienzo& lienzo, const RECT& zona) override;

    Dibujo m_dibujo = Dibujo::ninguno;
};

}  // namespace sorvanel
