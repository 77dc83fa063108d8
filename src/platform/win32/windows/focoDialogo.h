#pragma once

#include <windows.h>

#include <vector>

#include "platform/win32/controls/ordenControles.h"

namespace sorvanel {

// Where the keyboard is in a tool window: it comes back to the same control when the window does,
// goes on to the next when its control goes, and what it left is asked whether it is in order.
class FocoDialogo {
public:
    explicit FocoDialogo(const OrdenControles& orden) : m_orden(orden) {}

    // The window's; null when it has none, or no longer. Nothing is asked of any control then.
    void ventana(HWND ventana) { m_ventana = ventana; }

    void enfocar(ControlWin& control);
    bool tieneFoco(const ControlWin& control) const { return m_actual == &control; }
    void alRecibir(ControlWin& control) { m_actual = &control; }
    void alPerder(ControlWin& control, HWND nueva);
    void alRetirar(ControlWin& control);
    void baja(ControlWin& control);

    // The focus is the window's own, or a control's that cannot have it.
    void recuperar();
    // One control's turn to be asked; whoever is asked may destroy this.
    void validarUno();
    // The window can be worked with again.
    void reanudar();

    // What the window posts to itself, and answers with recuperar() and validarUno().
    static constexpr UINT MENSAJE_RECUPERAR = WM_APP + 1;
    static constexpr UINT MENSAJE_VALIDAR = WM_APP + 2;

private:
    bool dentro(HWND ventana) const { return ventana && m_ventana && IsChild(m_ventana, ventana); }

    const OrdenControles& m_orden;
    HWND m_ventana = nullptr;
    ControlWin* m_actual = nullptr;  // has it, or had it last
    std::vector<ControlWin*> m_porValidar;
    bool m_devolviendo = false;  // the one that loses it now is not asked
    Vida m_vida;
};

}  // namespace sorvanel
