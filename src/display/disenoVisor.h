#pragma once

#include <cstdint>
#include <string>

#include "config/entorno.h"
#include "display/aspecto.h"

namespace sorvanel {

// The appearance that a display has where it sets none of its own. It is read once, when made, and
// every write saves all of it: the file is what its instances share.
class diseñoVisor {
public:
    explicit diseñoVisor(const Entorno& entorno);

    const ValoresRasgos& valores() const { return m_valores; }
    const ValorRasgo& valor(Rasgo rasgo) const { return m_valores[rasgo]; }
    // Clamped to its range; a ratio is ignored unless between 0.1 and 1, both excluded.
    void valor(Rasgo rasgo, const ValorRasgo& nuevo);

    std::int16_t anchoEtiqueta() const { return como<std::int16_t>(valor(Rasgo::anchoEtiqueta)); }
    void anchoEtiqueta(std::int16_t ancho) { valor(Rasgo::anchoEtiqueta, ancho); }
    std::int16_t ajusteEtiqueta() const { return como<std::int16_t>(valor(Rasgo::ajusteEtiqueta)); }
    void ajusteEtiqueta(std::int16_t ajuste) { valor(Rasgo::ajusteEtiqueta, ajuste); }
    Color colorFondoEtiqueta() const { return como<Color>(valor(Rasgo::colorFondoEtiqueta)); }
    void colorFondoEtiqueta(Color color) { valor(Rasgo::colorFondoEtiqueta, color); }
    Color colorTextoEtiqueta() const { return como<Color>(valor(Rasgo::colorTextoEtiqueta)); }
    void colorTextoEtiqueta(Color color) { valor(Rasgo::colorTextoEtiqueta, color); }
    Color colorFondoPeso() const { return como<Color>(valor(Rasgo::colorFondoPeso)); }
    void colorFondoPeso(Color color) { valor(Rasgo::colorFondoPeso, color); }
    Color colorTextoPeso() const { return como<Color>(valor(Rasgo::colorTextoPeso)); }
    void colorTextoPeso(Color color) { valor(Rasgo::colorTextoPeso, color); }
    std::string formatoPeso() const { return como<std::string>(valor(Rasgo::formatoPeso)); }
    void formatoPeso(const std::string& formato) { valor(Rasgo::formatoPeso, formato); }
    // The caption's font height as a share of the weight's.
    float ratioAlturas() const { return como<float>(valor(Rasgo::ratioAlturas)); }
    void ratioAlturas(float ratio) { valor(Rasgo::ratioAlturas, ratio); }

private:
    const Entorno& m_entorno;
    ValoresRasgos m_valores;
};

}  // namespace sorvanel
