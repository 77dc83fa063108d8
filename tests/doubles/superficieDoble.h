#pragma once

#include <span>
#include <string>
#include <utility>
#include <vector>

#include "platform/superficie.h"

namespace sorvanel {

// A surface that writes each call as a line of text: "caja 0 0 100 50 #FFFFFF". Colours are written as
// red, green, blue; lengths are twips. Several surfaces may share one log, each with a name in front.
//
// Its fonts are simple: of the font's height a digit takes 0.5, "." "," and blanks 0.25, "i" and "l" 0.2, a
// capital 0.7, any other character 0.6. A line is 1.2 high; ink reaches from 0.25 to 0.95, up to 0.1 for
// what is not ASCII, down to 1.15 for a tail.
class SuperficieDoble : public Superficie {
public:
    explicit SuperficieDoble(std::string nombre = {}, std::vector<std::string>* diario = nullptr)
        : m_nombre(std::move(nombre)), m_diario(diario != nullptr ? diario : &m_propio) {}

    const std::vector<std::string>& lineas() const { return *m_diario; }
    void olvidar() { m_diario->clear(); }
    void escribirEn(std::vector<std::string>& diario) { m_diario = &diario; }
    const std::string& textoLeyenda() const { return m_leyenda; }
    // The same without the caption that it begins with and the reason that it may end with.
    std::string dicho() const {
        const std::size_t desde = m_leyenda.find(": ");
        const std::string resto = desde == std::string::npos ? m_leyenda : m_leyenda.substr(desde + 2);
        return resto.substr(0, resto.find(". "));
    }
    const std::string& textoSugerencia() const { return m_sugerencia; }
    const Fuente& fuente() const { return m_fuente; }
    int fuentesPuestas() const { return m_fuentesPuestas; }
    void conDC(bool hay) { m_conDC = hay; }
    // Each character then takes whole pixels, rounded up, as hinted fonts do.
    void ajustada(bool si) { m_ajustada = si; }
    // As on a monitor of another scale; 15 is 100 %.
    void pixel(float twips) { m_pixel = twips; }
    // Nothing is measured any more: every text has size zero.
    void sinFuentes(bool si) { m_sinFuentes = si; }
    // The call of that number from now on, among those that write, writes "falla" and throws; 0: none does.
    void fallarEn(int llamada) { m_fallo = llamada; }

    void colocar(const Rectangulo& lugar) override {
        m_lugar = lugar;
        anotar("colocar " + enPalabras(lugar));
    }
    Rectangulo lugar() const override { return m_lugar; }
    void mostrar(bool visible) override {
        m_visible = visible;
        anotar(visible ? "mostrar" : "ocultar");
    }
    bool visible() const override { return m_visible; }
    bool hasDC() const override { return m_conDC; }
    void colorFondo(Color color) override {
        m_fondo = color;
        anotar("colorFondo " + enPalabras(color));
    }
    Color colorFondo() const override { return m_fondo; }
    void limpiar() override { anotar("limpiar " + enPalabras(m_fondo)); }
    void fuente(const Fuente& fuente) override;
    MedidaTexto medir(std::string_view texto) const override;
    void imprimir(float x, float y, std::string_view texto, Color color) override {
        anotar("imprimir " + enPalabras({x, y}, texto, color));
    }
    void imprimirEn(const Rectangulo& zona, float x, float y, std::string_view texto, Color color) override {
        anotar("imprimirEn " + enPalabras(zona) + ": " + enPalabras({x, y}, texto, color));
    }
    void cambiarTexto(const Rectangulo& zona, Color fondo, float x, float y, std::string_view texto,
                      Color color) override {
        caja(zona, fondo);
        imprimirEn(zona, x, y, texto, color);
    }
    void caja(const Rectangulo& zona, Color color) override {
        anotar("caja " + enPalabras(zona) + ' ' + enPalabras(color));
    }
    void poligono(std::span<const Punto> vertices, Color color) override;
    void desplazar(float twips) override { anotar("desplazar " + numero(twips)); }
    float pixel() const override { return m_pixel; }
    void leyenda(std::string_view texto) override {
        m_leyenda = texto;
        anotar("leyenda \"" + m_leyenda + '"');
    }
    void sugerencia(std::string_view texto) override { m_sugerencia = texto; }
    void refrescar() override { anotar("refrescar"); }

private:
    static std::string numero(float valor);
    static std::string enPalabras(Color color);
    static std::string enPalabras(const Rectangulo& r);
    static std::string enPalabras(Punto lugar, std::string_view texto, Color color);
    void anotar(const std::string& linea);

    std::string m_nombre;
    std::vector<std::string> m_propio;
    std::vector<std::string>* m_diario;
    Rectangulo m_lugar;
    Fuente m_fuente;
    Color m_fondo = BLANCO;
    std::string m_leyenda;
    std::string m_sugerencia;
    int m_fuentesPuestas = 0, m_fallo = 0;
    float m_pixel = TWIPS_POR_PIXEL;
    bool m_visible = false, m_conDC = true, m_ajustada = false, m_sinFuentes = false;
};

}  // namespace sorvanel
