#pragma once

namespace sorvanel {

// A window without a title bar that the mouse can drag all the same.
class Arrastrable {
public:
    virtual ~Arrastrable() = default;

    // Whatever window of the program has the mouse to itself gives it back.
    virtual void soltarRaton() = 0;
    // As if its title bar were pressed: the system moves it until the button is up, and only then this returns.
    // The window may be gone by then.
    virtual void agarrarTitulo() = 0;
};

}  // namespace sorvanel
