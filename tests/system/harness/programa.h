#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <string_view>

#include "harness/cajaMensaje.h"
#include "harness/proceso.h"
#include "platform/controles.h"

namespace sorvanel::pruebas {

// The real program under a name of its own, and so with a settings folder of its own: tests touch
// neither each other's settings nor the user's. All of it is gone when this is.
class Programa {
public:
    Programa();
    explicit Programa(const std::string& bytesINI);
    ~Programa();
    Programa(const Programa&) = delete;
    Programa& operator=(const Programa&) = delete;

    std::wstring rutaINI() const;
    void escribirINI(const std::string& bytes);
    std::string leerINI() const;
    std::string leerCopia() const;

    // Starts it and waits until its window shows. Throws when none comes.
    void arrancar();
    // Closes the window and waits for the end; false if it had to be killed or ended badly.
    bool terminar();
    const std::wstring& ejecutable() const { return m_ejecutable; }

    Proceso& proceso() const { return *m_proceso; }
    CajaMensaje caja() const { return CajaMensaje(*m_proceso); }
    HWND ventana() const { return m_ventana; }
    // Null when there is none just now.
    HWND control(IdControl id, int elemento = 0) const;
    // What it says; for a surface, its words.
    std::string texto(IdControl id, int elemento = 0) const;
    bool seVe(IdControl id, int elemento = 0) const;
    bool esperarVisible(IdControl id, int elemento = 0) const;
    bool esperarOculto(IdControl id, int elemento = 0) const;
    bool esperarTexto(IdControl id, int elemento, std::string_view esperado) const;
    // Presses a button that must be visible; not so soon after another one at the same place that it would be
    // the second half of a double click.
    void pulsar(IdControl id);

private:
    HWND buscarVentana() const;

    std::wstring m_nombre;
    std::wstring m_carpeta;  // of the copy
    std::wstring m_ajustes;  // of its settings
    std::wstring m_ejecutable;
    std::unique_ptr<Proceso> m_proceso;
    HWND m_ventana = nullptr;
    HWND m_pulsado = nullptr;
    ULONGLONG m_cuando = 0;  // it was pressed
};

}  // namespace sorvanel::pruebas
