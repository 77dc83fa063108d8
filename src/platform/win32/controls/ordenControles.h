#pragma once

#include <windows.h>

#include <span>
#include <vector>

#include "platform/win32/controls/controlWin.h"

namespace sorvanel {

// In which order what stands on a tool window lies, from the top: the system's Tab key follows it,
// and a label just before a control names it. Frames lie beneath everything else, later ones above
// earlier ones.
class OrdenControles {
public:
    // Something without keyboard.
    void anadir(HWND ventana) { colocar({ventana, nullptr}); }
    void anadir(ControlWin& control);
    void quitar(HWND ventana);
    void quitar(const ControlWin& control);

    // Frames that were made before other things still lie above them: to be put beneath before anything
    // is painted.
    bool porApilar() const { return m_porApilar; }
    void apilarMarcos();

    // Those first, each after the label that came before it; the others keep their order.
    void ordenar(std::span<ControlWin* const> primero);

    // Null when there is none that the keyboard can reach.
    ControlWin* primero() const;
    // The next one that it can reach; from the beginning again after the last.
    ControlWin* siguiente(const ControlWin* desde) const;

    const std::vector<ControlWin*>& marcos() const { return m_marcos; }
    template <typename Accion>
    void paraCadaControl(Accion accion) const {
        for (const Puesto& p : m_puestos) {
            if (p.control) accion(*p.control);
        }
        for (ControlWin* marco : m_marcos) accion(*marco);
    }

private:
    struct Puesto {
        HWND ventana = nullptr;
        ControlWin* control = nullptr;
    };
    void colocar(const Puesto& puesto);
    void apilar() const;

    std::vector<Puesto> m_puestos;
    bool m_porApilar = false;
    std::vector<ControlWin*> m_marcos;  // the lowest first
};

}  // namespace sorvanel
