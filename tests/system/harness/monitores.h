#pragma once

#include <windows.h>

#include <vector>

namespace sorvanel::pruebas {

struct MonitorVisto {
    RECT area{};
    bool primario = false;
};

// In the system's own order, which is the order of "EnUso".
std::vector<MonitorVisto> monitores();

}  // namespace sorvanel::pruebas
