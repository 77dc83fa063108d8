#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/superficie.h"
#include "platform/win32/base/escala.h"
#include "platform/win32/painting/fuentesWin.h"
#include "platform/win32/painting/lienzo.h"
#include "platform/win32/painting/listaPintura.h"

namespace sorvanel {

// What a surface shows, and all painting on it. How it comes to the screen is up to the derived class, which is told
// what was touched. Only what scrolls keeps a picture in memory; of the rest the steps that paint it are kept.
class PinturaWin : public Superficie {
public:
    PinturaWin(const PinturaWin&) = delete;
    PinturaWin& operator=(const PinturaWin&) = delete;

    Rectangulo lugar() const override { return m_lugar; }
    bool hasDC() const override { return m_borrador.dc() != nullptr; }
    void colorFondo(Color color) override { m_fondo = color; }
    Color colorFondo() const override { return m_fondo; }
    void limpiar() override;
    void fuente(const Fuente& fuente) override;
    MedidaTexto medir(std::string_view texto) const override;
    void imprimir(float x, float y, std::string_view texto, Color color) override;
    void caja(const Rectangulo& zona, Color color) override;
    void poligono(std::span<const Punto> vertices, Color color) override;
    void imprimirEn(const Rectangulo& zona, float x, float y, std::string_view texto, Color color) override;
    void cambiarTexto(const Rectangulo& zona, Color fondo, float x, float y, std::string_view texto,
                      Color color) override;
    void desplazar(float twips) override;
    float pixel() const override { return m_escala.x.aTwips(1); }

    RECT entero() const;
    // That part of what is shown, at the same place of another picture, or of another device context.
    void pintar(Lienzo& destino, const RECT& zona) const;
    void volcar(HDC destino, const RECT& zona, UtilesDC& utiles) const;

protected:
    // All are the window's, which outlives it. On the scratch picture things are put together before they are copied.
    PinturaWin(const Escala& escala, FuentesWin& fuentes, Lienzo& borrador);

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
    RECT aZona(const Rectangulo& zona) const;
    ListaPintura::Texto linea(float x, float y, std::string_view texto, Color color) const;
    void imprimirEn(const RECT& donde, const ListaPintura::Texto& texto);
    void guardarMapa();
    void acotarLista();
    void volcarTrozo(HDC destino, const RECT& trozo) const;

    const Escala& m_escala;
    FuentesWin& m_fuentes;
    Lienzo& m_borrador;
    Rectangulo m_lugar;
    Color m_fondo = BLANCO;

    Fuente m_fuente;
    std::shared_ptr<FuenteWin> m_hecha;
    ListaPintura m_lista;
    std::unique_ptr<Lienzo> m_mapa;  // instead of the list, once it has scrolled

    // Kept between calls, so that a frame costs no memory.
    mutable std::wstring m_texto;
    std::vector<Punto> m_vertices;
};

}  // namespace sorvanel
