#pragma once

#include <cstdint>
#include <string>

#include "config/comun.h"
#include "platform/color.h"

namespace sorvanel {

struct FuenteMensaje {
    std::string nombre = "Arial";
    float puntos = 64;
    bool negrita = false;
    bool cursiva = false;
    bool subrayado = false;

    bool operator==(const FuenteMensaje&) const = default;
};

// What the section "MENSAJE" holds.
struct AjustesMensaje {
    bool enUso = false;
    std::string texto;
    FuenteMensaje fuente;
    Color colorFondo = NEGRO;
    Color colorTexto = BLANCO;
    std::int32_t velocidad = 4;  // pixels every 10 ms; 0 or less: still
};

// Each part that is missing or unreadable comes as its default.
AjustesMensaje leerMensaje(const comun& com);
void guardarMensaje(const comun& com, const AjustesMensaje& ajustes);

}  // namespace sorvanel
