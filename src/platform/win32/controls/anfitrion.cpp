#include "platform/win32/controls/anfitrion.h"

#include <windowsx.h>

#include <algorithm>
#include <utility>

#include "platform/win32/base/mensajes.h"
#include "platform/win32/base/textoWin.h"
#include "platform/win32/controls/controlWin.h"
#include "platform/win32/controls/elementoWin.h"
#include "platform/win32/controls/superficieWin.h"

namespace sorvanel {

Anfitrion::Anfitrion(RecursosVentanas& recursos) : m_recursos(recursos) {
    elegirLetra();
}

void Anfitrion::crearVentana(const MoldeVentana& molde) {
    crear(molde);
    m_sugerencias.ventana(hwnd());
    m_sugerencias.fuente(letra());
    m_foco.ventana(hwnd());
}

void Anfitrion::alMorir() {
    m_foco.ventana(nullptr);
    m_accesible.desligar();
    m_sugerencias.cerrar();  // the system would take it along and leave us the handle
}

// ---- Scale ----

void Anfitrion::elegirLetra() {
    m_letra = m_recursos.fuentes.pedir(m_recursos.letra, m_escala.y.largo(m_recursos.letra.alto));
    const HDC dc = m_recursos.borrador.dc();
    const Seleccion seleccion(dc, m_letra->get());
    TEXTMETRICW medida{};
    GetTextMetricsW(dc, &medida);
    m_altoLetra = static_cast<int>(medida.tmHeight);
}

void Anfitrion::cambiarEscala(const Escala& escala) {
    if (escala == m_escala) return;
    m_escala = escala;
    const std::shared_ptr<FuenteWin> anterior = m_letra;  // controls have it until they are told
    elegirLetra();
    m_sugerencias.fuente(letra());
    for (SuperficieWin* superficie : m_superficies) superficie->alCambiarEscala();
    for (ControlWin* control : m_orden.todos()) control->alCambiarEscala();
    for (ElementoWin* elemento : m_elementos) elemento->alCambiarEscala();
}

MedidaTexto Anfitrion::medirLetra(std::string_view texto) const {
    const HDC dc = m_recursos.borrador.dc();
    const Seleccion seleccion(dc, m_letra->get());
    return medirTexto(dc, *m_letra, m_escala, aAncho(texto));
}

// ---- What stands on it ----

void Anfitrion::alta(ControlWin& control) {
    m_orden.anadir(control);
    pedirApilado();
}

void Anfitrion::alta(ElementoWin& elemento) {
    m_elementos.push_back(&elemento);
}

void Anfitrion::alta(SuperficieWin& superficie) {
    m_superficies.push_back(&superficie);
}

void Anfitrion::baja(ControlWin& control) {
    m_orden.quitar(control);
    m_foco.baja(control);
}

void Anfitrion::baja(ElementoWin& elemento) {
    std::erase(m_elementos, &elemento);
    if (m_apretado == &elemento) m_apretado = nullptr;
}

void Anfitrion::baja(SuperficieWin& superficie) {
    std::erase(m_superficies, &superficie);
}

void Anfitrion::pedirApilado() {
    if (m_apiladoPendiente || !hwnd()) return;
    m_apiladoPendiente = PostMessageW(hwnd(), MENSAJE_APILAR, 0, 0) != 0;
    if (!m_apiladoPendiente) apilar();  // the queue is full
}

void Anfitrion::recorrer(const std::function<void(const ElementoPintado&)>& ver) const {
    for (const ElementoWin* e : m_elementos) {
        ver({e->id(), e->esMarco(), e->estaVisible(), e->nombreAccesible(), e->valorAccesible(), e->sitio()});
    }
}

// ---- Painting ----

void Anfitrion::pintarDetras(Lienzo& destino, const RECT& parte) const {
    pintarSuelo(destino, parte);
    RECT comun{};
    for (const ElementoWin* e : m_elementos) {
        const RECT sitio = e->sitio();
        if (e->esMarco() && e->estaVisible() && IntersectRect(&comun, &sitio, &parte)) e->pintar(destino, parte);
    }
}

// In strips: the picture on which it is put together need not be as large as a window.
void Anfitrion::pintarZona(HDC destino, const RECT& zona) const {
    constexpr LONG ALTO_FRANJA = 128;
    for (LONG arriba = zona.top; arriba < zona.bottom; arriba += ALTO_FRANJA) {
        pintarFranja(destino, {zona.left, arriba, zona.right, std::min(arriba + ALTO_FRANJA, zona.bottom)});
    }
}

void Anfitrion::pintarFranja(HDC destino, const RECT& franja) const {
    Lienzo& borrador = m_recursos.borrador;
    const int ancho = franja.right - franja.left, alto = franja.bottom - franja.top;
    borrador.alcanzar(ancho, alto);
    if (ancho <= 0 || !borrador.utilizable()) return;
    pintarDetras(borrador, franja);
    RECT comun{};
    for (const ElementoWin* e : m_elementos) {
        const RECT sitio = e->sitio();
        if (!e->esMarco() && e->estaVisible() && IntersectRect(&comun, &sitio, &franja)) e->pintar(borrador, franja);
    }
    BitBlt(destino, franja.left, franja.top, ancho, alto, borrador.dc(), 0, 0, SRCCOPY);
}

LRESULT Anfitrion::alPintar() {
    const DCPintado pintado(hwnd());
    if (pintado) pintarZona(pintado.get(), pintado.zona());
    return 0;
}

void Anfitrion::tocar(const RECT& parte) const {
    invalidar(&parte);
}

void Anfitrion::tocarDetras(const RECT& parte) const {
    if (hwnd()) RedrawWindow(hwnd(), &parte, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_FRAME);
}

// ---- Mouse ----

ElementoWin* Anfitrion::elementoEn(POINT donde) const {
    ElementoWin* hallado = nullptr;
    for (ElementoWin* e : m_elementos) {
        const RECT sitio = e->sitio();
        const bool debajo = hallado && !hallado->esMarco() && e->esMarco();
        if (e->estaVisible() && PtInRect(&sitio, donde) && !debajo) hallado = e;
    }
    return hallado;
}

// A frame is pressed with the button's going down, a label with its going up on it.
LRESULT Anfitrion::alRaton(UINT mensaje, LPARAM l) {
    if (!IsWindowEnabled(hwnd())) return 0;  // while a box is open a click that still comes is none
    const POINT donde{GET_X_LPARAM(l), GET_Y_LPARAM(l)};
    ElementoWin* const debajo = elementoEn(donde);
    if (mensaje == WM_LBUTTONDOWN) {
        if (!debajo || !debajo->pulsable()) {
            alPulsarFondo();
        } else if (debajo->esMarco()) {
            debajo->actuar();
        } else {
            m_apretado = debajo;
            SetCapture(hwnd());
        }
        return 0;
    }
    ElementoWin* const apretado = std::exchange(m_apretado, nullptr);
    if (GetCapture() == hwnd()) ReleaseCapture();
    if (apretado && apretado == debajo && apretado->pulsable()) apretado->actuar();
    return 0;
}

// ---- Messages ----

LRESULT Anfitrion::devolver(HWND control, UINT mensaje, WPARAM w, LPARAM l) {
    // The open list of a drop-down list is no child of ours.
    if (!control || GetParent(control) != hwnd()) return porDefecto(mensaje, w, l);
    return SendMessageW(control, mensaje, w, l);
}

LRESULT Anfitrion::alMensaje(UINT mensaje, WPARAM w, LPARAM l) {
    switch (mensaje) {
        case WM_PAINT:
            return alPintar();
        case WM_PRINTCLIENT: {
            RECT todo{};
            GetClientRect(hwnd(), &todo);
            pintarZona(reinterpret_cast<HDC>(w), todo);
            return 0;
        }
        case WM_ERASEBKGND:
            return 1;
        case WM_COMMAND:
            // Without a control it is a key of the system's dialogs, which means nothing here.
            return l ? devolver(reinterpret_cast<HWND>(l), MENSAJE_NOTIFICADO, HIWORD(w), 0) : 0;
        case WM_DRAWITEM:
            return devolver(reinterpret_cast<const DRAWITEMSTRUCT*>(l)->hwndItem, mensaje, w, l);
        case WM_MEASUREITEM:
            return devolver(GetDlgItem(hwnd(), static_cast<int>(w)), mensaje, w, l);
        case WM_CTLCOLOREDIT:
        case WM_CTLCOLORSTATIC:
            return devolver(reinterpret_cast<HWND>(l), mensaje, w, l);
        case WM_LBUTTONDOWN:
        case WM_LBUTTONUP:
            return alRaton(mensaje, l);
        case WM_CAPTURECHANGED:
            m_apretado = nullptr;
            return 0;
        case WM_GETOBJECT:
            if (const LRESULT objeto = m_accesible.responder(w, l)) return objeto;
            return porDefecto(mensaje, w, l);
        default:
            return alMensajePropio(mensaje, w, l);
    }
}

// Each window is told, and the first one asks for all; to paint anew it costs little.
void Anfitrion::releerColores() {
    m_recursos.paleta = apariencia::paletaDelSistema();
    alCambiarColores();
    if (hwnd()) RedrawWindow(hwnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_FRAME);
}

LRESULT Anfitrion::alMensajePropio(UINT mensaje, WPARAM w, LPARAM l) {
    switch (mensaje) {
        case WM_SYSCOLORCHANGE:
        case WM_THEMECHANGED:
        case WM_SETTINGCHANGE:
            releerColores();
            return porDefecto(mensaje, w, l);
        case WM_SETFOCUS:
        case MENSAJE_FOCO:
            m_foco.recuperar();
            return 0;
        case WM_ENABLE:
            if (w) m_foco.reanudar();
            return porDefecto(mensaje, w, l);
        case WM_ACTIVATE: {
            const LRESULT r = porDefecto(mensaje, w, l);
            if (LOWORD(w) != WA_INACTIVE) m_foco.reanudar();
            return r;
        }
        case MENSAJE_VALIDAR:
            m_foco.validarUno();
            return 0;
        case MENSAJE_APILAR:
            m_apiladoPendiente = false;
            apilar();
            return 0;
        case MENSAJE_RATON:
            m_sugerencias.relevar(*reinterpret_cast<const MSG*>(l));
            return 0;
        case WM_DESTROY:
            alMorir();
            return 0;
        default:
            return porDefecto(mensaje, w, l);
    }
}

}  // namespace sorvanel
