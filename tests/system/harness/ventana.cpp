#include "harness/ventana.h"

#include <array>
#include <utility>

#include "harness/texto.h"

namespace sorvanel::pruebas {

HWND hijo(HWND ventana, int id) {
    std::pair<int, HWND> busqueda{id, nullptr};
    EnumChildWindows(
        ventana,
        [](HWND actual, LPARAM dato) -> BOOL {
            auto& [buscado, hallada] = *reinterpret_cast<std::pair<int, HWND>*>(dato);
            if (GetDlgCtrlID(actual) != buscado) return TRUE;
            hallada = actual;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&busqueda));
    return busqueda.second;
}

std::string texto(HWND ventana) {
    std::array<wchar_t, 1024> letras{};
    DWORD_PTR cuantas = 0;
    if (!SendMessageTimeoutW(ventana, WM_GETTEXT, letras.size(), reinterpret_cast<LPARAM>(letras.data()),
                             SMTO_ABORTIFHUNG, 2000, &cuantas))
        return {};
    return utf8(std::wstring_view(letras.data(), cuantas));
}

RECT lugar(HWND ventana) {
    RECT marco{};
    GetWindowRect(ventana, &marco);
    return marco;
}

bool seVe(HWND ventana) {
    return ventana != nullptr && IsWindowVisible(ventana);
}

void pulsar(HWND ventana) {
    RECT zona{};
    GetClientRect(ventana, &zona);
    const LPARAM centro = MAKELPARAM(zona.right / 2, zona.bottom / 2);
    PostMessageW(ventana, WM_LBUTTONDOWN, MK_LBUTTON, centro);
    PostMessageW(ventana, WM_LBUTTONUP, 0, centro);
}

HWND foco(HWND ventana) {
    GUITHREADINFO hilo{};
    hilo.cbSize = sizeof hilo;
    GetGUIThreadInfo(GetWindowThreadProcessId(ventana, nullptr), &hilo);
    return hilo.hwndFocus;
}

void teclear(HWND ventana, int teclaVirtual) {
    const HWND enfocada = foco(ventana);
    const HWND destino = enfocada != nullptr ? enfocada : ventana;
    const auto codigo = static_cast<LPARAM>(MapVirtualKeyW(static_cast<UINT>(teclaVirtual), MAPVK_VK_TO_VSC)) << 16;
    constexpr LPARAM soltada = 0xC0000001L;
    PostMessageW(destino, WM_KEYDOWN, static_cast<WPARAM>(teclaVirtual), codigo | 1);
    PostMessageW(destino, WM_KEYUP, static_cast<WPARAM>(teclaVirtual), codigo | soltada);
}

}  // namespace sorvanel::pruebas
