#include "platform/win32/painting/pinturaWin.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "platform/win32/base/textoWin.h"
#include "platform/win32/base/ventanaWin.h"

namespace sorvanel {

namespace {

// Side of what is put together at once, pixels: tiles, so that the scratch picture is as small as can be. On a large
// surface they may be larger: its letters are, and each tile paints anew all that it cuts.
constexpr LONG LADO = 256;
constexpr LONG PARTES = 5;  // of a side
constexpr std::size_t PASOS_MAXIMOS = 2048;

COLORREF aColor(Color color) {
    return static_cast<COLORREF>(colorPintable(color));
}

}  // namespace

PinturaWin::PinturaWin(const Escala& escala, FuentesWin& fuentes, Lienzo& borrador)
    : m_escala(escala), m_fuentes(fuentes), m_borrador(borrador) {
    m_fuente.alto = 180;  // nine points, until somebody says otherwise
    elegirFuente();
}

RECT PinturaWin::entero() const {
    const RectPixel r = lugarPixeles();
    return {0, 0, r.right - r.left, r.bottom - r.top};
}

RECT PinturaWin::aZona(const Rectangulo& zona) const {
    return aRECT(m_escala.aPixeles(zona, m_lugar.x, m_lugar.y));
}

void PinturaWin::situarPintura(const Rectangulo& lugar) {
    const bool mismoTamano = lugar.ancho == m_lugar.ancho && lugar.alto == m_lugar.alto;
    m_lugar = lugar;
    if (!mismoTamano) {
        m_mapa.reset();
        m_lista.vaciar(aColor(m_fondo));
    } else if (m_mapa) {
        // A surface that only moves keeps its picture, also where rounding makes it a pixel larger.
        const RECT todo = entero();
        if (todo.right != m_mapa->ancho() || todo.bottom != m_mapa->alto())
            m_mapa->dimensionar(todo.right, todo.bottom, aColor(m_fondo), true);
    }
}

void PinturaWin::cambiarEscalaPintura() {
    elegirFuente();
    m_mapa.reset();
    m_lista.vaciar(aColor(m_fondo));
}

void PinturaWin::limpiar() {
    m_mapa.reset();
    m_lista.vaciar(aColor(m_fondo));
    tocar(nullptr);
}

void PinturaWin::fuente(const Fuente& fuente) {
    if (fuente == m_fuente) return;
    m_fuente = fuente;
    elegirFuente();
}

void PinturaWin::elegirFuente() {
    m_hecha = m_fuentes.pedir(m_fuente, m_escala.y.largo(m_fuente.alto));
}

const std::wstring& PinturaWin::ancho(std::string_view texto) const {
    aAncho(texto, m_texto);
    return m_texto;
}

MedidaTexto PinturaWin::medir(std::string_view texto) const {
    m_borrador.letra(m_hecha);
    return medirTexto(m_borrador.dc(), *m_hecha, m_escala, ancho(texto));
}

ListaPintura::Texto PinturaWin::linea(float x, float y, std::string_view texto, Color color) const {
    return {{m_escala.x.aPixel(x), m_escala.y.aPixel(y)}, 0, ancho(texto), m_hecha, aColor(color)};
}

void PinturaWin::imprimirEn(const RECT& donde, const ListaPintura::Texto& texto) {
    const RECT todo = entero();
    RECT zona{};
    // A line may be higher than its surface; what is not seen of it need not be covered later.
    if (!IntersectRect(&zona, &todo, &donde)) return;
    acotarLista();
    if (m_mapa) {
        ListaPintura::escribir(*m_mapa, zona, texto);
    } else {
        m_lista.texto(zona, texto);
    }
    tocar(&zona);
}

void PinturaWin::imprimir(float x, float y, std::string_view texto, Color color) {
    ListaPintura::Texto entera = linea(x, y, texto, color);
    m_borrador.letra(m_hecha);
    const SIZE medida = extension(m_borrador.dc(), entera.letras);
    entera.ancho = medida.cx;
    // Slanted letters lean out of their box, a little to each side.
    const LONG vuelo = medida.cy / 3 + 1;
    const POINT inicio = entera.inicio;
    imprimirEn(RECT{inicio.x - vuelo, inicio.y, inicio.x + medida.cx + vuelo, inicio.y + medida.cy}, entera);
}

void PinturaWin::imprimirEn(const Rectangulo& zona, float x, float y, std::string_view texto, Color color) {
    imprimirEn(aZona(zona), linea(x, y, texto, color));
}

void PinturaWin::cambiarTexto(const Rectangulo& zona, Color fondo, float x, float y, std::string_view texto,
                              Color color) {
    const RECT r = aZona(zona);
    const ListaPintura::Texto nueva = linea(x, y, texto, color);
    if (m_mapa) {
        m_mapa->llenar(r, aColor(fondo));
        ListaPintura::escribir(*m_mapa, r, nueva);
    } else if (!m_lista.cambiarTexto(r, nueva)) {
        return imprimir(x, y, texto, color);
    }
    tocar(&r);
}

void PinturaWin::caja(const Rectangulo& zona, Color color) {
    const RECT r = aZona(zona);
    acotarLista();
    if (m_mapa) {
        m_mapa->llenar(r, aColor(color));
    } else {
        m_lista.caja(r, aColor(color));
    }
    tocar(&r);
}

void PinturaWin::poligono(std::span<const Punto> vertices, Color color) {
    if (vertices.size() < 3) return;
    m_vertices.clear();
    for (const Punto& v : vertices) m_vertices.push_back({m_escala.x.aPixelReal(v.x), m_escala.y.aPixelReal(v.y)});
    const auto [x0, x1] = std::minmax_element(m_vertices.begin(), m_vertices.end(),
                                              [](const Punto& a, const Punto& b) { return a.x < b.x; });
    const auto [y0, y1] = std::minmax_element(m_vertices.begin(), m_vertices.end(),
                                              [](const Punto& a, const Punto& b) { return a.y < b.y; });
    const RECT tocado{static_cast<LONG>(x0->x) - 1, static_cast<LONG>(y0->y) - 1, static_cast<LONG>(x1->x) + 2,
                      static_cast<LONG>(y1->y) + 2};
    acotarLista();
    if (m_mapa) {
        m_mapa->pintarForma(tocado, aColor(color), [this](Punto p) { return formas::aPoligono(p, m_vertices); });
    } else {
        m_lista.poligono(tocado, m_vertices, aColor(color));
    }
    tocar(&tocado);
}

// Nothing that is painted here takes so many steps; if it did all the same, a picture takes no more each time.
void PinturaWin::acotarLista() {
    if (!m_mapa && m_lista.cuantos() >= PASOS_MAXIMOS) guardarMapa();
}

// To paint anew what scrolls, at each step, would take longer than to copy it.
void PinturaWin::guardarMapa() {
    const RECT todo = entero();
    auto mapa = std::make_unique<Lienzo>();
    mapa->dimensionar(todo.right, todo.bottom, aColor(m_fondo), false);
    if (!mapa->utilizable()) throw std::runtime_error("CreateDIBSection");
    m_lista.pintar(*mapa, todo);
    m_lista.vaciar(aColor(m_fondo));
    m_mapa = std::move(mapa);
}

void PinturaWin::desplazar(float twips) {
    if (!m_mapa) guardarMapa();
    const HDC dc = m_mapa->dc();
    const int paso = std::min(m_escala.x.aPixel(twips), m_mapa->ancho());
    if (paso <= 0) return;
    const int quedan = m_mapa->ancho() - paso;
    BitBlt(dc, 0, 0, quedan, m_mapa->alto(), dc, paso, 0, SRCCOPY);
    m_mapa->llenar({quedan, 0, m_mapa->ancho(), m_mapa->alto()}, aColor(m_fondo));
    tocar(nullptr);
}

void PinturaWin::pintar(Lienzo& destino, const RECT& zona) const {
    if (m_mapa) {
        BitBlt(destino.dc(), zona.left, zona.top, zona.right - zona.left, zona.bottom - zona.top, m_mapa->dc(),
               zona.left, zona.top, SRCCOPY);
    } else {
        m_lista.pintar(destino, zona);
    }
}

void PinturaWin::volcar(HDC destino, const RECT& zona, UtilesDC& utiles) const {
    if (m_mapa) {
        BitBlt(destino, zona.left, zona.top, zona.right - zona.left, zona.bottom - zona.top, m_mapa->dc(), zona.left,
               zona.top, SRCCOPY);
        return;
    }
    RECT todo = entero(), parte{};
    if (!IntersectRect(&parte, &todo, &zona) || m_lista.pintarDeUnaVez(destino, parte, utiles)) return;
    const LONG ancho = std::max(LADO, todo.right / PARTES), alto = std::max(LADO, todo.bottom / PARTES);
    for (LONG y = parte.top; y < parte.bottom; y += alto) {
        for (LONG x = parte.left; x < parte.right; x += ancho) {
            volcarTrozo(destino, {x, y, std::min(x + ancho, parte.right), std::min(y + alto, parte.bottom)});
        }
    }
}

void PinturaWin::volcarTrozo(HDC destino, const RECT& trozo) const {
    const LONG ancho = trozo.right - trozo.left, alto = trozo.bottom - trozo.top;
    m_borrador.alcanzar(ancho, alto);
    if (!m_borrador.utilizable()) {
        // No memory: better nothing than what stood there, which would pass for what is meant now.
        llenarZona(destino, trozo, m_lista.suelo());
        return;
    }
    {
        const Lienzo::Origen origen(m_borrador, {trozo.left, trozo.top});
        m_lista.pintar(m_borrador, trozo);
    }
    BitBlt(destino, trozo.left, trozo.top, ancho, alto, m_borrador.dc(), 0, 0, SRCCOPY);
}

}  // namespace sorvanel
