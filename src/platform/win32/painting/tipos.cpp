#include "platform/win32/painting/tipos.h"

#include <algorithm>
#include <utility>

namespace sorvanel {

namespace {

// Rows above and below the ink: measures are told without the grey of its edges, and who paints adds a pixel or two.
constexpr int HOLGURA = 4;

}  // namespace

Tipos::Tipos(CajaTipos& caja, std::shared_ptr<FuenteWin> fuente, COLORREF suelo, COLORREF color)
    : m_caja(caja), m_fuente(std::move(fuente)), m_suelo(suelo), m_color(color) {}

Tipos::~Tipos() {
    m_caja.m_octetos -= m_octetos;
}

const Lienzo* Tipos::tipo(wchar_t letra) {
    const std::size_t cual = LETRAS.find(letra);
    if (cual == std::wstring_view::npos) return nullptr;
    std::unique_ptr<Tipo>& suyo = m_tipos[cual];
    if (!suyo) suyo = std::make_unique<Tipo>();
    if (!std::exchange(suyo->intentado, true)) suyo->hecho = hacer(*suyo, letra);
    return suyo->hecho ? &suyo->lienzo : nullptr;
}

// A letter that leans out of its box is none that stands alone.
bool Tipos::hacer(Tipo& tipo, wchar_t letra) {
    Lienzo& lienzo = tipo.lienzo;
    if (!lienzo.utilizable()) return false;
    lienzo.letra(m_fuente);
    const std::wstring_view sola(&letra, 1);
    if (m_abajo == 0) {
        const Tinta tinta = m_fuente->tinta(lienzo.dc(), LETRAS);
        m_arriba = std::max(tinta.superior - HOLGURA, 0);
        m_abajo = tinta.inferior + HOLGURA;
    }
    const int ancho = extension(lienzo.dc(), sola).cx, alto = m_abajo - m_arriba;
    if (!m_fuente->cabeEnSuCaja(lienzo.dc(), letra, ancho) || alto <= 0) return false;
    const std::size_t octetos = static_cast<std::size_t>(ancho) * static_cast<std::size_t>(alto) * 4;
    if (m_caja.m_octetos + octetos > CajaTipos::OCTETOS_MAXIMOS) return false;
    lienzo.dimensionar(ancho, alto, m_suelo, false);
    if (!lienzo.utilizable()) return false;
    SetTextColor(lienzo.dc(), m_color);
    const bool impresa = ExtTextOutW(lienzo.dc(), 0, -m_arriba, 0, nullptr, sola.data(), 1, nullptr) != 0;
    m_octetos += octetos;
    m_caja.m_octetos += octetos;
    return impresa;
}

bool Tipos::imprimir(HDC destino, POINT inicio, std::wstring_view letras, const RECT& zona) {
    for (const wchar_t letra : letras)
        if (!tipo(letra)) return false;
    if (letras.empty() || zona.top < inicio.y + m_arriba || zona.bottom > inicio.y + m_abajo) return false;
    const auto suelo = [&](LONG izquierda, LONG derecha) {
        llenarZona(destino, {izquierda, zona.top, derecha, zona.bottom}, m_suelo);
    };
    suelo(zona.left, std::min(zona.right, inicio.x));
    LONG x = inicio.x;
    for (const wchar_t letra : letras) {
        const Lienzo& suyo = *tipo(letra);
        const LONG desde = std::max(x, zona.left), hasta = std::min(x + suyo.ancho(), zona.right);
        if (desde < hasta) {
            BitBlt(destino, desde, zona.top, hasta - desde, zona.bottom - zona.top, suyo.dc(), desde - x,
                   zona.top - inicio.y - m_arriba, SRCCOPY);
        }
        x += suyo.ancho();
    }
    suelo(std::max(x, zona.left), zona.right);
    return true;
}

std::shared_ptr<Tipos> CajaTipos::pedir(const std::shared_ptr<FuenteWin>& fuente, COLORREF suelo, COLORREF color) {
    std::erase_if(m_hechos, [](const std::weak_ptr<Tipos>& uno) { return uno.expired(); });
    for (const std::weak_ptr<Tipos>& uno : m_hechos) {
        if (std::shared_ptr<Tipos> hechos = uno.lock(); hechos->sonDe(fuente, suelo, color)) return hechos;
    }
    auto nuevos = std::make_shared<Tipos>(*this, fuente, suelo, color);
    m_hechos.push_back(nuevos);
    return nuevos;
}

}  // namespace sorvanel
