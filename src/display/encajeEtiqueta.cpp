#include "display/encajeEtiqueta.h"

#include <algorithm>
#include <array>

#include "display/silabas.h"

namespace sorvanel {

namespace {

// A longer text is no caption; to try its breaks would take long.
constexpr std::size_t PALABRAS_MAXIMAS = 12;
constexpr std::string_view BLANCO_FIJO = "\u00a0";

// With syllables of words for pieces.
constexpr std::size_t TROZOS_MAXIMOS = 20;
// Words are cut only where letters would else be lower than that, and are then so much larger.
constexpr float ALTO_LEGIBLE = aTwips(13);
constexpr float VENTAJA = 1.15F;

using Lineas = std::vector<std::string>;

// What stays on one line.
struct Trozo {
    std::string_view texto;
    bool sigue = false;  // its word goes on behind it
};
using Trozos = std::vector<Trozo>;

Trozos palabras(std::string_view texto) {
    Trozos lista;
    std::size_t inicio = 0;
    for (std::size_t i = 0; i <= texto.size();) {
        const bool fijo = texto.substr(i).starts_with(BLANCO_FIJO);
        if (i == texto.size() || texto[i] == ' ' || fijo) {
            if (i > inicio) lista.push_back({texto.substr(inicio, i - inicio)});
            i += fijo ? BLANCO_FIJO.size() : 1;
            inicio = i;
        } else {
            ++i;
        }
    }
    return lista;
}

Trozos silabas(const Trozos& palabras) {
    Trozos lista;
    for (const Trozo& palabra : palabras) {
        std::size_t inicio = 0;
        for (const std::size_t corte : cortesSilaba(palabra.texto)) {
            lista.push_back({palabra.texto.substr(inicio, corte - inicio), true});
            inicio = corte;
        }
        lista.push_back({palabra.texto.substr(inicio)});
    }
    return lista;
}

// Everything from the first character of the one to the last of the other, with what lies between.
std::string desdeHasta(const Trozo& primero, const Trozo& ultimo) {
    const char* const fin = ultimo.texto.data() + ultimo.texto.size();
    std::string linea(primero.texto.data(), fin);
    if (ultimo.sigue) linea += '-';
    return linea;
}

// How pieces are shared out among lines so that the widest one is as narrow as can be.
class Repartidor {
public:
    Repartidor(const Superficie& medidor, const Trozos& trozos) : m_trozos(trozos) {
        for (std::size_t desde = 0; desde < trozos.size(); ++desde) {
            for (std::size_t hasta = desde; hasta < trozos.size(); ++hasta)
                m_anchos[desde].at(hasta) = medidor.medir(desdeHasta(trozos[desde], trozos[hasta])).ancho;
        }
    }

    Lineas en(std::size_t cuantas) {
        prever(cuantas);
        Lineas lineas;
        std::size_t desde = 0;
        for (; cuantas > 0; --cuantas) {
            const std::size_t hasta = m_cortes[cuantas].at(desde);
            lineas.push_back(desdeHasta(m_trozos[desde], m_trozos[hasta - 1]));
            desde = hasta;
        }
        return lineas;
    }

private:
    // For each number of lines, and from each piece on, the widest line and before which piece the first one ends.
    void prever(std::size_t cuantas) {
        const std::size_t n = m_trozos.size();
        for (; m_previstas < cuantas; ++m_previstas) {
            const std::size_t lineas = m_previstas + 1;
            for (std::size_t desde = 0; desde + lineas <= n; ++desde) {
                float& mejor = m_anchas[lineas].at(desde);
                mejor = -1;
                for (std::size_t hasta = lineas == 1 ? n : desde + 1; hasta + lineas <= n + 1; ++hasta) {
                    const float resto = lineas == 1 ? 0 : m_anchas[lineas - 1].at(hasta);
                    const float ancha = std::max(m_anchos[desde].at(hasta - 1), resto);
                    if (mejor >= 0 && ancha >= mejor) continue;
                    mejor = ancha;
                    m_cortes[lineas].at(desde) = hasta;
                }
            }
        }
    }

    template <typename T>
    using Tabla = std::array<std::array<T, TROZOS_MAXIMOS>, TROZOS_MAXIMOS + 1>;

    const Trozos& m_trozos;
    Tabla<float> m_anchos{};  // from a piece to another
    Tabla<float> m_anchas{};
    Tabla<std::size_t> m_cortes{};
    std::size_t m_previstas = 0;
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

// The least number of lines with which the letters are largest: `mejor` is what they must shrink to.
void probar(Superficie& medidor, const ZonaEtiqueta& zona, const Trozos& trozos, float ventaja, float& mejor,
            Lineas& elegidas) {
    Repartidor repartidor(medidor, trozos);
    for (std::size_t n = 2; n <= trozos.size() && mejor < 1; ++n) {
        Lineas otras = repartidor.en(n);
        const float escala = escalaPara(medirBloque(medidor, otras), zona);
        if (escala <= mejor * ventaja) continue;
        ventaja = 1;
        mejor = escala;
        elegidas = std::move(otras);
    }
}

Lineas elegirLineas(Superficie& medidor, const ZonaEtiqueta& zona, std::string_view texto) {
    Lineas elegidas{std::string(texto)};
    float mejor = escalaPara(medirBloque(medidor, elegidas), zona);
    const Trozos enteras = palabras(texto);
    if (enteras.size() > PALABRAS_MAXIMAS) return elegidas;
    probar(medidor, zona, enteras, 1, mejor, elegidas);
    if (mejor * zona.altoLetra >= ALTO_LEGIBLE) return elegidas;
    const Trozos partidas = silabas(enteras);
    if (partidas.size() <= TROZOS_MAXIMOS) probar(medidor, zona, partidas, VENTAJA, mejor, elegidas);
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
