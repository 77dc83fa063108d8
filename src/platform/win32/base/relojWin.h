#pragma once

#include <windows.h>
// After windows.h, whose types it uses.
#include <mmsystem.h>

#include <cstdint>
#include <utility>

#include "platform/sistema.h"

namespace sorvanel {

// The performance counter: it only goes forward, and unlike the tick count it is finer than the
// 10 to 16 ms of the system's own beat.
class RelojWin : public Reloj {
public:
    RelojWin();

    std::int64_t ahora() const override { return microsegundos() / 1000; }
    HoraLocal horaLocal(std::int64_t hace) const override;
    std::int64_t microsegundos() const;

private:
    std::int64_t m_frecuencia = 1;  // of the counter, 1/s
    std::int64_t m_inicio = 0;
};

// While at least one Uso lives the system's timers beat every millisecond; without it they tick at
// 15.6 ms, and with it the processor sleeps less.
class ResolucionReloj {
public:
    class Uso {
    public:
        Uso() = default;
        explicit Uso(ResolucionReloj& reloj) : m_reloj(&reloj) {
            if (reloj.m_usos++ == 0) timeBeginPeriod(1);
        }
        Uso(Uso&& otro) noexcept : m_reloj(std::exchange(otro.m_reloj, nullptr)) {}
        Uso& operator=(Uso&& otro) noexcept {
            std::swap(m_reloj, otro.m_reloj);
            return *this;
        }
        Uso(const Uso&) = delete;
        Uso& operator=(const Uso&) = delete;
        ~Uso() {
            if (m_reloj && --m_reloj->m_usos == 0) timeEndPeriod(1);
        }
        explicit operator bool() const { return m_reloj != nullptr; }

    private:
        ResolucionReloj* m_reloj = nullptr;
    };

private:
    int m_usos = 0;
};

}  // namespace sorvanel
