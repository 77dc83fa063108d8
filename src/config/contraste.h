#pragma once

#include "platform/color.h"

namespace sorvanel {

// What something must have to stand out from its ground, also for whoever sees colours badly.
constexpr float CONTRASTE_MINIMO = 3;

// From 1 (the same) to 21 (black and white): the ratio of the relative luminances.
float contraste(Color uno, Color otro);

}  // namespace sorvanel
