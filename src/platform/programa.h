#pragma once

#include <string>

namespace sorvanel {

struct Version {
    int mayor = 0;
    int menor = 0;
    int revision = 0;  // from 1
};

// What the program is told about itself and its user.
class Programa {
public:
    virtual ~Programa() = default;

    // Name of the executable without folder and extension: a renamed copy has settings of its own.
    virtual std::string nombreEjecutable() const = 0;
    // The folder for the application data of all users; where there is none, the user's local one.
    virtual std::string carpetaBase() const = 0;
    // The user's decimal separator, "," or "." as a rule.
    virtual std::string separadorDecimal() const = 0;
    virtual Version version() const = 0;
    // Whether it is drawn on or with the character before it, as an accent is. Beyond U+FFFF the system may not know.
    virtual bool esMarca(char32_t caracter) const = 0;
    // Opens the manual that lies beside the executable, at that section where the system can; at once, whatever the
    // system takes for it. False when there is none.
    virtual bool abrirManual(const std::string& apartado) const = 0;
};

}  // namespace sorvanel
