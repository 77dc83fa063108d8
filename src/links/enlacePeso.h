#pragma once

#include "links/suscriptorPeso.h"

namespace sorvanel {

// A link as a display sees it.
class EnlacePeso {
public:
    virtual ~EnlacePeso() = default;

    // A display counts itself in before it uses the link, and out when it does so no more.
    virtual void hola() {}
    virtual void adios() {}
    // Feeds that display from now on; false when the link cannot be started. The display must call Cerrar before it
    // goes.
    virtual bool enMarcha(SuscriptorPeso& visor) = 0;
    virtual void Cerrar(SuscriptorPeso& visor) = 0;
};

}  // namespace sorvanel
