#include "platform/win32/controls/sugerenciasWin.h"

#include <commctrl.h>

namespace sorvanel {

void SugerenciasWin::crear(HWND formulario) {
    const INITCOMMONCONTROLSEX clases{sizeof clases, ICC_BAR_CLASSES};
    InitCommonControlsEx(&clases);
    m_formulario = formulario;
    m_ventana.cambiar(CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX,
                                      CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, formulario, nullptr,
                                      GetModuleHandleW(nullptr), nullptr));
    if (!m_ventana) return;
    // Without a width there are no lines; and some texts take longer to read than the system leaves them.
    SendMessageW(m_ventana.get(), TTM_SETMAXTIPWIDTH, 0, GetSystemMetrics(SM_CXSCREEN) / 2);
    SendMessageW(m_ventana.get(), TTM_SETDELAYTIME, TTDT_AUTOPOP, MAXSHORT);
}

void SugerenciasWin::poner(HWND control, const std::wstring& texto) {
    if (!m_ventana || !control) return;
    std::wstring copia = texto;  // the message wants it writable
    TTTOOLINFOW util{};
    // The size that all versions of the library know.
    util.cbSize = TTTOOLINFOW_V2_SIZE;
    util.uFlags = TTF_IDISHWND;
    util.hwnd = m_formulario;
    util.uId = reinterpret_cast<UINT_PTR>(control);
    util.lpszText = copia.data();
    SendMessageW(m_ventana.get(), TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&util));
    if (!texto.empty()) SendMessageW(m_ventana.get(), TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&util));
}

void SugerenciasWin::relevar(const MSG& mensaje) {
    MSG copia = mensaje;
    if (m_ventana) SendMessageW(m_ventana.get(), TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&copia));
}

void SugerenciasWin::fuente(HFONT fuente) {
    if (m_ventana) SendMessageW(m_ventana.get(), WM_SETFONT, reinterpret_cast<WPARAM>(fuente), FALSE);
}

}  // namespace sorvanel
