#pragma once

#include "platform/monitor.h"

namespace sorvanel {

// A tool of the configuration, as the main window opens and closes it. At most one is open.
class Herramienta {
public:
    virtual ~Herramienta() = default;

    virtual bool cargado() const = 0;
    virtual void Mostrar() = 0;
    // Closes; false when it refuses, as while an entry is invalid. Discarding never refuses.
    virtual bool Descargar(bool descartar) = 0;
    // The window covers another monitor, or the same at another size: the tool follows.
    virtual void seguirMonitor(const Monitor& monitor) = 0;
};

}  // namespace sorvanel
