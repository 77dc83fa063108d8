#pragma once

#include "platform/programa.h"

namespace sorvanel {

class ProgramaWin : public Programa {
public:
    // What does not change while the program runs is asked once: each look at the settings needs it.
    ProgramaWin();
    std::string nombreEjecutable() const override { return m_nombre; }
    std::string carpetaBase() const override { return m_carpeta; }
    // Asked anew each time: the user may change it while the program runs.
    std::string separadorDecimal() const override;
    // FILEVERSION of the executable's version resource; zeros where there is none.
    Version version() const override;

private:
    std::string m_nombre;
    std::string m_carpeta;
};

}  // namespace sorvanel
