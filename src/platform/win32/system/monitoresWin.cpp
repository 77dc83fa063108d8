#include "platform/win32/system/monitoresWin.h"

#include <array>

#include "platform/win32/base/manejadoresNucleo.h"
#include "platform/win32/base/textoWin.h"

namespace sorvanel {

namespace {

using FuncionEnumerar = BOOL(WINAPI*)(HDC, LPCRECT, MONITORENUMPROC, LPARAM);
using FuncionDPI = HRESULT(WINAPI*)(HMONITOR, int, UINT*, UINT*);
constexpr int DPI_EFECTIVA = 0;
constexpr float TWIPS_POR_PULGADA = 1440.0F;

// For a debugger only: nothing of this is shown.
void informar(const char* que) {
    OutputDebugStringA(que);
}

// A library of the system, whether it is in the process already or not.
class Modulo {
public:
    explicit Modulo(const wchar_t* nombre) : m_modulo(GetModuleHandleW(nombre)) {
        if (m_modulo) return;
        m_propio.cambiar(LoadLibraryExW(nombre, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32));
        m_modulo = m_propio.get();
    }
    HMODULE get() const { return m_modulo; }

private:
    Biblioteca m_propio;
    HMODULE m_modulo;
};

// What the enumeration fills.
struct Lista {
    std::vector<Monitor> monitores;
    FuncionDPI dpiDeMonitor = nullptr;  // from Windows 8.1 on
    UINT dpiX = USER_DEFAULT_SCREEN_DPI;
    UINT dpiY = USER_DEFAULT_SCREEN_DPI;
};

RectPixel rectangulo(const RECT& r) {
    return {r.left, r.top, r.right, r.bottom};
}

void anadir(Lista& lista, HMONITOR monitor) {
    MONITORINFOEXW datos{};
    datos.cbSize = sizeof datos;
    Monitor& uno = lista.monitores.emplace_back();
    if (!GetMonitorInfoW(monitor, &datos)) {
        informar("GetMonitorInfo");
        return;
    }
    UINT x = lista.dpiX;
    UINT y = lista.dpiY;
    if (lista.dpiDeMonitor && (FAILED(lista.dpiDeMonitor(monitor, DPI_EFECTIVA, &x, &y)) || x == 0 || y == 0)) {
        x = lista.dpiX;
        y = lista.dpiY;
    }
    uno.area = rectangulo(datos.rcMonitor);
    uno.trabajo = rectangulo(datos.rcWork);
    uno.primario = (datos.dwFlags & MONITORINFOF_PRIMARY) != 0;
    uno.nombre = aUtf8(datos.szDevice);
    uno.twipsPorPixelX = TWIPS_POR_PULGADA / static_cast<float>(x);
    uno.twipsPorPixelY = TWIPS_POR_PULGADA / static_cast<float>(y);
}

BOOL CALLBACK alHallar(HMONITOR monitor, HDC, LPRECT, LPARAM dato) noexcept {
    try {
        anadir(*reinterpret_cast<Lista*>(dato), monitor);
    } catch (...) {
        informar("EnumDisplayMonitors");
    }
    return TRUE;
}

void leerDPI(Lista& lista) {
    const DCVentana pantalla(nullptr);
    if (!pantalla) return;
    const int x = GetDeviceCaps(pantalla.get(), LOGPIXELSX);
    const int y = GetDeviceCaps(pantalla.get(), LOGPIXELSY);
    if (x > 0) lista.dpiX = static_cast<UINT>(x);
    if (y > 0) lista.dpiY = static_cast<UINT>(y);
}

}  // namespace

std::vector<Monitor> MonitoresWin::enumerar() {
    const Modulo user32(L"user32.dll");
    if (!user32.get()) informar("LoadLibrary");
    const auto enumerarMonitores = buscarFuncion<FuncionEnumerar>(user32.get(), "EnumDisplayMonitors");
    if (!enumerarMonitores) {
        informar("dual screen system not available");
        return {};
    }
    const Modulo shcore(L"shcore.dll");
    Lista lista;
    lista.dpiDeMonitor = buscarFuncion<FuncionDPI>(shcore.get(), "GetDpiForMonitor");
    leerDPI(lista);
    if (!enumerarMonitores(nullptr, nullptr, &alHallar, reinterpret_cast<LPARAM>(&lista)))
        informar("EnumDisplayMonitors");
    return std::move(lista.monitores);
}

}  // namespace sorvanel
