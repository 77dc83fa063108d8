#include "platform/win32/painting/listaPintura.h"

#include <algorithm>
#include <utility>

namespace sorvanel {

namespace {

bool cubre(const RECT& zona, const RECT& otra) {
    return zona.left <= otra.left && zona.top <= otra.top && zona.right >= otra.right && zona.bottom >= otra.bottom;
}

}  // namespace

void ListaPintura::vaciar(COLORREF suelo) {
    m_suelo = suelo;
    for (std::size_t i = 0; i < m_cuantos; ++i) m_pasos[i].fuente.reset();
    m_cuantos = 0;
}

void ListaPintura::olvidarBajo(const RECT& zona) {
    std::size_t quedan = 0;
    for (std::size_t i = 0; i < m_cuantos; ++i) {
        if (cubre(zona, m_pasos[i].cuerpo)) {
            m_pasos[i].fuente.reset();
        } else if (quedan++ != i) {
            std::swap(m_pasos[quedan - 1], m_pasos[i]);
        }
    }
    m_cuantos = quedan;
}

ListaPintura::Paso& ListaPintura::anadir(Clase clase, const RECT& zona, COLORREF color) {
    if (m_cuantos == m_pasos.size()) m_pasos.emplace_back();
    Paso& nuevo = m_pasos[m_cuantos++];
    nuevo.clase = clase;
    nuevo.zona = nuevo.cuerpo = zona;
    nuevo.color = color;
    return nuevo;
}

void ListaPintura::caja(const RECT& zona, COLORREF color) {
    if (IsRectEmpty(&zona)) return;
    olvidarBajo(zona);
    const auto asoma = [&](const Paso& paso) {
        RECT comun{};
        return IntersectRect(&comun, &paso.zona, &zona) != 0;
    };
    const auto fin = m_pasos.begin() + static_cast<std::ptrdiff_t>(m_cuantos);
    // The ground alone is seen there now, and need not be painted twice.
    if (color == m_suelo && std::none_of(m_pasos.begin(), fin, asoma)) return;
    anadir(Clase::caja, zona, color);
}

void ListaPintura::escribir(Paso& paso, const Texto& texto) {
    paso.inicio = texto.inicio;
    paso.letras = texto.letras;
    paso.fuente = texto.fuente;
    paso.color = texto.color;
}

void ListaPintura::texto(const RECT& zona, const Texto& texto) {
    Paso& nuevo = anadir(Clase::texto, zona, texto.color);
    escribir(nuevo, texto);
    const RECT letras{texto.inicio.x, zona.top, texto.inicio.x + texto.ancho, zona.bottom};
    nuevo.sinCortar = texto.ancho > 0;
    if (nuevo.sinCortar) IntersectRect(&nuevo.cuerpo, &letras, &zona);
}

bool ListaPintura::cambiarTexto(const RECT& zona, const Texto& texto) {
    for (std::size_t i = m_cuantos; i-- > 0;) {
        RECT comun{};
        if (m_pasos[i].clase != Clase::texto || !IntersectRect(&comun, &m_pasos[i].zona, &zona)) continue;
        escribir(m_pasos[i], texto);
        return true;
    }
    return false;
}

void ListaPintura::poligono(const RECT& zona, std::span<const Punto> vertices, COLORREF color) {
    anadir(Clase::poligono, zona, color).vertices.assign(vertices.begin(), vertices.end());
}

void ListaPintura::pintar(Lienzo& destino, const RECT& zona) const {
    destino.llenar(zona, m_suelo);
    for (std::size_t i = 0; i < m_cuantos; ++i) {
        RECT parte{};
        if (IntersectRect(&parte, &m_pasos[i].zona, &zona)) pintarPaso(m_pasos[i], destino, parte);
    }
}

// Printed at a point, never formatted: no character is a prefix or a line break.
void ListaPintura::escribir(Lienzo& destino, const RECT& zona, const Texto& texto) {
    destino.letra(texto.fuente);
    SetTextColor(destino.dc(), texto.color);
    ExtTextOutW(destino.dc(), texto.inicio.x, texto.inicio.y, ETO_CLIPPED, &zona, texto.letras.data(),
                static_cast<UINT>(texto.letras.size()), nullptr);
}

bool ListaPintura::pintarDeUnaVez(HDC destino, const RECT& zona, UtilesDC& utiles) const {
    const Paso* solo = nullptr;
    for (std::size_t i = 0; i < m_cuantos; ++i) {
        RECT parte{};
        if (!IntersectRect(&parte, &m_pasos[i].zona, &zona)) continue;
        const bool cabe = m_pasos[i].sinCortar || cubre(m_pasos[i].zona, zona);
        if (solo || m_pasos[i].clase != Clase::texto || !cabe) return false;
        solo = &m_pasos[i];
    }
    if (!solo) return llenarZona(destino, zona, m_suelo);
    if (utiles.copiarLetras(destino, solo->fuente, m_suelo, solo->color, solo->inicio, solo->letras, zona)) return true;
    SetBkColor(destino, m_suelo);
    SetBkMode(destino, TRANSPARENT);
    utiles.letra.poner(destino, solo->fuente);
    SetTextColor(destino, solo->color);
    return ExtTextOutW(destino, solo->inicio.x, solo->inicio.y, ETO_OPAQUE | ETO_CLIPPED, &zona, solo->letras.data(),
                       static_cast<UINT>(solo->letras.size()), nullptr) != 0;
}

void ListaPintura::pintarPaso(const Paso& paso, Lienzo& destino, const RECT& parte) {
    switch (paso.clase) {
        case Clase::caja:
            destino.llenar(parte, paso.color);
            break;
        case Clase::texto:
            escribir(destino, parte, {paso.inicio, 0, paso.letras, paso.fuente, paso.color});
            break;
        case Clase::poligono:
            destino.pintarForma(parte, paso.color, [&](Punto p) { return formas::aPoligono(p, paso.vertices); });
            break;
    }
}

}  // namespace sorvanel
