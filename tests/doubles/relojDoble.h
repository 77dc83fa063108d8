#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "platform/sistema.h"
#include "platform/temporizador.h"

namespace sorvanel {

class TemporizadorDoble;

// A clock that is moved by hand and ticks its timers on the way.
class RelojDoble : public Reloj {
public:
    struct Estado {
        std::int64_t ahora = 1'000'000;
        std::vector<TemporizadorDoble*> temporizadores;  // alive, in the order they were made
    };

    std::int64_t ahora() const override { return m_estado->ahora; }
    // Moves the clock and runs each tick that falls due, in the order of their times (of two at the same
    // moment, the older timer first); during a tick the clock stands at its time.
    void avanzar(std::int64_t milisegundos);
    // Moves the clock alone: as when the thread was busy and no tick came through.
    void saltar(std::int64_t milisegundos) { m_estado->ahora += milisegundos; }

    const std::vector<TemporizadorDoble*>& temporizadores() const { return m_estado->temporizadores; }
    std::shared_ptr<Estado> estado() const { return m_estado; }

private:
    std::shared_ptr<Estado> m_estado = std::make_shared<Estado>();
};

class TemporizadorDoble : public Temporizador {
public:
    explicit TemporizadorDoble(const RelojDoble& reloj) : m_estado(reloj.estado()) {
        m_estado->temporizadores.push_back(this);
    }
    ~TemporizadorDoble() override { std::erase(m_estado->temporizadores, this); }

    void intervalo(int milisegundos) override {
        m_intervalo = std::max(1, milisegundos);
        empezar();
    }
    void habilitado(bool si) override {
        m_habilitado = si;
        empezar();
    }
    bool habilitado() const override { return m_habilitado; }
    void alTic(std::function<void()> accion) override { m_accion = std::move(accion); }

    std::int64_t vence() const { return m_vence; }
    // One tick now, as if its time had come. The tick may destroy the timer.
    void disparar() {
        if (!m_habilitado) return;
        empezar();
        if (const auto accion = m_accion) accion();
    }

private:
    void empezar() { m_vence = m_estado->ahora + m_intervalo; }

    std::shared_ptr<RelojDoble::Estado> m_estado;
    std::function<void()> m_accion;
    std::int64_t m_vence = 0;
    int m_intervalo = 1000;
    bool m_habilitado = false;
};

inline void RelojDoble::avanzar(std::int64_t milisegundos) {
    const std::shared_ptr<Estado> estado = m_estado;
    const std::int64_t fin = estado->ahora + milisegundos;
    while (true) {
        TemporizadorDoble* primero = nullptr;
        for (TemporizadorDoble* t : estado->temporizadores) {
            if (t->habilitado() && t->vence() <= fin && (primero == nullptr || t->vence() < primero->vence())) {
                primero = t;
            }
        }
        if (primero == nullptr) break;
        estado->ahora = std::max(estado->ahora, primero->vence());
        primero->disparar();
    }
    estado->ahora = std::max(estado->ahora, fin);
}

}  // namespace sorvanel
