#pragma once

#include <windows.h>

#include <array>

#include "platform/dialogo.h"
#include "platform/win32/system/avisosWin.h"
#include "platform/win32/windows/dialogoWin.h"

namespace sorvanel {

class DialogosSistemaWin final : public DialogosSistema {
public:
    explicit DialogosSistemaWin(AvisosWin& avisos);

    std::optional<Color> elegirColor(Color inicial) override;
    bool elegirFuente(FuenteElegida& fuente) override;

private:
    AvisosWin& m_avisos;
    // The user's own colours, kept while the program runs.
    std::array<COLORREF, 16> m_propios{};
};

// Makes the tool windows. COM must have been initialised.
class FabricaDialogosWin final : public FabricaDialogos {
public:
    FabricaDialogosWin(RecursosVentanas& recursos, Bucle& bucle, AvisosWin& avisos, HWND propietaria)
        : m_recursos(recursos), m_bucle(bucle), m_propietaria(propietaria), m_sistema(avisos) {}

    std::unique_ptr<FormularioDialogo> crearDialogo(IdControl id) override {
        return std::make_unique<DialogoWin>(m_recursos, m_bucle, m_propietaria, id);
    }
    DialogosSistema& sistema() override { return m_sistema; }

private:
    RecursosVentanas& m_recursos;
    Bucle& m_bucle;
    const HWND m_propietaria;
    DialogosSistemaWin m_sistema;
};

}  // namespace sorvanel
