#include "platform/win32/controls/elementoWin.h"

#include <utility>

namespace sorvanel {

namespace {

constexpr float MARGEN = 4;  // of a text on a ground of its own, design pixels

UINT formatoDe(Ajuste ajuste) {
    switch (ajuste) {
        case Ajuste::derecha:
            return DT_RIGHT;
        case Ajuste::centro:
            return DT_CENTER;
        default:
            return DT_LEFT;
    }
}

RECT enParte(RECT sitio, const RECT& parte) {
    OffsetRect(&sitio, -parte.left, -parte.top);
    return sitio;
}

RECT extensionDe(const RECT& parte) {
    return {0, 0, parte.right - parte.left, parte.bottom - parte.top};
}

}  // namespace

ElementoWin::ElementoWin(Anfitrion& anfitrion, IdControl id, int elemento)
    : m_anfitrion(anfitrion), m_id(numero(id, elemento)) {
    m_anfitrion.alta(*this);
}

ElementoWin::~ElementoWin() {
    m_anfitrion.sugerencias().poner(m_id, {}, {});
    if (m_visible) m_anfitrion.tocarDetras(sitio());
    m_anfitrion.baja(*this);
}

void ElementoWin::actuar() const {
    const std::function<void()> accion = m_accion;  // it may be given another one meanwhile
    if (accion) accion();
}

void ElementoWin::alCambiarEscala() {
    situarSugerencia();
    tocado();
}

void ElementoWin::ponerLugar(const Rectangulo& lugar) {
    if (lugar == m_lugar) return;
    if (m_visible) tocado();
    m_lugar = lugar;
    if (!m_visible) return;
    tocado();
    situarSugerencia();
}

void ElementoWin::ponerVisible(bool visible) {
    if (visible == m_visible) return;
    m_visible = visible;
    tocado();
    situarSugerencia();
    if (const HWND ventana = m_anfitrion.hwnd()) {
        NotifyWinEvent(visible ? EVENT_OBJECT_SHOW : EVENT_OBJECT_HIDE, ventana, OBJID_CLIENT, m_id);
    }
}

void ElementoWin::ponerNombre(const std::wstring& nombre) {
    if (nombre == m_nombre) return;
    m_nombre = nombre;
    situarSugerencia();
    avisarNombre();
}

void ElementoWin::ponerTexto(std::wstring texto) {
    if (texto == m_texto) return;
    m_texto = std::move(texto);
    tocado();
    avisarNombre();
}

void ElementoWin::ponerSugerencia(const std::wstring& texto) {
    m_sugerencia = texto;
    situarSugerencia();
}

void ElementoWin::avisarNombre() const {
    if (m_visible && m_anfitrion.hwnd())
        NotifyWinEvent(EVENT_OBJECT_NAMECHANGE, m_anfitrion.hwnd(), OBJID_CLIENT, m_id);
}

// A frame's name is no tip: it would follow the mouse wherever there is nothing else.
void ElementoWin::situarSugerencia() const {
    const std::wstring& texto = m_sugerencia.empty() && !esMarco() ? m_nombre : m_sugerencia;
    m_anfitrion.sugerencias().poner(m_id, sitio(), m_visible ? texto : std::wstring());
}

// ---- Label ----

void RotuloWin::alCambiarEscala() {
    elegirFuente();
    ElementoWin::alCambiarEscala();
}

void RotuloWin::elegirFuente() {
    m_hecha.reset();
    if (m_fuente.alto <= 0) return;
    m_hecha = anfitrion().recursos().fuentes.pedir(m_fuente, anfitrion().escala().y.largo(m_fuente.alto));
}

void RotuloWin::fuente(const Fuente& fuente) {
    if (fuente == m_fuente) return;
    m_fuente = fuente;
    elegirFuente();
    tocado();
}

void RotuloWin::pintar(Lienzo& lienzo, const RECT& parte) const {
    RECT donde = enParte(sitio(), parte);
    if (m_fondo >= 0) {
        const RECT recorte = extensionDe(parte);
        const Color fondo = paleta().contraste ? paleta().foco : m_fondo;
        apariencia::pintarCaja(lienzo, donde, px(apariencia::RADIO_CAJA), 0, fondo, fondo, &recorte);
        donde.left += px(MARGEN);
        donde.right -= px(MARGEN);
    }
    const Seleccion letra(lienzo.dc(), m_hecha ? m_hecha->get() : anfitrion().letra());
    Color tinta = m_colorTexto;
    if (paleta().contraste) tinta = m_fondo >= 0 ? paleta().marca : paleta().letra;
    apariencia::escribir(lienzo.dc(), ElementoWin::texto(), donde, tinta, formatoDe(m_ajuste));
}

// ---- Frame ----

void MarcoWin::colorFondo(Color color) {
    if (color == m_fondo) return;
    m_fondo = color;
    if (estaVisible()) tocado();
}

void MarcoWin::pintar(Lienzo& lienzo, const RECT& parte) const {
    const RECT recorte = extensionDe(parte);
    apariencia::pintarCaja(lienzo, enParte(sitio(), parte), px(apariencia::RADIO), px(1), paleta().bordeMarco,
                           m_fondo < 0 || paleta().contraste ? -1 : colorPintable(m_fondo), &recorte);
}

}  // namespace sorvanel
