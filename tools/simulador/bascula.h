#pragma once

#include <cstdint>

#include "simulador/lectura.h"

namespace sorvanel::simulador {

struct DatosBascula {
    // In thousandths; the division is above 0 and at most a tenth of the capacity.
    std::int64_t capacidad = 6'000'000;
    std::int64_t division = 1'000;
    std::uint64_t semilla = 0;
};

// A scale on which load after load is put: empty with some draught, loading, swinging and settling,
// at rest, unloading, settling again. A function of time, with nothing remembered: asking at other
// moments or another rate shows the same loads. While it is stable its weight does not change.
class Bascula {
public:
    explicit Bascula(const DatosBascula& datos);

    Lectura lectura(Instante instante) const;

    // What was weighed before and has left, starting again from 0 after `cargas` loads (above 0). A load
    // counts once its unloading begins.
    std::int64_t acumulado(Instante instante, int cargas) const;

private:
    // Which load it is, from 0, and how far its stay has got, from 0 to 1.
    struct Momento {
        std::uint64_t vuelta = 0;
        double fase = 0;
    };
    Momento momento(double segundos) const;
    std::int64_t carga(std::uint64_t vuelta) const;
    Lectura vacia(double segundos) const;
    // Settling towards `reposo`, `segundos` after a swing of that size began.
    Lectura asentandose(double reposo, double amplitud, double segundos, double instante) const;
    // In [-1, 1], another one each time the converter gives a new value.
    double ruido(double segundos) const;
    Lectura redondeada(double milesimas) const;

    DatosBascula m_datos;
    double m_periodo;
    double m_desfase;
};

}  // namespace sorvanel::simulador
