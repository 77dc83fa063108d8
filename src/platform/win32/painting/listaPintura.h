#pragma once

#include <windows.h>

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "platform/geometria.h"
#include "platform/win32/painting/fuentesWin.h"
#include "platform/win32/painting/lienzo.h"
#include "platform/win32/painting/tipos.h"

namespace sorvanel {

// What a surface shows, kept as the steps that paint it rather than as a picture: a wall of displays on a large monitor
// would take tens of megabytes. What a later box covers whole is forgotten, so the list is as short as what is seen is
// simple. All in device pixels of the surface; the memory of what is forgotten serves again.
class ListaPintura {
public:
    // A line of text, its top-left corner, and how wide it is without what leans out of it; 0: it is not known.
    struct Texto {
        POINT inicio{};
        LONG ancho = 0;
        const std::wstring& letras;
        const std::shared_ptr<FuenteWin>& fuente;
        COLORREF color = 0;
    };

    // Everything becomes that colour.
    void vaciar(COLORREF suelo);
    void caja(const RECT& zona, COLORREF color);
    // Nothing of it is painted outside the zone.
    void texto(const RECT& zona, const Texto& texto);
    // The text that stands in the zone becomes this one, which differs from it there alone. False when there is none.
    bool cambiarTexto(const RECT& zona, const Texto& texto);
    void poligono(const RECT& zona, std::span<const Punto> vertices, COLORREF color);

    static void escribir(Lienzo& destino, const RECT& zona, const Texto& texto);

    std::size_t cuantos() const { return m_cuantos; }
    COLORREF suelo() const { return m_suelo; }
    // What there is of it within the zone.
    void pintar(Lienzo& destino, const RECT& zona) const;
    // The same straight to a window, where that is one call of the system, so that nothing flickers: a line of text on
    // bare ground, or the ground. False, and nothing painted, where it is more.
    bool pintarDeUnaVez(HDC destino, const RECT& zona, UtilesDC& utiles) const;

private:
    enum class Clase { caja, texto, poligono };
    struct Paso {
        Clase clase = Clase::caja;
        RECT zona{};    // it paints nothing outside
        RECT cuerpo{};  // once that is covered nothing of it is to be seen
        COLORREF color = 0;
        POINT inicio{};
        bool sinCortar = false;  // of a text: its zone has room for all of it
        std::wstring letras;
        std::shared_ptr<FuenteWin> fuente;
        std::vector<Punto> vertices;
    };

    Paso& anadir(Clase clase, const RECT& zona, COLORREF color);
    void olvidarBajo(const RECT& zona);
    static void escribir(Paso& paso, const Texto& texto);
    static void pintarPaso(const Paso& paso, Lienzo& destino, const RECT& parte);

    COLORREF m_suelo = RGB(255, 255, 255);
    std::vector<Paso> m_pasos;  // behind the first m_cuantos: those that were forgotten
    std::size_t m_cuantos = 0;
};

}  // namespace sorvanel
