#pragma once

#include <windows.h>

#include <vector>

#include "platform/win32/base/vida.h"
#include "platform/win32/controls/ordenControles.h"

namespace sorvanel {

// Where the keyboard is in a window: it comes back to the same control when the window does, goes on to the nearest
// when its control goes, so that what takes the place of another takes its focus too; and what it left is asked whether
// it is in order.
class FocoVentana {
public:
    explicit FocoVentana(const OrdenControles& orden) : m_orden(orden) {}

    // The window's; null when it has none, or no longer. Nothing is asked of any control then.
    void ventana(HWND ventana) { m_ventana = ventana; }

    void enfocar(ControlWin& control);
    // Has it the focus, or had it when another window was made the active one?
    bool tieneFoco(const ControlWin& control) const { return m_actual == &control; }
    void alRecibir(ControlWin& control);
    // `nueva` is the window that gets it; null for none of this program's.
    void alPerder(ControlWin& control, HWND nueva);
    // The control was hidden or disabled, perhaps with the focus on it; or it can be reached now, perhaps alone.
    void alRetirar(ControlWin& control);
    void alAparecer();
    void baja(ControlWin& control);

    // The focus is the window's own, or a control's that cannot have it.
    void recuperar();
    // One control's turn to be asked; whoever is asked may destroy this.
    void validarUno();
    // The window can be worked with again.
    void reanudar();

private:
    bool dentro(HWND ventana) const { return ventana && m_ventana && IsChild(m_ventana, ventana); }
    void recuperarLuego() const;

    const OrdenControles& m_orden;
    HWND m_ventana = nullptr;
    ControlWin* m_actual = nullptr;  // has it, or had it last
    bool m_hubo = false;             // some control has had it
    POINT m_donde{};                 // the middle of that one, device pixels of the window
    std::vector<ControlWin*> m_porValidar;
    bool m_devolviendo = false;  // the one that loses it now is not asked
    Vida m_vida;
};

}  // namespace sorvanel
