#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <vector>

namespace sorvanel::pruebas {

// The pixels of a part of the screen, as they are seen: what covers a window is in the picture.
// Colours are 0x00BBGGRR, as everywhere in the program.
class Fotografia {
public:
    explicit Fotografia(const RECT& zona);
    // Of the place where that window is.
    explicit Fotografia(HWND ventana);

    int ancho() const { return m_ancho; }
    int alto() const { return m_alto; }
    std::int32_t en(int x, int y) const;
    int cuantos(std::int32_t color) const;
    // How many unbroken runs of that colour a row has, and how wide each is.
    std::vector<int> tramos(int fila, std::int32_t color) const;
    bool operator==(const Fotografia&) const = default;

private:
    int m_ancho;
    int m_alto;
    std::vector<std::int32_t> m_pixeles;
};

}  // namespace sorvanel::pruebas
