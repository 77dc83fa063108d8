#include "harness/fotografia.h"

#include <algorithm>
#include <stdexcept>

#include "harness/ventana.h"

namespace sorvanel::pruebas {
namespace {

BITMAPINFO descripcion(int ancho, int alto) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = ancho;
    info.bmiHeader.biHeight = -alto;  // the first row is the topmost
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    return info;
}

// A bitmap holds 0x00RRGGBB.
std::int32_t volteado(std::int32_t color) {
    return (color & 0xFF) << 16 | (color & 0xFF00) | (color >> 16 & 0xFF);
}

}  // namespace

Fotografia::Fotografia(HWND ventana) : Fotografia(lugar(ventana)) {}

Fotografia::Fotografia(const RECT& zona) : m_ancho(zona.right - zona.left), m_alto(zona.bottom - zona.top) {
    if (m_ancho <= 0 || m_alto <= 0) throw std::runtime_error("nothing to photograph");
    const HDC pantalla = GetDC(nullptr);
    const HDC memoria = CreateCompatibleDC(pantalla);
    const BITMAPINFO info = descripcion(m_ancho, m_alto);
    void* bits = nullptr;
    const HBITMAP mapa = CreateDIBSection(pantalla, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    const HGDIOBJ anterior = SelectObject(memoria, mapa);
    BitBlt(memoria, 0, 0, m_ancho, m_alto, pantalla, zona.left, zona.top, SRCCOPY);
    GdiFlush();
    const auto* primero = static_cast<const std::int32_t*>(bits);
    m_pixeles.assign(primero, primero + static_cast<std::ptrdiff_t>(m_ancho) * m_alto);
    SelectObject(memoria, anterior);
    DeleteObject(mapa);
    DeleteDC(memoria);
    ReleaseDC(nullptr, pantalla);
    std::transform(m_pixeles.begin(), m_pixeles.end(), m_pixeles.begin(), volteado);
}

std::int32_t Fotografia::en(int x, int y) const {
    return m_pixeles.at(static_cast<std::size_t>(y) * static_cast<std::size_t>(m_ancho) + static_cast<std::size_t>(x));
}

int Fotografia::cuantos(std::int32_t color) const {
    return static_cast<int>(std::count(m_pixeles.begin(), m_pixeles.end(), color));
}

std::vector<int> Fotografia::tramos(int fila, std::int32_t color) const {
    std::vector<int> anchos;
    bool dentro = false;
    for (int x = 0; x < m_ancho; ++x) {
        const bool suyo = en(x, fila) == color;
        if (suyo && !dentro) anchos.push_back(0);
        if (suyo) ++anchos.back();
        dentro = suyo;
    }
    return anchos;
}

}  // namespace sorvanel::pruebas
