#include "display/pinturaVisor.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace sorvanel {

namespace {

constexpr std::string_view SIN_DATOS = "sin datos";
constexpr float VUELO = 0.25F;        // of the width of "0": no letter reaches farther out of its place
constexpr float ANCHO_FLECHA = 0.9F;  // of the width of "0": the overflow sign
constexpr int DECIMOS = 10;
constexpr float ANCHO_EN_CEROS = 0.75F;  // a mark's width, to that of "0"
constexpr float ALTO_TRIANGULO = 0.44F;  // to the digits' ink: two of them and a gap
constexpr float ALTO_PLACA = 0.66F;
constexpr float TRAZOS_PLACA = 7;  // a margin, the letter's three arms and two gaps, a margin

// A group of whole tenths of the column, centred in it, as wide as a mark should be.
Rectangulo grupoDeDecimos(const EncajeVisor& encaje) {
    const float decimo = (encaje.anchoPeso - encaje.derecha) / DECIMOS;
    const float deseados = std::floor(encaje.anchoCero * ANCHO_EN_CEROS / decimo + 0.5F);
    const float cuantos = std::clamp(deseados, 2.0F, DECIMOS - 2.0F);
    return {encaje.derecha + (DECIMOS - cuantos) / 2 * decimo, encaje.tintaSuperior, cuantos * decimo,
            encaje.tintaInferior - encaje.tintaSuperior};
}

void triangulo(Superficie& peso, float izquierda, float derecha, float base, float punta, Color tinta) {
    const std::array<Punto, 3> vertices{Punto{izquierda, base}, Punto{derecha, base},
                                        Punto{(izquierda + derecha) / 2, punta}};
    peso.poligono(vertices, tinta);
}

// The letter stands out of a plate, so that it cannot be taken for one more digit.
void placaE(Superficie& peso, const Rectangulo& grupo, Color tinta, Color fondo) {
    // Strokes of whole pixels keep the letter even.
    const float pixeles = std::floor(grupo.alto * ALTO_PLACA / TRAZOS_PLACA / TWIPS_POR_PIXEL);
    const float trazo = std::max(pixeles, 1.0F) * TWIPS_POR_PIXEL;
    const float alto = trazo * TRAZOS_PLACA;
    const Rectangulo placa{grupo.x, grupo.y + (grupo.alto - alto) / 2, grupo.ancho, alto};
    peso.caja(placa, tinta);

    const float ancho = placa.ancho * 0.56F;
    const float x = placa.x + (placa.ancho - ancho) / 2;
    const float y = placa.y + trazo;
    peso.caja({x, y, trazo * 1.25F, 5 * trazo}, fondo);
    for (const float brazo : {0.0F, 2.0F, 4.0F}) peso.caja({x, y + brazo * trazo, ancho, trazo}, fondo);
}

// Paints the whole column right of the weight's text: what is not set is erased.
void pintarMarcas(Superficie& peso, const EncajeVisor& encaje, const MarcasVisor& marcas, Color tinta, Color fondo) {
    peso.caja({encaje.derecha, 0, encaje.anchoPeso - encaje.derecha, encaje.alto}, fondo);
    const Rectangulo grupo = grupoDeDecimos(encaje);
    const float alto = grupo.alto * ALTO_TRIANGULO;
    if (marcas.C) triangulo(peso, grupo.x, grupo.derecha(), grupo.y + alto, grupo.y, tinta);
    if (marcas.D) triangulo(peso, grupo.x, grupo.derecha(), grupo.abajo() - alto, grupo.abajo(), tinta);
    if (marcas.E) placaE(peso, grupo, tinta, fondo);
}

}  // namespace

bool PinturaVisor::encajar(const Rectangulo& celda, const AspectoVisor& aspecto) {
    const FormatoPeso formato(aspecto.formato);
    const std::optional<EncajeVisor> encaje = encajarVisor(m_peso, celda, aspecto, formato.muestra());
    if (!encaje) {
        m_letras.reponer();
        return false;
    }
    m_encaje = *encaje;
    m_aspecto = aspecto;
    m_formato = formato;
    m_encajado = true;
    colores();
    m_etiqueta.fuente(m_encaje.etiqueta.fuente);
    m_letras.encajar(m_encaje);
    m_etiqueta.colocar({celda.x, celda.y, m_encaje.anchoEtiqueta, m_encaje.altoEtiqueta});
    m_peso.colocar({celda.x + m_encaje.izquierda, celda.y + m_encaje.arriba, m_encaje.anchoPeso, m_encaje.alto});
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
    m_escrito.clear();
    m_tintas = tintasAviso(m_aspecto);
    m_leyenda = m_aspecto.etiqueta;
    if (!m_leyenda.empty()) m_leyenda += ": ";
    m_largoTitulo = m_leyenda.size();
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
    imprimirPeso();
    const MarcasVisor marcas{suyas.E && trama.E, suyas.C && trama.C, suyas.D && trama.D};
    ponerMarcas(marcas);

    std::string& leyenda = leyendaCon(m_texto);
    if (marcas.E) leyenda += ", equilibrio";
    if (marcas.C) leyenda += ", en carga";
    if (marcas.D) leyenda += ", en descarga";
    m_peso.leyenda(leyenda);
}

std::string& PinturaVisor::leyendaCon(std::string_view texto) {
    m_leyenda.resize(m_largoTitulo);
    return m_leyenda += texto;
}

void PinturaVisor::pintarSinDatos(const MarcasVisor& suyas, std::span<const std::string> porque) {
    if (!m_encajado) return;
    borrarTexto();
    pintarRayas(m_peso, m_encaje, m_tintas);
    if (!porque.empty()) {
        pintarMotivo(m_peso, m_encaje, m_tintas.texto, porque);
        m_letras.reponer();
    }
    ponerMarcas({m_marcas.E && !suyas.E, m_marcas.C && !suyas.C, m_marcas.D && !suyas.D});
    std::string& leyenda = leyendaCon(SIN_DATOS);
    if (!porque.empty()) leyenda += ". " + porque.front();
    m_peso.leyenda(leyenda);
}

void PinturaVisor::limpiarPeso() {
    if (!m_encajado) return;
    m_marcasSeguras = false;
    m_escrito.clear();
    m_peso.limpiar();
    m_marcas = {};
    m_marcasSeguras = true;
    m_peso.leyenda({});
}

void PinturaVisor::borrarTexto() {
    m_escrito.clear();
    m_peso.caja({0, 0, m_encaje.derecha, m_encaje.alto}, m_aspecto.fondoPeso);
}

// Most weights differ from the one before in a digit or two: only these are painted, with the whole text cut to their
// place, so that the picture is the same to the pixel.
void PinturaVisor::imprimirPeso() {
    const auto [letra, ancho] = m_letras.para(m_texto);
    if (letra == nullptr) return imprimirDesbordado();
    const float x = m_encaje.derecha - ancho;
    const Rectangulo zona = cambiado(*letra, x);
    if (zona.vacio()) return;
    const bool entero = zona.ancho >= m_encaje.derecha;
    m_escrito.clear();
    if (entero) {
        m_peso.caja(zona, m_aspecto.fondoPeso);
        if (m_texto.empty()) return;
        m_peso.imprimir(x, letra->y, m_texto, m_aspecto.textoPeso);
    } else {
        m_peso.cambiarTexto(zona, m_aspecto.fondoPeso, x, letra->y, m_texto, m_aspecto.textoPeso);
    }
    m_escrito = m_texto;
    m_altoEscrito = letra->fuente.alto;
    m_pixel = m_peso.pixel();
}

Rectangulo PinturaVisor::cambiado(const LetrasPeso::Letra& letra, float x) {
    const Rectangulo todo{0, 0, m_encaje.derecha, m_encaje.alto};
    const std::string_view antes = m_escrito, ahora = m_texto;
    const auto suelta = [](char una) { return static_cast<unsigned char>(una) < 0x80; };
    if (!std::all_of(ahora.begin(), ahora.end(), suelta)) return todo;
    // At another scale the surface has dropped its picture.
    if (antes.empty() || m_pixel != m_peso.pixel() || m_altoEscrito != letra.fuente.alto) return todo;
    // In the same letters nothing reaches beyond their line, which on a large screen is half of the cell.
    const float arriba = std::max(letra.y - m_pixel, 0.0F);
    const float alto = std::min(letra.y + letra.alto + m_pixel, m_encaje.alto) - arriba;
    if (antes.size() != ahora.size() || m_letras.ancho(antes) != m_letras.ancho(ahora))
        return {0, arriba, m_encaje.derecha, alto};
    const auto distintas = std::mismatch(antes.begin(), antes.end(), ahora.begin());
    const auto desde = static_cast<std::size_t>(distintas.first - antes.begin());
    if (desde == antes.size()) return {};
    const auto finales = std::mismatch(antes.rbegin(), antes.rend(), ahora.rbegin());
    const std::size_t hasta = antes.size() - static_cast<std::size_t>(finales.first - antes.rbegin());
    // A letter that has not the width of the one it replaces moves those up to where both texts agree again.
    const float vuelo = m_encaje.anchoCero * VUELO;
    const float izquierda = std::max(x + m_letras.ancho(ahora.substr(0, desde)) - vuelo, 0.0F);
    const float derecha = std::min(x + m_letras.ancho(ahora.substr(0, hasta)) + vuelo, m_encaje.derecha);
    // Who paints the whole width paints the whole line: what lies under it is forgotten then.
    if (derecha - izquierda >= m_encaje.derecha) return {0, arriba, m_encaje.derecha, alto};
    // Above and below the ink of both texts there is nothing but ground: on a large screen a third of the line.
    const float borde = 2 * m_pixel;
    const float techo = std::max(letra.y + letra.tintaSuperior - borde, arriba);
    const float suelo = std::min(letra.y + letra.tintaInferior + borde, arriba + alto);
    return {izquierda, techo, derecha - izquierda, suelo - techo};
}

// What nobody could read must not pass for a smaller weight: an arrow says that it goes on to the left.
void PinturaVisor::imprimirDesbordado() {
    borrarTexto();
    const float lado = m_encaje.anchoCero * ANCHO_FLECHA;
    const float medio = (m_encaje.tintaSuperior + m_encaje.tintaInferior) / 2;
    const float mitad = (m_encaje.tintaInferior - m_encaje.tintaSuperior) / 3;
    const std::array<Punto, 3> flecha{Punto{lado / 8, medio}, Punto{lado * 7 / 8, medio - mitad},
                                      Punto{lado * 7 / 8, medio + mitad}};
    m_peso.poligono(flecha, m_tintas.conContorno ? m_tintas.texto : m_tintas.aviso);
}

void PinturaVisor::ponerMarcas(const MarcasVisor& marcas) {
    if (m_marcasSeguras && marcas == m_marcas) return;
    m_marcasSeguras = false;
    pintarMarcas(m_peso, m_encaje, marcas, m_aspecto.textoPeso, m_aspecto.fondoPeso);
    m_marcas = marcas;
    m_marcasSeguras = true;
}

}  // namespace sorvanel
