#include "doubles/superficieDoble.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace sorvanel {

namespace {

// Two decimals at most, and none that say nothing: "12", "12.5".
std::string numero(float valor) {
    char texto[48];
    std::snprintf(texto, sizeof texto, "%.2f", static_cast<double>(valor));
    std::string resultado = texto;
    while (resultado.back() == '0') resultado.pop_back();
    if (resultado.back() == '.') resultado.pop_back();
    return resultado == "-0" ? "0" : resultado;
}

std::string enPalabras(Color color) {
    char texto[16];
    std::snprintf(texto, sizeof texto, "#%02X%02X%02X", static_cast<unsigned>(color & 0xFF),
                  static_cast<unsigned>(color >> 8 & 0xFF), static_cast<unsigned>(color >> 16 & 0xFF));
    return color < 0 ? "#" + std::to_string(color) : texto;
}

std::string enPalabras(const Rectangulo& r) {
    return numero(r.x) + ' ' + numero(r.y) + ' ' + numero(r.ancho) + ' ' + numero(r.alto);
}

bool empiezaCaracter(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
}

float anchoDe(char c) {
    if (c >= '0' && c <= '9') return 0.5F;
    if (c == '.' || c == ',' || c == ' ') return 0.25F;
    if (c == 'i' || c == 'l') return 0.2F;
    return c >= 'A' && c <= 'Z' ? 0.7F : 0.6F;
}

}  // namespace

SuperficieDoble::SuperficieDoble(std::string nombre, std::vector<std::string>* diario)
    : m_nombre(std::move(nombre)), m_diario(diario != nullptr ? diario : &m_propio) {}

void SuperficieDoble::anotar(const std::string& linea) {
    m_diario->push_back(m_nombre.empty() ? linea : m_nombre + ": " + linea);
}

void SuperficieDoble::colocar(const Rectangulo& lugar) {
    m_lugar = lugar;
    anotar("colocar " + enPalabras(lugar));
}

void SuperficieDoble::mostrar(bool visible) {
    m_visible = visible;
    anotar(visible ? "mostrar" : "ocultar");
}

void SuperficieDoble::colorFondo(Color color) {
    m_fondo = color;
    anotar("colorFondo " + enPalabras(color));
}

void SuperficieDoble::limpiar() {
    anotar("limpiar " + enPalabras(m_fondo));
}

void SuperficieDoble::fuente(const Fuente& fuente) {
    ++m_fuentesPuestas;
    m_fuente = fuente;
    std::string linea = "fuente " + fuente.nombre + ' ' + numero(fuente.alto);
    if (fuente.negrita) linea += " negrita";
    if (fuente.cursiva) linea += " cursiva";
    if (fuente.subrayado) linea += " subrayado";
    anotar(linea);
}

MedidaTexto SuperficieDoble::medir(std::string_view texto) const {
    MedidaTexto medida;
    if (m_sinFuentes || texto.empty()) return medida;
    float superior = 0.25F;
    float inferior = 0.95F;
    for (const char c : texto) {
        if (!empiezaCaracter(c)) continue;
        const float ancho = m_fuente.alto * anchoDe(c);
        medida.ancho += m_ajustada ? std::ceil(ancho / TWIPS_POR_PIXEL) * TWIPS_POR_PIXEL : ancho;
        if (static_cast<unsigned char>(c) >= 0x80U) superior = 0.1F;
        if (std::string_view("gjpqy").find(c) != std::string_view::npos) inferior = 1.15F;
    }
    medida.alto = m_fuente.alto * 1.2F;
    medida.tintaSuperior = m_fuente.alto * superior;
    medida.tintaInferior = m_fuente.alto * inferior;
    return medida;
}

void SuperficieDoble::imprimir(float x, float y, std::string_view texto, Color color) {
    anotar("imprimir " + numero(x) + ' ' + numero(y) + " \"" + std::string(texto) + "\" " + enPalabras(color));
}

void SuperficieDoble::caja(const Rectangulo& zona, Color color) {
    anotar("caja " + enPalabras(zona) + ' ' + enPalabras(color));
}

void SuperficieDoble::poligono(std::span<const Punto> vertices, Color color) {
    std::string linea = "poligono";
    for (const Punto& punto : vertices) linea += ' ' + numero(punto.x) + ',' + numero(punto.y);
    anotar(linea + ' ' + enPalabras(color));
}

void SuperficieDoble::imprimirEn(const Rectangulo& zona, float x, float y, std::string_view texto, Color color) {
    anotar("imprimirEn " + enPalabras(zona) + ": " + numero(x) + ' ' + numero(y) + " \"" + std::string(texto) + "\" " +
           enPalabras(color));
}

void SuperficieDoble::desplazar(float twips) {
    anotar("desplazar " + numero(twips));
}

void SuperficieDoble::leyenda(std::string_view texto) {
    m_leyenda = texto;
    anotar("leyenda \"" + m_leyenda + '"');
}

void SuperficieDoble::refrescar() {
    anotar("refrescar");
}

}  // namespace sorvanel
