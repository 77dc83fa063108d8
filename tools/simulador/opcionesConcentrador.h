#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "simulador/faltas.h"
#include "simulador/linea.h"
#include "simulador/opciones.h"

namespace sorvanel::simulador {

struct OpcionesConcentrador : OpcionesComunes {
    // Names or addresses to listen on.
    std::vector<std::string> escucha{"127.0.0.1", "::1"};
    // The first must work; the others may be unknown to this machine.
    std::uint16_t puerto = 9084;  // 0: any free one
    std::vector<Direccion> direcciones;
    std::vector<Decimales> decimales{Decimales{}};  // goes round
    std::optional<std::int64_t> acumulado;          // instead of the model's
    std::string finLinea = "\r";
    Faltas faltas;
    std::optional<std::int64_t> veces;     // sessions that have faults; the later ones have none
    std::optional<std::int64_t> sesiones;  // the run ends with that many ended
    std::vector<Ventana> ausencias;        // when it does not listen, and holds no session
    bool sinAceptar = false;
};

// `argumentos` without the word that chose the concentrator. Throws ErrorUso. With `ayuda` the rest is
// left as it comes.
OpcionesConcentrador leerOpcionesConcentrador(std::span<const std::string> argumentos);

std::string_view textoAyudaConcentrador();

}  // namespace sorvanel::simulador
