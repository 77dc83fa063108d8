#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "simulador/lectura.h"

// What is told to people, in Spanish.
namespace sorvanel::simulador {

// What happened at that moment of the run, as a line.
std::string suceso(Instante cuando, const std::string& que);
// What cannot be seen stands as \r, \n, \t or \xHH.
std::string visible(std::string_view datos);
// So many things sent in that time, as a line.
std::string resumen(std::int64_t cuantas, const std::string& cosas, Instante tiempo);

}  // namespace sorvanel::simulador
