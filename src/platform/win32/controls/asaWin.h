#pragma once

#include <string>

#include "platform/formulario.h"
#include "platform/win32/base/ventanaWin.h"
#include "platform/win32/painting/anfitrion.h"

namespace sorvanel {

// A small square on the form that is dragged. It holds the mouse while it is pressed, and is reached
// by Tab; then the arrow keys push it by one design pixel, with Ctrl by ten.
class AsaWin final : public Asa, private VentanaWin {
public:
    AsaWin(Anfitrion& anfitrion, IdControl id);
    ~AsaWin() override;

    using VentanaWin::hwnd;
    void alCambiarEscala();

    void colocar(const Rectangulo& lugar) override;
    void mostrar(bool visible) override;
    void nombre(const std::string& texto) override;
    void oyente(OyenteAsa* oyente) override { m_oyente = oyente; }

private:
    LRESULT alMensaje(UINT mensaje, WPARAM w, LPARAM l) override;
    LRESULT alRaton(UINT mensaje, LPARAM l);
    bool alTeclear(WPARAM tecla);
    void alPintar();
    void soltar();
    Punto dentro(LPARAM posicion) const;

    Anfitrion& m_anfitrion;
    OyenteAsa* m_oyente = nullptr;
    Rectangulo m_lugar;
    bool m_visible = false;
    bool m_arrastrando = false;
};

}  // namespace sorvanel
