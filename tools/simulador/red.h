#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "simulador/lectura.h"

namespace sorvanel::simulador {

// Something that happened to a connection. Numbers go up from 1 and never come again.
struct Suceso {
    enum class Tipo { Llega, Datos, SeVa, Cabe };
    Tipo tipo = Tipo::Llega;
    std::int64_t conexion = 0;
    std::string datos;  // what came; for Llega who it is
};

// TCP as its server sees it.
class Red {
public:
    virtual ~Red() = default;
    // What stands in the way, in Spanish; empty when it listens.
    virtual std::string escuchar() = 0;
    virtual void dejarDeEscuchar() = 0;
    // Where it listens, for people.
    virtual std::string donde() const = 0;
    // Waits no longer than that, and only until something happens; what did is added to `sucesos`.
    // Without `acepta` clients are left waiting to be accepted. A connection that went (SeVa) is already closed.
    virtual void esperar(Instante cuanto, bool acepta, std::vector<Suceso>& sucesos) = 0;
    // How many bytes were taken. When not all, a Cabe follows once there is room, or a SeVa.
    virtual std::size_t enviar(std::int64_t conexion, std::string_view datos) = 0;
    virtual void cerrar(std::int64_t conexion) = 0;
    // With a reset: what is still on its way may be lost.
    virtual void reiniciar(std::int64_t conexion) = 0;
};

}  // namespace sorvanel::simulador
