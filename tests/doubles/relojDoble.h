#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

#include "platform/sistema.h"
#include "platform/temporizador.h"

namespace sorvanel {

class TemporizadorDoble;

// A clock that is moved by hand and ticks its timers on the way.
class RelojDoble : public Reloj {
public:
    std::vector<TemporizadorDoble*> temporizadores;  // alive, in the order they were made

    std::int64_t ahora() const override { return m_ahora; }
    HoraLocal local{22, 11, 10, 42};  // stands still
    HoraLocal horaLocal(std::int64_t hace) const override {
        return {local.dia, local.mes, local.hora, local.minuto - static_cast<int>(hace / 60'000)};
    }
    // Moves the clock and runs each tick that falls due, in the order of their times (of two at the same
    // moment, the older timer first); during a tick the clock stands at its time.
    void avanzar(std::int64_t milisegundos);
    // Moves the clock alone: as when the thread was busy and no tick came through.
    void saltar(std::int64_t milisegundos) { m_ahora += milisegundos; }

private:
    std::int64_t m_ahora = 1'000'000;
};

class TemporizadorDoble : public Temporizador {
public:
    explicit TemporizadorDoble(RelojDoble& reloj) : m_reloj(reloj) { m_reloj.temporizadores.push_back(this); }
    ~TemporizadorDoble() override { std::erase(m_reloj.temporizadores, this); }

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
    void empezar() { m_vence = m_reloj.ahora() + m_intervalo; }

    RelojDoble& m_reloj;
    std::function<void()> m_accion;
    std::int64_t m_vence = 0;
    int m_intervalo = 1000;
    bool m_habilitado = false;
};

inline void RelojDoble::avanzar(std::int64_t milisegundos) {
    const std::int64_t fin = m_ahora + milisegundos;
    while (true) {
        TemporizadorDoble* primero = nullptr;
        for (TemporizadorDoble* t : temporizadores) {
            if (t->habilitado() && t->vence() <= fin && (primero == nullptr || t->vence() < primero->vence())) {
                primero = t;
            }
        }
        if (primero == nullptr) break;
        m_ahora = std::max(m_ahora, primero->vence());
        primero->disparar();
    }
    m_ahora = std::max(m_ahora, fin);
}

}  // namespace sorvanel
