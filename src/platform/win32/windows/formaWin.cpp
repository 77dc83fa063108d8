#include "platform/win32/windows/formaWin.h"

#include <shobjidl.h>

#include <utility>

namespace sorvanel {

namespace {

Region unir(std::span<const RectPixel> zonas) {
    Region total(CreateRectRgn(0, 0, 0, 0));
    for (const RectPixel& z : zonas) {
        if (z.right <= z.left || z.bottom <= z.top) continue;  // the system would turn it round
        const Region pieza(CreateRectRgn(z.left, z.top, z.right, z.bottom));
        if (total && pieza) CombineRgn(total.get(), total.get(), pieza.get(), RGN_OR);
    }
    return total;
}

bool cubreTodo(HWND ventana, HRGN region) {
    RECT lugar{};
    GetWindowRect(ventana, &lugar);
    const Region todo(CreateRectRgn(0, 0, lugar.right - lugar.left, lugar.bottom - lugar.top));
    const Region resto(CreateRectRgn(0, 0, 0, 0));
    return todo && resto && CombineRgn(resto.get(), todo.get(), region, RGN_DIFF) == NULLREGION;
}

Region copiar(HRGN region) {
    Region copia(CreateRectRgn(0, 0, 0, 0));
    if (copia) CombineRgn(copia.get(), region, nullptr, RGN_COPY);
    return copia;
}

}  // namespace

void FormaWin::recortar(HWND ventana, std::span<const RectPixel> zonas) {
    Region nueva = unir(zonas);
    if (!ventana || !nueva) return;
    if (cubreTodo(ventana, nueva.get())) {
        if (!m_actual) return;
        m_actual.cambiar(nullptr);
        SetWindowRgn(ventana, nullptr, TRUE);
    } else {
        if (m_actual && EqualRgn(m_actual.get(), nueva.get())) return;
        Region copia = copiar(nueva.get());
        // Taken over by the system, unless it refuses.
        if (!SetWindowRgn(ventana, nueva.get(), TRUE)) return;
        static_cast<void>(nueva.soltar());
        m_actual = std::move(copia);
    }
    // While a handle is dragged this comes with each move of the mouse.
    const bool encima = (GetWindowLongPtrW(ventana, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
    if (encima != static_cast<bool>(m_actual)) reafirmar(ventana);
}

void FormaWin::reafirmar(HWND ventana) const {
    SetWindowPos(ventana, m_actual ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void FormaWin::anunciar(HWND ventana, SesionOLE& ole) const {
    ole.abrir();
    void* barra = nullptr;
    if (FAILED(CoCreateInstance(CLSID_TaskbarList, nullptr, CLSCTX_INPROC_SERVER, IID_ITaskbarList2, &barra))) return;
    auto* const suya = static_cast<ITaskbarList2*>(barra);
    if (SUCCEEDED(suya->HrInit())) suya->MarkFullscreenWindow(ventana, !m_actual);
    suya->Release();
}

}  // namespace sorvanel
