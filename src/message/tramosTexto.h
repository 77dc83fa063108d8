#pragma once

#include <string_view>
#include <vector>

#include "platform/programa.h"

namespace sorvanel {

// Cuts a text into short pieces that can be printed one beside the other: at blanks, and where there
// is none, after so many characters. A letter stays with its accents, an emoji with what modifies it, and
// words that are written from right to left, or in a script whose marks the system does not know, stay together.
// The pieces are views into the text.
std::vector<std::string_view> cortarEnTramos(std::string_view texto, const Programa& programa);

}  // namespace sorvanel
