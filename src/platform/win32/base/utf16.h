#pragma once

#include <string>

// Characters of which the system's texts make two units.
namespace sorvanel {

inline bool esMitadAlta(wchar_t unidad) {
    return unidad >= 0xD800 && unidad < 0xDC00;
}

inline bool esMitadBaja(wchar_t unidad) {
    return unidad >= 0xDC00 && unidad < 0xE000;
}

inline char32_t juntar(wchar_t alta, wchar_t baja) {
    return 0x10000 + ((static_cast<char32_t>(alta) - 0xD800) << 10) + (static_cast<char32_t>(baja) - 0xDC00);
}

inline void anadir(std::wstring& texto, char32_t caracter) {
    if (caracter < 0x10000) {
        texto += static_cast<wchar_t>(caracter);
        return;
    }
    texto += static_cast<wchar_t>(0xD800 + ((caracter - 0x10000) >> 10));
    texto += static_cast<wchar_t>(0xDC00 + ((caracter - 0x10000) & 0x3FF));
}

}  // namespace sorvanel
