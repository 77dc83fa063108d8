#include "display/ctrlVis.h"

#include <algorithm>

#include "config/numeros.h"
#include "config/texto.h"
#include "display/registroVisor.h"

namespace sorvanel {

ctrlVis::ctrlVis(const comun& com) {
    AccesorINI ini = com.abrir();
    for (int n = 1;; ++n) {
        ini.seccion(seccionVisor(n));
        const std::string port = ini.leer("Port");
        if (port.empty()) break;
        m_visores.push_back({numeroInicial(port), com.valDflt(ini, "ModoBulk", MODO_BULK_OMISION),
                             std::string(recortar(ini.leer("Etiqueta"))),
                             std::string(recortar(ini.leer("Ubicacion")))});
    }
}

bool ctrlVis::portExiste(std::int32_t port, std::int16_t modoBulk) const {
    return port > 0 && std::any_of(m_visores.begin(), m_visores.end(),
                                   [&](const Guardado& v) { return v.port == port && v.modoBulk == modoBulk; });
}

bool ctrlVis::etiquetaExiste(std::string_view etiqueta) const {
    return !etiqueta.empty() &&
           std::any_of(m_visores.begin(), m_visores.end(), [&](const Guardado& v) { return v.etiqueta == etiqueta; });
}

bool ctrlVis::ubicacionExiste(std::string_view ubicacion) const {
    const std::string_view buscada = recortar(ubicacion);
    return !buscada.empty() && buscada != "0,0" &&
           std::any_of(m_visores.begin(), m_visores.end(), [&](const Guardado& v) { return v.ubicacion == buscada; });
}

}  // namespace sorvanel
