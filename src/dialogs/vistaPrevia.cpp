#include "dialogs/vistaPrevia.h"

#include <algorithm>

#include "config/comun.h"
#include "display/formatoPeso.h"

namespace sorvanel {

namespace {

constexpr const char* MUESTRA_ETIQUETA = "A";
constexpr float ALTO_LETRA = aTwips(28);
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
    m_picEjVis->fuente(fuenteMuestra(ALTO_LETRA));
    const float unidad = m_picEjVis->medir("0").ancho;
    const float ancho = static_cast<float>(m_aspecto.anchoEtiqueta + 1) * unidad;
    const bool conEtiqueta = m_aspecto.anchoEtiqueta >= 1;
    const float corrido = conEtiqueta ? ancho : 0.0F;
    m_picEjEtq->colocar({m_zona.x, m_zona.y, ancho, m_zona.alto});
    m_picEjVis->colocar({m_zona.x + corrido, m_zona.y, m_zona.ancho - corrido, m_zona.alto});
    if (conEtiqueta) pintarEtiqueta(unidad);
    pintarPeso();
    m_picEjEtq->mostrar(m_visible && conEtiqueta);
    m_picEjVis->mostrar(m_visible);
}

void VistaPrevia::pintarEtiqueta(float unidad) {
    m_picEjEtq->colorFondo(m_aspecto.fondoEtiqueta);
    m_picEjEtq->limpiar();
    m_picEjEtq->fuente(fuenteMuestra(ALTO_LETRA * m_aspecto.ratioAcotado()));
    const MedidaTexto medida = m_picEjEtq->medir(MUESTRA_ETIQUETA);
    const float x = m_aspecto.inicioEtiqueta(m_picEjEtq->lugar().ancho - medida.ancho, unidad / 2);
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
    for (float alto = ALTO_LETRA; medida.ancho > hueco && alto > ALTO_MINIMO_LETRA; medida = m_picEjVis->medir(texto)) {
        alto = std::max(std::min(alto * hueco / medida.ancho, alto - aTwips(1)), ALTO_MINIMO_LETRA);
        m_picEjVis->fuente(fuenteMuestra(alto));
    }
    m_picEjVis->imprimir(std::max((m_picEjVis->lugar().ancho - medida.ancho) / 2, 0.0F),
                         arribaCentrado(*m_picEjVis, medida), texto, m_aspecto.textoPeso);
    m_picEjVis->leyenda(texto);
}

}  // namespace sorvanel
