#pragma once

#include <string_view>

#include "simulador/lectura.h"

// What the system does for the program, the network aside.
namespace sorvanel::simulador {

// Readies the console for UTF-8 and takes over Ctrl+C (and what else asks a program to end) for as long as it lives.
class Consola {
public:
    Consola();
    ~Consola();
    Consola(const Consola&) = delete;
    Consola& operator=(const Consola&) = delete;
};

// At once: whoever started the program may wait to read it. Both in UTF-8, as it stands.
void decir(std::string_view texto);
void quejarse(std::string_view texto);

// True once the user wants it to end.
bool finPedido();
// Since any fixed moment; never goes back.
Instante ahora();
// Returns at that moment, or a little after the user asks for the end.
void esperarHasta(Instante instante);

}  // namespace sorvanel::simulador
