#pragma once

#include <functional>
#include <string>
#include <vector>

#include "links/enlacePeso.h"

namespace sorvanel {

// Notes the lines that a link hands over; takes those that the test says, at first all.
class SuscriptorDoble : public SuscriptorPeso {
public:
    std::int32_t puerto = 3001;
    std::vector<std::string> lineas;
    std::function<void()> alRecibir;
    std::function<bool(std::string_view)> toma;

    std::int32_t port() const override { return puerto; }
    std::int16_t modoBulk() const override { return 4; }
    bool frWsk_refrescoPeso(std::string_view linea) override {
        lineas.emplace_back(linea);
        if (alRecibir) alRecibir();
        return !toma || toma(linea);
    }
    bool mmTCP_refrescoPeso(std::int16_t, std::int16_t, std::string_view) override { return false; }
};

}  // namespace sorvanel
