#include "display/encajeVisor.h"

#include <algorithm>

namespace sorvanel {

namespace {

constexpr std::string_view MUESTRA = "0000.0";
constexpr float ALTO_MINIMO = aTwips(8);   // of the digits' ink
constexpr float MARGEN_VERTICAL = 0.06F;   // of the cell's height, above and below the ink
constexpr float MARGEN_IZQUIERDO = 0.15F;  // of the width of "0", before the widest weight
constexpr float COLUMNA_MARCAS = 1.2F;     // as wide, in widths of "0", at least
constexpr float ANCHO_EFECTIVO_MAXIMO = 6;
constexpr float MARGEN_ETIQUETA = 1.0F / 6;  // of the width of its "0", at either side
constexpr float PARTE_ETIQUETA = 0.3F;       // of the cell's height: what digits leave to a caption above them
constexpr int INTENTOS_HACIA_ARRIBA = 4;

// What matters of a font at one height.
struct Cuerpo {
    float alto = 0;   // of the font
    float ancho = 0;  // of the widest weight
    float anchoCero = 0;
    float cifraArriba = 0;  // ink of the digits, from the top of the line
    float cifraAbajo = 0;
    float arriba = 0;  // the weight's ink above and below the middle of the digits'
    float abajo = 0;

    float medio() const { return (cifraArriba + cifraAbajo) / 2; }
    // With what is kept free around it.
    float altoNecesario() const { return std::max(arriba, abajo) / (0.5F - MARGEN_VERTICAL); }
};

class Encajador {
public:
    Encajador(Superficie& medidor, const Rectangulo& celda, const AspectoVisor& aspecto, std::string_view muestra)
        : m_medidor(medidor),
          m_celda(celda),
          m_aspecto(aspecto),
          m_muestra(muestra),
          m_anchoEfectivo(std::clamp(static_cast<float>(aspecto.anchoEtiqueta), 0.0F, ANCHO_EFECTIVO_MAXIMO)),
          m_encima(aspecto.etiquetaEncima && aspecto.anchoEtiqueta > 0),
          m_ratio(aspecto.ratioAcotado()) {}

    std::optional<EncajeVisor> encajar();

private:
    Cuerpo medir(float alto) const;
    float zonaEtiqueta(float altoPeso) const;
    float anchoNecesario(const Cuerpo& cuerpo) const;
    bool cabe(const Cuerpo& cuerpo, float zona) const;
    float ampliable(const Cuerpo& cuerpo, float zona) const;
    float estimar() const;
    bool buscar();
    bool probar(float alto);
    float altoEncima() const;
    EncajeVisor repartir() const;
    void etiqueta(EncajeVisor& encaje) const;

    Superficie& m_medidor;
    const Rectangulo m_celda;
    const AspectoVisor& m_aspecto;
    const std::string_view m_muestra;
    const float m_anchoEfectivo;
    const bool m_encima;
    const float m_ratio;
    Cuerpo m_cuerpo;
    float m_zonaEtiqueta = 0;  // how wide the caption's area is; above the weight, how high it should be
};

Cuerpo Encajador::medir(float alto) const {
    m_medidor.fuente(letraVisor(alto));
    const MedidaTexto cero = m_medidor.medir("0");
    const MedidaTexto corriente = m_medidor.medir(MUESTRA);
    const MedidaTexto propia = m_medidor.medir(m_muestra.empty() ? MUESTRA : m_muestra);
    Cuerpo cuerpo;
    cuerpo.alto = alto;
    cuerpo.ancho = std::max(corriente.ancho, propia.ancho);
    cuerpo.anchoCero = cero.ancho;
    cuerpo.cifraArriba = cero.tintaSuperior;
    cuerpo.cifraAbajo = cero.tintaInferior;
    // A format's own text may reach above and below the digits.
    cuerpo.arriba = cuerpo.medio() - std::min(cero.tintaSuperior, propia.tintaSuperior);
    cuerpo.abajo = std::max(cero.tintaInferior, propia.tintaInferior) - cuerpo.medio();
    return cuerpo;
}

float Encajador::zonaEtiqueta(float altoPeso) const {
    if (m_anchoEfectivo <= 0) return 0;
    m_medidor.fuente(letraVisor(altoPeso * m_ratio));
    const MedidaTexto cero = m_medidor.medir("0");
    if (!m_encima) return (m_anchoEfectivo + 1) * cero.ancho;
    return (cero.tintaInferior - cero.tintaSuperior) / (1 - MARGEN_VERTICAL);
}

float Encajador::anchoNecesario(const Cuerpo& cuerpo) const {
    return cuerpo.ancho + (MARGEN_IZQUIERDO + COLUMNA_MARCAS) * cuerpo.anchoCero;
}

// Above the digits a caption becomes smaller than its share before they do, down to a part of the cell.
bool Encajador::cabe(const Cuerpo& cuerpo, float zona) const {
    if (cuerpo.ancho <= 0) return false;
    if (!m_encima) return zona + anchoNecesario(cuerpo) <= m_celda.ancho && cuerpo.altoNecesario() <= m_celda.alto;
    return anchoNecesario(cuerpo) <= m_celda.ancho &&
           cuerpo.altoNecesario() + std::min(zona, m_celda.alto * PARTE_ETIQUETA) <= m_celda.alto;
}

// How many times as large both may be.
float Encajador::ampliable(const Cuerpo& cuerpo, float zona) const {
    const float ancho = anchoNecesario(cuerpo), alto = cuerpo.altoNecesario();
    if (!(ancho > 0 && alto > 0)) return 0;
    if (!m_encima) return std::min(m_celda.ancho / (ancho + zona), m_celda.alto / alto);
    return std::min(m_celda.ancho / ancho, m_celda.alto * std::max(1 / (alto + zona), (1 - PARTE_ETIQUETA) / alto));
}

// Type scales almost linearly: one measurement tells the height to within a pixel or two.
float Encajador::estimar() const {
    const float prueba = std::clamp(m_celda.alto, ALTO_MINIMO * 2, aTwips(400));
    const Cuerpo cuerpo = medir(prueba);
    return aPixelEntero(prueba * ampliable(cuerpo, zonaEtiqueta(prueba)));
}

// From the estimate down to what really fits, or up to the last that does: hinting makes steps of its own.
bool Encajador::buscar() {
    float alto = estimar();
    if (probar(alto)) {
        for (int i = 0; i < INTENTOS_HACIA_ARRIBA && probar(alto += TWIPS_POR_PIXEL); ++i) {
        }
    } else {
        do alto -= std::max(TWIPS_POR_PIXEL, aPixelEntero(alto / 100));
        while (alto >= ALTO_MINIMO && !probar(alto));
    }
    return m_cuerpo.cifraAbajo - m_cuerpo.cifraArriba >= ALTO_MINIMO;
}

bool Encajador::probar(float alto) {
    if (alto < ALTO_MINIMO) return false;
    const Cuerpo cuerpo = medir(alto);
    const float zona = zonaEtiqueta(alto);
    if (!cabe(cuerpo, zona)) return false;
    m_cuerpo = cuerpo;
    m_zonaEtiqueta = zona;
    return true;
}

// The weight has what it needs; half of the room to spare is for more lines of the caption.
float Encajador::altoEncima() const {
    const float libre = m_celda.alto - m_cuerpo.altoNecesario();
    return aPixelEntero(libre < m_zonaEtiqueta ? libre : (libre + m_zonaEtiqueta) / 2);
}

EncajeVisor Encajador::repartir() const {
    EncajeVisor encaje;
    encaje.anchoEtiqueta = m_encima ? m_celda.ancho : m_zonaEtiqueta;
    encaje.altoEtiqueta = m_encima ? altoEncima() : m_celda.alto;
    if (m_encima) {
        encaje.arriba = encaje.altoEtiqueta;
    } else {
        encaje.izquierda = encaje.anchoEtiqueta;
    }
    encaje.anchoPeso = m_celda.ancho - encaje.izquierda;
    encaje.alto = m_celda.alto - encaje.arriba;
    encaje.fuentePeso = letraVisor(m_cuerpo.alto);
    encaje.anchoCero = m_cuerpo.anchoCero;
    encaje.yPeso = alPixelCercano(encaje.alto / 2 - m_cuerpo.medio());
    encaje.tintaSuperior = encaje.yPeso + m_cuerpo.cifraArriba;
    encaje.tintaInferior = encaje.yPeso + m_cuerpo.cifraAbajo;
    // Room to spare goes to both sides of the digits, but the marks are kept near them.
    const float sobra = std::max(0.0F, encaje.anchoPeso - anchoNecesario(m_cuerpo));
    const float columna = COLUMNA_MARCAS * m_cuerpo.anchoCero + std::min(sobra / 2, m_cuerpo.anchoCero);
    encaje.derecha = std::max(m_cuerpo.ancho, aPixelEntero(encaje.anchoPeso - columna));
    return encaje;
}

// The caption keeps its share of the weight's height unless it would be cut.
void Encajador::etiqueta(EncajeVisor& encaje) const {
    if (m_zonaEtiqueta <= 0) return;
    ZonaEtiqueta zona;
    zona.ancho = encaje.anchoEtiqueta;
    zona.alto = encaje.altoEtiqueta;
    m_medidor.fuente(letraVisor(m_cuerpo.alto * m_ratio));
    zona.margen = MARGEN_ETIQUETA * m_medidor.medir("0").ancho;
    zona.margenVertical = std::min(zona.margen, zona.alto * MARGEN_VERTICAL / 2);
    zona.altoLetra = m_cuerpo.alto * m_ratio;
    encaje.etiqueta = encajarEtiqueta(m_medidor, zona, m_aspecto.etiqueta);
}

std::optional<EncajeVisor> Encajador::encajar() {
    if (m_celda.vacio() || !buscar()) return std::nullopt;
    EncajeVisor encaje = repartir();
    etiqueta(encaje);
    return encaje;
}

}  // namespace

std::optional<EncajeVisor> encajarVisor(Superficie& medidor, const Rectangulo& celda, const AspectoVisor& aspecto,
                                        std::string_view muestra) {
    return Encajador(medidor, celda, aspecto, muestra).encajar();
}

}  // namespace sorvanel
