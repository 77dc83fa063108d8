#pragma once

#include "platform/programa.h"

namespace sorvanel {

class ProgramaWin : public Programa {
public:
    std::string nombreEjecutable() const override;
    std::string carpetaBase() const override;
    // Asked anew each time: the user may change it while the program runs.
    std::string separadorDecimal() const override;
    // FILEVERSION of the executable's version resource; zeros where there is none.
    Version version() const override;
    bool esMarca(char32_t caracter) const override;
    bool abrirManual(const std::string& apartado) const override;
};

}  // namespace sorvanel
