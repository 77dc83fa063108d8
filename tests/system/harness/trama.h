#pragma once

#include <cstdio>
#include <string>

namespace sorvanel::pruebas {

// A whole frame as an indicator sends it; the weight in thousandths.
inline std::string trama(int milesimas, const char* marcas = "XXX") {
    char texto[16];
    std::snprintf(texto, sizeof texto, "%.3s+%08d\r", marcas, milesimas);
    return texto;
}

}  // namespace sorvanel::pruebas
