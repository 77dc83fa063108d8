#pragma once

#include <string>
#include <string_view>

namespace sorvanel::pruebas {

std::wstring ancho(std::string_view utf8);
std::string utf8(std::wstring_view ancho);

}  // namespace sorvanel::pruebas
