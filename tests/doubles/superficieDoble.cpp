#include "doubles/superficieDoble.h"

#include <cmath>
#include <cstdio>
#include <stdexcept>

namespace sorvanel {
namespace {

float anchoDe(char c) {
    if (c >= '0' && c <= '9') return 0.5F;
    if (c == '.' || c == ',' || c == ' ') return 0.25F;
    if (c == 'i' || c == 'l') return 0.2F;
    return c >= 'A' && c <= 'Z' ? 0.7F : 0.6F;
}

}  // namespace

// Two decimals at most, and none that say nothing: "12", "12.5".
std::string SuperficieDoble::numero(float valor) {
    char texto[48];
    std::snprintf(texto, sizeof texto, "%.2f", static_cast<double>(valor));
    std::string resultado = texto;
    while (resultado.back() == '0') resultado.pop_back();
    if (resultado.back() == '.') resultado.pop_back();
    return resultado == "-0" ? "0" : resultado;
}

std::string SuperficieDoble::enPalabras(Color color) {
    if (color < 0) return "#" + std::to_string(color);
    char texto[16];
    std::snprintf(texto, sizeof texto, "#%02X%02X%02X", static_cast<unsigned>(color & 0xFF),
                  static_cast<unsigned>(color >> 8 & 0xFF), static_cast<unsigned>(color >> 16 & 0xFF));
    return texto;
}

std::string SuperficieDoble::enPalabras(const Rectangulo& r) {
    return numero(r.x) + ' ' + numero(r.y) + ' ' + numero(r.ancho) + ' ' + numero(r.alto);
}

std::string SuperficieDoble::enPalabras(Punto lugar, std::string_view texto, Color color) {
    return numero(lugar.x) + ' ' + numero(lugar.y) + " \"" + std::string(texto) + "\" " + enPalabras(color);
}

void SuperficieDoble::anotar(const std::string& linea) {
    const bool falla = m_fallo > 0 && --m_fallo == 0;
    const std::string& dicho = falla ? "falla" : linea;
    m_diario->push_back(m_nombre.empty() ? dicho : m_nombre + ": " + dicho);
    if (falla) throw std::runtime_error("nothing to paint with");
}

void SuperficieDoble::fuente(const Fuente& fuente) {
    ++m_fuentesPuestas;
    m_fuente = fuente;
    anotar("fuente " + fuente.nombre + ' ' + numero(fuente.alto) + (fuente.negrita ? " negrita" : "") +
           (fuente.cursiva ? " cursiva" : "") + (fuente.subrayado ? " subrayado" : ""));
}

MedidaTexto SuperficieDoble::medir(std::string_view texto) const {
    MedidaTexto medida;
    if (m_sinFuentes || texto.empty()) return medida;
    float superior = 0.25F, inferior = 0.95F;
    for (const char c : texto) {
        const auto byte = static_cast<unsigned char>(c);
        if ((byte & 0xC0U) == 0x80U) continue;  // not a character's first
        const float ancho = m_fuente.alto * anchoDe(c);
        medida.ancho += m_ajustada ? std::ceil(ancho / TWIPS_POR_PIXEL) * TWIPS_POR_PIXEL : ancho;
        if (byte >= 0x80U) superior = 0.1F;
        if (std::string_view("gjpqy").find(c) != std::string_view::npos) inferior = 1.15F;
    }
    medida.alto = m_fuente.alto * 1.2F;
    medida.tintaSuperior = m_fuente.alto * superior;
    medida.tintaInferior = m_fuente.alto * inferior;
    return medida;
}

void SuperficieDoble::poligono(std::span<const Punto> vertices, Color color) {
    std::string linea = "poligono";
    for (const Punto& punto : vertices) linea += ' ' + numero(punto.x) + ',' + numero(punto.y);
    anotar(linea + ' ' + enPalabras(color));
}

}  // namespace sorvanel
