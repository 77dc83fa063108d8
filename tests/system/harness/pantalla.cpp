#include "harness/pantalla.h"

#include <algorithm>
#include <array>
#include <stdexcept>

#include "harness/sistema.h"

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

namespace {

// Place and button in one: between two, an echo of where the pointer was before may put it back there.
void raton(POINT lugar, DWORD boton) {
    const int izquierda = GetSystemMetrics(SM_XVIRTUALSCREEN), ancho = GetSystemMetrics(SM_CXVIRTUALSCREEN);
    const int arriba = GetSystemMetrics(SM_YVIRTUALSCREEN), alto = GetSystemMetrics(SM_CYVIRTUALSCREEN);
    INPUT gesto{};
    gesto.type = INPUT_MOUSE;
    gesto.mi.dx = ((lugar.x - izquierda) * 65536 + ancho / 2) / ancho;
    gesto.mi.dy = ((lugar.y - arriba) * 65536 + alto / 2) / alto;
    gesto.mi.dwFlags = MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_VIRTUALDESK | boton;
    SendInput(1, &gesto, sizeof gesto);
}

}  // namespace

void clicEnPantalla(int x, int y) {
    raton({x, y}, MOUSEEVENTF_LEFTDOWN);
    raton({x, y}, MOUSEEVENTF_LEFTUP);
}

void arrastrarEnPantalla(POINT desde, POINT hasta, const std::function<void()>& antesDeSoltar) {
    raton(desde, MOUSEEVENTF_LEFTDOWN);
    raton({(desde.x + hasta.x) / 2, (desde.y + hasta.y) / 2}, 0);
    raton(hasta, 0);
    if (antesDeSoltar) antesDeSoltar();
    raton(hasta, MOUSEEVENTF_LEFTUP);
}

}  // namespace sorvanel::pruebas
