#include "dialogs/ubicador.h"

#include <cmath>
#include <string>
#include <utility>

namespace sorvanel {

namespace {

// A hand that only clicks moves the mouse a little, too.
constexpr float UMBRAL = aTwips(8);

bool contiene(const Rectangulo& r, Punto p) {
    return p.x >= r.x && p.x < r.derecha() && p.y >= r.y && p.y < r.abajo();
}

std::string enPalabras(std::int16_t visor) {
    return "#" + std::to_string(visor);
}

}  // namespace

bool Ubicador::usar(GestoRaton gesto, Punto donde) {
    switch (gesto) {
        case GestoRaton::pulsar:
            return pulsar(donde);
        case GestoRaton::llevar:
            llevar(donde);
            return m_presa.has_value();
        case GestoRaton::soltar: {
            const auto presa = std::exchange(m_presa, std::nullopt);
            m_marca.reset();
            const auto celda = celdaEn(donde);
            if (presa && celda && sigueAhi(*presa)) soltar(*presa, *celda);
            return false;
        }
        default:
            cancelar();
            return false;
    }
}

bool Ubicador::cancelar() {
    m_marca.reset();
    return std::exchange(m_presa, std::nullopt).has_value();
}

bool Ubicador::pulsar(Punto donde) {
    cancelar();
    const auto celda = celdaEn(donde);
    if (!celda || !m_datos.puedeDejarCampo()) return false;
    const std::int16_t visor = ocupante(*celda);
    const std::int16_t elegido = visor != 0 ? visor : m_datos.elegido();
    if (elegido != 0) m_datos.elegir(elegido);
    m_presa = Presa{visor, *celda, donde};
    return true;
}

void Ubicador::llevar(Punto donde) {
    if (!m_presa || m_presa->visor == 0) return;
    if (std::hypot(donde.x - m_presa->donde.x, donde.y - m_presa->donde.y) >= UMBRAL) m_presa->arrastrada = true;
    if (!m_presa->arrastrada) return;
    if (!m_marca) m_marca = std::make_unique<MarcaUbicacion>(m_mesa);
    const auto celda = celdaEn(donde);
    if (!celda || *celda == m_presa->celda) return m_marca->quitar();
    const std::int16_t otro = ocupante(*celda);
    const std::string este = enPalabras(m_presa->visor);
    m_marca->poner(lugarDe(*celda),
                   otro == 0 ? "Mover " + este + " aquí" : "Intercambiar " + este + " y " + enPalabras(otro));
}

// The keyboard works meanwhile: what was taken may be another display's by now.
bool Ubicador::sigueAhi(const Presa& presa) const {
    return ocupante(presa.celda) == presa.visor;
}

void Ubicador::soltar(const Presa& presa, Ubicacion celda) {
    const bool misma = celda == presa.celda;
    if (presa.visor == 0) {
        if (misma) situar(m_datos.paraLibre(), celda);
        return;
    }
    if (misma || !presa.arrastrada) return;
    const std::int16_t otro = ocupante(celda);
    if (otro == 0) return situar(presa.visor, celda);
    if (!m_mesa.visores().intercambiar(presa.visor, otro)) return;
    m_datos.alUbicar({otro, presa.visor});
}

void Ubicador::situar(std::int16_t n, Ubicacion celda) {
    visor* const v = m_mesa.visores().uno(n);
    if (v != nullptr && v->ubicacion(celda)) m_datos.alUbicar({n});
}

// Nothing where the bar covers it.
std::optional<Ubicacion> Ubicador::celdaEn(Punto donde) const {
    if (donde.y >= m_mesa.altoSobreBarra()) return std::nullopt;
    const Parrilla& parrilla = m_mesa.parrilla();
    for (std::int16_t f = 1; f <= parrilla.filas(); ++f) {
        for (std::int16_t c = 1; c <= parrilla.columnas(); ++c) {
            const auto celda = parrilla.getCell(f, c);
            if (celda && contiene(*celda, donde)) return Ubicacion{f, c};
        }
    }
    return std::nullopt;
}

Rectangulo Ubicador::lugarDe(Ubicacion celda) const {
    return m_mesa.parrilla().getCell(celda.fila, celda.columna).value_or(Rectangulo{});
}

std::int16_t Ubicador::ocupante(Ubicacion celda) const {
    Visores& visores = m_mesa.visores();
    for (std::int16_t n = 1; n <= visores.cuantos(); ++n) {
        if (visores.uno(n)->ubicacion() == celda) return n;
    }
    return 0;
}

}  // namespace sorvanel
