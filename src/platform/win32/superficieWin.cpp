#include "platform/win32/superficieWin.h"

#include <algorithm>

#include "platform/win32/textoWin.h"

namespace sorvanel {

namespace {

constexpr const wchar_t* CLASE = L"SorvanelSuperficie";

COLORREF aColor(Color color) {
    return static_cast<COLORREF>(colorPintable(color));
}

}  // namespace

SuperficieWin::SuperficieWin(Anfitrion& anfitrion, IdControl id, int elemento)
    : m_anfitrion(anfitrion),
      m_zona(id == IdControl::picBot || id == IdControl::lbVer ? ZonaRaton::barra : ZonaRaton::representacion) {
    MoldeVentana molde;
    molde.clase = CLASE;
    molde.estilo = WS_CHILD | WS_CLIPSIBLINGS;
    molde.padre = anfitrion.ventana();
    molde.id = numero(id, elemento);
    crear(molde);
    m_fuente.alto = 180;  // nine points, until somebody says otherwise
    elegirFuente();
}

SuperficieWin::~SuperficieWin() {
    destruir();
    m_anfitrion.baja(*this);
}

void SuperficieWin::alCambiarEscala() {
    const RectPixel r = lugarPixeles();
    m_deriva.reiniciar();
    elegirFuente();
    m_lienzo.dimensionar(r.right - r.left, r.bottom - r.top, aColor(m_fondo), false);
    situar(r);
    invalidar();
}

void SuperficieWin::colocar(const Rectangulo& lugar) {
    const bool mismoTamano = lugar.ancho == m_lugar.ancho && lugar.alto == m_lugar.alto;
    m_lugar = lugar;
    const RectPixel r = lugarPixeles();
    const int ancho = r.right - r.left, alto = r.bottom - r.top;
    // A surface that only moves keeps its picture, also where rounding makes it a pixel larger.
    if (!mismoTamano) m_deriva.reiniciar();
    if (!mismoTamano || ancho != m_lienzo.ancho() || alto != m_lienzo.alto()) {
        m_lienzo.dimensionar(ancho, alto, aColor(m_fondo), mismoTamano);
    }
    situar(r);
    invalidar();
}

void SuperficieWin::mostrar(bool visible) {
    if (visible == m_visible) return;
    m_visible = visible;
    mostrarSinActivar(visible);
}

bool SuperficieWin::hasDC() const {
    return hwnd() != nullptr && m_lienzo.utilizable();
}

void SuperficieWin::limpiar() {
    m_deriva.reiniciar();
    m_lienzo.llenar(m_lienzo.entero(), aColor(m_fondo));
    invalidar();
}

void SuperficieWin::fuente(const Fuente& fuente) {
    if (fuente == m_fuente) return;
    m_fuente = fuente;
    elegirFuente();
}

void SuperficieWin::elegirFuente() {
    std::shared_ptr<FuenteWin> nueva =
        m_anfitrion.fuentes().pedir(m_fuente, m_anfitrion.escala().y.largo(m_fuente.alto));
    if (nueva == m_hecha) return;
    m_seleccion.devolver();
    m_hecha = std::move(nueva);
    m_seleccion = Seleccion(m_lienzo.dc(), m_hecha->get());
}

const std::wstring& SuperficieWin::ancho(std::string_view texto) const {
    aAncho(texto, m_texto);
    return m_texto;
}

SIZE SuperficieWin::extension(const std::wstring& texto) const {
    SIZE medida{};
    GetTextExtentPoint32W(m_lienzo.dc(), texto.data(), static_cast<int>(texto.size()), &medida);
    return medida;
}

MedidaTexto SuperficieWin::medir(std::string_view texto) const {
    const Escala& escala = m_anfitrion.escala();
    // An empty text is as high as a line, and no wider than nothing.
    const std::wstring& letras = ancho(texto.empty() ? std::string_view(" ") : texto);
    const SIZE medida = extension(letras);
    const Tinta tinta = m_hecha->tinta(m_lienzo.dc(), letras);
    return {texto.empty() ? 0.0F : escala.x.aTwips(medida.cx), escala.y.aTwips(medida.cy),
            escala.y.aTwips(tinta.superior), escala.y.aTwips(tinta.inferior)};
}

void SuperficieWin::imprimir(float x, float y, std::string_view texto, Color color) {
    const Escala& escala = m_anfitrion.escala();
    const std::wstring& letras = ancho(texto);
    const SIZE medida = extension(letras);
    const int px = escala.x.desde(m_deriva.recorrido(), x);
    const int py = escala.y.aPixel(y);
    SetTextColor(m_lienzo.dc(), aColor(color));
    // Printed at a point, never formatted: no character is a prefix or a line break.
    ExtTextOutW(m_lienzo.dc(), px, py, 0, nullptr, letras.data(), static_cast<UINT>(letras.size()), nullptr);
    // Slanted letters lean out of their box, a little to each side.
    const int vuelo = medida.cy / 3 + 1;
    const RECT tocado{px - vuelo, py, px + medida.cx + vuelo, py + medida.cy};
    invalidar(&tocado);
}

void SuperficieWin::caja(const Rectangulo& zona, Color color) {
    const RECT r = aRECT(m_anfitrion.escala().aPixeles(zona, m_lugar.x, m_lugar.y));
    m_lienzo.llenar(r, aColor(color));
    invalidar(&r);
}

void SuperficieWin::poligono(std::span<const Punto> vertices, Color color) {
    if (vertices.size() < 3) return;
    const Escala& escala = m_anfitrion.escala();
    m_vertices.clear();
    for (const Punto& v : vertices) m_vertices.push_back({escala.x.aPixelReal(v.x), escala.y.aPixelReal(v.y)});
    const auto [x0, x1] = std::minmax_element(m_vertices.begin(), m_vertices.end(),
                                              [](const Punto& a, const Punto& b) { return a.x < b.x; });
    const auto [y0, y1] = std::minmax_element(m_vertices.begin(), m_vertices.end(),
                                              [](const Punto& a, const Punto& b) { return a.y < b.y; });
    const RECT tocado{static_cast<LONG>(x0->x) - 1, static_cast<LONG>(y0->y) - 1, static_cast<LONG>(x1->x) + 2,
                      static_cast<LONG>(y1->y) + 2};
    m_lienzo.pintarForma(tocado, aColor(color), [this](Punto p) { return formas::aPoligono(p, m_vertices); });
    invalidar(&tocado);
}

void SuperficieWin::desplazar(int pixeles) {
    if (pixeles <= 0) return;
    const double twips = static_cast<double>(aTwips(static_cast<float>(pixeles)));
    const int paso = std::min(m_deriva.avanzar(m_anfitrion.escala().x, twips), m_lienzo.ancho());
    if (paso <= 0) return;
    const int quedan = m_lienzo.ancho() - paso;
    BitBlt(m_lienzo.dc(), 0, 0, quedan, m_lienzo.alto(), m_lienzo.dc(), paso, 0, SRCCOPY);
    m_lienzo.llenar({quedan, 0, m_lienzo.ancho(), m_lienzo.alto()}, aColor(m_fondo));
    invalidar();
}

void SuperficieWin::leyenda(std::string_view texto) {
    if (texto == m_leyenda) return;
    m_leyenda.assign(texto);
    m_leyendaNueva = true;
}

void SuperficieWin::refrescar() {
    pintarPendiente();
}

void SuperficieWin::volcar(HDC destino, const RECT& zona) const {
    BitBlt(destino, zona.left, zona.top, zona.right - zona.left, zona.bottom - zona.top, m_lienzo.dc(), zona.left,
           zona.top, SRCCOPY);
}

void SuperficieWin::alPintar() {
    {
        const DCPintado pintado(hwnd());
        if (pintado) volcar(pintado.get(), pintado.zona());
    }
    avisarLeyenda();
}

// Told after a paint, not with each frame: what arrives faster than it can be shown cannot be heard
// either. Without a listener it costs one look at a flag.
void SuperficieWin::avisarLeyenda() {
    if (!m_leyendaNueva) return;
    m_leyendaNueva = false;
    if (!IsWinEventHookInstalled(EVENT_OBJECT_NAMECHANGE)) return;
    NotifyWinEvent(EVENT_OBJECT_NAMECHANGE, hwnd(), OBJID_WINDOW, CHILDID_SELF);
}

// The words are turned into the system's text only when somebody asks.
LRESULT SuperficieWin::copiarLeyenda(WPARAM capacidad, LPARAM destino) const {
    if (capacidad == 0 || destino == 0) return 0;
    const std::wstring letras = aAncho(m_leyenda);
    auto* hacia = reinterpret_cast<wchar_t*>(destino);
    const std::size_t cuantas = letras.copy(hacia, static_cast<std::size_t>(capacidad) - 1);
    hacia[cuantas] = L'\0';
    return static_cast<LRESULT>(cuantas);
}

LRESULT SuperficieWin::alMensaje(UINT mensaje, WPARAM w, LPARAM l) {
    switch (mensaje) {
        case WM_PAINT:
            alPintar();
            return 0;
        case WM_PRINTCLIENT:
            volcar(reinterpret_cast<HDC>(w), m_lienzo.entero());
            return 0;
        case WM_ERASEBKGND:
            return 1;
        case WM_MOUSEMOVE:
            m_anfitrion.alMoverRaton(m_zona);
            return 0;
        case WM_GETTEXT:
            return copiarLeyenda(w, l);
        case WM_GETTEXTLENGTH:
            return static_cast<LRESULT>(aAncho(m_leyenda).size());
        case WM_GETDLGCODE:
            return DLGC_STATIC;
        default:
            return porDefecto(mensaje, w, l);
    }
}

}  // namespace sorvanel
