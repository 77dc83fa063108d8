#pragma once

#include <windows.h>

#include <atomic>
#include <cstdint>
#include <functional>
#include <future>
#include <thread>
#include <vector>

#include "harness/sistema.h"

// What is seen on the screen, and the mouse on it.

namespace sorvanel::pruebas {

// The pixels of a part of the screen, as they are seen: what covers a window is in the picture.
// Colours are 0x00BBGGRR, as everywhere in the program.
class Fotografia {
public:
    explicit Fotografia(const RECT& zona);
    // Of the place where that window is.
    explicit Fotografia(HWND ventana);

    int ancho() const { return m_ancho; }
    int alto() const { return m_alto; }
    std::int32_t en(int x, int y) const;
    int cuantos(std::int32_t color) const;
    // How many unbroken runs of that colour a row has, and how wide each is.
    std::vector<int> tramos(int fila, std::int32_t color) const;
    bool operator==(const Fotografia&) const = default;

private:
    int m_ancho;
    int m_alto;
    std::vector<std::int32_t> m_pixeles;
};

// A window of another program behind the one under test: all of one colour, and it counts the clicks
// that it gets. It runs in a thread of its own, since tests do not fetch messages.
class Telon : private SinCopia {
public:
    // Shown when this returns.
    Telon(const RECT& zona, std::int32_t color);
    ~Telon();

    int clics() const { return m_clics; }

private:
    void vivir(const RECT& zona, std::promise<HWND>& nacida);
    static LRESULT CALLBACK procesar(HWND ventana, UINT mensaje, WPARAM w, LPARAM l);

    std::int32_t m_color;
    std::atomic<int> m_clics = 0;
    HWND m_ventana = nullptr;
    std::thread m_hilo;
};

// The left button goes down and up wherever the cursor is then, as by hand: whatever window the
// system finds there gets it.
void clicEnPantalla(int x, int y);
// The same, moved to there by way of the middle before it is released; between the two something may be done.
void arrastrarEnPantalla(POINT desde, POINT hasta, const std::function<void()>& antesDeSoltar = {});

}  // namespace sorvanel::pruebas
