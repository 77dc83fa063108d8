#include "display/encajeEtiqueta.h"

#include <algorithm>

namespace sorvanel {

namespace {

constexpr std::size_t LINEAS_MAXIMAS = 3;
// A longer text is no caption; to try its breaks would take long.
constexpr std::size_t PALABRAS_MAXIMAS = 12;
constexpr std::string_view BLANCO_FIJO = "\u00a0";
// Letters must become so much larger for another line to be worth it.
constexpr float VENTAJA = 1.3F;

using Lineas = std::vector<std::string>;

std::vector<std::string_view> palabras(std::string_view texto) {
    std::vector<std::string_view> lista;
    std::size_t inicio = 0;
    for (std::size_t i = 0; i <= texto.size();) {
        const bool fijo = texto.substr(i).starts_with(BLANCO_FIJO);
        if (i == texto.size() || texto[i] == ' ' || fijo) {
            if (i > inicio) lista.push_back(texto.substr(inicio, i - inicio));
            i += fijo ? BLANCO_FIJO.size() : 1;
            inicio = i;
        } else {
            ++i;
        }
    }
    return lista;
}

// Everything from the first character of the one to the last of the other, with what lies between.
std::string_view desdeHasta(std::string_view primera, std::string_view ultima) {
    return {primera.data(), static_cast<std::size_t>(ultima.data() + ultima.size() - primera.data())};
}

class Repartidor {
public:
    Repartidor(const Superficie& medidor, const std::vector<std::string_view>& palabras)
        : m_medidor(medidor), m_palabras(palabras) {}

    // The breaks that leave the widest line as narrow as can be.
    Lineas en(std::size_t cuantas) {
        m_mejorAncho = -1;
        m_cortes.clear();
        probar(0, cuantas, 0);
        Lineas lineas;
        std::size_t desde = 0;
        for (const std::size_t hasta : m_mejores) {
            lineas.emplace_back(desdeHasta(m_palabras[desde], m_palabras[hasta - 1]));
            desde = hasta;
        }
        return lineas;
    }
    float ancho() const { return m_mejorAncho; }

private:
    void probar(std::size_t desde, std::size_t quedan, float masAncha) {
        if (m_mejorAncho >= 0 && masAncha >= m_mejorAncho) return;
        if (quedan == 0) {
            if (desde < m_palabras.size()) return;
            m_mejorAncho = masAncha;
            m_mejores = m_cortes;
            return;
        }
        const std::size_t ultimo = m_palabras.size() - (quedan - 1);
        for (std::size_t hasta = quedan == 1 ? ultimo : desde + 1; hasta <= ultimo; ++hasta) {
            const float ancho = m_medidor.medir(desdeHasta(m_palabras[desde], m_palabras[hasta - 1])).ancho;
            m_cortes.push_back(hasta);
            probar(hasta, quedan - 1, std::max(masAncha, ancho));
            m_cortes.pop_back();
        }
    }

    const Superficie& m_medidor;
    const std::vector<std::string_view>& m_palabras;
    std::vector<std::size_t> m_cortes, m_mejores;
    float m_mejorAncho = -1;
};

// The lines one below the other: their widths, and the ink of the whole.
struct Bloque {
    std::vector<float> anchos;
    float masAncho = 0;
    float interlinea = 0;
    float tintaSuperior = 0;
    float tintaInferior = 0;
};

Bloque medirBloque(const Superficie& medidor, const Lineas& lineas) {
    Bloque bloque;
    // Closer than a line is high: between captions' lines no accent meets a tail.
    bloque.interlinea = aPixelEntero(medidor.medir("0").alto * 0.95F);
    for (std::size_t i = 0; i < lineas.size(); ++i) {
        const MedidaTexto medida = medidor.medir(lineas[i]);
        const float y = static_cast<float>(i) * bloque.interlinea;
        bloque.anchos.push_back(medida.ancho);
        bloque.masAncho = std::max(bloque.masAncho, medida.ancho);
        bloque.tintaSuperior = i == 0 ? medida.tintaSuperior : std::min(bloque.tintaSuperior, y + medida.tintaSuperior);
        bloque.tintaInferior = std::max(bloque.tintaInferior, y + medida.tintaInferior);
    }
    return bloque;
}

// What the letters must shrink to, at most 1.
float escalaPara(const Bloque& bloque, const ZonaEtiqueta& zona) {
    const float ancho = zona.ancho - 2 * zona.margen;
    const float alto = zona.alto - 2 * zona.margenVertical;
    const float tinta = bloque.tintaInferior - bloque.tintaSuperior;
    return std::min(ancho / std::max(bloque.masAncho, ancho), alto / std::max(tinta, alto));
}

Lineas elegirLineas(Superficie& medidor, const ZonaEtiqueta& zona, std::string_view texto) {
    Lineas elegidas{std::string(texto)};
    float mejor = escalaPara(medirBloque(medidor, elegidas), zona);
    const std::vector<std::string_view> trozos = palabras(texto);
    if (trozos.size() > PALABRAS_MAXIMAS) return elegidas;
    Repartidor repartidor(medidor, trozos);
    for (std::size_t n = 2; n <= std::min(LINEAS_MAXIMAS, trozos.size()) && mejor < 1; ++n) {
        Lineas otras = repartidor.en(n);
        const float escala = escalaPara(medirBloque(medidor, otras), zona);
        if (escala < mejor * VENTAJA) continue;
        mejor = escala;
        elegidas = std::move(otras);
    }
    return elegidas;
}

// One line stands in line with the digits beside it, unless an accent or a tail would then be cut;
// several stand in the middle.
float alturaPrimera(const Superficie& medidor, const ZonaEtiqueta& zona, const Bloque& bloque, bool unaLinea) {
    const MedidaTexto cero = medidor.medir("0");
    const float arriba = unaLinea ? cero.tintaSuperior : bloque.tintaSuperior;
    const float abajo = unaLinea ? cero.tintaInferior : bloque.tintaInferior;
    const float margen = zona.margenVertical;
    const float minimo = margen - bloque.tintaSuperior;
    const float y = std::clamp(zona.alto / 2 - (arriba + abajo) / 2, minimo,
                               std::max(minimo, zona.alto - margen - bloque.tintaInferior));
    return alPixelCercano(y);
}

}  // namespace

EncajeEtiqueta encajarEtiqueta(Superficie& medidor, const ZonaEtiqueta& zona, std::string_view texto) {
    EncajeEtiqueta encaje;
    encaje.margen = zona.margen;
    encaje.fuente = letraVisor(zona.altoLetra);
    medidor.fuente(encaje.fuente);
    const Lineas lineas = elegirLineas(medidor, zona, texto);
    Bloque bloque = medirBloque(medidor, lineas);
    // Hinting makes steps of its own: what is chosen has been measured.
    for (float alto = zona.altoLetra; alto > TWIPS_POR_PIXEL && escalaPara(bloque, zona) < 1;) {
        const float escalado = aPixelEntero(alto * escalaPara(bloque, zona));
        alto = std::max(TWIPS_POR_PIXEL, std::min(alto - TWIPS_POR_PIXEL / 2, escalado));
        encaje.fuente = letraVisor(alto);
        medidor.fuente(encaje.fuente);
        bloque = medirBloque(medidor, lineas);
    }
    float y = alturaPrimera(medidor, zona, bloque, lineas.size() == 1);
    for (std::size_t i = 0; i < lineas.size(); ++i, y += bloque.interlinea) {
        encaje.lineas.push_back({lineas[i], bloque.anchos[i], y});
    }
    return encaje;
}

}  // namespace sorvanel
