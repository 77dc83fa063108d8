#pragma once

#include <windows.h>

#include <span>
#include <vector>

namespace sorvanel {

class ControlWin;

// In which order the controls of a window lie, from the top: the system's Tab key follows it.
class OrdenControles {
public:
    void anadir(ControlWin& control) { m_controles.push_back(&control); }
    void quitar(const ControlWin& control);
    // Those first; the others keep their order.
    void ordenar(std::span<ControlWin* const> primero);
    // Puts their windows into that order, above all others. The lowest of them.
    HWND apilar() const;

    const std::vector<ControlWin*>& todos() const { return m_controles; }
    // The first that the keyboard can reach; null when there is none.
    ControlWin* primero() const;
    // The same, the nearest to that point of the window, device pixels, of those that take the focus of others over.
    ControlWin* masCercano(POINT donde) const;

private:
    std::vector<ControlWin*> m_controles;
};

// That child directly below that other one, or HWND_TOP and its like; SetWindowPos's flags say what besides. False
// where the system refuses.
bool ponerDebajo(HWND ventana, HWND encima, UINT ademas = 0);

}  // namespace sorvanel
