#pragma once

#include "links/enlacePeso.h"

namespace sorvanel {

// The one connection through which all displays of the concentrator's family read. The program
// owns it; displays count themselves in and out.
class EnlaceCompartido : public EnlacePeso {
public:
    void hola() override = 0;
    void adios() override = 0;
};

}  // namespace sorvanel
