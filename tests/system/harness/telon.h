#pragma once

#include <windows.h>

#include <atomic>
#include <cstdint>
#include <future>
#include <thread>

namespace sorvanel::pruebas {

// A window of another program behind the one under test: all of one colour, and it counts the clicks
// that it gets. It runs in a thread of its own, since tests do not fetch messages.
class Telon {
public:
    // Shown when this returns.
    Telon(const RECT& zona, std::int32_t color);
    ~Telon();
    Telon(const Telon&) = delete;
    Telon& operator=(const Telon&) = delete;

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

}  // namespace sorvanel::pruebas
