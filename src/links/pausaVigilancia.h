#pragma once

#include <utility>

#include "platform/temporizador.h"

namespace sorvanel {

// A watchdog that holds still while its link hands out what came, and begins its interval anew afterwards, if then
// `sigue` says so. Whatever a display throws: a link whose watchdog stays off would never tell a silence.
template <typename Sigue>
class PausaVigilancia {
public:
    PausaVigilancia(Temporizador& tim, Sigue sigue) : m_tim(tim), m_sigue(std::move(sigue)) { m_tim.habilitado(false); }
    ~PausaVigilancia() {
        if (m_sigue()) m_tim.habilitado(true);
    }
    PausaVigilancia(const PausaVigilancia&) = delete;
    PausaVigilancia& operator=(const PausaVigilancia&) = delete;

private:
    Temporizador& m_tim;
    Sigue m_sigue;
};

}  // namespace sorvanel
