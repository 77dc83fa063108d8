#pragma once

#include <string>

#include "platform/win32/base/manejadoresNucleo.h"

namespace sorvanel {

// One running program for each executable name in a user's session: a renamed copy has settings of
// its own and may run beside.
class Instancia {
public:
    explicit Instancia(const std::string& nombreEjecutable);

    // False when another one runs already. It is the first as long as this object lives.
    bool primera() const { return m_primera; }

private:
    ObjetoNucleo m_exclusion;
    bool m_primera = false;
};

}  // namespace sorvanel
