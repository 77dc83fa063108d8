#include "platform/win32/controls/ayudasWin.h"

// After windows.h, whose types they use.
#include <commctrl.h>
#include <oleacc.h>

#include <utility>

namespace sorvanel {

namespace {

constexpr CLSID SERVICIO{0xb5f8350b, 0x0548, 0x48b1, {0xa6, 0xee, 0x88, 0xbd, 0x00, 0xb4, 0xa5, 0xe7}};
constexpr IID INTERFAZ{0x6e26e776, 0x04f0, 0x495d, {0x80, 0xe4, 0x33, 0x30, 0x35, 0x2e, 0x31, 0x69}};
constexpr GUID NOMBRE{0x608d3df8, 0x8128, 0x4aa7, {0xa4, 0x28, 0xf5, 0x5e, 0x49, 0x26, 0x72, 0x91}};

}  // namespace

void SugerenciasWin::crear(HWND ventana) {
    const INITCOMMONCONTROLSEX clases{sizeof clases, ICC_BAR_CLASSES};
    InitCommonControlsEx(&clases);
    m_ventana = ventana;
    m_sugerencias.cambiar(CreateWindowExW(
        WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, CW_USEDEFAULT, CW_USEDEFAULT,
        CW_USEDEFAULT, CW_USEDEFAULT, ventana, nullptr, GetModuleHandleW(nullptr), nullptr));
    if (!m_sugerencias) return;
    // Without a width there are no lines; and some texts take longer to read than the system leaves them.
    SendMessageW(m_sugerencias.get(), TTM_SETMAXTIPWIDTH, 0, GetSystemMetrics(SM_CXSCREEN) / 2);
    SendMessageW(m_sugerencias.get(), TTM_SETDELAYTIME, TTDT_AUTOPOP, MAXSHORT);
}

void SugerenciasWin::poner(HWND control, const std::wstring& texto) {
    if (control) poner(TTF_IDISHWND, reinterpret_cast<UINT_PTR>(control), {}, texto);
}

void SugerenciasWin::poner(int id, const RECT& sitio, const std::wstring& texto) {
    poner(0, static_cast<UINT_PTR>(id), sitio, texto);
}

void SugerenciasWin::poner(UINT modo, UINT_PTR id, const RECT& sitio, const std::wstring& texto) {
    if (!m_sugerencias) return;
    std::wstring copia = texto;  // the message wants it writable
    TTTOOLINFOW util{};
    // The size that all versions of the library know.
    util.cbSize = TTTOOLINFOW_V2_SIZE;
    util.uFlags = modo;
    util.hwnd = m_ventana;
    util.uId = id;
    util.rect = sitio;
    util.lpszText = copia.data();
    SendMessageW(m_sugerencias.get(), TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&util));
    if (!texto.empty()) SendMessageW(m_sugerencias.get(), TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&util));
}

void SugerenciasWin::relevar(const MSG& mensaje) {
    MSG copia = mensaje;
    if (m_sugerencias) SendMessageW(m_sugerencias.get(), TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&copia));
}

void SugerenciasWin::fuente(HFONT fuente) {
    if (m_sugerencias) SendMessageW(m_sugerencias.get(), WM_SETFONT, reinterpret_cast<WPARAM>(fuente), FALSE);
}

NombresAccesibles::~NombresAccesibles() {
    if (m_servicio) m_servicio->Release();
}

void NombresAccesibles::poner(HWND control, const std::wstring& nombre) {
    if (nombre.empty() && !m_servicio) return;
    void* servicio = nullptr;
    if (!std::exchange(m_pedido, true) &&
        SUCCEEDED(CoCreateInstance(SERVICIO, nullptr, CLSCTX_INPROC_SERVER, INTERFAZ, &servicio))) {
        m_servicio = static_cast<IAccPropServices*>(servicio);
    }
    if (!m_servicio || !control) return;
    const auto objeto = static_cast<DWORD>(OBJID_CLIENT);
    if (nombre.empty()) {
        m_servicio->ClearHwndProps(control, objeto, CHILDID_SELF, &NOMBRE, 1);
    } else {
        m_servicio->SetHwndPropStr(control, objeto, CHILDID_SELF, NOMBRE, nombre.c_str());
    }
}

}  // namespace sorvanel
