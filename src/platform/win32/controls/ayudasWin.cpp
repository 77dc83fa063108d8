#include "platform/win32/controls/ayudasWin.h"

// After windows.h, whose types they use.
#include <commctrl.h>
#include <oleacc.h>
#include <windowsx.h>

#include <algorithm>
#include <utility>

namespace sorvanel {

namespace {

constexpr CLSID SERVICIO{0xb5f8350b, 0x0548, 0x48b1, {0xa6, 0xee, 0x88, 0xbd, 0x00, 0xb4, 0xa5, 0xe7}};
constexpr IID INTERFAZ{0x6e26e776, 0x04f0, 0x495d, {0x80, 0xe4, 0x33, 0x30, 0x35, 0x2e, 0x31, 0x69}};
constexpr GUID NOMBRE{0x608d3df8, 0x8128, 0x4aa7, {0xa4, 0x28, 0xf5, 0x5e, 0x49, 0x26, 0x72, 0x91}};

}  // namespace

void SugerenciasWin::crear() {
    const EstiloWin::Uso estilo(m_estilo);
    const INITCOMMONCONTROLSEX clases{sizeof clases, ICC_BAR_CLASSES};
    InitCommonControlsEx(&clases);
    m_sugerencias.cambiar(CreateWindowExW(
        WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, CW_USEDEFAULT, CW_USEDEFAULT,
        CW_USEDEFAULT, CW_USEDEFAULT, m_ventana, nullptr, GetModuleHandleW(nullptr), nullptr));
    if (!m_sugerencias) return;
    // Without a width there are no lines; and some texts take longer to read than the system leaves them.
    SendMessageW(m_sugerencias.get(), TTM_SETMAXTIPWIDTH, 0, GetSystemMetrics(SM_CXSCREEN) / 2);
    SendMessageW(m_sugerencias.get(), TTM_SETDELAYTIME, TTDT_AUTOPOP, MAXSHORT);
    fuente(m_fuente);
    for (const Sugerencia& una : std::exchange(m_enEspera, {})) enviar(TTM_ADDTOOLW, una);
}

void SugerenciasWin::cerrar() {
    m_ventana = nullptr;
    m_enEspera.clear();
    m_sugerencias.cambiar(nullptr);
}

void SugerenciasWin::poner(HWND control, const std::wstring& texto) {
    if (control) poner({TTF_IDISHWND, reinterpret_cast<UINT_PTR>(control), {}, texto});
}

void SugerenciasWin::poner(int id, const RECT& sitio, const std::wstring& texto) {
    poner({0, static_cast<UINT_PTR>(id), sitio, texto});
}

void SugerenciasWin::poner(const Sugerencia& una) {
    if (m_sugerencias) {
        enviar(TTM_DELTOOLW, una);
        if (!una.texto.empty()) enviar(TTM_ADDTOOLW, una);
    } else if (m_ventana) {
        std::erase_if(m_enEspera, [&](const Sugerencia& otra) { return otra.modo == una.modo && otra.id == una.id; });
        if (!una.texto.empty()) m_enEspera.push_back(una);
    }
}

void SugerenciasWin::enviar(UINT mensaje, const Sugerencia& una) const {
    std::wstring copia = una.texto;  // the message wants it writable
    TTTOOLINFOW util{};
    // The size that all versions of the library know.
    util.cbSize = TTTOOLINFOW_V2_SIZE;
    util.uFlags = una.modo;
    util.hwnd = m_ventana;
    util.uId = una.id;
    util.rect = una.sitio;
    util.lpszText = copia.data();
    SendMessageW(m_sugerencias.get(), mensaje, 0, reinterpret_cast<LPARAM>(&util));
}

bool SugerenciasWin::esperada(const MSG& mensaje) const {
    const POINT donde{GET_X_LPARAM(mensaje.lParam), GET_Y_LPARAM(mensaje.lParam)};
    return std::any_of(m_enEspera.begin(), m_enEspera.end(), [&](const Sugerencia& una) {
        return una.modo == TTF_IDISHWND ? una.id == reinterpret_cast<UINT_PTR>(mensaje.hwnd)
                                        : mensaje.hwnd == m_ventana && PtInRect(&una.sitio, donde) != FALSE;
    });
}

void SugerenciasWin::relevar(const MSG& mensaje) {
    if (!m_sugerencias && m_ventana && esperada(mensaje)) crear();
    MSG copia = mensaje;
    if (m_sugerencias) SendMessageW(m_sugerencias.get(), TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&copia));
}

void SugerenciasWin::fuente(HFONT fuente) {
    m_fuente = fuente;
    if (m_sugerencias) SendMessageW(m_sugerencias.get(), WM_SETFONT, reinterpret_cast<WPARAM>(fuente), FALSE);
}

NombresAccesibles::~NombresAccesibles() {
    if (m_servicio) m_servicio->Release();
}

void NombresAccesibles::poner(HWND control, const std::wstring& nombre) {
    if (nombre.empty() && !m_servicio) return;
    if (!std::exchange(m_pedido, true)) {
        m_ole.abrir();
        void* servicio = nullptr;
        if (SUCCEEDED(CoCreateInstance(SERVICIO, nullptr, CLSCTX_INPROC_SERVER, INTERFAZ, &servicio)))
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
