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

// Stands where there is no concentrator link: no display of that family can be started.
class EnlaceAusente final : public EnlaceCompartido {
public:
    void hola() override {}
    void adios() override {}
    bool enMarcha(SuscriptorPeso&) override { return false; }
    void Cerrar(SuscriptorPeso&) override {}
};

}  // namespace sorvanel
