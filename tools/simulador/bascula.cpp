#include "simulador/bascula.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "simulador/azar.h"

namespace sorvanel::simulador {

namespace {

// Where each phase of a load ends, as a fraction of its stay.
constexpr double FINVACIA = 0.20;
constexpr double FINCARGA = 0.40;
constexpr double FINREPOSO = 0.80;
constexpr double FINDESCARGA = 0.90;

constexpr double CICLO = 30;         // seconds of a load's stay, about: each scale keeps a pace of its own around it
constexpr double CONVERSIONES = 25;  // a second
// Below half a division together, so that a settled weight never flickers.
constexpr double RUIDOREPOSO = 0.3;
constexpr double VAIVENREPOSO = 0.15;
// Above half a division, so that draught is seen.
constexpr double RUIDOVACIA = 1.4;
constexpr double RUIDOCARGA = 0.002;  // of the capacity
constexpr double REBOTECARGA = 0.06;  // of the load
constexpr double REBOTEDESCARGA = 0.01;

enum : std::uint64_t { AzarPeriodo = 1, AzarDesfase, AzarCarga, AzarRuido, AzarCorriente };

}  // namespace

Bascula::Bascula(const DatosBascula& datos) : m_datos(datos) {
    m_periodo = CICLO * entre(0.85, 1.15, mezclar(datos.semilla, AzarPeriodo));
    m_desfase = m_periodo * fraccion(mezclar(datos.semilla, AzarDesfase));
}

Bascula::Momento Bascula::momento(double segundos) const {
    const double vueltas = (segundos + m_desfase) / m_periodo;
    const double vuelta = std::floor(vueltas);
    return {static_cast<std::uint64_t>(vuelta), vueltas - vuelta};
}

std::int64_t Bascula::carga(std::uint64_t vuelta) const {
    const auto azar = mezclar(mezclar(m_datos.semilla, AzarCarga), vuelta);
    return redondeada(static_cast<double>(m_datos.capacidad) * entre(0.15, 0.90, azar)).milesimas;
}

std::int64_t Bascula::acumulado(Instante instante, int cargas) const {
    const auto [vuelta, fase] = momento(std::chrono::duration<double>(instante).count());
    const std::uint64_t primera = vuelta - vuelta % static_cast<std::uint64_t>(cargas);
    std::int64_t suma = 0;
    for (std::uint64_t otra = primera; otra < vuelta; ++otra) suma += carga(otra);
    return fase < FINREPOSO ? suma : suma + carga(vuelta);
}

Lectura Bascula::lectura(Instante instante) const {
    const double segundos = std::chrono::duration<double>(instante).count();
    const auto [vuelta, fase] = momento(segundos);
    const auto carga = static_cast<double>(this->carga(vuelta));
    const double vibracion = static_cast<double>(m_datos.capacidad) * RUIDOCARGA * ruido(segundos);

    if (fase < FINVACIA) return vacia(segundos);
    if (fase < FINCARGA) {
        Lectura cargando = redondeada(carga * (fase - FINVACIA) / (FINCARGA - FINVACIA) + vibracion);
        cargando.cargando = true;
        return cargando;
    }
    if (fase < FINREPOSO) return asentandose(carga, carga * REBOTECARGA, (fase - FINCARGA) * m_periodo, segundos);
    if (fase < FINDESCARGA) {
        const double resto = (FINDESCARGA - fase) / (FINDESCARGA - FINREPOSO);
        Lectura descargando = redondeada(carga * resto + vibracion);
        descargando.descargando = true;
        return descargando;
    }
    return asentandose(0, -carga * REBOTEDESCARGA, (fase - FINDESCARGA) * m_periodo, segundos);
}

Lectura Bascula::vacia(double segundos) const {
    // In about one second of three something moves the empty platform.
    const auto azar = mezclar(mezclar(m_datos.semilla, AzarCorriente), static_cast<std::uint64_t>(segundos));
    if (fraccion(azar) > 0.3) return asentandose(0, 0, 0, segundos);
    return redondeada(static_cast<double>(m_datos.division) * RUIDOVACIA * ruido(segundos));
}

Lectura Bascula::asentandose(double reposo, double amplitud, double segundos, double instante) const {
    // Quick and slow cycles alike come to rest within the first third of their phase.
    const double amortiguacion = m_periodo / 75;
    const double envolvente = amplitud * std::exp(-segundos / amortiguacion);
    const double vaiven = envolvente * std::sin(2 * std::numbers::pi * segundos / (2 * amortiguacion));
    const auto division = static_cast<double>(m_datos.division);
    Lectura asentada = redondeada(reposo + vaiven + division * RUIDOREPOSO * ruido(instante));
    asentada.estable = std::abs(envolvente) < division * VAIVENREPOSO;
    return asentada;
}

double Bascula::ruido(double segundos) const {
    const auto conversion = static_cast<std::uint64_t>(segundos * CONVERSIONES);
    return entre(-1, 1, mezclar(mezclar(m_datos.semilla, AzarRuido), conversion));
}

Lectura Bascula::redondeada(double milesimas) const {
    const std::int64_t divisiones = std::llround(milesimas / static_cast<double>(m_datos.division));
    // Below zero an indicator shows zero.
    return {.milesimas = std::clamp<std::int64_t>(divisiones * m_datos.division, 0, MAXMILESIMAS)};
}

}  // namespace sorvanel::simulador
