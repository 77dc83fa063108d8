#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "simulador/defectos.h"
#include "simulador/fuentePeso.h"
#include "simulador/silencio.h"
#include "simulador/trama.h"
#include "simulador/ventana.h"

namespace sorvanel::simulador {

struct Destino {
    std::string host;
    std::uint16_t puerto = 0;

    bool operator==(const Destino&) const = default;
};

// What both families take.
struct OpcionesComunes {
    bool ayuda = false;
    std::int64_t ritmo = 10'000;  // thousandths of a frame a second, each indicator
    OrigenPeso peso;
    Marcas marcas;
    Silencios silencios;
    std::optional<Ventana> avalancha;
    std::optional<std::chrono::milliseconds> duracion;
    std::optional<std::int64_t> tramas;
    std::optional<std::uint64_t> semilla;
    bool mostrar = false;
};

struct Opciones : OpcionesComunes {
    std::vector<Destino> destinos;
    DefectosTrama defectos;
};

// Bad usage, told in Spanish.
class ErrorUso : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// `argumentos` without the program's name. Throws ErrorUso. With `ayuda` the rest is left as it comes.
Opciones leerOpciones(const std::vector<std::string>& argumentos);

std::string_view textoAyuda();

}  // namespace sorvanel::simulador
