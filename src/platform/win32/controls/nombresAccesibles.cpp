#include "platform/win32/controls/nombresAccesibles.h"

// After windows.h, whose types it uses.
#include <oleacc.h>

namespace sorvanel {

namespace {

constexpr CLSID SERVICIO{0xb5f8350b, 0x0548, 0x48b1, {0xa6, 0xee, 0x88, 0xbd, 0x00, 0xb4, 0xa5, 0xe7}};
constexpr IID INTERFAZ{0x6e26e776, 0x04f0, 0x495d, {0x80, 0xe4, 0x33, 0x30, 0x35, 0x2e, 0x31, 0x69}};
constexpr GUID NOMBRE{0x608d3df8, 0x8128, 0x4aa7, {0xa4, 0x28, 0xf5, 0x5e, 0x49, 0x26, 0x72, 0x91}};

}  // namespace

NombresAccesibles::NombresAccesibles() {
    void* servicio = nullptr;
    if (SUCCEEDED(CoCreateInstance(SERVICIO, nullptr, CLSCTX_INPROC_SERVER, INTERFAZ, &servicio))) {
        m_servicio = static_cast<IAccPropServices*>(servicio);
    }
}

NombresAccesibles::~NombresAccesibles() {
    if (m_servicio) m_servicio->Release();
}

void NombresAccesibles::poner(HWND control, const std::wstring& nombre) {
    if (!m_servicio || !control) return;
    const auto objeto = static_cast<DWORD>(OBJID_CLIENT);
    if (nombre.empty()) {
        m_servicio->ClearHwndProps(control, objeto, CHILDID_SELF, &NOMBRE, 1);
    } else {
        m_servicio->SetHwndPropStr(control, objeto, CHILDID_SELF, NOMBRE, nombre.c_str());
    }
}

}  // namespace sorvanel
