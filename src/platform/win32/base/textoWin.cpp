#include "platform/win32/base/textoWin.h"

#include <windows.h>

#include <algorithm>
#include <limits>

namespace sorvanel {

namespace {

// The system counts in int; a text that long is no text of ours.
int cuenta(std::size_t tamano) {
    return static_cast<int>(std::min<std::size_t>(tamano, std::numeric_limits<int>::max() / 4));
}

}  // namespace

void aAncho(std::string_view utf8, std::wstring& destino) {
    // UTF-16 never takes more units than UTF-8 takes bytes, so one call is enough.
    const int bytes = cuenta(utf8.size());
    destino.resize(static_cast<std::size_t>(bytes));
    if (bytes == 0) return;
    const int unidades = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), bytes, destino.data(), bytes);
    destino.resize(static_cast<std::size_t>(std::max(unidades, 0)));
}

std::wstring aAncho(std::string_view utf8) {
    std::wstring destino;
    aAncho(utf8, destino);
    return destino;
}

std::string aUtf8(std::wstring_view ancho) {
    std::string destino;
    const int unidades = cuenta(ancho.size());
    if (unidades == 0) return destino;
    // Three bytes a unit is the most: a surrogate pair gives four for two.
    destino.resize(static_cast<std::size_t>(unidades) * 3);
    const int bytes = WideCharToMultiByte(CP_UTF8, 0, ancho.data(), unidades, destino.data(),
                                          static_cast<int>(destino.size()), nullptr, nullptr);
    destino.resize(static_cast<std::size_t>(std::max(bytes, 0)));
    return destino;
}

}  // namespace sorvanel
