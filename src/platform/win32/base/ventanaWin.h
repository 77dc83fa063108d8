#pragma once

#include <windows.h>

#include "platform/geometria.h"
#include "platform/monitor.h"

namespace sorvanel {

// What a window is made from.
struct MoldeVentana {
    const wchar_t* clase = nullptr;
    // A class of the system whose behaviour is the ground of ours; none when null.
    const wchar_t* sobre = nullptr;
    bool dobleClic = false;  // is told of one as such
    bool conDC = false;      // a device context of its own, for as long as it lives
    DWORD estilo = 0;
    DWORD estiloExtra = 0;
    const wchar_t* titulo = nullptr;
    HWND padre = nullptr;
    int id = 0;         // of a child
    RectPixel sitio{};  // within its parent
    HICON icono = nullptr;
    HICON iconoPequeno = nullptr;
};

// A window whose messages reach an object: the one way from the one to the other. The object is
// stored when the window is born and forgotten when it dies; a window that died with its parent
// leaves an object that does nothing more. No exception leaves the window procedure.
class VentanaWin {
public:
    VentanaWin(const VentanaWin&) = delete;
    VentanaWin& operator=(const VentanaWin&) = delete;

    // Null when there is no window, or no longer.
    HWND hwnd() const { return m_ventana; }

protected:
    VentanaWin() = default;
    virtual ~VentanaWin() { destruir(); }

    // Throws std::runtime_error when the system gives no window.
    void crear(const MoldeVentana& molde);
    // The most derived class calls it in its destructor, while it still can answer.
    void destruir();
    // One message; for what is not its own, it answers with porDefecto(). (Not pure: it is called
    // too while an object that could not be made whole is taken apart.)
    virtual LRESULT alMensaje(UINT mensaje, WPARAM w, LPARAM l) { return porDefecto(mensaje, w, l); }
    LRESULT porDefecto(UINT mensaje, WPARAM w, LPARAM l);

    // All of these do nothing without a window: the system takes a null window for all windows.
    void invalidar(const RECT* zona = nullptr) const;
    void pintarPendiente() const;
    void situar(const RectPixel& lugar, bool mostrarla = false) const;
    void mostrarSinActivar(bool visible) const;

private:
    static LRESULT CALLBACK procedimiento(HWND ventana, UINT mensaje, WPARAM w, LPARAM l) noexcept;
    void registrar(const MoldeVentana& molde);

    HWND m_ventana = nullptr;
    WNDPROC m_base = &DefWindowProcW;
};

inline RECT aRECT(const RectPixel& r) {
    return {r.left, r.top, r.right, r.bottom};
}

}  // namespace sorvanel
