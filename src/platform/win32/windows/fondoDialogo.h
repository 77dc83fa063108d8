#pragma once

#include "platform/win32/controls/anfitrionDialogo.h"
#include "platform/win32/painting/pinturaWin.h"

namespace sorvanel {

// The picture on which a tool window's controls stand. The window shows it.
class FondoDialogo final : public PinturaWin {
public:
    explicit FondoDialogo(AnfitrionDialogo& dialogo) : PinturaWin(dialogo), m_dialogo(dialogo) {}

    void dimensionar(float ancho, float alto) { situarPintura({0, 0, ancho, alto}); }
    void alCambiarEscala() { cambiarEscalaPintura(); }

    // That part of it to the corner of another device context.
    void copiar(HDC destino, const RECT& parte) const {
        BitBlt(destino, 0, 0, parte.right - parte.left, parte.bottom - parte.top, lienzo().dc(), parte.left, parte.top,
               SRCCOPY);
    }

    // Its size and place are the window's.
    void colocar(const Rectangulo&) override {}
    void mostrar(bool) override {}
    bool visible() const override { return true; }
    void leyenda(std::string_view) override {}
    void sugerencia(std::string_view) override {}
    void refrescar() override { UpdateWindow(m_dialogo.ventana()); }

private:
    void tocar(const RECT* zona) override { m_dialogo.tocarDetras(zona ? *zona : lienzo().entero()); }

    AnfitrionDialogo& m_dialogo;
};

}  // namespace sorvanel
