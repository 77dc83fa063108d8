#pragma once

#include "platform/win32/controls/controlWin.h"

namespace sorvanel {

// The system's check box with our look, on the window's ground.
class CasillaWin final : public ControlDe<CasillaMarca> {
public:
    CasillaWin(Anfitrion& anfitrion, IdControl id, int elemento);

    bool marcada() const override;
    void marcada(bool si) override;
    void texto(const std::string& texto) override;

private:
    LRESULT atender(UINT mensaje, WPARAM w, LPARAM l) override;
    void alNotificar(UINT aviso) override;
    void pintar(Lienzo& lienzo, const RECT& zona) override;

    std::wstring m_texto;
};

}  // namespace sorvanel
