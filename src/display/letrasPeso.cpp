#include "display/letrasPeso.h"

#include <algorithm>

namespace sorvanel {

namespace {

constexpr float ALTO_MINIMO = aTwips(8);
// Hinting makes steps of its own: so many pixels more than the estimate are tried.
constexpr float DE_MAS = aTwips(2);

}  // namespace

void LetrasPeso::encajar(const EncajeVisor& encaje) {
    m_derecha = encaje.derecha;
    m_medio = (encaje.tintaSuperior + encaje.tintaInferior) / 2;
    m_entera = {};
    m_entera.fuente = encaje.fuentePeso;
    m_entera.y = encaje.yPeso;
    m_reducidoPara = 0;
    reponer();
    m_entera.alto = m_peso.medir("0").alto;
}

void LetrasPeso::reponer() {
    soltar();
    poner(m_entera);
}

const LetrasPeso::Letra* LetrasPeso::poner(Letra& letra) {
    if (m_puesta == &letra) return &letra;
    soltar();
    m_peso.fuente(letra.fuente);
    return m_puesta = &letra;
}

LetrasPeso::Escritura LetrasPeso::para(std::string_view texto) {
    const float entero = ancho(m_entera, texto);
    if (entero <= m_derecha) return {poner(m_entera), entero};
    if (entero != m_reducidoPara) reducir(texto, entero);
    if (!m_legible) return {};
    return {poner(m_menor), ancho(m_menor, texto)};
}

void LetrasPeso::reducir(std::string_view texto, float entero) {
    m_reducidoPara = 0;
    const float mayor = m_entera.fuente.alto;
    float alto = std::min(aPixelEntero(mayor * m_derecha / entero) + DE_MAS, mayor);
    do {
        alto -= TWIPS_POR_PIXEL;
        m_menor = {};
        m_menor.fuente = letraVisor(alto);
        soltar();
        m_legible = alto >= ALTO_MINIMO;
    } while (m_legible && ancho(m_menor, texto) > m_derecha);
    if (m_legible) {
        const MedidaTexto cero = m_peso.medir("0");
        m_menor.alto = cero.alto;
        m_menor.y = alPixelCercano(m_medio - (cero.tintaSuperior + cero.tintaInferior) / 2);
    }
    m_reducidoPara = entero;
}

// Its letters stand side by side, without kerning, each as wide as alone.
float LetrasPeso::ancho(Letra& letra, std::string_view texto) {
    float total = 0;
    for (const char una : texto) {
        const auto codigo = static_cast<unsigned char>(una);
        if (codigo >= letra.anchos.size()) {
            poner(letra);
            return m_peso.medir(texto).ancho;
        }
        float& suyo = letra.anchos[codigo];
        if (suyo == 0) {
            poner(letra);
            const MedidaTexto medida = m_peso.medir({&una, 1});
            suyo = medida.ancho;
            const bool primera = letra.tintaInferior <= letra.tintaSuperior;
            letra.tintaSuperior = primera ? medida.tintaSuperior : std::min(letra.tintaSuperior, medida.tintaSuperior);
            letra.tintaInferior = std::max(letra.tintaInferior, medida.tintaInferior);
        }
        total += suyo;
    }
    return total;
}

}  // namespace sorvanel
