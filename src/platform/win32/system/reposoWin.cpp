#include "platform/win32/system/reposoWin.h"

#include <windows.h>

namespace sorvanel {

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

}  // namespace sorvanel
