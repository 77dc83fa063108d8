// The writes of a display's properties: each is checked, stored, saved and shown at once.

#include <exception>
#include <utility>

#include "display/ctrlVis.h"
#include "display/visor.h"

namespace sorvanel {

namespace {

constexpr std::int32_t PORT_MAXIMO = 99999;

}  // namespace

bool visor::guardarComo(std::int16_t n) {
    if (n < 1 || n > MAXIMO_VISORES || n == m_numero) return false;
    AccesorINI ini = m_com.abrir(seccionVisor(m_numero));
    // No tool edits it: whoever does so by hand, perhaps just now, finds it as he left it, where the display is.
    const std::string origen = identificado() ? ini.leer(CLAVE_ORIGEN) : std::string();
    guardarRegistroVisor(m_com, n, m_registro);
    ini.seccion(seccionVisor(n));
    if (origen.empty()) {
        ini.borrarClave(CLAVE_ORIGEN);
    } else {
        ini.escribir(CLAVE_ORIGEN, origen);
    }
    ini.borrarSeccion(seccionVisor(m_numero));
    m_numero = n;
    return true;
}

void visor::guardar() const {
    guardarRegistroVisor(m_com, m_numero, m_registro);
}

void visor::guardarSiIdentificado() const {
    if (identificado()) guardar();
}

bool visor::propio(Rasgo rasgo, const ValorRasgo& valor) {
    m_registro.rasgos[rasgo] = acotar(filaDe(rasgo), valor);
    trasCambioDeAspecto(filaDe(rasgo).encaja);
    return propio(rasgo) == valor;
}

const ValorRasgo& visor::efectivo(Rasgo rasgo) const {
    return vacio(propio(rasgo)) ? m_diseno.valor(rasgo) : propio(rasgo);
}

AspectoVisor visor::aspecto() const {
    ValoresRasgos efectivos;
    for (const FilaRasgo& fila : RASGOS) efectivos[fila.rasgo] = efectivo(fila.rasgo);
    AspectoVisor aspecto = aspectoDe(efectivos);
    aspecto.etiqueta = m_registro.caption;
    aspecto.etiquetaEncima = m_diseno.etiquetaEncima();
    return aspecto;
}

void visor::trasCambioDeAspecto(bool encaja) {
    guardarSiIdentificado();
    if (encaja || m_muestra == Muestra::incierta) {
        // Also a display that did not fit its cell until now.
        if (definido() && ubicacion()) reubicar();
    } else if (ubicado()) {
        const Muestra que = std::exchange(m_muestra, Muestra::incierta);
        m_pintura->aspecto(aspecto());
        m_pintura->pintarEtiqueta();
        pintarPeso(que);
        m_muestra = que;
    }
}

bool visor::caption(const std::string& texto) {
    if (ctrlVis(m_com).etiquetaExiste(texto)) return false;
    m_registro.caption = texto;
    trasCambioDeAspecto(true);
    return true;
}

std::optional<Ubicacion> visor::ubicacion() const {
    if (m_registro.fila == 0 || m_registro.columna == 0) return std::nullopt;
    return Ubicacion{m_registro.fila, m_registro.columna};
}

bool visor::ubicacion(std::optional<Ubicacion> lugar) {
    const Ubicacion vieja{m_registro.fila, m_registro.columna};
    const Ubicacion nueva = lugar.value_or(Ubicacion{});
    if (lugar) {
        const std::string texto = std::to_string(nueva.fila) + "," + std::to_string(nueva.columna);
        if (ctrlVis(m_com).ubicacionExiste(texto)) return false;
        if (m_parrilla != nullptr && (nueva.fila < 1 || nueva.fila > m_parrilla->filas() || nueva.columna < 1 ||
                                      nueva.columna > m_parrilla->columnas())) {
            return false;
        }
    }
    const bool estaba = ubicado();
    m_registro.fila = nueva.fila;
    m_registro.columna = nueva.columna;
    guardar();
    if (!definido()) return true;
    if (lugar) {
        reubicar();
    } else {
        quitarDeLaPantalla();
    }
    if (estaba) m_parrilla->fondoCelda(m_parrilla->colorFondo(), vieja.fila, vieja.columna);
    return true;
}

bool visor::intercambiarUbicacion(visor& otro) {
    if (&otro == this || !ubicacion() || !otro.ubicacion() || !identificado() || !otro.identificado()) return false;
    const auto intercambiar = [&] {
        std::swap(m_registro.fila, otro.m_registro.fila);
        std::swap(m_registro.columna, otro.m_registro.columna);
    };
    intercambiar();
    try {
        guardar();
        otro.guardar();
    } catch (...) {
        // The file follows the store only when all this is over: it has never seen both on one cell.
        intercambiar();
        for (const visor* const uno : {this, &otro}) {
            try {
                uno->guardar();
            } catch (const std::exception&) {
                // The other one is written back all the same; what failed first is told.
            }
        }
        throw;
    }
    return true;
}

bool visor::port(std::int32_t port) {
    if (port < 0 || port > PORT_MAXIMO || ctrlVis(m_com).portExiste(port, modoBulk())) return false;
    m_registro.port = port;
    guardarSiIdentificado();
    if (!m_run) return true;
    m_sinEnlace = !m_propio.enMarcha(*this);
    if (m_sinEnlace) {
        error(PORT_INADECUADO, port);
    } else {
        sinError();
    }
    // What the old port showed is not the new one's.
    m_silencio.reset();
    if (ubicado()) mostrarSinPeso();
    return true;
}

bool visor::protocolo(std::int16_t protocolo) {
    if (m_run) return false;
    EnlacePeso& antes = enlace();
    m_registro.familia = &familiaDe(protocolo);
    mudarse(antes);
    guardar();
    return familia().protocolo == protocolo;
}

bool visor::modoBulk(std::int16_t modo) {
    m_registro.modoBulk = modo;
    comun::limitar(m_registro.modoBulk, MODO_BULK_MAXIMO, 0);
    guardar();
    return m_registro.modoBulk == modo;
}

}  // namespace sorvanel
