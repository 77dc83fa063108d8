#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "harness/configuracion.h"
#include "harness/elemento.h"
#include "harness/sistema.h"
#include "platform/controles.h"

// The program under test, its windows, and what an operator does in them.

namespace sorvanel::pruebas {

// What a display says, without its caption: the weight and its marks ("1234.5 E"), or "-----" for no data.
std::string pesoDicho(std::string texto);

// One started program. When it is dropped, the program is ended, whatever it is doing.
class Proceso : private SinCopia {
public:
    // Throws when it cannot be started.
    explicit Proceso(const std::wstring& ejecutable, const std::wstring& argumentos = {});
    ~Proceso();

    DWORD id() const { return m_id; }
    bool vivo() const { return WaitForSingleObject(m_proceso, 0) == WAIT_TIMEOUT; }
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

// The message box that a program shows, if any.
class CajaMensaje {
public:
    explicit CajaMensaje(const Proceso& proceso) : m_proceso(proceso) {}

    // Null while there is none.
    HWND ventana() const;
    // What it says now; empty without one, and for a window of the system's own.
    std::string texto() const;
    // Waits for it; empty when none comes.
    std::string esperarTexto() const;
    // Presses its default button and waits until it is gone.
    bool cerrar() const;
    // Waits for it and closes it: what it said.
    std::string contestar() const;

private:
    const Proceso& m_proceso;
};

// The real program under a name of its own, and so with a settings folder of its own: tests touch
// neither each other's settings nor the user's. All of it is gone when this is.
class Programa : private SinCopia {
public:
    Programa();
    explicit Programa(const std::string& bytesINI);
    ~Programa();

    std::wstring rutaINI() const { return m_ajustes + L"\\" + m_nombre + L".ini"; }
    std::wstring rutaRegistro(const std::wstring& apellido = {}) const {
        return m_ajustes + L"\\" + m_nombre + apellido + L".log";
    }
    std::string leerRegistro() const { return leerArchivo(rutaRegistro()); }
    void escribirINI(const std::string& bytes);
    std::string leerINI() const { return leerArchivo(rutaINI()); }
    bool hayCopia() const { return !leerArchivo(m_ajustes + L"\\" + m_nombre + L"_copia.ini").empty(); }

    // Starts it and waits until its window shows. Throws when none comes.
    void arrancar();
    // The same, and until it runs.
    bool marchar();
    bool pausar();
    // Closes the window and waits for the end; false if it had to be killed or ended badly.
    bool terminar();
    const std::wstring& ejecutable() const { return m_ejecutable; }

    Proceso& proceso() const { return *m_proceso; }
    CajaMensaje caja() const { return CajaMensaje(*m_proceso); }
    HWND ventana() const { return m_ventana; }
    // Null when there is none just now.
    HWND control(IdControl id, int elemento = 0) const { return hijo(m_ventana, numero(id, elemento)); }
    // What it says; for a surface, its words.
    std::string texto(IdControl id, int elemento = 0) const { return pruebas::texto(control(id, elemento)); }
    bool seVe(IdControl id, int elemento = 0) const { return pruebas::seVe(control(id, elemento)); }
    bool esperarVisible(IdControl id, int elemento = 0) const {
        return esperar([=, this] { return seVe(id, elemento); });
    }
    bool esperarTexto(IdControl id, int elemento, std::string_view esperado) const {
        return esperar([=, this] { return texto(id, elemento) == esperado; });
    }
    // Waits until that display says so.
    bool lee(int visor, std::string_view esperado) const {
        return esperar([=, this] { return peso(visor) == esperado; });
    }
    std::string peso(int visor) const { return pesoDicho(texto(IdControl::picRep, visor)); }
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

// The window of one configuration tool of a running program, and what an operator does in it.
class VentanaHerramienta {
public:
    VentanaHerramienta(const Programa& programa, IdControl id) : m_programa(programa), m_id(id) {}

    // Null while it is not open.
    HWND ventana() const;
    bool esperarAbierta() const {
        return esperar([this] { return ventana() != nullptr; });
    }
    bool esperarCerrada() const {
        return esperar([this] { return ventana() == nullptr; });
    }

    HWND control(IdControl id, int elemento = 0) const { return hijo(ventana(), numero(id, elemento)); }
    bool esperarControl(IdControl id, int elemento = 0) const;
    std::string texto(IdControl id, int elemento = 0) const;
    bool esperarTexto(IdControl id, int elemento, std::string_view esperado) const {
        return esperar([&] { return texto(id, elemento) == esperado; });
    }
    // This and the next two wait until the control is there.
    void pulsar(IdControl id, int elemento = 0) const;
    // Takes the place of what the box holds, character by character, as the keyboard would.
    void escribir(IdControl id, int elemento, std::string_view texto) const;
    // One key to that control, which has the focus first.
    void tecla(IdControl id, int elemento, int teclaVirtual) const;

private:
    bool enfocar(HWND control) const;

    const Programa& m_programa;
    const IdControl m_id;
};

}  // namespace sorvanel::pruebas
