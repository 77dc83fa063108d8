#pragma once

#include <cstdint>
#include <string>

#include "config/comun.h"

namespace sorvanel {

// Where the concentrator is: its section of the settings file. Each value is written by itself.
struct DestinoPavona {
    std::string host;
    std::int32_t port = 0;  // TCP; whatever number the file holds
};

DestinoPavona leerDestinoPavona(const comun& com);
void guardarHostPavona(const comun& com, std::string_view host);
void guardarPortPavona(const comun& com, std::int32_t port);

}  // namespace sorvanel
