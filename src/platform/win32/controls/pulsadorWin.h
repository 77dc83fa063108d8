#pragma once

#include "platform/win32/controls/controlWin.h"

namespace sorvanel {

// How a small button is pressed: by the mouse, which must be released on it, by Enter or the space
// bar. The system's own button would take the focus with each click; apart from the mouse it is one.
class PulsadorWin : public ControlWin {
protected:
    using ControlWin::ControlWin;

    void crearPulsador(const wchar_t* clase, IdControl id, int elemento);
    // A click brings the focus with it.
    void tomaFoco(bool si) { m_tomaFoco = si; }
    void repite(bool si) { m_repite = si; }
    aspecto::Estado estado() const;

    LRESULT atender(UINT mensaje, WPARAM w, LPARAM l) override;
    void alNotificar(UINT aviso) override;
    void ponerNombre(const std::wstring& texto) override { nombrarConTexto(texto); }

private:
    LRESULT alRaton(UINT mensaje, LPARAM l);
    void alApretar();
    void alMover(LPARAM l);
    void soltar();
    void alTic();
    bool alTeclear(UINT mensaje, WPARAM tecla, LPARAM detalle);
    bool dentro(LPARAM l) const;

    bool m_tomaFoco = false;
    bool m_repite = false;
    bool m_apretado = false;  // by the mouse, which is then ours
    bool m_dentro = false;
    bool m_encima = false;
    bool m_tecla = false;  // the space bar is down
};

}  // namespace sorvanel
