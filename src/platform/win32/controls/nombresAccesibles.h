#pragma once

#include <windows.h>

#include <string>

struct IAccPropServices;

namespace sorvanel {

// Names for screen readers where a control's own text is something else: what stands in a text box
// is its value, not what it is called. COM must have been initialised; where the system lacks the
// service, the label before a control still names it.
class NombresAccesibles {
public:
    NombresAccesibles();
    ~NombresAccesibles();
    NombresAccesibles(const NombresAccesibles&) = delete;
    NombresAccesibles& operator=(const NombresAccesibles&) = delete;

    // An empty name takes it off: at the latest before the window goes.
    void poner(HWND control, const std::wstring& nombre);

private:
    IAccPropServices* m_servicio = nullptr;
};

}  // namespace sorvanel
