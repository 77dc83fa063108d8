#include "harness/elemento.h"

// After windows.h, whose types it uses.
#include <oleacc.h>

#include <memory>

#include "harness/sistema.h"

namespace sorvanel::pruebas {
namespace {

struct Soltar {
    void operator()(IAccessible* objeto) const { objeto->Release(); }
    void operator()(wchar_t* texto) const { SysFreeString(texto); }
};

std::unique_ptr<IAccessible, Soltar> objeto(HWND ventana) {
    // Each thread that asks: the objects of the other process come through COM.
    thread_local const HRESULT com = CoInitializeEx(nullptr, COINIT_MULTITHREADED);
    DWORD_PTR nada = 0;
    void* hallado = nullptr;
    if (FAILED(com) || !SendMessageTimeoutW(ventana, WM_NULL, 0, 0, SMTO_ABORTIFHUNG, 2000, &nada) ||
        FAILED(AccessibleObjectFromWindow(ventana, static_cast<DWORD>(OBJID_CLIENT), __uuidof(IAccessible), &hallado)))
        return nullptr;
    return std::unique_ptr<IAccessible, Soltar>(static_cast<IAccessible*>(hallado));
}

VARIANT hijo(int id) {
    VARIANT cual{};
    cual.vt = VT_I4;
    cual.lVal = id;
    return cual;
}

}  // namespace

std::string textoPintado(HWND ventana, int id) {
    const auto suyo = objeto(ventana);
    BSTR leido = nullptr;
    if (!suyo || (suyo->get_accValue(hijo(id), &leido) != S_OK && suyo->get_accName(hijo(id), &leido) != S_OK))
        return {};
    const std::unique_ptr<wchar_t, Soltar> dueno(leido);
    return leido ? utf8(leido) : std::string();
}

std::optional<RECT> lugarPintado(HWND ventana, int id) {
    const auto suyo = objeto(ventana);
    VARIANT estado{};
    LONG x = 0, y = 0, ancho = 0, alto = 0;
    if (!suyo || suyo->get_accState(hijo(id), &estado) != S_OK || (estado.lVal & STATE_SYSTEM_INVISIBLE) ||
        suyo->accLocation(&x, &y, &ancho, &alto, hijo(id)) != S_OK)
        return {};
    return RECT{x, y, x + ancho, y + alto};
}

}  // namespace sorvanel::pruebas
