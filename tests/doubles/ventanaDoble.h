#pragma once

#include <span>
#include <vector>

#include "grid/parrilla.h"

namespace sorvanel {

// A window that remembers how it was cut.
class VentanaDoble : public VentanaParrilla, private FormaVentana {
public:
    std::vector<RectPixel> zonas;
    int recortes = 0;
    Rectangulo franja{0, 11040, 15360, 480};

    FormaVentana& forma() override { return *this; }
    Rectangulo franjaInferior() const override { return franja; }

private:
    void recortar(std::span<const RectPixel> nuevas) override {
        zonas.assign(nuevas.begin(), nuevas.end());
        ++recortes;
    }
};

}  // namespace sorvanel
