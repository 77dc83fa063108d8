#pragma once

#include <string>
#include <vector>

namespace sorvanel::medidas {

struct Basura {
    std::string nombre;
    std::string bytes;
    bool carpeta = false;  // a folder stands where the file should be
};

// What may stand where a settings file should: made of that good one, and by chance. So many more are the good one with
// a few bytes changed, cut off or doubled.
std::vector<Basura> muestrario(const std::string& buena, int alAzar, unsigned semilla);

}  // namespace sorvanel::medidas
