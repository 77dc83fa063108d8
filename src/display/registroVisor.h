#pragma once

#include <cstdint>
#include <string>

#include "config/comun.h"
#include "display/aspecto.h"
#include "display/familia.h"

namespace sorvanel {

// What a display of the concentrator's family shows unless told otherwise: "Suma en carga (2)".
constexpr std::int16_t MODO_BULK_OMISION = 4;
constexpr std::int16_t MODO_BULK_MAXIMO = 5;

constexpr const char* CLAVE_ORIGEN = "Origen";

// What the settings file holds of one display. An appearance value that is empty is stored as an absent key.
struct RegistroVisor {
    const Familia* familia = &FAMILIA_TESSEL;
    std::int16_t modoBulk = 0;
    std::int32_t port = 0;
    std::string caption;
    std::string origen;     // whose datagrams are its, as it stands there; empty: anybody's. Never written: see visor
    std::int16_t fila = 0;  // 0: no location
    std::int16_t columna = 0;
    ValoresRasgos rasgos;
};

// From the accessor's current section.
RegistroVisor leerRegistroVisor(const comun& com, const AccesorINI& ini);
void guardarRegistroVisor(const comun& com, int n, const RegistroVisor& registro);

}  // namespace sorvanel
