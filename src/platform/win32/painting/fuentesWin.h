#pragma once

#include <windows.h>

#include <array>
#include <memory>
#include <string_view>
#include <vector>

#include "platform/superficie.h"
#include "platform/win32/base/escala.h"
#include "platform/win32/base/manejadores.h"

namespace sorvanel {

// Vertical extent of ink, device pixels from the top of the line.
struct Tinta {
    int superior = 0;
    int inferior = 0;
};

// A font made for one height in device pixels, and what is known of its characters.
class FuenteWin {
public:
    // Throws std::runtime_error when the system makes none.
    FuenteWin(const Fuente& fuente, int altoPixeles);

    HFONT get() const { return m_fuente.get(); }
    // The font must be selected in that device context.
    Tinta tinta(HDC dc, std::wstring_view texto);
    // Whether nothing of the letter leans out of its box, so many device pixels wide.
    static bool cabeEnSuCaja(HDC dc, wchar_t letra, int ancho);

private:
    struct Caracter {
        bool sabido = false;
        bool conTinta = false;
        Tinta tinta;
    };
    Caracter medir(HDC dc, wchar_t letra);
    const TEXTMETRICW& metrica(HDC dc);

    FuenteGDI m_fuente;
    bool m_medida = false;
    TEXTMETRICW m_metrica{};
    // Weights are digits and signs: they are asked of the system once.
    std::array<Caracter, 128> m_comunes{};
};

// The font that a device context keeps from one paint to the next: to select one takes the system longer than to print
// a weight. It lives as long as it is selected.
class LetraPuesta {
public:
    LetraPuesta() = default;
    LetraPuesta(const LetraPuesta&) = delete;
    LetraPuesta& operator=(const LetraPuesta&) = delete;
    ~LetraPuesta() { quitar(); }

    // Always in the same device context, until it is taken back.
    void poner(HDC dc, const std::shared_ptr<FuenteWin>& letra) {
        if (letra == m_letra) return;
        const HGDIOBJ antes = SelectObject(dc, letra->get());
        if (!m_letra) m_antes = antes;
        m_dc = dc;
        m_letra = letra;
    }
    void quitar() {
        if (m_letra) SelectObject(m_dc, m_antes);
        m_letra.reset();
    }

private:
    HDC m_dc = nullptr;
    HGDIOBJ m_antes = nullptr;
    std::shared_ptr<FuenteWin> m_letra;
};

// The fonts in use: equal ones are one, whoever asks. A font that nobody holds is kept for a while,
// since the next layout often asks for it again.
class FuentesWin {
public:
    std::shared_ptr<FuenteWin> pedir(const Fuente& fuente, int altoPixeles);

private:
    struct Entrada {
        Fuente fuente;
        int alto = 0;
        std::shared_ptr<FuenteWin> hecha;
    };
    void podar();

    static constexpr std::size_t SOBRANTES = 16;
    std::vector<Entrada> m_entradas;  // those asked for last stand last
};

// Room that letters take in the font that is selected, device pixels.
SIZE extension(HDC dc, std::wstring_view letras);
// The same in twips, with the ink, in that font, which must be selected. An empty text is as high as a line and has no
// width.
MedidaTexto medirTexto(HDC dc, FuenteWin& fuente, const Escala& escala, std::wstring_view letras);

// The font of buttons: the system's own where it is there. The height is the em, twips.
Fuente fuenteInterfaz(float alto, bool negrita = false);

}  // namespace sorvanel
