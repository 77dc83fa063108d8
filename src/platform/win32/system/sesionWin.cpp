#include "platform/win32/system/sesionWin.h"

#include "platform/win32/base/textoWin.h"
#include "platform/win32/system/avisosWin.h"

namespace sorvanel {

PuntoPixel CursorWin::posicion() const {
    POINT punto{};
    GetCursorPos(&punto);
    return {punto.x, punto.y};
}

void CursorWin::posicion(PuntoPixel punto) {
    if (!m_avisos.abierto()) SetCursorPos(punto.x, punto.y);
}

namespace {
void pedir(bool despierto) {
    SetThreadExecutionState(despierto ? ES_CONTINUOUS | ES_SYSTEM_REQUIRED | ES_DISPLAY_REQUIRED : ES_CONTINUOUS);
}
}  // namespace

ReposoWin::~ReposoWin() {
    if (m_impedido) pedir(false);
}

void ReposoWin::impedir(bool si) {
    if (si == m_impedido) return;
    m_impedido = si;
    pedir(si);
    if (m_accion) m_accion(si);
}

Instancia::Instancia(const std::string& nombreEjecutable) {
    std::wstring nombre = aAncho(nombreEjecutable);
    // The file system does not tell upper from lower case, names of mutexes do.
    CharUpperBuffW(nombre.data(), static_cast<DWORD>(nombre.size()));
    m_exclusion.cambiar(CreateMutexW(nullptr, FALSE, (L"Local\\Sorvanel." + nombre).c_str()));
    const DWORD codigo = GetLastError();
    // One that may not be opened (it runs with more rights) is there all the same.
    m_primera = m_exclusion ? codigo != ERROR_ALREADY_EXISTS : codigo != ERROR_ACCESS_DENIED;
}

}  // namespace sorvanel
