#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "harness/programa.h"

namespace sorvanel::medidas {

// What the displays say, asked fast: their surfaces are found once, since a weight is forgotten after a second of
// silence and looking at all of them must take far less. The program must be alive and run as long as this is used.
class Pesos {
public:
    // Of the first so many displays; throws if one is not there.
    Pesos(const pruebas::Programa& programa, int visores);

    std::string texto(int visor) const;  // from 1
    // Which of them were never seen to say that, ten seconds long. Nothing is sent meanwhile: a display that missed the
    // last reading does not come to say it.
    std::vector<int> sinDecir(const std::string& esperado) const;
    // Which of them say something else just now.
    std::vector<int> distintos(const std::string& esperado) const;

private:
    std::vector<HWND> m_superficies;
};

// "3 displays, 17 to 64; the first of them says "-----""
std::string quienes(const std::vector<int>& visores, const Pesos& pesos);

}  // namespace sorvanel::medidas
