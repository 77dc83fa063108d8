#pragma once

#include "platform/archivos.h"
#include "platform/monitor.h"
#include "platform/programa.h"
#include "platform/sistema.h"

namespace sorvanel {

class AlmacenPerfil;

// All that the rooms need from outside, handed down as one. main owns what stands behind the
// references; they outlive every object that is given an Entorno.
struct Entorno {
    Programa& programa;
    Archivos& archivos;
    AlmacenPerfil& perfil;
    SistemaMonitores& monitores;
    Fabrica& fabrica;
    Reloj& reloj;
    Cursor& cursor;
    Avisos& avisos;
    Cola& cola;
    Reposo& reposo;
};

}  // namespace sorvanel
