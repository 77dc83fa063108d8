#pragma once

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "simulador/opciones.h"
#include "simulador/reproduccion.h"

// All that differs between systems; one file of this name for each.
namespace sorvanel::simulador {

// What the system cannot do, told in Spanish.
class ErrorSistema : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Readies the console for UTF-8 and takes over Ctrl+C (and what else asks a program to end) for as
// long as it lives. One at a time.
class Consola {
public:
    Consola();
    ~Consola();
    Consola(const Consola&) = delete;
    Consola& operator=(const Consola&) = delete;
};

// The program's arguments in UTF-8, without its name.
std::vector<std::string> argumentos(int cuantos, char** valores);

// A reloj that knows of the console's Ctrl+C.
std::unique_ptr<Reloj> crearReloj();

// UDP to each destination, names looked up now. Throws ErrorSistema.
std::unique_ptr<Emisor> crearEmisorUDP(const std::vector<Destino>& destinos);

}  // namespace sorvanel::simulador
