#pragma once

#include <functional>
#include <utility>

#include "platform/sistema.h"

namespace sorvanel {

// Keeps the machine and its screen on. That alone does not stop the screen saver: the main window
// must refuse it too, and is told when.
class ReposoWin : public Reposo {
public:
    ~ReposoWin();

    void impedir(bool si) override;
    bool impedido() const { return m_impedido; }
    void alCambiar(std::function<void(bool impedido)> accion) { m_accion = std::move(accion); }

private:
    bool m_impedido = false;
    std::function<void(bool)> m_accion;
};

}  // namespace sorvanel
