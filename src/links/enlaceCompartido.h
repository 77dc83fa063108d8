#pragma once

#include "links/suscriptorPeso.h"

namespace sorvanel {

// The one connection through which all displays of the concentrator's family read. The program
// owns it; displays count themselves in and out.
class EnlaceCompartido {
public:
    virtual ~EnlaceCompartido() = default;

    virtual void hola() = 0;
    virtual void adios() = 0;
    // Subscribes; false when the link cannot be started. The subscriber must call Cerrar before it goes.
    virtual bool enMarcha(SuscriptorPeso& visor) = 0;
    virtual void Cerrar(SuscriptorPeso& visor) = 0;
};

}  // namespace sorvanel
