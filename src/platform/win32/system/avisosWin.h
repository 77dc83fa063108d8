#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "platform/sistema.h"
#include "platform/win32/base/estiloWin.h"

namespace sorvanel {

// Disables the thread's windows but one (which a box disables itself, and gives the focus back to),
// and enables them again.
class VentanasApagadas {
public:
    explicit VentanasApagadas(HWND menosEsta);
    ~VentanasApagadas();
    VentanasApagadas(const VentanasApagadas&) = delete;
    VentanasApagadas& operator=(const VentanasApagadas&) = delete;

private:
    static BOOL CALLBACK alHallar(HWND ventana, LPARAM dato) noexcept;

    HWND m_menosEsta;
    std::vector<HWND> m_ventanas;
};

class AvisosWin : public Avisos {
public:
    // Above which window the boxes stand unless another one of ours is being worked with; null for
    // none.
    void propietaria(HWND ventana) { m_propietaria = ventana; }
    // True while a box is open.
    bool abierto() const { return m_abiertos > 0; }

    void critico(const std::string& texto) override;
    void informacion(const std::string& texto) override;
    void cerrar() override;

    // As long as it lives a box of the system is open: all our windows are disabled but the one that
    // the box is given as its owner, which it disables itself.
    class Apertura {
    public:
        explicit Apertura(AvisosWin& avisos);
        ~Apertura() { --m_avisos.m_abiertos; }
        Apertura(const Apertura&) = delete;
        Apertura& operator=(const Apertura&) = delete;
        HWND propietaria() const { return m_propietaria; }

    private:
        AvisosWin& m_avisos;
        HWND m_propietaria;
        VentanasApagadas m_apagadas;
        EstiloWin::Uso m_estilo;
    };

private:
    void mostrar(const std::string& texto, UINT icono);

    EstiloWin m_estilo;
    HWND m_propietaria = nullptr;
    int m_abiertos = 0;
    const std::wstring* m_primero = nullptr;  // what the box says that has been open for longest
};

}  // namespace sorvanel
