#include "harness/telon.h"

#include <array>
#include <stdexcept>

namespace sorvanel::pruebas {
namespace {

constexpr const wchar_t* CLASE = L"TelonDePrueba";

void registrarClase(WNDPROC procedimiento) {
    WNDCLASSW clase{};
    clase.lpfnWndProc = procedimiento;
    clase.hInstance = GetModuleHandleW(nullptr);
    clase.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));
    clase.lpszClassName = CLASE;
    RegisterClassW(&clase);  // a second time it is there already
}

}  // namespace

Telon::Telon(const RECT& zona, std::int32_t color) : m_color(color) {
    std::promise<HWND> nacida;
    std::future<HWND> resultado = nacida.get_future();
    m_hilo = std::thread([this, zona, &nacida] { vivir(zona, nacida); });
    m_ventana = resultado.get();
    if (m_ventana != nullptr) return;
    m_hilo.join();
    throw std::runtime_error("no window for the backdrop");
}

Telon::~Telon() {
    PostMessageW(m_ventana, WM_CLOSE, 0, 0);
    m_hilo.join();
}

void Telon::vivir(const RECT& zona, std::promise<HWND>& nacida) {
    registrarClase(procesar);
    const HWND ventana =
        CreateWindowExW(WS_EX_TOOLWINDOW, CLASE, L"", WS_POPUP, zona.left, zona.top, zona.right - zona.left,
                        zona.bottom - zona.top, nullptr, nullptr, GetModuleHandleW(nullptr), this);
    if (ventana != nullptr) {
        ShowWindow(ventana, SW_SHOWNOACTIVATE);
        UpdateWindow(ventana);
    }
    nacida.set_value(ventana);
    MSG mensaje{};
    while (ventana != nullptr && GetMessageW(&mensaje, nullptr, 0, 0) > 0) DispatchMessageW(&mensaje);
}

LRESULT CALLBACK Telon::procesar(HWND ventana, UINT mensaje, WPARAM w, LPARAM l) {
    if (mensaje == WM_NCCREATE)
        SetWindowLongPtrW(ventana, GWLP_USERDATA,
                          reinterpret_cast<LONG_PTR>(reinterpret_cast<CREATESTRUCTW*>(l)->lpCreateParams));
    auto* const telon = reinterpret_cast<Telon*>(GetWindowLongPtrW(ventana, GWLP_USERDATA));
    switch (mensaje) {
        case WM_LBUTTONDOWN:
            ++telon->m_clics;
            return 0;
        case WM_MOUSEACTIVATE:
            return MA_NOACTIVATE;
        case WM_ERASEBKGND: {
            RECT zona{};
            GetClientRect(ventana, &zona);
            const HBRUSH brocha = CreateSolidBrush(static_cast<COLORREF>(telon->m_color));
            FillRect(reinterpret_cast<HDC>(w), &zona, brocha);
            DeleteObject(brocha);
            return 1;
        }
        case WM_DESTROY:
            PostQuitMessage(0);
            return 0;
        default:
            return DefWindowProcW(ventana, mensaje, w, l);
    }
}

// Place and press in one: between two, an echo of where the pointer was before may put it back there.
void clicEnPantalla(int x, int y) {
    const int izquierda = GetSystemMetrics(SM_XVIRTUALSCREEN), ancho = GetSystemMetrics(SM_CXVIRTUALSCREEN);
    const int arriba = GetSystemMetrics(SM_YVIRTUALSCREEN), alto = GetSystemMetrics(SM_CYVIRTUALSCREEN);
    INPUT pulsacion{};
    pulsacion.type = INPUT_MOUSE;
    pulsacion.mi.dx = ((x - izquierda) * 65536 + ancho / 2) / ancho;
    pulsacion.mi.dy = ((y - arriba) * 65536 + alto / 2) / alto;
    pulsacion.mi.dwFlags = MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_VIRTUALDESK | MOUSEEVENTF_LEFTDOWN;
    INPUT suelta{};
    suelta.type = INPUT_MOUSE;
    suelta.mi.dwFlags = MOUSEEVENTF_LEFTUP;
    std::array<INPUT, 2> gestos{pulsacion, suelta};
    SendInput(static_cast<UINT>(gestos.size()), gestos.data(), sizeof(INPUT));
}

}  // namespace sorvanel::pruebas
