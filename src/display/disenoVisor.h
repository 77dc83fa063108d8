#pragma once

#include <cstdint>
#include <string>

#include "config/entorno.h"
#include "platform/color.h"

namespace sorvanel {

// The appearance that a display has where it sets none of its own. It is read once, when made, and
// every write saves all of it: the file is what its instances share.
class diseñoVisor {
public:
    explicit diseñoVisor(const Entorno& entorno);

    std::int16_t anchoEtiqueta() const { return m_anchoEtiqueta; }
    void anchoEtiqueta(std::int16_t ancho);  // clamped to 0 to 6
    std::int16_t ajusteEtiqueta() const { return m_ajusteEtiqueta; }
    void ajusteEtiqueta(std::int16_t ajuste);  // 0 left, 1 right, 2 centre; clamped
    Color colorFondoEtiqueta() const { return m_colorFondoEtiqueta; }
    void colorFondoEtiqueta(Color color);
    Color colorTextoEtiqueta() const { return m_colorTextoEtiqueta; }
    void colorTextoEtiqueta(Color color);
    Color colorFondoPeso() const { return m_colorFondoPeso; }
    void colorFondoPeso(Color color);
    Color colorTextoPeso() const { return m_colorTextoPeso; }
    void colorTextoPeso(Color color);
    const std::string& formatoPeso() const { return m_formatoPeso; }
    void formatoPeso(const std::string& formato);
    // The caption's font height as a share of the weight's.
    float ratioAlturas() const { return m_ratioAlturas; }
    void ratioAlturas(float ratio);  // ignored unless between 0.1 and 1, both excluded

private:
    void guardar() const;

    const Entorno& m_entorno;
    std::int16_t m_anchoEtiqueta;
    std::int16_t m_ajusteEtiqueta;
    Color m_colorFondoEtiqueta;
    Color m_colorTextoEtiqueta;
    Color m_colorFondoPeso;
    Color m_colorTextoPeso;
    std::string m_formatoPeso;
    float m_ratioAlturas;
};

}  // namespace sorvanel
