#include "platform/win32/system/fabricaDialogosWin.h"

#include "platform/win32/windows/dialogoWin.h"

namespace sorvanel {

std::unique_ptr<FormularioDialogo> FabricaDialogosWin::crearDialogo(IdControl id) {
    return std::make_unique<DialogoWin>(m_recursos, m_bucle, m_propietaria, id);
}

}  // namespace sorvanel
