#pragma once

#include <memory>

#include "platform/dialogo.h"
#include "platform/win32/base/bucle.h"
#include "platform/win32/system/dialogosSistemaWin.h"
#include "platform/win32/windows/recursosDialogo.h"

namespace sorvanel {

// Makes the tool windows, and owns what they share: it must outlive them all. COM must have been
// initialised.
class FabricaDialogosWin final : public FabricaDialogos {
public:
    FabricaDialogosWin(Bucle& bucle, AvisosWin& avisos, HWND propietaria)
        : m_bucle(bucle), m_propietaria(propietaria), m_sistema(avisos) {}

    std::unique_ptr<FormularioDialogo> crearDialogo(IdControl id) override;
    DialogosSistema& sistema() override { return m_sistema; }

private:
    Bucle& m_bucle;
    HWND m_propietaria;
    DialogosSistemaWin m_sistema;
    RecursosDialogo m_recursos;
};

}  // namespace sorvanel
