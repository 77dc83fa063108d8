#pragma once

#include <windows.h>

#include <string>

namespace sorvanel {

// The clipboard's text; empty when there is none or another program has it open.
inline std::wstring textoDelPortapapeles(HWND ventana) {
    struct Abierto {
        explicit Abierto(HWND v) : bien(OpenClipboard(v) != 0) {}
        ~Abierto() {
            if (bien) CloseClipboard();
        }
        Abierto(const Abierto&) = delete;
        Abierto& operator=(const Abierto&) = delete;
        bool bien;
    };
    const Abierto abierto(ventana);
    if (!abierto.bien) return {};
    const HANDLE bloque = GetClipboardData(CF_UNICODETEXT);  // the clipboard's own
    const auto* letras = bloque ? static_cast<const wchar_t*>(GlobalLock(bloque)) : nullptr;
    if (!letras) return {};
    // Whoever put it there may have forgotten its end.
    const std::size_t caben = GlobalSize(bloque) / sizeof(wchar_t);
    std::size_t cuantas = 0;
    while (cuantas < caben && letras[cuantas] != L'\0') ++cuantas;
    std::wstring texto(letras, cuantas);
    GlobalUnlock(bloque);
    return texto;
}

}  // namespace sorvanel
