#pragma once

#include "config/comun.h"
#include "platform/bitacora.h"
#include "platform/monitor.h"
#include "platform/programa.h"
#include "platform/sistema.h"

namespace sorvanel {

// What the program is put together from. main owns what stands behind the references; each object is handed of
// it what it uses.
struct Entorno {
    Programa& programa;
    const comun& com;
    SistemaMonitores& monitores;
    Fabrica& fabrica;
    Reloj& reloj;
    Cursor& cursor;
    Avisos& avisos;
    Cola& cola;
    Reposo& reposo;
    Bitacora& bitacora;
};

}  // namespace sorvanel
