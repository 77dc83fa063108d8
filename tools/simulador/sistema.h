#pragma once

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "simulador/opciones.h"
#include "simulador/red.h"
#include "simulador/reproduccion.h"

// What the system does for the program. A file of this name for each system; sistemaRed.cpp is the part
// that both share.
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

// TCP on each of those names or addresses, with one port for all; 0 is any, kept from then on. The first
// must work, the others only where the machine knows their family.
std::unique_ptr<Red> crearRed(const std::vector<std::string>& escucha, std::uint16_t puerto);

}  // namespace sorvanel::simulador
