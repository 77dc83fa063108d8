#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "display/aspecto.h"

namespace sorvanel {

// The appearance that a display has where it sets none of its own. It is read once, when made, and
// every write saves all of it: the file is what its instances share.
class diseñoVisor {
public:
    explicit diseñoVisor(const comun& com);

    const ValoresRasgos& valores() const { return m_valores; }
    const ValorRasgo& valor(Rasgo rasgo) const { return m_valores[rasgo]; }
    // Clamped to its range; a ratio is ignored unless between 0.1 and 1, both excluded. No when it was either.
    bool valor(Rasgo rasgo, const ValorRasgo& nuevo);

    // Captions stand above weights, not beside them: of all displays.
    bool etiquetaEncima() const { return m_etiquetaEncima; }
    void etiquetaEncima(bool si);
    // Of a display that has nothing of its own, no caption either.
    AspectoVisor aspecto() const;

    std::int16_t anchoEtiqueta() const { return como<std::int16_t>(valor(Rasgo::anchoEtiqueta)); }
    bool anchoEtiqueta(std::int16_t ancho) { return valor(Rasgo::anchoEtiqueta, ancho); }
    std::int16_t ajusteEtiqueta() const { return como<std::int16_t>(valor(Rasgo::ajusteEtiqueta)); }
    bool ajusteEtiqueta(std::int16_t ajuste) { return valor(Rasgo::ajusteEtiqueta, ajuste); }
    Color colorFondoEtiqueta() const { return como<Color>(valor(Rasgo::colorFondoEtiqueta)); }
    bool colorFondoEtiqueta(Color color) { return valor(Rasgo::colorFondoEtiqueta, color); }
    Color colorTextoEtiqueta() const { return como<Color>(valor(Rasgo::colorTextoEtiqueta)); }
    bool colorTextoEtiqueta(Color color) { return valor(Rasgo::colorTextoEtiqueta, color); }
    Color colorFondoPeso() const { return como<Color>(valor(Rasgo::colorFondoPeso)); }
    bool colorFondoPeso(Color color) { return valor(Rasgo::colorFondoPeso, color); }
    Color colorTextoPeso() const { return como<Color>(valor(Rasgo::colorTextoPeso)); }
    bool colorTextoPeso(Color color) { return valor(Rasgo::colorTextoPeso, color); }
    std::string formatoPeso() const { return como<std::string>(valor(Rasgo::formatoPeso)); }
    bool formatoPeso(const std::string& formato) { return valor(Rasgo::formatoPeso, formato); }
    // The caption's font height as a share of the weight's.
    float ratioAlturas() const { return como<float>(valor(Rasgo::ratioAlturas)); }
    bool ratioAlturas(float ratio) { return valor(Rasgo::ratioAlturas, ratio); }

private:
    void guardar() const;

    const comun& m_com;
    ValoresRasgos m_valores;
    bool m_etiquetaEncima = false;
};

// The distinct colours of the shared design, then those others, then of the displays that the settings have, in their
// order: no more than so many.
std::vector<Color> coloresEnUso(const comun& com, std::size_t cuantos, std::span<const Color> otros = {});

}  // namespace sorvanel
