#include "dialogs/vistaPrevia.h"

#include <algorithm>

#include "config/comun.h"
#include "display/formatoPeso.h"

namespace sorvanel {

namespace {

constexpr const char* MUESTRA_ETIQUETA = "A";
constexpr float ALTO_LETRA = aTwips(28);
// Where the caption stands above: its share of the height, and how large the letters are then.
constexpr float PARTE_ENCIMA = 0.45F;
constexpr float LETRA_ENCIMA = 0.7F;
constexpr float ALTO_MINIMO_LETRA = aTwips(6);
// Room for the weight, beside the widest caption, in widths of "0".
constexpr float UNIDADES_PESO = 8;

Fuente fuenteMuestra(float alto) {
    return {"Arial", alto, true, false, false};
}

// So that the ink stands in the middle of the picture, not the line.
float arribaCentrado(const Superficie& pic, const MedidaTexto& medida) {
    return (pic.lugar().alto - medida.tintaSuperior - medida.tintaInferior) / 2;
}

}  // namespace

VistaPrevia::VistaPrevia(TallerDialogo& taller)
    : m_taller(taller),
      m_picEjEtq(taller.formulario().crearSuperficie(IdControl::picEjEtq, 0)),
      m_picEjVis(taller.formulario().crearSuperficie(IdControl::picEjVis, 0)) {}

void VistaPrevia::aspecto(const AspectoVisor& aspecto) {
    m_aspecto = aspecto;
    disponer();
}

void VistaPrevia::mostrar(bool visible) {
    m_visible = visible;
    disponer();
}

Pieza VistaPrevia::comoPieza() {
    const Tamano cifra = m_taller.textoCon(fuenteMuestra(ALTO_LETRA), "0");
    const float unidades = comun::MAXWIDLABL + 1 + UNIDADES_PESO;
    return {{unidades * cifra.ancho, cifra.alto * 1.5F}, [this](const Rectangulo& zona) { colocar(zona); }, true};
}

void VistaPrevia::colocar(const Rectangulo& zona) {
    m_zona = zona;
    disponer();
}

// Without a caption the weight has all the room, as it has in the display.
void VistaPrevia::disponer() {
    if (m_zona.vacio()) return;
    m_picEjVis->fuente(fuenteMuestra(altoLetra()));
    const float unidad = m_picEjVis->medir("0").ancho;
    const bool conEtiqueta = m_aspecto.anchoEtiqueta >= 1;
    Rectangulo etiqueta = m_zona, peso = m_zona;
    if (conEtiqueta && m_aspecto.etiquetaEncima) {
        etiqueta.alto *= PARTE_ENCIMA;
        peso.y = etiqueta.abajo();
        peso.alto -= etiqueta.alto;
    } else {
        etiqueta.ancho = static_cast<float>(m_aspecto.anchoEtiqueta + 1) * unidad;
        if (conEtiqueta) peso = {etiqueta.derecha(), m_zona.y, m_zona.ancho - etiqueta.ancho, m_zona.alto};
    }
    m_picEjEtq->colocar(etiqueta);
    m_picEjVis->colocar(peso);
    if (conEtiqueta) pintarEtiqueta(unidad);
    pintarPeso();
    m_picEjEtq->mostrar(m_visible && conEtiqueta);
    m_picEjVis->mostrar(m_visible);
}

float VistaPrevia::altoLetra() const {
    const bool encima = m_aspecto.anchoEtiqueta >= 1 && m_aspecto.etiquetaEncima;
    return encima ? ALTO_LETRA * LETRA_ENCIMA : ALTO_LETRA;
}

void VistaPrevia::pintarEtiqueta(float unidad) {
    m_picEjEtq->colorFondo(m_aspecto.fondoEtiqueta);
    m_picEjEtq->limpiar();
    m_picEjEtq->fuente(fuenteMuestra(altoLetra() * m_aspecto.ratioAcotado()));
    const MedidaTexto medida = m_picEjEtq->medir(MUESTRA_ETIQUETA);
    const float x = m_aspecto.inicioEtiqueta(m_picEjEtq->lugar().ancho - medida.ancho, unidad / 6);
    m_picEjEtq->imprimir(x, arribaCentrado(*m_picEjEtq, medida), MUESTRA_ETIQUETA, m_aspecto.textoEtiqueta);
    m_picEjEtq->leyenda(MUESTRA_ETIQUETA);
}

// A format with much text in it is shown smaller, so that all of it is seen.
void VistaPrevia::pintarPeso() {
    m_picEjVis->colorFondo(m_aspecto.fondoPeso);
    m_picEjVis->limpiar();
    const std::string texto = FormatoPeso(m_aspecto.formato).muestra();
    const float hueco = m_picEjVis->lugar().ancho - SEPARACION;
    MedidaTexto medida = m_picEjVis->medir(texto);
    for (float alto = altoLetra(); medida.ancho > hueco && alto > ALTO_MINIMO_LETRA;
         medida = m_picEjVis->medir(texto)) {
        alto = std::max(std::min(alto * hueco / medida.ancho, alto - aTwips(1)), ALTO_MINIMO_LETRA);
        m_picEjVis->fuente(fuenteMuestra(alto));
    }
    m_picEjVis->imprimir(std::max((m_picEjVis->lugar().ancho - medida.ancho) / 2, 0.0F),
                         arribaCentrado(*m_picEjVis, medida), texto, m_aspecto.textoPeso);
    m_picEjVis->leyenda(texto);
}

}  // namespace sorvanel
