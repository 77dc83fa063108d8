#include "platform/win32/base/ventanaWin.h"

#include <stdexcept>
#include <utility>

namespace sorvanel {

void VentanaWin::registrar(const MoldeVentana& molde) {
    WNDCLASSEXW clase{};
    clase.cbSize = sizeof clase;
    if (molde.sobre) {
        if (!GetClassInfoExW(nullptr, molde.sobre, &clase)) throw std::runtime_error("GetClassInfoEx");
        m_base = clase.lpfnWndProc;
        clase.style &= ~static_cast<UINT>(CS_GLOBALCLASS);
        // A second click in quick succession is a click like the first.
        if (!molde.dobleClic) clase.style &= ~static_cast<UINT>(CS_DBLCLKS);
    } else {
        clase.hCursor = LoadCursorW(nullptr, IDC_ARROW);
        if (molde.conDC) clase.style |= CS_OWNDC;
        if (molde.dobleClic) clase.style |= CS_DBLCLKS;
    }
    clase.lpfnWndProc = &VentanaWin::procedimiento;
    clase.hInstance = GetModuleHandleW(nullptr);
    clase.lpszClassName = molde.clase;
    clase.hIcon = molde.icono;
    clase.hIconSm = molde.iconoPequeno;
    // All but the first of a class find it registered already.
    WNDCLASSEXW registrada{};
    registrada.cbSize = sizeof registrada;
    if (!GetClassInfoExW(clase.hInstance, molde.clase, &registrada) && !RegisterClassExW(&clase)) {
        throw std::runtime_error("RegisterClassEx");
    }
}

void VentanaWin::crear(const MoldeVentana& molde) {
    registrar(molde);
    const RectPixel& r = molde.sitio;
    HWND ventana = CreateWindowExW(
        molde.estiloExtra, molde.clase, molde.titulo, molde.estilo, r.left, r.top, r.right - r.left, r.bottom - r.top,
        molde.padre, reinterpret_cast<HMENU>(static_cast<INT_PTR>(molde.id)), GetModuleHandleW(nullptr), this);
    if (!ventana) throw std::runtime_error("CreateWindowEx");
}

void VentanaWin::destruir() {
    if (m_ventana) DestroyWindow(m_ventana);
}

LRESULT VentanaWin::porDefecto(UINT mensaje, WPARAM w, LPARAM l) {
    return CallWindowProcW(m_base, m_ventana, mensaje, w, l);
}

LRESULT CALLBACK VentanaWin::procedimiento(HWND ventana, UINT mensaje, WPARAM w, LPARAM l) noexcept {
    if (mensaje == WM_NCCREATE) {
        auto* nueva = static_cast<VentanaWin*>(reinterpret_cast<const CREATESTRUCTW*>(l)->lpCreateParams);
        nueva->m_ventana = ventana;
        SetWindowLongPtrW(ventana, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(nueva));
    }
    auto* esta = reinterpret_cast<VentanaWin*>(GetWindowLongPtrW(ventana, GWLP_USERDATA));
    if (!esta) return DefWindowProcW(ventana, mensaje, w, l);
    if (mensaje == WM_NCDESTROY) {
        SetWindowLongPtrW(ventana, GWLP_USERDATA, 0);
        esta->m_ventana = nullptr;
        return CallWindowProcW(esta->m_base, ventana, mensaje, w, l);
    }
    try {
        return esta->alMensaje(mensaje, w, l);
    } catch (const std::exception& fallo) {
        // What was asked for is not done; the program goes on.
        OutputDebugStringA(fallo.what());
    } catch (...) {
        OutputDebugStringA("VentanaWin");
    }
    return DefWindowProcW(ventana, mensaje, w, l);
}

void VentanaWin::invalidar(const RECT* zona) const {
    if (m_ventana) InvalidateRect(m_ventana, zona, FALSE);
}

void VentanaWin::pintarPendiente() const {
    if (m_ventana) UpdateWindow(m_ventana);
}

void VentanaWin::situar(const RectPixel& lugar, bool mostrarla) const {
    if (!m_ventana) return;
    const UINT vista = mostrarla ? SWP_SHOWWINDOW : 0;
    SetWindowPos(m_ventana, nullptr, lugar.left, lugar.top, lugar.right - lugar.left, lugar.bottom - lugar.top,
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS | SWP_NOOWNERZORDER | vista);
}

void VentanaWin::mostrarSinActivar(bool visible) const {
    if (m_ventana) ShowWindow(m_ventana, visible ? SW_SHOWNA : SW_HIDE);
}

}  // namespace sorvanel
