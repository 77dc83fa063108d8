#pragma once

namespace sorvanel {

// What the boxes for numbers take of each character typed or pasted: digits, and 0 for what is
// discarded. Keys that edit or move never come here.
constexpr char32_t filtroNumerico(char32_t caracter) {
    return caracter >= U'0' && caracter <= U'9' ? caracter : U'\0';
}

}  // namespace sorvanel
