#pragma once

#include <windows.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "harness/configuracion.h"
#include "harness/pantalla.h"
#include "harness/programa.h"
#include "harness/red.h"

namespace sorvanel::escenas {

// Fixed, since the tools show them: display n has the port PUERTO + n - 1.
constexpr int PUERTO = 8101;
constexpr int CONCENTRADOR = 8201;

// Throws with that reason when what a picture stands on has not come.
void exigir(bool condicion, const std::string& motivo);

// The stage: one program at a time before a plain backdrop, the pointer away, and its pictures. Whatever waits, waits
// for what is to be seen, and throws when that does not come.
class Escena {
public:
    explicit Escena(std::wstring carpeta);

    // Ends the program, and frees its ports.
    void vaciar();
    // Starts it anew with that file, which is UTF-8; the program before it is ended.
    void arrancar(const std::string& ini);
    // Before the last words of a scene: it is said again before each look at the screen.
    void mientras(std::function<void()> latido) { m_latido = std::move(latido); }
    // Display n shows the nth of these frames, from now on.
    void pesar(std::vector<std::string> tramas);
    // Until display n shows that, or what holds it.
    void esperarPeso(int visor, std::string_view trozo);
    void pausar();
    // Starts, and goes into configuration.
    void configurar(const std::string& ini);
    // By its button on the bar.
    void abrir(IdControl boton, IdControl herramienta, IdControl ultimo, int elemento = 0);
    // Presses a control of the open tool and waits until the other one is seen, or no more.
    void pulsar(IdControl id, int elemento, IdControl otro, int otroElemento, bool seVe = true);
    // By the Tab key, in the open tool or else on the bar; the pictures have it there until something else is done.
    void enfocar(IdControl id, int elemento = 0);
    // When the screen stands still, into <folder>\<name>.ppm: all of the monitor, or that part of the screen.
    void foto(const std::string& nombre, std::optional<RECT> parte = {});

    pruebas::Programa& programa() { return *m_programa; }
    const pruebas::VentanaHerramienta& herramienta() const { return *m_herramienta; }

private:
    pruebas::Fotografia mirar();
    bool escucha() const;

    std::wstring m_carpeta;
    RECT m_zona;
    pruebas::Telon m_telon;
    pruebas::EmisorUDP m_indicador;
    std::function<void()> m_latido;
    HWND m_enfocado = nullptr;  // where the focus has to be in a picture; null for wherever it is
    std::optional<pruebas::Programa> m_programa;
    std::optional<pruebas::VentanaHerramienta> m_herramienta;
};

// A grid with a display on each cell, called "Tolva 1" and so on; the last of them goes on with the next clave().
pruebas::Configuracion parrillaLlena(int filas, int columnas, int visores = 64);

struct Acto {
    const wchar_t* nombre;
    void (*jugar)(Escena&);
};
extern const std::vector<Acto> PARRILLAS;
extern const std::vector<Acto> HERRAMIENTAS;
extern const std::vector<Acto> MANUAL;

}  // namespace sorvanel::escenas
