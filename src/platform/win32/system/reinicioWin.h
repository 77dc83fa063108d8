#pragma once

#include <memory>
#include <string>

#include "platform/sistema.h"
#include "platform/temporizador.h"

namespace sorvanel {

// Has the system start the program again after a crash, a hang or an update that ended it; of its own accord the
// system does so only where it ran for a minute before.
class ReinicioWin {
public:
    explicit ReinicioWin(Fabrica& fabrica) : m_espera(fabrica.crearTemporizador()) {}
    // With those arguments (ASCII), once so many seconds have passed.
    void pedir(std::string argumentos, int segundos);

private:
    const std::unique_ptr<Temporizador> m_espera;
};

// Seconds since 1970, by the clock that the user sets.
std::int64_t segundosUTC();

}  // namespace sorvanel
