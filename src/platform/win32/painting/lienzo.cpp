#include "platform/win32/painting/lienzo.h"

#include <algorithm>
#include <utility>

namespace sorvanel {

namespace {

MapaBits crearMapa(HDC dc, int ancho, int alto, std::uint32_t*& puntos) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = ancho;
    info.bmiHeader.biHeight = -alto;  // first line on top
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    void* memoria = nullptr;
    MapaBits mapa(CreateDIBSection(dc, &info, DIB_RGB_COLORS, &memoria, nullptr, 0));
    puntos = mapa ? static_cast<std::uint32_t*>(memoria) : nullptr;
    return mapa;
}

}  // namespace

Lienzo::Lienzo() : m_dc(CreateCompatibleDC(nullptr)) {
    if (m_dc) SetBkMode(m_dc.get(), TRANSPARENT);
}

void Lienzo::dimensionar(int ancho, int alto, COLORREF fondo, bool conservar) {
    ancho = std::max(ancho, 0);
    alto = std::max(alto, 0);
    std::uint32_t* puntos = nullptr;
    MapaBits nuevo;
    if (m_dc && ancho > 0 && alto > 0) nuevo = crearMapa(m_dc.get(), ancho, alto, puntos);
    MapaBits viejo;
    const int conservados = conservar && m_mapa ? std::min(m_ancho, ancho) : 0;
    const int filas = std::min(m_alto, alto);

    m_seleccion.devolver();
    viejo = std::move(m_mapa);
    m_mapa = std::move(nuevo);
    m_puntos = puntos;
    m_ancho = ancho;
    m_alto = alto;
    if (!m_mapa) return;
    m_seleccion = Seleccion(m_dc.get(), m_mapa.get());
    llenar(entero(), fondo);
    if (conservados > 0) {
        const DCMemoria origen(CreateCompatibleDC(m_dc.get()));
        const Seleccion antigua(origen.get(), viejo.get());
        BitBlt(m_dc.get(), 0, 0, conservados, filas, origen.get(), 0, 0, SRCCOPY);
    }
}

void Lienzo::alcanzar(int ancho, int alto) {
    if (m_mapa && ancho <= m_ancho && alto <= m_alto) return;
    dimensionar(std::max(ancho, m_ancho), std::max(alto, m_alto), 0, false);
}

void Lienzo::ponerOrigen(POINT punto) {
    m_origen = punto;
    SetViewportOrgEx(m_dc.get(), -punto.x, -punto.y, nullptr);
}

bool llenarZona(HDC destino, const RECT& zona, COLORREF color) {
    if (zona.right <= zona.left || zona.bottom <= zona.top) return true;
    SetBkColor(destino, color);
    return ExtTextOutW(destino, 0, 0, ETO_OPAQUE, &zona, L"", 0, nullptr) != 0;
}

}  // namespace sorvanel
