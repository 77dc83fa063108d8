#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

namespace sorvanel::pruebas {

// One started program. When it is dropped, the program is ended, whatever it is doing.
class Proceso {
public:
    // Throws when it cannot be started.
    explicit Proceso(const std::wstring& ejecutable);
    ~Proceso();
    Proceso(const Proceso&) = delete;
    Proceso& operator=(const Proceso&) = delete;

    DWORD id() const { return m_id; }
    bool vivo() const;
    // The exit code, once it has ended; nothing if it is still alive after that many milliseconds.
    std::optional<DWORD> esperarFin(int milisegundos) const;
    void matar();
    // How many graphic objects it holds; 0 where the system does not tell.
    DWORD objetosGDI() const { return GetGuiResources(m_proceso, GR_GDIOBJECTS); }

    // Its top-level windows, hidden ones too.
    std::vector<HWND> ventanas() const;

private:
    HANDLE m_proceso = nullptr;
    DWORD m_id = 0;
};

}  // namespace sorvanel::pruebas
