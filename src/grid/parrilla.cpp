#include "grid/parrilla.h"

#include <algorithm>
#include <array>

#include "config/comun.h"
#include "grid/persistenciaParrilla.h"
#include "screen/transpa.h"

namespace sorvanel {

namespace {

bool esColor(Color color) {
    return color >= 0;
}

// What lies in both of them; without size where nothing does.
Rectangulo interseccion(const Rectangulo& a, const Rectangulo& b) {
    const float x = std::max(a.x, b.x), y = std::max(a.y, b.y);
    return {x, y, std::min(a.derecha(), b.derecha()) - x, std::min(a.abajo(), b.abajo()) - y};
}

}  // namespace

Parrilla::Parrilla(const Entorno& entorno) : m_entorno(entorno), m_pantalla(entorno) {
    cargar();
}

bool Parrilla::definir(Superficie& lienzo, VentanaParrilla& ventana) {
    m_lienzo = lienzo.hasDC() ? &lienzo : nullptr;
    m_ventana = &ventana;
    return m_lienzo != nullptr;
}

bool Parrilla::indefinir() {
    m_lienzo = nullptr;
    m_ventana = nullptr;
    return true;
}

bool Parrilla::definida() const {
    return m_lienzo != nullptr && m_lienzo->hasDC();
}

void Parrilla::recargar() {
    m_pantalla = oScreen(m_entorno);
    cargar();
}

void Parrilla::cargar() {
    const AjustesParrilla ajustes = leerParrilla(m_entorno, m_pantalla.Width(), m_pantalla.Height());
    m_zona = ajustes.zona;
    m_filas = ajustes.filas;
    m_columnas = ajustes.columnas;
    m_gruesoVertical = ajustes.gruesoVertical;
    m_gruesoHorizontal = ajustes.gruesoHorizontal;
    m_colorReticula = ajustes.colorReticula;
    m_colorFondo = ajustes.colorFondo;
    m_colorAplicacion = ajustes.colorAplicacion;
}

void Parrilla::guardar() const {
    guardarParrilla(m_entorno, m_pantalla.Width(), m_pantalla.Height(),
                    AjustesParrilla{m_zona, m_filas, m_columnas, m_gruesoVertical, m_gruesoHorizontal, m_colorReticula,
                                    m_colorFondo, m_colorAplicacion});
}

void Parrilla::filas(std::int16_t n) {
    if (n < 1 || n > comun::MAXROWS) return;
    m_filas = n;
    guardar();
}

void Parrilla::columnas(std::int16_t n) {
    if (n < 1 || n > comun::MAXCOLS) return;
    m_columnas = n;
    guardar();
}

void Parrilla::gruesoVertical(std::int16_t pixeles) {
    comun::limitar(pixeles, comun::MAXWIDVERT, 0);
    m_gruesoVertical = pixeles;
    guardar();
}

void Parrilla::gruesoHorizontal(std::int16_t pixeles) {
    comun::limitar(pixeles, comun::MAXWIDHORZ, 0);
    m_gruesoHorizontal = pixeles;
    guardar();
}

void Parrilla::colorReticula(Color color) {
    m_colorReticula = colorPintable(color);
    guardar();
}

void Parrilla::colorFondo(Color color) {
    m_colorFondo = colorPintable(color);
    guardar();
}

void Parrilla::colorAplicacion(Color color) {
    m_colorAplicacion = esColor(color) ? colorPintable(color) : TRANSPARENTE;
    guardar();
}

// The comparisons are written so that they also refuse what is not a number.
void Parrilla::Left(float x) {
    if (!(x >= 0 && x <= m_pantalla.Width())) return;
    cambiarZona({x, m_zona.y, m_zona.derecha() - x, m_zona.alto});
}

void Parrilla::Top(float y) {
    if (!(y >= 0 && y <= m_pantalla.Height())) return;
    cambiarZona({m_zona.x, y, m_zona.ancho, m_zona.abajo() - y});
}

void Parrilla::Width(float ancho) {
    if (!(ancho >= 0 && ancho <= m_pantalla.Width() - m_zona.x)) return;
    cambiarZona({m_zona.x, m_zona.y, ancho, m_zona.alto});
}

void Parrilla::Height(float alto) {
    if (!(alto >= 0 && alto <= m_pantalla.Height() - m_zona.y)) return;
    cambiarZona({m_zona.x, m_zona.y, m_zona.ancho, alto});
}

void Parrilla::cambiarZona(const Rectangulo& zona) {
    // Outside the old area and the new one nothing changes.
    if (definida()) m_lienzo->caja(m_zona, m_lienzo->colorFondo());
    m_zona = zona;
    darForma();
    pintarZona();
    guardar();
}

void Parrilla::mover(const Rectangulo& zona) {
    // An edge on the screen's own is told as a sum, which may come out a trifle beyond it.
    const bool dentro = zona.x >= 0 && zona.y >= 0 && zona.ancho >= 0 && zona.alto >= 0 &&
                        zona.derecha() <= m_pantalla.Width() + 1 && zona.abajo() <= m_pantalla.Height() + 1;
    if (!dentro) return;
    const Rectangulo cabe{zona.x, zona.y, std::min(zona.ancho, m_pantalla.Width() - zona.x),
                          std::min(zona.alto, m_pantalla.Height() - zona.y)};
    if (cabe != m_zona) cambiarZona(cabe);
}

float Parrilla::anchoCelda() const {
    return (m_zona.ancho - static_cast<float>(m_columnas + 1) * lineaVertical()) / m_columnas;
}

float Parrilla::altoCelda() const {
    return (m_zona.alto - static_cast<float>(m_filas + 1) * lineaHorizontal()) / m_filas;
}

void Parrilla::darForma() {
    if (!definida()) return;
    const Transpa transpa(m_pantalla.monitor());
    if (esColor(m_colorAplicacion)) {
        transpa.transparentar(m_ventana->forma(), std::nullopt);
    } else {
        const std::array<Rectangulo, 2> conservar{m_zona, m_ventana->franjaInferior()};
        transpa.transparentar(m_ventana->forma(), conservar);
    }
}

void Parrilla::pintarAplicacion() {
    if (!definida()) return;
    darForma();
    m_lienzo->colorFondo(esColor(m_colorAplicacion) ? m_colorAplicacion : BLANCO);
    m_lienzo->limpiar();
}

void Parrilla::pintarReticula() {
    pintarAplicacion();
    pintarZona();
}

void Parrilla::pintarZona() {
    if (!definida() || m_zona.vacio()) return;
    m_lienzo->caja(m_zona, m_colorFondo);
    // A grid narrower than a line shows no more of it than fits.
    const auto linea = [this](const Rectangulo& sitio) {
        m_lienzo->caja(interseccion(sitio, m_zona), m_colorReticula);
    };
    if (m_gruesoVertical > 0) {
        for (int i = 0; i <= m_columnas; ++i) {
            const float x = m_zona.x + static_cast<float>(i) * (anchoCelda() + lineaVertical());
            linea({x, m_zona.y, lineaVertical(), m_zona.alto});
        }
    }
    if (m_gruesoHorizontal > 0) {
        for (int i = 0; i <= m_filas; ++i) {
            const float y = m_zona.y + static_cast<float>(i) * (altoCelda() + lineaHorizontal());
            linea({m_zona.x, y, m_zona.ancho, lineaHorizontal()});
        }
    }
}

std::optional<Rectangulo> Parrilla::getCell(std::int16_t fila, std::int16_t columna) const {
    if (!definida() || fila < 1 || fila > m_filas || columna < 1 || columna > m_columnas) return std::nullopt;
    const float ancho = anchoCelda();
    const float alto = altoCelda();
    return Rectangulo{m_zona.x + lineaVertical() + static_cast<float>(columna - 1) * (ancho + lineaVertical()),
                      m_zona.y + lineaHorizontal() + static_cast<float>(fila - 1) * (alto + lineaHorizontal()), ancho,
                      alto};
}

std::optional<Rectangulo> Parrilla::Dimensiones(std::int16_t fila1, std::int16_t columna1, std::int16_t fila2,
                                                std::int16_t columna2) const {
    const auto primera = getCell(std::min(fila1, fila2), std::min(columna1, columna2));
    const auto ultima = getCell(std::max(fila1, fila2), std::max(columna1, columna2));
    if (!primera || !ultima) return std::nullopt;
    return Rectangulo{primera->x, primera->y, ultima->derecha() - primera->x, ultima->abajo() - primera->y};
}

void Parrilla::fondoCelda(Color color, std::int16_t fila, std::int16_t columna) {
    const auto celda = getCell(fila, columna);
    if (celda && !celda->vacio()) m_lienzo->caja(*celda, colorPintable(color));
}

}  // namespace sorvanel
