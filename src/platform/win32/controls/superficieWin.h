#pragma once

#include <string>

#include "platform/win32/base/ventanaWin.h"
#include "platform/win32/controls/anfitrion.h"
#include "platform/win32/painting/pinturaWin.h"

namespace sorvanel {

// A surface as a child window. What was touched is put together in memory and copied to the window at the end of a
// batch, or when the system wants it painted: many changes cost one copy, and nothing flickers. There is no window
// before it is first seen; then all of it is copied at once.
class SuperficieWin final : public PinturaWin, private VentanaWin, private PorVolcar {
public:
    SuperficieWin(Anfitrion& anfitrion, IdControl id, int elemento);
    ~SuperficieWin() override;

    using VentanaWin::hwnd;
    int id() const { return m_id; }
    // Within its window, device pixels.
    RECT sitio() const { return aRECT(lugarPixeles()); }
    // The window came to another scale: the same place in twips, a new picture.
    void alCambiarEscala();

    void colocar(const Rectangulo& lugar) override;
    void mostrar(bool visible) override;
    bool visible() const override { return m_visible; }
    bool hasDC() const override;
    void leyenda(std::string_view texto) override;
    void sugerencia(std::string_view texto) override;
    void refrescar() override;

private:
    void tocar(const RECT* zona) override;
    void volcarPendiente() override;
    LRESULT alMensaje(UINT mensaje, WPARAM w, LPARAM l) override;
    void alPintar();
    // From its picture to the window.
    void copiar(const RECT& zona, UtilesDC& utiles);
    void crearVentana();
    void seguirLugar();
    LRESULT copiarLeyenda(WPARAM capacidad, LPARAM destino) const;
    // The pictured words were changed and somebody listens.
    void avisarLeyenda();

    Anfitrion& m_anfitrion;
    const int m_id;
    RECT m_pendiente{};  // painted since the last copy, within a batch
    bool m_anotada = false;
    DCVentana m_dc;
    UtilesDC m_utiles;  // of that
    bool m_visible = false;
    std::string m_leyenda;
    bool m_leyendaNueva = false;
    std::string m_sugerencia;
};

}  // namespace sorvanel
