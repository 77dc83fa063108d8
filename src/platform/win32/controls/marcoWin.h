#pragma once

#include "platform/win32/controls/controlWin.h"

namespace sorvanel {

// A ground of its own beneath other controls. What lies above it asks for its picture.
class MarcoWin final : public ControlDe<Marco> {
public:
    MarcoWin(AnfitrionDialogo& anfitrion, IdControl id, int elemento);
    ~MarcoWin() override;

    bool esMarco() const override { return true; }
    void alCambiarEscala() override;
    // What of it lies in that part of the window, onto a picture of that part.
    void pintarSobre(Lienzo& lienzo, const RECT& parte) const;

    void colorFondo(Color color) override;
    void colocar(const Rectangulo& nuevo) override;
    void mostrar(bool visible) override;
    void alPulsar(std::function<void()> accion) override { alActuar(std::move(accion)); }

private:
    LRESULT atender(UINT mensaje, WPARAM w, LPARAM l) override;
    void ponerNombre(const std::wstring& texto) override;

    Color m_fondo = -1;
};

}  // namespace sorvanel
