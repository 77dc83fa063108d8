#pragma once

#include "platform/superficie.h"

namespace sorvanel {

// The window's bottom edge, where the message strip lies. The window implements it.
class MuelleMensaje {
public:
    virtual ~MuelleMensaje() = default;

    // The strip. It belongs to the window and outlives the message.
    virtual Superficie& picMsg() = 0;
    // Gives the strip that height (twips) and docks it along the bottom, above the buttons.
    virtual void acoplar(float alto) = 0;
    // The strip came or went: what is kept visible of a transparent window changes with it.
    virtual void alMostrarFranja(bool visible) = 0;
};

}  // namespace sorvanel
