#pragma once

#include <string>
#include <string_view>

namespace sorvanel {

// The program's text is UTF-8, the system's UTF-16: here is the border. A piece that is not valid
// becomes U+FFFD; nothing fails.
std::wstring aAncho(std::string_view utf8);
// The same into a buffer that is used again and again: no memory is asked for once it is large
// enough.
void aAncho(std::string_view utf8, std::wstring& destino);
std::string aUtf8(std::wstring_view ancho);

}  // namespace sorvanel
