#include "harness/texto.h"

#include <windows.h>

namespace sorvanel::pruebas {

std::wstring ancho(std::string_view utf8) {
    const int bytes = static_cast<int>(utf8.size());
    const int largo = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), bytes, nullptr, 0);
    std::wstring resultado(static_cast<std::size_t>(largo), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, utf8.data(), bytes, resultado.data(), largo);
    return resultado;
}

std::string utf8(std::wstring_view ancho) {
    const int letras = static_cast<int>(ancho.size());
    const int largo = WideCharToMultiByte(CP_UTF8, 0, ancho.data(), letras, nullptr, 0, nullptr, nullptr);
    std::string resultado(static_cast<std::size_t>(largo), '\0');
    WideCharToMultiByte(CP_UTF8, 0, ancho.data(), letras, resultado.data(), largo, nullptr, nullptr);
    return resultado;
}

}  // namespace sorvanel::pruebas
