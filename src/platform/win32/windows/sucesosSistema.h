#pragma once

#include <windows.h>

namespace sorvanel {

enum class Suceso {
    ninguno,
    pantalla,    // monitors may have changed, or other windows come above this one
    barraNueva,  // the same, and the system has a new task bar
    duerme,
    despierta
};

// What happens to the computer while the program runs for months, as its main window is told.
class SucesosSistema {
public:
    SucesosSistema() = default;
    ~SucesosSistema() { callar(); }
    SucesosSistema(const SucesosSistema&) = delete;
    SucesosSistema& operator=(const SucesosSistema&) = delete;

    // From now on, to that window, until it goes: call callar() before. No where the system is not ready to tell all,
    // as it may be soon after it was started: ask again.
    bool escuchar(HWND ventana);
    void callar();
    Suceso leer(UINT mensaje, WPARAM w) const;

private:
    // Told to all windows when Explorer has made the task bar anew.
    const UINT m_barraDeTareasNueva = RegisterWindowMessageW(L"TaskbarCreated");
    HWND m_ventana = nullptr;          // once it is told of the session
    HPOWERNOTIFY m_energia = nullptr;  // let go by callar()
};

}  // namespace sorvanel
