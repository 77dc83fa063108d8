#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/superficie.h"
#include "platform/win32/anfitrion.h"
#include "platform/win32/escala.h"
#include "platform/win32/lienzo.h"
#include "platform/win32/ventanaWin.h"

namespace sorvanel {

// A surface as a child window. All is painted on a picture in memory; the window only copies what
// was touched when the system wants it painted, so that many changes between two paints cost one
// copy, nothing flickers, and what was covered comes back.
class SuperficieWin final : public Superficie, private VentanaWin {
public:
    SuperficieWin(Anfitrion& anfitrion, IdControl id, int elemento);
    ~SuperficieWin() override;

    using VentanaWin::hwnd;
    // The form came to another scale: the same place in twips, a new picture.
    void alCambiarEscala();

    void colocar(const Rectangulo& lugar) override;
    Rectangulo lugar() const override { return m_lugar; }
    void mostrar(bool visible) override;
    bool visible() const override { return m_visible; }
    bool hasDC() const override;
    void colorFondo(Color color) override { m_fondo = color; }
    Color colorFondo() const override { return m_fondo; }
    void limpiar() override;
    void fuente(const Fuente& fuente) override;
    MedidaTexto medir(std::string_view texto) const override;
    void imprimir(float x, float y, std::string_view texto, Color color) override;
    void caja(const Rectangulo& zona, Color color) override;
    void poligono(std::span<const Punto> vertices, Color color) override;
    void desplazar(int pixeles) override;
    void leyenda(std::string_view texto) override;
    void refrescar() override;

private:
    LRESULT alMensaje(UINT mensaje, WPARAM w, LPARAM l) override;
    void alPintar();
    void volcar(HDC destino, const RECT& zona) const;
    LRESULT copiarLeyenda(WPARAM capacidad, LPARAM destino) const;
    // The pictured words were changed and somebody listens.
    void avisarLeyenda();
    void elegirFuente();
    const std::wstring& ancho(std::string_view texto) const;
    SIZE extension(const std::wstring& texto) const;
    RectPixel lugarPixeles() const { return m_anfitrion.escala().aPixeles(m_lugar); }

    Anfitrion& m_anfitrion;
    const ZonaRaton m_zona;
    Rectangulo m_lugar;
    bool m_visible = false;
    Color m_fondo = BLANCO;
    Deriva m_deriva;

    Fuente m_fuente;
    std::shared_ptr<FuenteWin> m_hecha;  // before the picture: it is deselected first
    Lienzo m_lienzo;
    Seleccion m_seleccion;

    std::string m_leyenda;
    bool m_leyendaNueva = false;
    // Kept between calls, so that a frame costs no memory.
    mutable std::wstring m_texto;
    std::vector<Punto> m_vertices;
};

}  // namespace sorvanel
