#pragma once

#include <string>
#include <string_view>

namespace sorvanel {

// A path, UTF-8, as an address that any browser takes: "file:///C:/a%20b.html", of another computer's "file://pc/b".
// The system's own function writes accents in the code page of the computer, which browsers do not read.
inline std::string direccionArchivo(std::string_view ruta) {
    constexpr std::string_view SUELTOS = "-._~:/";
    constexpr std::string_view CIFRAS = "0123456789ABCDEF";
    std::string direccion = ruta.starts_with("\\\\") ? "file:" : "file:///";
    for (const char c : ruta) {
        const char letra = c == '\\' ? '/' : c;
        const auto octeto = static_cast<unsigned char>(letra);
        const bool alfanumerico = (letra >= '0' && letra <= '9') || ((letra | 0x20) >= 'a' && (letra | 0x20) <= 'z');
        if (octeto < 0x80 && (alfanumerico || SUELTOS.find(letra) != std::string_view::npos)) {
            direccion += letra;
        } else {
            direccion += {'%', CIFRAS[octeto >> 4], CIFRAS[octeto & 0xF]};
        }
    }
    return direccion;
}

}  // namespace sorvanel
