#include "platform/win32/controls/cajaTextoWin.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "platform/win32/base/teclas.h"
#include "platform/win32/base/utf16.h"

namespace sorvanel {

namespace {

constexpr const wchar_t* CLASE = L"SorvanelCajaTexto";
constexpr float MARGEN = 6;  // beside the text, design pixels

constexpr wchar_t RETROCESO = 8, SELECCIONAR_TODO = 1, BORRAR_PALABRA = 0x7F;

class DCMarco {
public:
    explicit DCMarco(HWND ventana) : m_ventana(ventana), m_dc(GetWindowDC(ventana)) {}
    ~DCMarco() {
        if (m_dc) ReleaseDC(m_ventana, m_dc);
    }
    DCMarco(const DCMarco&) = delete;
    DCMarco& operator=(const DCMarco&) = delete;
    HDC get() const { return m_dc; }

private:
    HWND m_ventana;
    HDC m_dc;
};

// The clipboard's text; empty when there is none or another program has it open.
std::wstring textoDelPortapapeles(HWND ventana) {
    struct Abierto {
        explicit Abierto(HWND v) : bien(OpenClipboard(v) != 0) {}
        ~Abierto() {
            if (bien) CloseClipboard();
        }
        Abierto(const Abierto&) = delete;
        Abierto& operator=(const Abierto&) = delete;
        bool bien;
    };
    const Abierto abierto(ventana);
    if (!abierto.bien) return {};
    const HANDLE bloque = GetClipboardData(CF_UNICODETEXT);  // the clipboard's own
    const auto* letras = bloque ? static_cast<const wchar_t*>(GlobalLock(bloque)) : nullptr;
    if (!letras) return {};
    // Whoever put it there may have forgotten its end.
    const std::size_t caben = GlobalSize(bloque) / sizeof(wchar_t);
    std::size_t cuantas = 0;
    while (cuantas < caben && letras[cuantas] != L'\0') ++cuantas;
    std::wstring texto(letras, cuantas);
    GlobalUnlock(bloque);
    return texto;
}

}  // namespace

CajaTextoWin::CajaTextoWin(Anfitrion& anfitrion, IdControl id, int elemento) : ControlDe(anfitrion) {
    // A double click selects a word.
    const EstiloWin::Uso estilo(anfitrion.recursos().estilo);
    crearControl(CLASE, L"EDIT", WS_TABSTOP | ES_AUTOHSCROLL, id, elemento, true);
    ponerLetra();
}

// Alone among the controls it paints its text itself. With a font it takes margins of its own, besides
// those of the frame.
void CajaTextoWin::ponerLetra() {
    if (!hwnd()) return;
    SendMessageW(hwnd(), WM_SETFONT, reinterpret_cast<WPARAM>(anfitrion().letra()), FALSE);
    SendMessageW(hwnd(), EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, 0);
}

void CajaTextoWin::alCambiarEscala() {
    ponerLetra();
    ControlWin::alCambiarEscala();
    // The font decides where the text stands within the frame.
    if (hwnd()) {
        SetWindowPos(hwnd(), nullptr, 0, 0, 0, 0,
                     SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
    }
}

// ---- Text ----

std::string CajaTextoWin::texto() const {
    return aUtf8(leido());
}

std::wstring CajaTextoWin::leido() const {
    if (!hwnd()) return {};
    std::wstring letras(static_cast<std::size_t>(GetWindowTextLengthW(hwnd())) + 1, L'\0');
    const int cuantas = GetWindowTextW(hwnd(), letras.data(), static_cast<int>(letras.size()));
    letras.resize(static_cast<std::size_t>(std::max(cuantas, 0)));
    return letras;
}

void CajaTextoWin::texto(const std::string& nuevo) {
    if (!hwnd()) return;
    // The same text again would only lose the caret's place.
    if (nuevo != texto()) {
        m_propio = true;
        SetWindowTextW(hwnd(), aAncho(nuevo).c_str());
        m_propio = false;
        m_sabido = leido();
    }
    // What could be undone may be another display's.
    SendMessageW(hwnd(), EM_EMPTYUNDOBUFFER, 0, 0);
}

void CajaTextoWin::colorFondo(Color color) {
    if (color == m_fondo) return;
    m_fondo = color;
    if (hwnd()) RedrawWindow(hwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME | RDW_ERASE);
}

void CajaTextoWin::longitudMaxima(int caracteres) {
    m_maximo = static_cast<std::size_t>(std::max(caracteres, 0));
    if (hwnd()) SendMessageW(hwnd(), EM_SETLIMITTEXT, m_maximo, 0);
}

CajaTextoWin::Seleccionado CajaTextoWin::seleccionado() const {
    Seleccionado s;
    if (hwnd()) {
        SendMessageW(hwnd(), EM_GETSEL, reinterpret_cast<WPARAM>(&s.desde), reinterpret_cast<LPARAM>(&s.hasta));
    }
    return s;
}

bool CajaTextoWin::alInicio() const {
    return seleccionado().desde == 0;
}

bool CajaTextoWin::alFinal() const {
    return !hwnd() || seleccionado().hasta >= static_cast<DWORD>(GetWindowTextLengthW(hwnd()));
}

void CajaTextoWin::seleccionarTodo() {
    if (hwnd()) SendMessageW(hwnd(), EM_SETSEL, 0, -1);
}

bool CajaTextoWin::validar() {
    if (!m_alValidar) return true;
    const std::function<bool()> pregunta = m_alValidar;
    return pregunta();
}

void CajaTextoWin::alNotificar(UINT aviso) {
    if (aviso != EN_CHANGE) return;
    // Told also where what was typed is what was there.
    std::wstring ahora = leido();
    if (ahora == m_sabido) return;
    m_sabido = std::move(ahora);
    if (!m_propio) actuar();
}

// ---- What the user brings ----

std::wstring CajaTextoWin::filtrado(std::wstring_view texto) const {
    std::wstring resultado;
    for (std::size_t i = 0; i < texto.size(); ++i) {
        char32_t caracter = static_cast<char32_t>(texto[i]);
        if (esMitadAlta(texto[i]) && i + 1 < texto.size() && esMitadBaja(texto[i + 1])) {
            caracter = juntar(texto[i], texto[i + 1]);
            ++i;
        }
        // The box is one line; a tab would be a hole in it.
        if (caracter == '\r' || caracter == '\n') break;
        if (caracter < ' ') continue;
        if (m_filtro) caracter = m_filtro(caracter);
        if (caracter != 0) anadir(resultado, caracter);
    }
    return resultado;
}

std::size_t CajaTextoWin::quedan() const {
    if (m_maximo == 0) return std::numeric_limits<std::size_t>::max();
    const Seleccionado s = seleccionado();
    const auto tiene = static_cast<std::size_t>(GetWindowTextLengthW(hwnd())) - (s.hasta - s.desde);
    return tiene < m_maximo ? m_maximo - tiene : 0;
}

void CajaTextoWin::reemplazar(std::wstring_view texto, bool deshacer) {
    std::wstring letras = filtrado(texto);
    // A text of which nothing is left takes nothing away.
    if (letras.empty() && !texto.empty()) return;
    const std::size_t caben = quedan();
    if (letras.size() > caben) {
        letras.resize(caben);
        if (!letras.empty() && esMitadAlta(letras.back())) letras.pop_back();
    }
    porDefecto(EM_REPLACESEL, deshacer ? TRUE : FALSE, reinterpret_cast<LPARAM>(letras.c_str()));
}

void CajaTextoWin::pegar() {
    const std::wstring letras = textoDelPortapapeles(hwnd());
    if (!letras.empty()) reemplazar(letras, true);
}

LRESULT CajaTextoWin::alCaracter(WPARAM w, LPARAM l) {
    const auto unidad = static_cast<wchar_t>(w);
    if (esMitadAlta(unidad)) {
        m_mitad = unidad;
        return 0;
    }
    const wchar_t alta = std::exchange(m_mitad, L'\0');
    if (esMitadBaja(unidad)) return alta ? insertar(juntar(alta, unidad), l) : 0;
    if (unidad == SELECCIONAR_TODO) {
        seleccionarTodo();
        return 0;
    }
    // Enter, Escape and Tab would only beep; Ctrl and Backspace would type a box.
    if (unidad == BORRAR_PALABRA || unidad == '\r' || unidad == '\n' || unidad == '\t' || unidad == 27) return 0;
    // The keys of the clipboard and Backspace come as characters too.
    if (unidad < ' ' || unidad == RETROCESO) return porDefecto(WM_CHAR, w, l);
    return insertar(static_cast<char32_t>(unidad), l);
}

LRESULT CajaTextoWin::insertar(char32_t caracter, LPARAM l) {
    if (m_filtro) caracter = m_filtro(caracter);
    if (caracter == 0) return 0;
    std::wstring unidades;
    anadir(unidades, caracter);
    if (unidades.size() > 1 && quedan() < unidades.size()) return 0;
    for (const wchar_t unidad : unidades) porDefecto(WM_CHAR, unidad, l);
    return 0;
}

bool CajaTextoWin::alTeclear(WPARAM virtual_) {
    const auto tecla = teclaDe(virtual_);
    if (!tecla || !m_alPulsarTecla) return false;
    const std::function<bool(Tecla)> accion = m_alPulsarTecla;
    const Vida::Testigo viva = testigo();
    return accion(*tecla) || !viva;
}

bool CajaTextoWin::desborda() const {
    RECT zona{};
    GetClientRect(hwnd(), &zona);
    const HDC dc = anfitrion().recursos().borrador.dc();
    const Seleccion letra(dc, anfitrion().letra());
    return extension(dc, leido()).cx > zona.right;
}

void CajaTextoWin::mostrarInicio(std::size_t seleccionadas) {
    porDefecto(EM_SETSEL, seleccionadas, 0);
    porDefecto(EM_SCROLLCARET, 0, 0);
}

// ---- Frame ----

// From the window to the text: as high as a line, in the middle.
void CajaTextoWin::encoger(RECT& zona) const {
    const int alto = zona.bottom - zona.top, linea = anfitrion().altoLetra();
    const int arriba = std::max((alto - linea + 1) / 2, std::min(px(1), alto / 2));
    const int lado = std::min<int>(px(MARGEN), (zona.right - zona.left) / 2);
    zona.left += lado;
    zona.right -= lado;
    zona.top += arriba;
    zona.bottom = std::max(zona.top, std::min(zona.top + linea, zona.bottom - std::min(px(1), alto / 2)));
}

void CajaTextoWin::pintarMarco() {
    RECT dentro{}, todo{};
    GetWindowRect(hwnd(), &todo);
    const int ancho = todo.right - todo.left, alto = todo.bottom - todo.top;
    Lienzo& borrador = anfitrion().recursos().borrador;
    borrador.alcanzar(ancho, alto);
    if (!borrador.utilizable() || ancho <= 0 || alto <= 0) return;
    anfitrion().pintarDetras(borrador, sitio());
    const apariencia::Estado estado{false, enfocado(), false, habilitado()};
    apariencia::pintarCampo(borrador, {0, 0, ancho, alto}, escala(), paleta(), estado, m_fondo);
    GetClientRect(hwnd(), &dentro);
    MapWindowPoints(hwnd(), nullptr, reinterpret_cast<POINT*>(&dentro), 2);
    OffsetRect(&dentro, -todo.left, -todo.top);
    const DCMarco dc(hwnd());
    if (!dc.get()) return;
    ExcludeClipRect(dc.get(), dentro.left, dentro.top, dentro.right, dentro.bottom);
    BitBlt(dc.get(), 0, 0, ancho, alto, borrador.dc(), 0, 0, SRCCOPY);
}

LRESULT CajaTextoWin::atenderMarco(UINT mensaje, WPARAM w, LPARAM l) {
    switch (mensaje) {
        case WM_NCCALCSIZE:
            encoger(w ? reinterpret_cast<NCCALCSIZE_PARAMS*>(l)->rgrc[0] : *reinterpret_cast<RECT*>(l));
            return 0;
        case WM_NCPAINT:
            pintarMarco();
            return 0;
        case WM_NCHITTEST:
            return HTCLIENT;  // also on the frame: a press there puts the caret
        case WM_CTLCOLOREDIT:
        case WM_CTLCOLORSTATIC: {
            const HDC dc = reinterpret_cast<HDC>(w);
            const COLORREF fondo = apariencia::aColor(apariencia::campoDe(paleta(), habilitado(), m_fondo));
            SetTextColor(dc, apariencia::aColor(apariencia::letraCampo(paleta(), habilitado())));
            SetBkColor(dc, fondo);
            SetDCBrushColor(dc, fondo);
            return reinterpret_cast<LRESULT>(GetStockObject(DC_BRUSH));
        }
        default:
            return porDefecto(mensaje, w, l);
    }
}

// ---- Messages ----

LRESULT CajaTextoWin::atenderTexto(UINT mensaje, WPARAM w, LPARAM l) {
    switch (mensaje) {
        case WM_CHAR:
            return alCaracter(w, l);
        case WM_UNICHAR:
            if (w == UNICODE_NOCHAR) return TRUE;
            return w < ' ' ? alCaracter(w, l) : insertar(static_cast<char32_t>(w), l);
        case WM_PASTE:
            pegar();
            return 0;
        case EM_REPLACESEL:
            reemplazar(l ? std::wstring_view(reinterpret_cast<const wchar_t*>(l)) : std::wstring_view(), w != 0);
            return 0;
        case EM_SETSEL:
            // All of it, as by Tab: with the caret at its start a text that is too long shows how it begins.
            if (w != 0 || (l >= 0 && l < GetWindowTextLengthW(hwnd())) || l == 0 || !desborda())
                return porDefecto(mensaje, w, l);
            mostrarInicio(leido().size());
            return TRUE;
        case WM_SETTEXT: {
            // From outside it is as if the user had typed it.
            if (m_propio || !l) return porDefecto(mensaje, w, l);
            const std::wstring letras = filtrado(reinterpret_cast<const wchar_t*>(l));
            return porDefecto(mensaje, w, reinterpret_cast<LPARAM>(letras.c_str()));
        }
        default:
            return porDefecto(mensaje, w, l);
    }
}

LRESULT CajaTextoWin::alCambiarFoco(UINT mensaje, WPARAM w, LPARAM l) {
    // What is too long shows how it begins also once another control of the window is at work.
    if (mensaje == WM_KILLFOCUS && IsChild(anfitrion().hwnd(), reinterpret_cast<HWND>(w)) && desborda())
        mostrarInicio(0);
    const LRESULT r = ControlWin::atender(mensaje, w, l);
    if (hwnd()) RedrawWindow(hwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
    return r;
}

LRESULT CajaTextoWin::atender(UINT mensaje, WPARAM w, LPARAM l) {
    switch (mensaje) {
        case WM_PAINT:
        case WM_ERASEBKGND:
        case WM_PRINTCLIENT:
        case WM_ENABLE:
            return porDefecto(mensaje, w, l);
        case WM_NCCALCSIZE:
        case WM_NCPAINT:
        case WM_NCHITTEST:
        case WM_CTLCOLOREDIT:
        case WM_CTLCOLORSTATIC:
            return atenderMarco(mensaje, w, l);
        case WM_CHAR:
        case WM_UNICHAR:
        case WM_PASTE:
        case EM_REPLACESEL:
        case EM_SETSEL:
        case WM_SETTEXT:
            return atenderTexto(mensaje, w, l);
        // Composed characters come as such, through the filter, not past it.
        case WM_IME_STARTCOMPOSITION:
        case WM_IME_COMPOSITION:
        case WM_IME_ENDCOMPOSITION:
        case WM_IME_CHAR:
            return DefWindowProcW(hwnd(), mensaje, w, l);
        case WM_KEYDOWN:
            return alTeclear(w) ? 0 : porDefecto(mensaje, w, l);
        case WM_GETDLGCODE:
            return teclasQueQuiere(porDefecto(mensaje, w, l), l, static_cast<bool>(m_alPulsarTecla));
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
            return alCambiarFoco(mensaje, w, l);
        default:
            return ControlWin::atender(mensaje, w, l);
    }
}

}  // namespace sorvanel
