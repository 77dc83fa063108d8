#pragma once

#include <cstdint>

#include "platform/sistema.h"

namespace sorvanel {

// The performance counter: it only goes forward, and unlike the tick count it is finer than the
// 10 to 16 ms of the system's own beat.
class RelojWin : public Reloj {
public:
    RelojWin();

    std::int64_t ahora() const override { return microsegundos() / 1000; }
    std::int64_t microsegundos() const;

private:
    std::int64_t m_frecuencia = 1;  // of the counter, 1/s
    std::int64_t m_inicio = 0;
};

}  // namespace sorvanel
