#include "grid/parrilla.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "platform/contraste.h"
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

void darForma(VentanaParrilla& ventana, const Monitor& monitor, const AjustesParrilla& ajustes) {
    const Transpa transpa(monitor);
    if (esColor(ajustes.colorAplicacion)) {
        transpa.transparentar(ventana.forma(), std::nullopt);
    } else {
        const std::array<Rectangulo, 2> conservar{ajustes.zona, ventana.franjaInferior()};
        transpa.transparentar(ventana.forma(), conservar);
    }
}

void pintarAplicacion(Superficie& lienzo, VentanaParrilla& ventana, const Monitor& monitor,
                      const AjustesParrilla& ajustes) {
    if (!lienzo.hasDC()) return;
    darForma(ventana, monitor, ajustes);
    lienzo.colorFondo(esColor(ajustes.colorAplicacion) ? ajustes.colorAplicacion : BLANCO);
    lienzo.limpiar();
}

Parrilla::Parrilla(const comun& com, oScreen pantalla)
    : m_com(com), m_pantalla(std::move(pantalla)), m_a(leerParrilla(m_com, m_pantalla)) {}

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

void Parrilla::recargar(oScreen pantalla) {
    m_pantalla = std::move(pantalla);
    m_a = leerParrilla(m_com, m_pantalla);
}

void Parrilla::guardar() const {
    guardarParrilla(m_com, m_pantalla, m_a);
}

bool Parrilla::filas(std::int16_t n) {
    if (n < 1 || n > comun::MAXROWS) return false;
    m_a.filas = n;
    guardar();
    return true;
}

bool Parrilla::columnas(std::int16_t n) {
    if (n < 1 || n > comun::MAXCOLS) return false;
    m_a.columnas = n;
    guardar();
    return true;
}

bool Parrilla::gruesoVertical(std::int16_t pixeles) {
    m_a.gruesoVertical = pixeles;
    comun::limitar(m_a.gruesoVertical, comun::MAXWIDVERT, 0);
    guardar();
    return m_a.gruesoVertical == pixeles;
}

bool Parrilla::gruesoHorizontal(std::int16_t pixeles) {
    m_a.gruesoHorizontal = pixeles;
    comun::limitar(m_a.gruesoHorizontal, comun::MAXWIDHORZ, 0);
    guardar();
    return m_a.gruesoHorizontal == pixeles;
}

void Parrilla::colorReticula(Color color) {
    m_a.colorReticula = colorPintable(color);
    guardar();
}

void Parrilla::colorFondo(Color color) {
    m_a.colorFondo = colorPintable(color);
    guardar();
}

void Parrilla::colorAplicacion(Color color) {
    m_a.colorAplicacion = esColor(color) ? colorPintable(color) : TRANSPARENTE;
    guardar();
}

// The comparisons are written so that they also refuse what is not a number.
bool Parrilla::Left(float x) {
    if (!(x >= 0 && x <= m_pantalla.Width())) return false;
    return cambiarZona({x, m_a.zona.y, m_a.zona.derecha() - x, m_a.zona.alto});
}

bool Parrilla::Top(float y) {
    if (!(y >= 0 && y <= m_pantalla.Height())) return false;
    return cambiarZona({m_a.zona.x, y, m_a.zona.ancho, m_a.zona.abajo() - y});
}

bool Parrilla::Width(float ancho) {
    if (!(ancho >= 0 && ancho <= m_pantalla.Width() - m_a.zona.x)) return false;
    return cambiarZona({m_a.zona.x, m_a.zona.y, ancho, m_a.zona.alto});
}

bool Parrilla::Height(float alto) {
    if (!(alto >= 0 && alto <= m_pantalla.Height() - m_a.zona.y)) return false;
    return cambiarZona({m_a.zona.x, m_a.zona.y, m_a.zona.ancho, alto});
}

bool Parrilla::cambiarZona(const Rectangulo& zona) {
    // Outside the old area and the new one nothing changes.
    if (definida()) m_lienzo->caja(m_a.zona, m_lienzo->colorFondo());
    m_a.zona = zona;
    darForma();
    pintarZona();
    guardar();
    return true;
}

bool Parrilla::mover(const Rectangulo& zona) {
    // An edge on the screen's own is told as a sum, which may come out a trifle beyond it.
    const bool dentro = zona.x >= 0 && zona.y >= 0 && zona.ancho >= 0 && zona.alto >= 0 &&
                        zona.derecha() <= m_pantalla.Width() + 1 && zona.abajo() <= m_pantalla.Height() + 1;
    if (!dentro) return false;
    const Rectangulo cabe{zona.x, zona.y, std::min(zona.ancho, m_pantalla.Width() - zona.x),
                          std::min(zona.alto, m_pantalla.Height() - zona.y)};
    return cabe == m_a.zona || cambiarZona(cabe);
}

float Parrilla::anchoCelda() const {
    return (m_a.zona.ancho - static_cast<float>(m_a.columnas + 1) * lineaVertical()) / m_a.columnas;
}

float Parrilla::altoCelda() const {
    return (m_a.zona.alto - static_cast<float>(m_a.filas + 1) * lineaHorizontal()) / m_a.filas;
}

void Parrilla::darForma() {
    if (definida()) sorvanel::darForma(*m_ventana, m_pantalla.monitor(), m_a);
}

void Parrilla::pintarReticula() {
    if (!definida()) return;
    pintarAplicacion(*m_lienzo, *m_ventana, m_pantalla.monitor(), m_a);
    pintarZona();
}

void Parrilla::pintarZona() {
    if (!definida() || m_a.zona.vacio()) return;
    m_lienzo->caja(m_a.zona, m_a.colorFondo);
    // A grid narrower than a line shows no more of it than fits.
    const auto linea = [this](const Rectangulo& sitio) {
        m_lienzo->caja(interseccion(sitio, m_a.zona), m_a.colorReticula);
    };
    if (m_a.gruesoVertical > 0) {
        for (int i = 0; i <= m_a.columnas; ++i) {
            const float x = m_a.zona.x + static_cast<float>(i) * (anchoCelda() + lineaVertical());
            linea({x, m_a.zona.y, lineaVertical(), m_a.zona.alto});
        }
    }
    if (m_a.gruesoHorizontal > 0) {
        for (int i = 0; i <= m_a.filas; ++i) {
            const float y = m_a.zona.y + static_cast<float>(i) * (altoCelda() + lineaHorizontal());
            linea({m_a.zona.x, y, m_a.zona.ancho, lineaHorizontal()});
        }
    }
    for (std::int16_t f = 1; m_numerada && f <= m_a.filas; ++f) {
        for (std::int16_t c = 1; c <= m_a.columnas; ++c) pintarNumero(f, c);
    }
}

std::optional<Rectangulo> Parrilla::getCell(std::int16_t fila, std::int16_t columna) const {
    if (!definida() || fila < 1 || fila > m_a.filas || columna < 1 || columna > m_a.columnas) return std::nullopt;
    const float ancho = anchoCelda();
    const float alto = altoCelda();
    return Rectangulo{m_a.zona.x + lineaVertical() + static_cast<float>(columna - 1) * (ancho + lineaVertical()),
                      m_a.zona.y + lineaHorizontal() + static_cast<float>(fila - 1) * (alto + lineaHorizontal()), ancho,
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
    if (!celda || celda->vacio()) return;
    m_lienzo->caja(*celda, colorPintable(color));
    if (m_numerada) pintarNumero(fila, columna);
}

// Small beside a weight; none where it could not be read.
void Parrilla::pintarNumero(std::int16_t fila, std::int16_t columna) {
    constexpr float MINIMO = aTwips(8), MAXIMO = aTwips(24), PARTE = 0.25F;
    const auto celda = getCell(fila, columna);
    if (!celda) return;
    const std::string texto = std::to_string(fila) + "," + std::to_string(columna);
    // No more than a quarter of the height, nor of the width for each of the three characters.
    const float alto = std::min({celda->alto * PARTE, celda->ancho * PARTE, MAXIMO});
    if (alto < MINIMO) return;
    m_lienzo->fuente({"Segoe UI", alto, false, false, false});
    const MedidaTexto medida = m_lienzo->medir(texto);
    const float y = celda->y + (celda->alto - medida.tintaSuperior - medida.tintaInferior) / 2;
    m_lienzo->imprimirEn(*celda, celda->x + (celda->ancho - medida.ancho) / 2, y, texto, tintaSobre(m_a.colorFondo));
}

}  // namespace sorvanel
