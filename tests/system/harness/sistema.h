#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

// What tests ask of Windows: text, files, monitors, windows of other programs, and waiting.

namespace sorvanel::pruebas {

constexpr int PLAZO = 8000;  // ms; long, for a busy machine: a condition that holds ends the wait

// Held once, by one.
struct SinCopia {
    SinCopia() = default;
    SinCopia(const SinCopia&) = delete;
    SinCopia& operator=(const SinCopia&) = delete;
};

// Asks again and again until the condition holds (true) or the time is over (false).
template <class Condicion>
bool esperar(Condicion condicion, int milisegundos = PLAZO) {
    const ULONGLONG fin = GetTickCount64() + static_cast<ULONGLONG>(milisegundos);
    while (!condicion()) {
        if (GetTickCount64() >= fin) return condicion();
        Sleep(5);
    }
    return true;
}

// Does it again and again until the condition holds.
template <class Accion, class Condicion>
bool insistir(Accion accion, Condicion condicion) {
    return esperar([&] {
        accion();
        return esperar(condicion, 200);
    });
}

std::wstring ancho(std::string_view utf8);
std::string utf8(std::wstring_view ancho);

// Bytes as they are. Reading a file that is not there gives nothing; writing throws when it fails,
// since no test can go on then.
std::string leerArchivo(const std::wstring& ruta);
void escribirArchivo(const std::wstring& ruta, std::string_view bytes);

// %ProgramData%, the folder of this test program, and the one for temporary files; without a separator at the end.
std::wstring carpetaComun();
std::wstring carpetaPropia();
std::wstring carpetaTemporal();

struct MonitorVisto {
    RECT area{};
    bool primario = false;
};
// In the system's own order, which is the order of "EnUso".
std::vector<MonitorVisto> monitores();

// Nothing below waits longer than two seconds for a program that does not answer.

// A window's child of that number, at any depth; null when there is none.
HWND hijo(HWND ventana, int id);
std::string texto(HWND ventana);
std::wstring clase(HWND ventana);
RECT lugar(HWND ventana);  // virtual screen, device pixels
// Shown, and all that holds it too.
bool seVe(HWND ventana);
// As the mouse would, in the middle; returns at once.
void pulsar(HWND ventana);
// From its corner so many pixels to the right and down.
void arrastrar(HWND ventana, int x, int y);
// What has the focus in that window's program; null for nothing.
HWND foco(HWND ventana);
bool enMenu(HWND ventana);
// As the keyboard would, to whatever has the focus in that window's program; returns at once.
void teclear(HWND ventana, int teclaVirtual);

}  // namespace sorvanel::pruebas
