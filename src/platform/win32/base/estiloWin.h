#pragma once

#include <windows.h>

namespace sorvanel {

// The look that the system gives its controls today. It is asked for where there are any, and not for the whole
// program: a wall of weights has none, and the library that paints them takes as much memory as all the weights.
class EstiloWin {
public:
    EstiloWin() = default;
    EstiloWin(const EstiloWin&) = delete;
    EstiloWin& operator=(const EstiloWin&) = delete;
    ~EstiloWin() {
        if (m_contexto != INVALID_HANDLE_VALUE) ReleaseActCtx(m_contexto);
    }

    // While it lives, windows and boxes that are made have that look. Without memory for it they have the old one.
    class Uso {
    public:
        explicit Uso(EstiloWin& estilo) : m_activo(ActivateActCtx(estilo.contexto(), &m_senal) != 0) {}
        Uso(const Uso&) = delete;
        Uso& operator=(const Uso&) = delete;
        ~Uso() {
            if (m_activo) DeactivateActCtx(0, m_senal);
        }

    private:
        ULONG_PTR m_senal = 0;
        const bool m_activo;
    };

private:
    HANDLE contexto();

    HANDLE m_contexto = INVALID_HANDLE_VALUE;  // made when it is first needed
};

}  // namespace sorvanel
