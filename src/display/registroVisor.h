#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "config/comun.h"
#include "config/seccionVisor.h"
#include "display/familia.h"
#include "platform/color.h"

namespace sorvanel {

// What a display of the concentrator's family shows unless told otherwise: "Suma en carga (2)".
constexpr std::int16_t MODO_BULK_OMISION = 4;
constexpr std::int16_t MODO_BULK_MAXIMO = 5;

// What the settings file holds of one display. An empty appearance value means: as the shared
// design says; it is stored as an absent key.
struct RegistroVisor {
    const Familia* familia = &FAMILIA_TESSEL;
    std::int16_t modoBulk = 0;
    std::int32_t port = 0;
    std::string caption;
    std::string formatoPeso;
    std::int16_t fila = 0;  // 0: no location
    std::int16_t columna = 0;
    std::optional<std::int16_t> anchoEtiqueta;
    std::optional<std::int16_t> ajusteEtiqueta;
    std::optional<Color> colorFondoEtiqueta;
    std::optional<Color> colorTextoEtiqueta;
    std::optional<Color> colorFondoPeso;
    std::optional<Color> colorTextoPeso;
    std::optional<float> ratioAlturas;
};

// From the accessor's current section.
RegistroVisor leerRegistroVisor(const comun& com, const AccesorINI& ini);
void guardarRegistroVisor(const Entorno& entorno, int n, const RegistroVisor& registro);

}  // namespace sorvanel
