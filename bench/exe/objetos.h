#pragma once

#include "observado.h"

namespace sorvanel::medidas {

// Graphic and window objects. Windows tells both of any process. Wine's GetGuiResources always says 0, so there:
// - GDI: the live entries of the process's own handle table, which its PEB points to;
// - USER: the live entries of the session's one table, of all its processes together. The table cannot be read;
//   but free entries are used up before it grows, and a new entry shows by its first generation. So what is live
//   is the new entry's index less those that had to be filled before it came.
class ContadorObjetos {
public:
    explicit ContadorObjetos(const Observado& programa) : m_programa(programa) {}

    long gdi() const;
    long user() const;
    // Makes objects and handles of its own and counts them. False when a count does not follow: then none can be
    // believed.
    static bool fiable();

private:
    const Observado& m_programa;
};

}  // namespace sorvanel::medidas
