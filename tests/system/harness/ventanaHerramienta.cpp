#include "harness/ventanaHerramienta.h"

#include <array>

#include "harness/elemento.h"
#include "harness/esperar.h"
#include "harness/texto.h"
#include "harness/ventana.h"

namespace sorvanel::pruebas {

HWND VentanaHerramienta::ventana() const {
    const std::wstring buscada = L"SorvanelDialogo" + std::to_wstring(static_cast<int>(m_id));
    for (const HWND una : m_programa.proceso().ventanas()) {
        std::array<wchar_t, 64> clase{};
        const int largo = GetClassNameW(una, clase.data(), static_cast<int>(clase.size()));
        if (std::wstring_view(clase.data(), static_cast<std::size_t>(largo)) == buscada && IsWindowVisible(una)) {
            return una;
        }
    }
    return nullptr;
}

bool VentanaHerramienta::esperarAbierta() const {
    return esperar([this] { return ventana() != nullptr; });
}

bool VentanaHerramienta::esperarCerrada() const {
    return esperar([this] { return ventana() == nullptr; });
}

HWND VentanaHerramienta::control(IdControl id, int elemento) const {
    const HWND marco = ventana();
    return marco != nullptr ? hijo(marco, numero(id, elemento)) : nullptr;
}

bool VentanaHerramienta::esperarControl(IdControl id, int elemento) const {
    return esperar(
        [&] { return seVe(control(id, elemento)) || lugarPintado(ventana(), numero(id, elemento)).has_value(); });
}

std::string VentanaHerramienta::texto(IdControl id, int elemento) const {
    const HWND suyo = control(id, elemento);
    return suyo != nullptr ? pruebas::texto(suyo) : textoPintado(ventana(), numero(id, elemento));
}

bool VentanaHerramienta::esperarTexto(IdControl id, int elemento, std::string_view esperado) const {
    return esperar([&] { return texto(id, elemento) == esperado; });
}

void VentanaHerramienta::pulsar(IdControl id, int elemento) const {
    if (!esperarControl(id, elemento)) return;
    if (const HWND suyo = control(id, elemento)) return pruebas::pulsar(suyo);
    const auto sitio = lugarPintado(ventana(), numero(id, elemento));
    if (!sitio) return;
    POINT medio{(sitio->left + sitio->right) / 2, (sitio->top + sitio->bottom) / 2};
    MapWindowPoints(nullptr, ventana(), &medio, 1);
    PostMessageW(ventana(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(medio.x, medio.y));
    PostMessageW(ventana(), WM_LBUTTONUP, 0, MAKELPARAM(medio.x, medio.y));
}

bool VentanaHerramienta::enfocar(HWND control) const {
    const auto conFoco = [&] { return foco(control) == control; };
    if (conFoco()) return true;
    pruebas::pulsar(control);
    return esperar(conFoco);
}

void VentanaHerramienta::escribir(IdControl id, int elemento, std::string_view nuevo) const {
    esperarControl(id, elemento);
    const HWND caja = control(id, elemento);
    if (!enfocar(caja)) return;
    SendMessageW(caja, EM_SETSEL, 0, -1);
    if (nuevo.empty()) PostMessageW(caja, WM_KEYDOWN, VK_DELETE, 1);
    for (const wchar_t letra : ancho(nuevo)) PostMessageW(caja, WM_CHAR, letra, 1);
}

void VentanaHerramienta::tecla(IdControl id, int elemento, int teclaVirtual) const {
    esperarControl(id, elemento);
    const HWND caja = control(id, elemento);
    if (enfocar(caja)) teclear(caja, teclaVirtual);
}

}  // namespace sorvanel::pruebas
