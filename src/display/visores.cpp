#include "display/visores.h"

#include <algorithm>
#include <exception>
#include <utility>

namespace sorvanel {

std::string nombreVisor(int posicion, const std::string& caption) {
    const std::string nombre = "Visor #" + std::to_string(posicion);
    return caption.empty() ? nombre : nombre + " (" + caption + ")";
}

namespace {

std::string deQuien(int posicion, const visor& v, const std::string& texto) {
    const std::string quien = nombreVisor(posicion, v.caption()) + ": ";
    return texto.starts_with(quien) ? texto + "\n" : quien + texto + "\n";
}

}  // namespace

Visores::Visores(const comun& com, Fabrica& fabrica, const Reloj& reloj, EnlacePeso& compartido)
    : m_com(com), m_fabrica(fabrica), m_reloj(reloj), m_compartido(compartido) {
    cargarSiguientes();
}

void Visores::cargarSiguientes() {
    AccesorINI ini = m_com.consultar();
    const diseñoVisor diseno(m_com);
    while (cuantos() < MAXIMO_VISORES) {
        const auto n = static_cast<std::int16_t>(cuantos() + 1);
        ini.seccion(seccionVisor(n));
        if (ini.leer("Port").empty()) break;
        m_visores.push_back(std::make_unique<visor>(m_com, m_fabrica, m_reloj, m_compartido, diseno));
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
    auto creado = std::make_unique<visor>(m_com, m_fabrica, m_reloj, m_compartido);
    creado->port(port);
    creado->caption(caption);
    creado->protocolo(FAMILIA_TESSEL.protocolo);
    creado->modoBulk(MODO_BULK_OMISION);
    visor* const nuevo = m_visores.emplace_back(std::move(creado)).get();
    nuevo->guardarComo(cuantos());
    // The file may go on behind a gap, which is closed now. Whoever reads it finds those displays; so that none is
    // given one of their numbers, they are here too.
    cargarSiguientes();
    return nuevo;
}

bool Visores::eliminar(std::int16_t posicion) {
    if (posicion < 1 || posicion > cuantos()) return false;
    for (std::int16_t k = static_cast<std::int16_t>(posicion + 1); k <= cuantos(); ++k) {
        uno(k)->guardarComo(static_cast<std::int16_t>(k - 1));
    }
    m_com.abrir().borrarSeccion(seccionVisor(cuantos()));
    m_visores.erase(m_visores.begin() + (posicion - 1));
    return true;
}

bool Visores::intercambiar(std::int16_t una, std::int16_t otra) {
    visor *const a = uno(una), *const b = uno(otra);
    if (a == nullptr || b == nullptr || !a->intercambiarUbicacion(*b)) return false;
    paraCada([&](visor& v) {
        if (&v == a || &v == b) v.reubicar();
    });
    return true;
}

visor* Visores::uno(std::int16_t posicion) {
    return posicion >= 1 && posicion <= cuantos() ? m_visores[static_cast<std::size_t>(posicion - 1)].get() : nullptr;
}

void Visores::ubicar(std::string& errores) {
    int posicion = 1;
    for (const auto& v : m_visores) {
        try {
            if (!v->ubicar(0, 0)) errores += deQuien(posicion, *v, v->ultimoerror());
        } catch (const std::exception&) {
            errores += deQuien(posicion, *v, "El visor #" + std::to_string(posicion) + " no se ha podido mostrar");
        }
        ++posicion;
    }
}

void Visores::reubicar() {
    paraCada([](visor& v) { v.reubicar(); });
}

void Visores::desubicar() {
    for (const auto& v : m_visores) v->desubicar();
}

void Visores::Run(bool marcha) {
    paraCada([marcha](visor& v) { v.Run(marcha); });
}

void Visores::enmudecer() {
    paraCada([](visor& v) { v.enmudecer(); });
}

// One that cannot be painted, which the next thing shown makes good, does not hold up the others.
template <typename Accion>
void Visores::paraCada(Accion accion) {
    for (const auto& v : m_visores) {
        try {
            accion(*v);
        } catch (const std::exception&) {
        }
    }
}

bool Visores::letsRun(std::string& errores) {
    const auto arrancar = [](visor& v) {
        if (v.ubicado()) v.Run(true);
    };
    // A display at rest holds some free port, which may be the very one of another that starts before it:
    // that one starts the second time.
    paraCada(arrancar);
    paraCada(arrancar);
    int posicion = 1;
    for (const auto& v : m_visores) {
        if (v->ubicado() && !v->Run()) errores += deQuien(posicion, *v, v->ultimoerror());
        ++posicion;
    }
    return errores.empty();
}

}  // namespace sorvanel
