#pragma once

#include "platform/win32/controls/controlWin.h"

namespace sorvanel {

// A small square on the form that is dragged. It holds the mouse while it is pressed, and is reached
// by Tab; then the arrow keys push it by one design pixel, with Ctrl by ten.
class AsaWin final : public ControlDe<Asa> {
public:
    AsaWin(Anfitrion& anfitrion, IdControl id, int elemento);

    // An arrow key that was meant for a button must not move the grid.
    bool heredaFoco() const override { return false; }
    void oyente(OyenteAsa* oyente) override { m_oyente = oyente; }

private:
    void ponerVisible(bool visible) override;
    void ponerNombre(const std::wstring& texto) override { nombrarConTexto(texto); }
    LRESULT atender(UINT mensaje, WPARAM w, LPARAM l) override;
    void pintar(Lienzo& lienzo, const RECT& zona) override;
    LRESULT alRaton(UINT mensaje, LPARAM l);
    bool alTeclear(WPARAM tecla);
    void alPulsar(LPARAM l);
    void soltar();
    Punto dentro(LPARAM posicion) const;

    OyenteAsa* m_oyente = nullptr;
    bool m_arrastrando = false;
    bool m_movida = false;  // since it was pressed last
    Punto m_agarre;         // where within it that was
};

}  // namespace sorvanel
