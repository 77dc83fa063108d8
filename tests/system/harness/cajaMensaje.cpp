#include "harness/cajaMensaje.h"

#include <array>
#include <string_view>

#include "harness/esperar.h"
#include "harness/ventana.h"

namespace sorvanel::pruebas {
namespace {

constexpr int ID_TEXTO = 0xFFFF;  // what the system gives the text of its message boxes

bool esDialogo(HWND ventana) {
    std::array<wchar_t, 16> clase{};
    GetClassNameW(ventana, clase.data(), static_cast<int>(clase.size()));
    return std::wstring_view(clase.data()) == L"#32770";
}

}  // namespace

HWND CajaMensaje::ventana() const {
    for (const HWND ventana : m_proceso.ventanas())
        if (esDialogo(ventana) && IsWindowVisible(ventana)) return ventana;
    return nullptr;
}

std::string CajaMensaje::texto() const {
    const HWND caja = ventana();
    return caja == nullptr ? std::string() : pruebas::texto(GetDlgItem(caja, ID_TEXTO));
}

std::string CajaMensaje::esperarTexto() const {
    std::string leido;
    esperar([&] { return !(leido = texto()).empty(); });
    return leido;
}

bool CajaMensaje::cerrar() const {
    const HWND caja = ventana();
    if (caja == nullptr) return false;
    PostMessageW(caja, WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED), reinterpret_cast<LPARAM>(GetDlgItem(caja, IDOK)));
    return esperar([caja] { return !IsWindow(caja); });
}

}  // namespace sorvanel::pruebas
