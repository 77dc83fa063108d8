#pragma once

#include <windows.h>

#include <array>

#include "platform/dialogo.h"
#include "platform/win32/system/avisosWin.h"

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

}  // namespace sorvanel
