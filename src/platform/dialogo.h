#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>

#include "platform/arrastrable.h"
#include "platform/monitor.h"
#include "platform/ventana.h"

namespace sorvanel {

class OyenteDialogo {
public:
    virtual ~OyenteDialogo() = default;
    // The user wants it closed (Alt+F4; Escape where what has the keyboard leaves that alone; the close image's owner
    // calls it too).
    virtual void alPedirCierre() = 0;
    // The user has pressed its ground, or a label or frame without a handler, and begun to drag.
    virtual void alArrastrar() = 0;
};

// A borderless window owned by the main one, modeless. Enter does nothing by itself.
class FormularioDialogo : public Ventana, public Arrastrable {
public:
    virtual void oyente(OyenteDialogo* oyente) = 0;
    virtual void titulo(const std::string& texto) = 0;  // for the system and screen readers
    // Size of the window, twips of the monitor that it stands on.
    virtual void tamano(float ancho, float alto) = 0;
    // Twips to one device pixel, from now on, for all that stands on it. It keeps its place.
    virtual void escala(float twipsPorPixelX, float twipsPorPixelY) = 0;
    // In the middle of that part of the virtual screen, device pixels.
    virtual void centrarEn(const RectPixel& zona) = 0;
    virtual void ocultar() = 0;
    // The picture that everything stands on, as large as the window. It is no window of its own.
    virtual Superficie& fondo() = 0;
    // The keyboard goes through the controls in that order; what is not named keeps its place behind.
    virtual void ordenTeclado(std::span<Control* const> orden) = 0;
};

// The dialogs that the system has. Each disables all windows of the program while it is open.
struct FuenteElegida {
    std::string nombre;
    float puntos = 0;
    bool negrita = false;
    bool cursiva = false;
    bool subrayado = false;
};

class DialogosSistema {
public:
    virtual ~DialogosSistema() = default;
    static constexpr std::size_t COLORES_A_MANO = 16;
    // Nothing when the user cancels; the initial colour can be chosen like any other. Besides the system's colours
    // those lie at hand, no more than so many of them.
    virtual std::optional<Color> elegirColor(Color inicial, std::span<const Color> aMano) = 0;
    // False when the user cancels; then nothing is changed.
    virtual bool elegirFuente(FuenteElegida& fuente) = 0;
};

class FabricaDialogos {
public:
    virtual ~FabricaDialogos() = default;
    // Hidden, owned by the main window.
    virtual std::unique_ptr<FormularioDialogo> crearDialogo(IdControl id) = 0;
    virtual DialogosSistema& sistema() = 0;
};

}  // namespace sorvanel
