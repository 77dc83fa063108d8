#pragma once

#include <windows.h>

#include <array>
#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

#include "platform/win32/painting/fuentesWin.h"
#include "platform/win32/painting/lienzo.h"

namespace sorvanel {

class CajaTipos;

// The letters of a weight in one font and two colours, each drawn once and copied from then on, like a printer's type:
// to copy a digit takes less time than to draw it, on a large screen and on a small one. Opaque, device pixels.
class Tipos {
public:
    Tipos(CajaTipos& caja, std::shared_ptr<FuenteWin> fuente, COLORREF suelo, COLORREF color);
    ~Tipos();
    Tipos(const Tipos&) = delete;
    Tipos& operator=(const Tipos&) = delete;

    // Whether there can be types for all of them: captions need none made.
    static bool haberlos(std::wstring_view letras) {
        return letras.find_first_not_of(LETRAS) == std::wstring_view::npos;
    }
    bool sonDe(const std::shared_ptr<FuenteWin>& fuente, COLORREF suelo, COLORREF color) const {
        return fuente == m_fuente && suelo == m_suelo && color == m_color;
    }
    // What the zone holds of a line of text on bare ground; `inicio` is the line's top-left corner. It comes there in
    // one copy: half a new weight beside half an old one would be a third one. All letters must be such that haberlos()
    // agrees. False, and nothing painted, where one cannot be made, the zone is higher than the types, or the system
    // fails.
    bool imprimir(HDC destino, POINT inicio, std::wstring_view letras, const RECT& zona);

private:
    // Others are rare in a weight, and printed by the system.
    static constexpr std::wstring_view LETRAS = L"0123456789-+., ";
    struct Tipo {
        bool negado = false;  // it leans out of its box, so that it is none that stands alone
        int ancho = 0;        // 0: not made yet
        Lienzo lienzo;
    };

    const Tipo* tipo(wchar_t letra);
    void hacer(Tipo& tipo, wchar_t letra);
    bool componer(Lienzo& galera, LONG x, std::wstring_view letras, const RECT& zona);

    CajaTipos& m_caja;
    const std::shared_ptr<FuenteWin> m_fuente;
    const COLORREF m_suelo, m_color;
    int m_arriba = 0, m_abajo = 0;  // of the types, from the top of the line
    std::size_t m_octetos = 0;
    std::array<std::unique_ptr<Tipo>, LETRAS.size()> m_tipos;
};

// All types in use: surfaces with the same font and colours share them. They go with the last that uses them.
class CajaTipos {
public:
    // Lines are put together on that picture, which outlives this.
    explicit CajaTipos(Lienzo& borrador) : m_borrador(borrador) {}

    std::shared_ptr<Tipos> pedir(const std::shared_ptr<FuenteWin>& fuente, COLORREF suelo, COLORREF color);

private:
    friend class Tipos;
    // All digits of a weight that fills a screen of 3840 x 2160 pixels, or of as many smaller ones in as many colours.
    static constexpr std::size_t OCTETOS_MAXIMOS = std::size_t{24} * 1024 * 1024;

    Lienzo& m_borrador;
    std::size_t m_octetos = 0;
    std::vector<std::weak_ptr<Tipos>> m_hechos;
};

// What a window's device context keeps from one paint to the next. Without a case of types all is printed by the
// system.
struct UtilesDC {
    LetraPuesta letra;
    CajaTipos* caja = nullptr;
    std::shared_ptr<Tipos> tipos;

    // Tipos::imprimir, where there is a case; false also without memory.
    bool copiarLetras(HDC destino, const std::shared_ptr<FuenteWin>& fuente, COLORREF suelo, COLORREF color,
                      POINT inicio, std::wstring_view letras, const RECT& zona) noexcept;
};

}  // namespace sorvanel
