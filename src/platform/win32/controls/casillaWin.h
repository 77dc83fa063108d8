#pragma once

#include "platform/win32/controls/controlWin.h"

namespace sorvanel {

// The system's check box with our look, on the window's ground.
class CasillaWin final : public ControlDe<CasillaMarca> {
public:
    CasillaWin(AnfitrionDialogo& anfitrion, IdControl id, int elemento);

    bool marcada() const override;
    void marcada(bool si) override;
    void texto(const std::string& texto) override;
    void alPulsar(std::function<void()> accion) override { alActuar(std::move(accion)); }

private:
    LRESULT atender(UINT mensaje, WPARAM w, LPARAM l) override;
    void alNotificar(UINT aviso) override;
    void pintar(Lienzo& lienzo, const RECT& zona) override;
    void alMoverRaton();

    std::wstring m_texto;
    bool m_encima = false;
};

}  // namespace sorvanel
