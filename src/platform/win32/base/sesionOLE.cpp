#include "platform/win32/base/sesionOLE.h"

#include <windows.h>
// After windows.h, whose types it uses.
#include <ole2.h>

namespace sorvanel {

SesionOLE::~SesionOLE() {
    if (m_abierta) OleUninitialize();
}

void SesionOLE::abrir() {
    if (!m_abierta) m_abierta = SUCCEEDED(OleInitialize(nullptr));
}

}  // namespace sorvanel
