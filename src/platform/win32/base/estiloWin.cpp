#include "platform/win32/base/estiloWin.h"

namespace sorvanel {

namespace {

constexpr WORD MANIFIESTO_ESTILO = 2;  // among the program's resources; the first one is the process's own

}  // namespace

HANDLE EstiloWin::contexto() {
    if (m_contexto != INVALID_HANDLE_VALUE) return m_contexto;
    ACTCTXW pedido{};
    pedido.cbSize = sizeof pedido;
    pedido.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID | ACTCTX_FLAG_HMODULE_VALID;
    pedido.hModule = GetModuleHandleW(nullptr);
    pedido.lpResourceName = MAKEINTRESOURCEW(MANIFIESTO_ESTILO);
    m_contexto = CreateActCtxW(&pedido);
    return m_contexto;
}

}  // namespace sorvanel
