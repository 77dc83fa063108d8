#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/superficie.h"
#include "platform/win32/base/escala.h"
#include "platform/win32/painting/fuentesWin.h"
#include "platform/win32/painting/lienzo.h"

namespace sorvanel {

// The picture of a surface in memory, and all painting on it. How it comes to the screen is up to
// the derived class, which is told what was touched.
class PinturaWin : public Superficie {
public:
    PinturaWin(const PinturaWin&) = delete;
    PinturaWin& operator=(const PinturaWin&) = delete;

    Rectangulo lugar() const override { return m_lugar; }
    bool hasDC() const override { return m_lienzo.utilizable(); }
    void colorFondo(Color color) override { m_fondo = color; }
    Color colorFondo() const override { return m_fondo; }
    void limpiar() override;
    void fuente(const Fuente& fuente) override;
    MedidaTexto medir(std::string_view texto) const override;
    void imprimir(float x, float y, std::string_view texto, Color color) override;
    void caja(const Rectangulo& zona, Color color) override;
    void poligono(std::span<const Punto> vertices, Color color) override;
    void imprimirEn(const Rectangulo& zona, float x, float y, std::string_view texto, Color color) override;
    void desplazar(float twips) override;
    float pixel() const override { return m_escala.x.aTwips(1); }

    const Lienzo& lienzo() const { return m_lienzo; }
    // Copies that part of the picture to the same place of another device context.
    void volcar(HDC destino, const RECT& zona) const;

protected:
    // Both are the window's, which outlives it.
    PinturaWin(const Escala& escala, FuentesWin& fuentes);

    // The zone, device pixels, is no longer what it was; null for all of it.
    virtual void tocar(const RECT* zona) = 0;

    // Another place or, at the same, another scale: the picture is kept only where its size in twips is
    // the same and the scale too.
    void situarPintura(const Rectangulo& lugar);
    void cambiarEscalaPintura();
    RectPixel lugarPixeles() const { return m_escala.aPixeles(m_lugar); }

private:
    void elegirFuente();
    const std::wstring& ancho(std::string_view texto) const;
    // `recorte` in device pixels; null for all of the surface.
    void trazarTexto(float x, float y, const std::wstring& letras, Color color, const RECT* recorte);

    const Escala& m_escala;
    FuentesWin& m_fuentes;
    Rectangulo m_lugar;
    Color m_fondo = BLANCO;

    Fuente m_fuente;
    std::shared_ptr<FuenteWin> m_hecha;  // before the picture: it is deselected first
    Lienzo m_lienzo;
    Seleccion m_seleccion;

    // Kept between calls, so that a frame costs no memory.
    mutable std::wstring m_texto;
    std::vector<Punto> m_vertices;
};

}  // namespace sorvanel
