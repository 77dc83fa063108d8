#pragma once

#include <windows.h>

#include <array>
#include <span>
#include <vector>

#include "platform/dialogo.h"
#include "platform/win32/system/avisosWin.h"
#include "platform/win32/windows/dialogoWin.h"

namespace sorvanel {

class DialogosSistemaWin final : public DialogosSistema {
public:
    explicit DialogosSistemaWin(AvisosWin& avisos) : m_avisos(avisos) {}

    std::optional<Color> elegirColor(Color inicial, std::span<const Color> aMano) override;
    bool elegirFuente(FuenteElegida& fuente) override;

private:
    std::optional<Color> elegirColor(Color inicial, std::array<COLORREF, COLORES_A_MANO>& ofrecidos);

    AvisosWin& m_avisos;
    std::vector<COLORREF> m_propios;  // the user has made them there, the last one first; while the program runs
};

// Makes the tool windows.
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
