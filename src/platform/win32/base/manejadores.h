#pragma once

#include <windows.h>

#include <utility>

namespace sorvanel {

// Owners of handles, a type for each way in which a handle is got: each knows the one call that
// gives it back. All can be moved, none copied. Stock objects and shared resources are never owned.

// What the simple kinds share; Rasgos says the handle's type and how it is released.
template <typename Rasgos>
class Manejador {
public:
    using Tipo = typename Rasgos::Tipo;

    Manejador() = default;
    explicit Manejador(Tipo manejador) : m_manejador(manejador) {}
    Manejador(Manejador&& otro) noexcept : m_manejador(otro.soltar()) {}
    Manejador& operator=(Manejador&& otro) noexcept {
        if (this != &otro) cambiar(otro.soltar());
        return *this;
    }
    Manejador(const Manejador&) = delete;
    Manejador& operator=(const Manejador&) = delete;
    ~Manejador() { cambiar(nullptr); }

    Tipo get() const { return m_manejador; }
    explicit operator bool() const { return m_manejador != nullptr; }
    // Hands the handle over: releasing it is the caller's affair now.
    [[nodiscard]] Tipo soltar() { return std::exchange(m_manejador, nullptr); }
    void cambiar(Tipo nuevo) {
        Tipo viejo = std::exchange(m_manejador, nuevo);
        if (viejo) Rasgos::liberar(viejo);
    }

private:
    Tipo m_manejador = nullptr;
};

template <typename T>
struct RasgosGDI {
    using Tipo = T;
    static void liberar(T objeto) { DeleteObject(objeto); }
};
struct RasgosDCMemoria {
    using Tipo = HDC;
    static void liberar(HDC dc) { DeleteDC(dc); }
};
struct RasgosVentana {
    using Tipo = HWND;
    static void liberar(HWND ventana) { DestroyWindow(ventana); }
};

// From CreateFontIndirect, CreateDIBSection and their like. It must not be
// selected in a device context when it goes: see Seleccion.
using FuenteGDI = Manejador<RasgosGDI<HFONT>>;
using MapaBits = Manejador<RasgosGDI<HBITMAP>>;
// From CreateRectRgn. SetWindowRgn takes it over: give it soltar().
using Region = Manejador<RasgosGDI<HRGN>>;
// From CreateCompatibleDC.
using DCMemoria = Manejador<RasgosDCMemoria>;
// From CreateWindow. A child may have gone with its parent: whoever owns one drops it first, or
// calls soltar() at WM_NCDESTROY.
using VentanaPropia = Manejador<RasgosVentana>;

// From GetDC; a null window means the whole screen.
class DCVentana {
public:
    DCVentana() = default;
    explicit DCVentana(HWND ventana) : m_ventana(ventana), m_dc(GetDC(ventana)) {}
    DCVentana(DCVentana&& otro) noexcept : m_ventana(otro.m_ventana), m_dc(std::exchange(otro.m_dc, nullptr)) {}
    DCVentana(const DCVentana&) = delete;
    DCVentana& operator=(const DCVentana&) = delete;
    DCVentana& operator=(DCVentana&&) = delete;
    ~DCVentana() { soltar(); }
    void tomar(HWND ventana) {
        soltar();
        m_ventana = ventana;
        m_dc = GetDC(ventana);
    }
    void soltar() {
        if (m_dc) ReleaseDC(m_ventana, std::exchange(m_dc, nullptr));
    }
    HDC get() const { return m_dc; }
    explicit operator bool() const { return m_dc != nullptr; }

private:
    HWND m_ventana = nullptr;
    HDC m_dc = nullptr;
};

// From BeginPaint: lives exactly as long as one WM_PAINT is handled.
class DCPintado {
public:
    explicit DCPintado(HWND ventana) : m_ventana(ventana), m_dc(BeginPaint(ventana, &m_datos)) {}
    DCPintado(const DCPintado&) = delete;
    DCPintado& operator=(const DCPintado&) = delete;
    ~DCPintado() {
        if (m_dc) EndPaint(m_ventana, &m_datos);
    }
    HDC get() const { return m_dc; }
    const RECT& zona() const { return m_datos.rcPaint; }
    explicit operator bool() const { return m_dc != nullptr; }

private:
    HWND m_ventana;
    PAINTSTRUCT m_datos{};
    HDC m_dc;
};

// An object selected in a device context, and the one that was there before: it comes back, so
// that whoever owns the object can release it.
class Seleccion {
public:
    Seleccion() = default;
    Seleccion(HDC dc, HGDIOBJ objeto) : m_dc(dc), m_anterior(SelectObject(dc, objeto)) {}
    Seleccion(Seleccion&& otro) noexcept : m_dc(otro.m_dc), m_anterior(std::exchange(otro.m_anterior, nullptr)) {}
    Seleccion& operator=(Seleccion&& otro) noexcept {
        if (this != &otro) {
            devolver();
            m_dc = otro.m_dc;
            m_anterior = std::exchange(otro.m_anterior, nullptr);
        }
        return *this;
    }
    Seleccion(const Seleccion&) = delete;
    Seleccion& operator=(const Seleccion&) = delete;
    ~Seleccion() { devolver(); }
    void devolver() {
        if (m_anterior) SelectObject(m_dc, std::exchange(m_anterior, nullptr));
    }
    explicit operator bool() const { return m_anterior != nullptr; }

private:
    HDC m_dc = nullptr;
    HGDIOBJ m_anterior = nullptr;
};

}  // namespace sorvanel
