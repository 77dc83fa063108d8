#include "platform/win32/avisosWin.h"

#include <vector>

#include "platform/win32/textoWin.h"

namespace sorvanel {

namespace {

// Disables the thread's windows but one (which the box disables itself, and gives the focus back
// to), and enables them again.
class VentanasApagadas {
public:
    explicit VentanasApagadas(HWND menosEsta) : m_menosEsta(menosEsta) {
        EnumThreadWindows(GetCurrentThreadId(), &VentanasApagadas::alHallar, reinterpret_cast<LPARAM>(this));
    }
    ~VentanasApagadas() {
        for (HWND una : m_ventanas) EnableWindow(una, TRUE);
    }
    VentanasApagadas(const VentanasApagadas&) = delete;
    VentanasApagadas& operator=(const VentanasApagadas&) = delete;

private:
    static BOOL CALLBACK alHallar(HWND ventana, LPARAM dato) noexcept {
        auto* esta = reinterpret_cast<VentanasApagadas*>(dato);
        if (ventana == esta->m_menosEsta || !IsWindowVisible(ventana) || !IsWindowEnabled(ventana)) return TRUE;
        try {
            esta->m_ventanas.push_back(ventana);
        } catch (...) {
            return FALSE;
        }
        EnableWindow(ventana, FALSE);
        return TRUE;
    }

    HWND m_menosEsta;
    std::vector<HWND> m_ventanas;
};

}  // namespace

void AvisosWin::critico(const std::string& texto) { mostrar(texto, MB_ICONERROR); }

void AvisosWin::informacion(const std::string& texto) { mostrar(texto, MB_ICONINFORMATION); }

void AvisosWin::mostrar(const std::string& texto, UINT icono) {
    const std::wstring ancho = aAncho(texto);
    const VentanasApagadas apagadas(m_propietaria);
    ++m_abiertos;
    MessageBoxW(m_propietaria, ancho.c_str(), L"Sorvanel", icono | MB_OK);
    --m_abiertos;
}

}  // namespace sorvanel
