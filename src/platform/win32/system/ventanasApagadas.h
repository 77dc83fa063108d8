#pragma once

#include <windows.h>

#include <vector>

namespace sorvanel {

// Disables the thread's windows but one (which a box disables itself, and gives the focus back to),
// and enables them again.
class VentanasApagadas {
public:
    explicit VentanasApagadas(HWND menosEsta);
    ~VentanasApagadas();
    VentanasApagadas(const VentanasApagadas&) = delete;
    VentanasApagadas& operator=(const VentanasApagadas&) = delete;

private:
    static BOOL CALLBACK alHallar(HWND ventana, LPARAM dato) noexcept;

    HWND m_menosEsta;
    std::vector<HWND> m_ventanas;
};

}  // namespace sorvanel
