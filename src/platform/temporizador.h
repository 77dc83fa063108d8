#pragma once

#include <functional>

namespace sorvanel {

// A timer of the one thread. It ticks every interval while enabled; enabling it, also when it is
// enabled already, starts the interval anew. Created disabled. Destroying it ends the ticks.
class Temporizador {
public:
    virtual ~Temporizador() = default;

    virtual void intervalo(int milisegundos) = 0;
    virtual void habilitado(bool si) = 0;
    virtual bool habilitado() const = 0;
    virtual void alTic(std::function<void()> accion) = 0;
};

}  // namespace sorvanel
