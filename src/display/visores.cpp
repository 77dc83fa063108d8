#include "display/visores.h"

#include <algorithm>
#include <exception>

#include "config/comun.h"

namespace sorvanel {

Visores::Visores(const Entorno& entorno, EnlaceCompartido& compartido) : m_entorno(entorno), m_compartido(compartido) {
    // Where the file lies is asked of the system each time: once for all of them is enough.
    AccesorINI ini = comun(entorno).abrir();
    const diseñoVisor diseno(entorno);
    for (std::int16_t n = 1; n <= MAXIMO_VISORES; ++n) {
        ini.seccion(seccionVisor(n));
        if (ini.leer("Port").empty()) break;
        m_visores.push_back(std::make_unique<visor>(entorno, compartido, diseno));
        m_visores.back()->cargarComo(n, ini);
    }
}

Visores::~Visores() {
    while (!m_visores.empty()) m_visores.pop_back();
}

visor* Visores::nuevo(std::int32_t port, const std::string& caption) {
    const bool repetido = std::any_of(m_visores.begin(), m_visores.end(), [&](const auto& v) {
        return (port > 0 && v->port() == port) || (!caption.empty() && v->caption() == caption);
    });
    if (repetido || cuantos() >= MAXIMO_VISORES) return nullptr;
    auto creado = std::make_unique<visor>(m_entorno, m_compartido);
    creado->port(port);
    creado->caption(caption);
    creado->protocolo(PROTOCOLO_TESSEL);
    creado->modoBulk(MODO_BULK_OMISION);
    // The file may go on behind a gap. Those displays are dead, and nobody has seen them: the new one
    // must not wake them by closing the gap. Without its port the next one stays dead; all else that the
    // file says of it is kept until that number is given.
    comun(m_entorno).abrir(seccionVisor(cuantos() + 2)).borrarClave("Port");
    m_visores.push_back(std::move(creado));
    m_visores.back()->guardarComo(cuantos());
    return m_visores.back().get();
}

bool Visores::eliminar(std::int16_t posicion) {
    if (posicion < 1 || posicion > cuantos()) return false;
    for (std::int16_t k = static_cast<std::int16_t>(posicion + 1); k <= cuantos(); ++k) {
        uno(k)->guardarComo(static_cast<std::int16_t>(k - 1));
    }
    comun(m_entorno).abrir().borrarSeccion(seccionVisor(cuantos()));
    m_visores.erase(m_visores.begin() + (posicion - 1));
    return true;
}

visor* Visores::uno(std::int16_t posicion) {
    return posicion >= 1 && posicion <= cuantos() ? m_visores[static_cast<std::size_t>(posicion - 1)].get() : nullptr;
}

void Visores::ubicar(std::string& errores) {
    for (const auto& v : m_visores) {
        if (!v->ubicar(0, 0)) errores += v->ultimoerror() + "\n";
    }
}

void Visores::reubicar() {
    for (const auto& v : m_visores) v->reubicar();
}

void Visores::desubicar() {
    for (const auto& v : m_visores) v->desubicar();
}

void Visores::Run(bool marcha) {
    for (const auto& v : m_visores) v->Run(marcha);
}

bool Visores::letsRun(std::string& errores) {
    const auto arrancar = [](visor& v) {
        try {
            v.Run(true);
        } catch (const std::exception&) {
            // It could not be painted, which the next thing shown makes good. The others must start.
        }
    };
    // A display at rest holds some free port, which may be the very one of another that starts before it:
    // that one starts the second time.
    for (const auto& v : m_visores) {
        if (v->ubicado()) arrancar(*v);
    }
    for (const auto& v : m_visores) {
        if (!v->ubicado()) continue;
        arrancar(*v);
        if (!v->Run()) errores += v->ultimoerror() + "\n";
    }
    return errores.empty();
}

}  // namespace sorvanel
