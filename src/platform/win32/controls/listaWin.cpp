#include "platform/win32/controls/listaWin.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>

#include "platform/win32/base/mensajes.h"
#include "platform/win32/base/teclas.h"

namespace sorvanel {

namespace {

constexpr const wchar_t* CLASE = L"SorvanelLista";

// Design pixels.
constexpr float MARGEN = 7, FLECHA = 9, ALTO_ELEMENTO = 22;
constexpr int ELEMENTOS_A_LA_VISTA = 12;

}  // namespace

ListaWin::ListaWin(Anfitrion& anfitrion, IdControl id, int elemento) : ControlDe(anfitrion) {
    const EstiloWin::Uso estilo(anfitrion.recursos().estilo);
    crearControl(CLASE, L"COMBOBOX", WS_TABSTOP | CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS, id, elemento);
    sensible();
}

void ListaWin::elementos(std::span<const std::string_view> textos) {
    if (!hwnd()) return;
    SendMessageW(hwnd(), CB_RESETCONTENT, 0, 0);
    for (const std::string_view texto : textos) {
        SendMessageW(hwnd(), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(aAncho(texto).c_str()));
    }
    m_sabido = -1;
    situarVentana();
    invalidar();
}

int ListaWin::indice() const {
    return hwnd() ? static_cast<int>(SendMessageW(hwnd(), CB_GETCURSEL, 0, 0)) : -1;
}

void ListaWin::indice(int indice) {
    if (!hwnd() || indice == m_sabido) return;
    SendMessageW(hwnd(), CB_SETCURSEL, static_cast<WPARAM>(indice), 0);
    m_sabido = this->indice();
    invalidar();
}

void ListaWin::colorFondo(Color color) {
    if (color == m_fondo) return;
    m_fondo = color;
    invalidar();
}

void ListaWin::atenuada(bool si) {
    if (std::exchange(m_atenuada, si) != si) invalidar();
}

bool ListaWin::desplegada() const {
    return hwnd() && SendMessageW(hwnd(), CB_GETDROPPEDSTATE, 0, 0) != 0;
}

std::wstring ListaWin::textoDe(int indice) const {
    if (indice < 0 || !hwnd()) return {};
    const LRESULT largo = SendMessageW(hwnd(), CB_GETLBTEXTLEN, static_cast<WPARAM>(indice), 0);
    if (largo <= 0) return {};
    std::wstring texto(static_cast<std::size_t>(largo) + 1, L'\0');
    SendMessageW(hwnd(), CB_GETLBTEXT, static_cast<WPARAM>(indice), reinterpret_cast<LPARAM>(texto.data()));
    texto.resize(static_cast<std::size_t>(largo));
    return texto;
}

// The height that the window is given counts the open list; the closed one is as high as its field
// and what the system puts around it.
void ListaWin::situarVentana() {
    if (!hwnd() || lugar().vacio()) return;
    const RECT r = sitio();
    const int elemento = px(ALTO_ELEMENTO), alto = r.bottom - r.top;
    if (std::exchange(m_altoElemento, elemento) != elemento) SendMessageW(hwnd(), CB_SETITEMHEIGHT, 0, elemento);
    if (std::exchange(m_alto, alto) != alto) ajustarCampo(alto);
    const auto cuantos = static_cast<int>(SendMessageW(hwnd(), CB_GETCOUNT, 0, 0));
    const int abierta = alto + std::clamp(cuantos, 1, ELEMENTOS_A_LA_VISTA) * elemento + 2;
    situar({r.left, r.top, r.right, r.top + abierta});
}

void ListaWin::ajustarCampo(int alto) {
    for (int vez = 0; vez < 2; ++vez) {
        SendMessageW(hwnd(), CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), std::max(alto - m_alrededor, 1));
        RECT cerrada{};
        GetWindowRect(hwnd(), &cerrada);
        const int sobra = cerrada.bottom - cerrada.top - alto;
        // What is around the field is known once it has been seen. A height that is far off is none of
        // the closed list.
        if (sobra == 0 || std::abs(sobra) > px(12)) return;
        m_alrededor += sobra;
    }
}

// The system may still be at work with its list: told when it has done.
void ListaWin::alNotificar(UINT aviso) {
    if (aviso == CBN_SELENDOK || (aviso == CBN_SELCHANGE && !desplegada())) m_completa = true;
    if (aviso == CBN_SELENDOK || aviso == CBN_SELCHANGE || aviso == CBN_CLOSEUP)
        PostMessageW(hwnd(), MENSAJE_ELEGIDO, 0, 0);
    if (aviso == CBN_CLOSEUP || aviso == CBN_DROPDOWN) invalidar();
}

// While the list is open the user only looks through it. What was chosen is told also where it is
// what was shown: that may have stood for something else.
void ListaWin::alElegido() {
    if (desplegada()) return;
    const bool completa = std::exchange(m_completa, false);
    if (!completa && indice() == m_sabido) return;
    m_sabido = indice();
    invalidar();
    actuarSiPulsable();
}

bool ListaWin::alTeclear(WPARAM virtual_) {
    const auto tecla = teclaDe(virtual_);
    if (!tecla || !m_alPulsarTecla || desplegada()) return false;
    const std::function<bool(Tecla)> accion = m_alPulsarTecla;
    const Vida::Testigo viva = testigo();
    return accion(*tecla) || !viva;
}

LRESULT ListaWin::alRaton(UINT mensaje, WPARAM w, LPARAM l) {
    const bool abierta = desplegada();
    switch (mensaje) {
        case WM_MOUSEWHEEL:
            // Over a closed list the wheel would change what nobody meant to change.
            return abierta ? porDefecto(mensaje, w, l) : 0;
        case WM_MOUSEMOVE:
            alMoverRaton();
            // Closed, it would only paint its own arrow.
            return abierta || GetCapture() == hwnd() ? porDefecto(mensaje, w, l) : 0;
        default: {
            const Vida::Testigo viva = testigo();
            const LRESULT r = porDefecto(mensaje, w, l);
            if (viva) invalidar();
            return r;
        }
    }
}

LRESULT ListaWin::atender(UINT mensaje, WPARAM w, LPARAM l) {
    switch (mensaje) {
        case MENSAJE_ELEGIDO:
            alElegido();
            return 0;
        case WM_MOUSEWHEEL:
        case WM_MOUSEMOVE:
        case WM_LBUTTONDOWN:
        case WM_LBUTTONUP:
            return alRaton(mensaje, w, l);
        case WM_DRAWITEM:
            alDibujar(*reinterpret_cast<const DRAWITEMSTRUCT*>(l));
            return TRUE;
        case WM_MEASUREITEM:
            reinterpret_cast<MEASUREITEMSTRUCT*>(l)->itemHeight = static_cast<UINT>(px(ALTO_ELEMENTO));
            return TRUE;
        case WM_KEYDOWN:
            return alTeclear(w) ? 0 : porDefecto(mensaje, w, l);
        case WM_GETDLGCODE:
            return teclasQueQuiere(porDefecto(mensaje, w, l), l, static_cast<bool>(m_alPulsarTecla));
        case CB_SETCURSEL: {
            const LRESULT r = porDefectoSinPintar(mensaje, w, l);
            invalidar();
            return r;
        }
        default:
            return ControlWin::atender(mensaje, w, l);
    }
}

// An entry of the open list. The field of the closed one is asked for too: it is painted whole.
void ListaWin::alDibujar(const DRAWITEMSTRUCT& pedido) {
    if (pedido.itemState & ODS_COMBOBOXEDIT) {
        invalidar();
        return;
    }
    const RECT& r = pedido.rcItem;
    const bool elegido = (pedido.itemState & ODS_SELECTED) != 0;
    Lienzo& borrador = anfitrion().recursos().borrador;
    borrador.alcanzar(r.right - r.left, r.bottom - r.top);
    if (!borrador.utilizable()) return;
    const RECT zona{0, 0, r.right - r.left, r.bottom - r.top};
    borrador.llenar(zona, apariencia::aColor(elegido ? paleta().caraPulsada : paleta().ventana));
    const Seleccion letra(borrador.dc(), anfitrion().letra());
    const std::wstring texto = textoDe(static_cast<int>(pedido.itemID));
    RECT sitio = zona;
    sitio.left += px(MARGEN);
    apariencia::escribir(borrador.dc(), texto, sitio, elegido ? paleta().letraPulsada : paleta().letra);
    BitBlt(pedido.hDC, r.left, r.top, zona.right, zona.bottom, borrador.dc(), 0, 0, SRCCOPY);
}

void ListaWin::pintar(Lienzo& lienzo, const RECT& zona) {
    const bool enUso = enfocado() || desplegada();
    const apariencia::Estado estado{desplegada(), enUso, encima(), habilitado() && (enUso || !m_atenuada)};
    const Color cara = colorPintable(estado.encima && !estado.foco ? paleta().caraEncima : m_fondo);
    apariencia::pintarCampo(lienzo, zona, escala(), paleta(), estado, cara);
    const Color tinta = apariencia::letraCampo(paleta(), estado.habilitado);
    const auto lado = static_cast<float>(px(FLECHA));
    const Punto c{static_cast<float>(zona.right - px(MARGEN)) - lado / 2, static_cast<float>(zona.bottom) / 2};
    const std::array<Punto, 3> angulo{
        {{c.x - lado / 2, c.y - lado / 4}, {c.x, c.y + lado / 4}, {c.x + lado / 2, c.y - lado / 4}}};
    const float trazo = static_cast<float>(px(1)) * 0.8F;
    lienzo.pintarForma(zona, apariencia::aColor(tinta), [&](Punto p) { return formas::aLinea(p, angulo) - trazo; });

    const RECT sitio{px(MARGEN), 0, zona.right - 2 * px(MARGEN) - static_cast<LONG>(lado), zona.bottom};
    apariencia::escribir(lienzo.dc(), textoDe(indice()), sitio, tinta);
}

}  // namespace sorvanel
