#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "platform/bitacora.h"

namespace sorvanel {

class BitacoraDoble : public Bitacora {
public:
    std::vector<std::string> lineas;
    bool hay = true;
    mutable int abierta = 0;

    void anotar(std::string_view texto) override { lineas.emplace_back(texto); }
    void terminar(std::string_view motivo) override { anotar("Fin: " + std::string(motivo)); }
    bool abrir() const override {
        ++abierta;
        return hay;
    }
    // How many begin so.
    long cuantas(std::string_view principio) const {
        return std::count_if(lineas.begin(), lineas.end(), [&](const auto& una) { return una.starts_with(principio); });
    }
};

}  // namespace sorvanel
