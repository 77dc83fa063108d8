#pragma once

#include <string_view>

#include "platform/superficie.h"

namespace sorvanel {

// Prints a text in the middle of a surface, in as many lines as it takes and in letters that can be read from a few
// steps away, black or white, whichever the surface's own ground asks for. A word longer than the surface makes all
// letters smaller.
void pintarLetrero(Superficie& superficie, std::string_view texto);

}  // namespace sorvanel
