#include "platform/win32/system/instancia.h"

#include "platform/win32/base/textoWin.h"

namespace sorvanel {

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
