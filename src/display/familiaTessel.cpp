#include "display/familia.h"

namespace sorvanel {

constinit const Familia FAMILIA_TESSEL{
    .protocolo = 1, .nombre = "Tessel", .dibujo = Dibujo::tessel, .marcas = {.E = true}};

}  // namespace sorvanel
