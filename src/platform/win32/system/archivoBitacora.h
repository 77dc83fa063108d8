#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

#include "platform/win32/base/manejadoresNucleo.h"

namespace sorvanel {

struct LineaBitacora {
    FILETIME cuando{};
    std::string texto;  // UTF-8, one line without its end
};

// "2026-11-22 03:10:05 +01:00 ": as the clock on the wall said it then, and what that is to UTC.
std::string selloBitacora(const FILETIME& cuando);

// The log's two files: once the first is full it takes the place of the second, which is lost. They begin with the
// mark by which an editor knows UTF-8. Nobody is kept from reading them, and none is held open.
class ArchivoBitacora {
public:
    static constexpr LONGLONG MAXIMO = 1'000'000;     // bytes, of each
    static constexpr std::string_view FIN = "Fin: ";  // how the last line of a run begins

    // The second is called as the first, with "_anterior" before the extension.
    explicit ArchivoBitacora(std::wstring ruta);

    // They are on the disk when it answers yes; else the file is as it was. The first time it says, too, that the run
    // before left no last line. All of them together must be far smaller than a file may be.
    bool anadir(const std::vector<LineaBitacora>& lineas);

    const std::wstring& ruta() const { return m_ruta; }

private:
    ObjetoNucleo abrir() const;
    std::string deAntes(HANDLE archivo, const FILETIME& ahora) const;
    bool girar(LONGLONG tamano) const;

    const std::wstring m_ruta;
    const std::wstring m_rutaAnterior;
    bool m_seguida = false;  // something of this run stands there
};

}  // namespace sorvanel
