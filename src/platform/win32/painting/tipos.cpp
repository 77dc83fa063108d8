#include "platform/win32/painting/tipos.h"

#include <algorithm>
#include <new>
#include <utility>

namespace sorvanel {

namespace {

// Rows above and below the ink: measures are told without the grey of its edges, and who paints adds a pixel or two.
constexpr int HOLGURA = 4;

}  // namespace

Tipos::Tipos(CajaTipos& caja, std::shared_ptr<FuenteWin> fuente, COLORREF suelo, COLORREF color)
    : m_caja(caja), m_fuente(std::move(fuente)), m_suelo(suelo), m_color(color) {
    m_caja.m_borrador.letra(m_fuente);
    const Tinta tinta = m_fuente->tinta(m_caja.m_borrador.dc(), LETRAS);
    m_arriba = std::max(tinta.superior - HOLGURA, 0);
    m_abajo = tinta.inferior + HOLGURA;
}

Tipos::~Tipos() {
    m_caja.m_octetos -= m_octetos;
}

const Tipos::Tipo* Tipos::tipo(wchar_t letra) {
    std::unique_ptr<Tipo>& suyo = m_tipos[LETRAS.find(letra)];
    if (!suyo) suyo = std::make_unique<Tipo>();
    if (suyo->ancho == 0 && !suyo->negado) hacer(*suyo, letra);
    return suyo->ancho > 0 ? suyo.get() : nullptr;
}

// Where there is no room for it now there may be later, when other types have gone.
void Tipos::hacer(Tipo& tipo, wchar_t letra) {
    Lienzo& lienzo = tipo.lienzo;
    if (!lienzo.utilizable()) return;
    lienzo.letra(m_fuente);
    const int ancho = extension(lienzo.dc(), {&letra, 1}).cx, alto = m_abajo - m_arriba;
    if (ancho <= 0 || alto <= 0) return;
    const std::size_t octetos = static_cast<std::size_t>(ancho) * static_cast<std::size_t>(alto) * 4;
    if (m_caja.m_octetos + octetos > CajaTipos::OCTETOS_MAXIMOS) return;
    tipo.negado = !FuenteWin::cabeEnSuCaja(lienzo.dc(), letra, ancho);
    if (tipo.negado) return;
    lienzo.dimensionar(ancho, alto, m_suelo, false);
    SetTextColor(lienzo.dc(), m_color);
    if (!lienzo.utilizable() || !ExtTextOutW(lienzo.dc(), 0, -m_arriba, 0, nullptr, &letra, 1, nullptr)) return;
    m_octetos += octetos;
    m_caja.m_octetos += octetos;
    tipo.ancho = ancho;
}

bool Tipos::imprimir(HDC destino, POINT inicio, std::wstring_view letras, const RECT& zona) {
    if (zona.top < inicio.y + m_arriba || zona.bottom > inicio.y + m_abajo) return false;
    for (const wchar_t letra : letras)
        if (!tipo(letra)) return false;
    Lienzo& galera = m_caja.m_borrador;
    const LONG ancho = zona.right - zona.left, alto = zona.bottom - zona.top;
    galera.alcanzar(ancho, alto);
    const RECT enTipos{zona.left, zona.top - inicio.y - m_arriba, zona.right, zona.bottom - inicio.y - m_arriba};
    return galera.utilizable() && componer(galera, inicio.x, letras, enTipos) &&
           BitBlt(destino, zona.left, zona.top, ancho, alto, galera.dc(), 0, 0, SRCCOPY) != 0;
}

// The letters begin at `x`; the zone's corner comes to the picture's, its rows are those of the types.
bool Tipos::componer(Lienzo& galera, LONG x, std::wstring_view letras, const RECT& zona) {
    const LONG alto = zona.bottom - zona.top;
    bool bien = true;
    const auto suelo = [&](LONG izquierda, LONG derecha) {
        if (izquierda < derecha) bien &= galera.llenar({izquierda - zona.left, 0, derecha - zona.left, alto}, m_suelo);
    };
    suelo(zona.left, std::min(zona.right, x));
    for (const wchar_t letra : letras) {
        const Tipo& suyo = *tipo(letra);
        const LONG desde = std::max(x, zona.left), hasta = std::min(x + suyo.ancho, zona.right);
        if (desde < hasta) {
            bien &= BitBlt(galera.dc(), desde - zona.left, 0, hasta - desde, alto, suyo.lienzo.dc(), desde - x,
                           zona.top, SRCCOPY) != 0;
        }
        x += suyo.ancho;
    }
    suelo(std::max(x, zona.left), zona.right);
    return bien;
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

// Called where nobody would catch anything: at the end of a batch.
bool UtilesDC::copiarLetras(HDC destino, const std::shared_ptr<FuenteWin>& fuente, COLORREF suelo, COLORREF color,
                            POINT inicio, std::wstring_view letras, const RECT& zona) noexcept {
    if (!caja || !Tipos::haberlos(letras)) return false;
    try {
        if (!(tipos && tipos->sonDe(fuente, suelo, color))) tipos = caja->pedir(fuente, suelo, color);
        return tipos->imprimir(destino, inicio, letras, zona);
    } catch (const std::bad_alloc&) {
        return false;
    }
}

}  // namespace sorvanel
