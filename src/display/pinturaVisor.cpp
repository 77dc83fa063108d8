#include "display/pinturaVisor.h"

#include <array>

#include "config/codificacion.h"

namespace sorvanel {

namespace {

constexpr int RAYAS = 5;
constexpr std::string_view LEYENDA_SIN_DATOS = "-----";
constexpr float ANCHO_CORTE = 0.9F;  // of the width of "0": kept for the arrow of a cut weight

}  // namespace

bool PinturaVisor::encajar(const Rectangulo& celda, const AspectoVisor& aspecto) {
    const FormatoPeso formato(aspecto.formato);
    const std::optional<EncajeVisor> encaje = encajarVisor(m_peso, celda, aspecto, formato.muestra());
    if (!encaje) {
        m_peso.fuente(m_encaje.fuentePeso);
        return false;
    }
    m_encaje = *encaje;
    m_aspecto = aspecto;
    m_formato = formato;
    m_encajado = true;
    colores();
    m_etiqueta.fuente(m_encaje.etiqueta.fuente);
    m_peso.fuente(m_encaje.fuentePeso);
    m_etiqueta.colocar({celda.x, celda.y, m_encaje.anchoEtiqueta, celda.alto});
    m_peso.colocar({celda.x + m_encaje.anchoEtiqueta, celda.y, m_encaje.anchoPeso, celda.alto});
    m_etiqueta.limpiar();
    limpiarPeso();
    return true;
}

void PinturaVisor::aspecto(const AspectoVisor& aspecto) {
    m_aspecto = aspecto;
    if (m_encajado) colores();
}

void PinturaVisor::colores() {
    m_etiqueta.colorFondo(m_aspecto.fondoEtiqueta);
    m_peso.colorFondo(m_aspecto.fondoPeso);
    m_marcasSeguras = false;
}

void PinturaVisor::pintarEtiqueta() {
    if (!m_encajado) return;
    m_etiqueta.limpiar();
    m_etiqueta.leyenda(m_aspecto.etiqueta);
    if (!hayEtiqueta() || m_aspecto.etiqueta.empty()) return;
    const EncajeEtiqueta& etiqueta = m_encaje.etiqueta;
    for (const LineaEtiqueta& linea : etiqueta.lineas) {
        const float x = m_aspecto.inicioEtiqueta(m_encaje.anchoEtiqueta - linea.ancho, etiqueta.margen);
        m_etiqueta.imprimir(x, linea.y, linea.texto, m_aspecto.textoEtiqueta);
    }
}

void PinturaVisor::pintarPeso(const Trama& trama, const MarcasVisor& suyas) {
    if (!m_encajado) return;
    m_formato.escribir(trama.milesimas, m_texto);
    borrarTexto();
    imprimirPeso();
    const MarcasVisor marcas{suyas.E && trama.E, suyas.C && trama.C, suyas.D && trama.D};
    ponerMarcas(marcas);

    m_leyenda = m_texto;
    if (marcas.E) m_leyenda += " E";
    if (marcas.C) m_leyenda += " C";
    if (marcas.D) m_leyenda += " D";
    m_peso.leyenda(m_leyenda);
}

void PinturaVisor::pintarSinDatos(const MarcasVisor& suyas) {
    if (!m_encajado) return;
    borrarTexto();
    const float paso = m_encaje.anchoCero;
    float x = m_encaje.derecha - 3 * paso / 4;
    for (int i = 0; i < RAYAS; ++i, x -= paso) m_peso.caja({x, m_encaje.alto / 4, paso / 2, m_encaje.alto / 2}, ROJO);
    ponerMarcas({m_marcas.E && !suyas.E, m_marcas.C && !suyas.C, m_marcas.D && !suyas.D});
    m_peso.leyenda(LEYENDA_SIN_DATOS);
}

void PinturaVisor::limpiarPeso() {
    if (!m_encajado) return;
    m_marcasSeguras = false;
    m_peso.limpiar();
    m_marcas = {};
    m_marcasSeguras = true;
    m_peso.leyenda({});
}

void PinturaVisor::borrarTexto() {
    m_peso.caja({0, 0, m_encaje.derecha, m_encaje.alto}, m_aspecto.fondoPeso);
}

void PinturaVisor::imprimirPeso() {
    if (m_texto.empty()) return;
    const float x = m_encaje.derecha - m_peso.medir(m_texto).ancho;
    if (x < 0) return imprimirCortado();
    m_peso.imprimir(x, m_encaje.yPeso, m_texto, m_aspecto.textoPeso);
}

// A weight that does not fit must not pass for a smaller one: its last digits stand in their places, and
// an arrow says that there are more to the left.
void PinturaVisor::imprimirCortado() {
    const float corte = m_encaje.anchoCero * ANCHO_CORTE;
    std::string_view resto = m_texto;
    float ancho = 0;
    do {
        resto.remove_prefix(leerCaracter(resto).octetos);
        ancho = resto.empty() ? 0 : m_peso.medir(resto).ancho;
    } while (ancho > m_encaje.derecha - corte);
    m_peso.imprimir(m_encaje.derecha - ancho, m_encaje.yPeso, resto, m_aspecto.textoPeso);

    const float medio = (m_encaje.tintaSuperior + m_encaje.tintaInferior) / 2;
    const float mitad = (m_encaje.tintaInferior - m_encaje.tintaSuperior) / 3;
    const std::array<Punto, 3> flecha{Punto{corte / 8, medio}, Punto{corte * 7 / 8, medio - mitad},
                                      Punto{corte * 7 / 8, medio + mitad}};
    m_peso.poligono(flecha, ROJO);
}

void PinturaVisor::ponerMarcas(const MarcasVisor& marcas) {
    if (m_marcasSeguras && marcas == m_marcas) return;
    m_marcasSeguras = false;
    pintarMarcas(m_peso, m_encaje, marcas, m_aspecto.textoPeso, m_aspecto.fondoPeso);
    m_marcas = marcas;
    m_marcasSeguras = true;
}

}  // namespace sorvanel
