#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "app/entorno.h"
#include "app/vaiven.h"
#include "display/visores.h"
#include "links/enlacePeso.h"

namespace sorvanel {

// What the log says of a run: which displays have data and which have none, since when and why, and how the shared
// connection is. It looks on once a second; a reading costs nothing for it.
class Cronica {
public:
    static constexpr int LATIDO = 1000;                   // milliseconds
    static constexpr std::int64_t CADA_HORA = 3'600'000;  // milliseconds

    // Both must outlive it.
    Cronica(const Entorno& entorno, const EnlacePeso& compartido);

    // They run from now on, and are there until terminar().
    void empezar(Visores& visores);
    void terminar();

private:
    void mirar();
    VistaVaiven vistaConexion(const EstadoConexion& conexion) const;
    void sigueEnMarcha();
    void decir(const std::string& quien, const Vaiven::Lineas& lineas);
    std::string nombre(std::int16_t n) const;
    std::string nombreConexion() const;
    Vaiven& vaiven(std::int16_t n) { return m_vaivenes[static_cast<std::size_t>(n - 1)]; }

    const Entorno& m_entorno;
    const EnlacePeso& m_compartido;
    const std::unique_ptr<Temporizador> m_tim;
    Visores* m_visores = nullptr;    // none while nothing runs
    std::vector<Vaiven> m_vaivenes;  // one each
    std::unique_ptr<Vaiven> m_conexion;
    std::int64_t m_empezado = 0;
    std::int64_t m_hora = 0;  // the state was last summed up
};

}  // namespace sorvanel
