#pragma once

#include <algorithm>
#include <utility>
#include <vector>

namespace sorvanel {

// Something that has painted in memory what is not on the screen yet.
class PorVolcar {
public:
    virtual void volcarPendiente() = 0;

protected:
    ~PorVolcar() = default;
};

// Where it is decided when what sockets and timers brought comes to the screen: at the end of their batch, straight to
// the window, in one copy for all that touched it. What is painted at any other moment (input, layout, a box's own
// loop) goes the system's way, by WM_PAINT, but for what a window shows when it is first seen.
class Tandas {
public:
    // While it lives, what is painted belongs to a batch.
    class Abierta {
    public:
        explicit Abierta(Tandas& tandas) : m_tandas(tandas), m_antes(std::exchange(tandas.m_abierta, true)) {}
        ~Abierta() { m_tandas.m_abierta = m_antes; }
        Abierta(const Abierta&) = delete;
        Abierta& operator=(const Abierta&) = delete;

    private:
        Tandas& m_tandas;
        const bool m_antes;
    };

    bool abierta() const { return m_abierta; }
    // Once for each batch that touches it; it takes itself off where it goes before the batch ends.
    void anotar(PorVolcar& uno) { m_pendientes.push_back(&uno); }
    void quitar(const PorVolcar& uno) { std::erase(m_pendientes, &uno); }
    // The end of a batch. Nothing is noted meanwhile: copying runs nobody's code.
    void terminar() {
        for (PorVolcar* uno : m_pendientes) uno->volcarPendiente();
        m_pendientes.clear();
    }

private:
    bool m_abierta = false;
    std::vector<PorVolcar*> m_pendientes;
};

}  // namespace sorvanel
