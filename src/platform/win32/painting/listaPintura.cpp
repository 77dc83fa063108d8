#include "platform/win32/painting/listaPintura.h"

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
        if (cubre(zona, m_pasos[i].zona)) {
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
    nuevo.zona = zona;
    nuevo.color = color;
    return nuevo;
}

void ListaPintura::caja(const RECT& zona, COLORREF color) {
    if (IsRectEmpty(&zona)) return;
    olvidarBajo(zona);
    anadir(Clase::caja, zona, color);
}

void ListaPintura::escribir(Paso& paso, const Texto& texto) {
    paso.inicio = texto.inicio;
    paso.letras = texto.letras;
    paso.fuente = texto.fuente;
    paso.color = texto.color;
}

void ListaPintura::texto(const RECT& zona, const Texto& texto) {
    escribir(anadir(Clase::texto, zona, texto.color), texto);
}

void ListaPintura::cambiarTexto(const RECT& zona, COLORREF fondo, const Texto& texto) {
    for (std::size_t i = m_cuantos; i-- > 0;) {
        RECT comun{};
        if (m_pasos[i].clase != Clase::texto || !IntersectRect(&comun, &m_pasos[i].zona, &zona)) continue;
        return escribir(m_pasos[i], texto);
    }
    caja(zona, fondo);
    this->texto(zona, texto);
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
    const Seleccion letra(destino.dc(), texto.fuente->get());
    SetTextColor(destino.dc(), texto.color);
    ExtTextOutW(destino.dc(), texto.inicio.x, texto.inicio.y, ETO_CLIPPED, &zona, texto.letras.data(),
                static_cast<UINT>(texto.letras.size()), nullptr);
}

void ListaPintura::pintarPaso(const Paso& paso, Lienzo& destino, const RECT& parte) {
    switch (paso.clase) {
        case Clase::caja:
            destino.llenar(parte, paso.color);
            break;
        case Clase::texto:
            escribir(destino, parte, {paso.inicio, paso.letras, paso.fuente, paso.color});
            break;
        case Clase::poligono:
            destino.pintarForma(parte, paso.color, [&](Punto p) { return formas::aPoligono(p, paso.vertices); });
            break;
    }
}

}  // namespace sorvanel
