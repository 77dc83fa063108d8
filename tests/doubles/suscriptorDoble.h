#pragma once

#include <functional>
#include <string>
#include <vector>

#include "links/enlacePeso.h"

namespace sorvanel {

// Notes what a link hands over: the lines of its own port, all taken unless the test says otherwise; of the shared link
// "1203" for a reading of that address, its own one taken, and "s" for silence.
class SuscriptorDoble : public SuscriptorPeso {
public:
    explicit SuscriptorDoble(std::int32_t suyo = 3001) : puerto(suyo) {}

    std::int32_t puerto;
    DireccionIP deQuien = CUALQUIERA;
    std::vector<std::string> lineas;
    std::function<void()> alRecibir;
    std::function<bool(std::string_view)> toma;

    std::int32_t port() const override { return puerto; }
    std::int16_t modoBulk() const override { return 4; }
    DireccionIP origen() const override { return deQuien; }
    bool frWsk_refrescoPeso(std::string_view linea) override {
        lineas.emplace_back(linea);
        if (alRecibir) alRecibir();
        return !toma || toma(linea);
    }
    bool mmTCP_refrescoPeso(std::int16_t primero, std::int16_t segundo, std::string_view carga) override {
        const int direccion = primero * 100 + segundo;
        lineas.push_back(carga.empty() && direccion == 0 ? "s" : std::to_string(direccion));
        if (alRecibir) alRecibir();
        return !carga.empty() && direccion == puerto && (!toma || toma(carga));
    }
};

}  // namespace sorvanel
