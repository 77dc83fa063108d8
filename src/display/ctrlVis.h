#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "config/comun.h"

namespace sorvanel {

// Answers from the saved displays, as they are when it is made, whether something is taken.
class ctrlVis {
public:
    explicit ctrlVis(const comun& com);

    // A port may serve several displays, each with another bulk mode. Port 0 is never taken.
    bool portExiste(std::int32_t port, std::int16_t modoBulk) const;
    // Exactly the same text; the empty one is never taken.
    bool etiquetaExiste(std::string_view etiqueta) const;
    // "row,column"; neither the empty text nor "0,0" is ever taken.
    bool ubicacionExiste(std::string_view ubicacion) const;

private:
    struct Guardado {
        std::int32_t port;
        std::int16_t modoBulk;
        std::string etiqueta;
        std::string ubicacion;
    };
    std::vector<Guardado> m_visores;
};

}  // namespace sorvanel
