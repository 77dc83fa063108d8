#include <gtest/gtest.h>

#include "doubles/entornoDoble.h"
#include "doubles/superficieDoble.h"
#include "doubles/ventanaDoble.h"
#include "grid/parrilla.h"

namespace sorvanel {
namespace {

// The double's monitor: 1024 by 768 pixels at 15 twips.
constexpr float ANCHO = 15360;
constexpr float ALTO = 11520;
constexpr float ALTO_UTIL = ALTO - 480;

Rectangulo zona(const Parrilla& p) {
    return {p.Left(), p.Top(), p.Width(), p.Height()};
}

TEST(Parrilla, sinSeccionTieneLosValoresDeOmision) {
    EntornoDoble e;
    const Parrilla p(e.entorno);
    EXPECT_EQ(zona(p), (Rectangulo{0, 0, ANCHO, ALTO_UTIL}));
    EXPECT_EQ(p.filas(), 4);
    EXPECT_EQ(p.columnas(), 1);
    EXPECT_EQ(p.gruesoHorizontal(), 4);
    EXPECT_EQ(p.gruesoVertical(), 4);
    EXPECT_EQ(p.colorReticula(), NEGRO);
    EXPECT_EQ(p.colorFondo(), 0x808080);
    EXPECT_EQ(p.colorAplicacion(), BLANCO);
    EXPECT_EQ(e.ini(), "") << "loading must not write";
}

TEST(Parrilla, leeLoQueElArchivoTiene) {
    struct Caso {
        const char* linea;
        int filas, columnas, horizontal, vertical;
        Color aplicacion;
        Rectangulo zona;
    };
    const Rectangulo toda{0, 0, ANCHO, ALTO_UTIL};
    const Caso casos[] = {
        {"FilasColumnas=3x7", 3, 7, 4, 4, BLANCO, toda},
        {"FilasColumnas=9x0", 8, 1, 4, 4, BLANCO, toda},
        {"FilasColumnas=10x2", 4, 1, 4, 4, BLANCO, toda},
        {"FilasColumnas=3X7", 4, 1, 4, 4, BLANCO, toda},
        {"FilasColumnas= 3x7 ", 3, 7, 4, 4, BLANCO, toda},
        {"gruesoHorizontal=99\r\ngruesoVertical=-1", 4, 1, 32, 0, BLANCO, toda},
        {"gruesoHorizontal=tres", 4, 1, 4, 4, BLANCO, toda},
        {"colorAplicacion=TRANSPARENTE", 4, 1, 4, 4, -1, toda},
        {"colorAplicacion=tran", 4, 1, 4, 4, -1, toda},
        {"colorAplicacion=0000FF", 4, 1, 4, 4, ROJO, toda},
        {"Posicion=0,5;0.25\r\nDimensiones=0,5;0,5", 4, 1, 4, 4, BLANCO, {7680, 2880, 7680, 5520}},
        {"Posicion=0,5;0,5", 4, 1, 4, 4, BLANCO, {7680, 5760, 7680, 5760}},  // the size clamped to the screen
        {"Posicion=2;-3", 4, 1, 4, 4, BLANCO, {ANCHO, 0, 0, ALTO_UTIL}},
        {"Posicion=1e300;nada\r\nDimensiones=;", 4, 1, 4, 4, BLANCO, {ANCHO, 0, 0, ALTO_UTIL}},
        {"Dimensiones=-1;-1", 4, 1, 4, 4, BLANCO, {0, 0, 0, 0}},
    };
    for (const Caso& c : casos) {
        EntornoDoble e;
        e.ini(std::string("[RETICULA]\r\n") + c.linea + "\r\n");
        const Parrilla p(e.entorno);
        EXPECT_EQ(p.filas(), c.filas) << c.linea;
        EXPECT_EQ(p.columnas(), c.columnas) << c.linea;
        EXPECT_EQ(p.gruesoHorizontal(), c.horizontal) << c.linea;
        EXPECT_EQ(p.gruesoVertical(), c.vertical) << c.linea;
        EXPECT_EQ(p.colorAplicacion(), c.aplicacion) << c.linea;
        EXPECT_EQ(zona(p), c.zona) << c.linea;
    }
}

TEST(Parrilla, cadaCambioSeGuardaEnLaFormaDelArchivo) {
    EntornoDoble e;
    SuperficieDoble lienzo;
    VentanaDoble ventana;
    Parrilla p(e.entorno);
    ASSERT_TRUE(p.definir(lienzo, ventana));
    p.filas(3);
    p.filas(9);
    p.filas(0);
    p.columnas(2);
    p.gruesoVertical(40);
    p.gruesoHorizontal(-4);
    p.colorFondo(ROJO);
    p.colorAplicacion(Parrilla::TRANSPARENTE);
    p.Left(ANCHO / 4);
    p.Top(ALTO / 4);
    p.Width(ANCHO / 2);
    p.Height(ALTO_UTIL / 2);
    EXPECT_EQ(e.ini(),
              "[RETICULA]\r\nPosicion=0,250000;0,250000\r\nDimensiones=0,500000;0,500000\r\nFilasColumnas=3x2\r\n"
              "gruesoHorizontal=0\r\ngruesoVertical=32\r\ncolorReticula=000000\r\ncolorFondo=0000FF\r\n"
              "colorAplicacion=Transparente\r\n");
}

TEST(Parrilla, losBordesSeMuevenSoloDentroDeLaPantalla) {
    EntornoDoble e;
    Parrilla p(e.entorno);
    p.Left(1000);
    EXPECT_EQ(p.Left() + p.Width(), ANCHO) << "the right edge stays";
    p.Top(600);
    EXPECT_EQ(p.Top() + p.Height(), ALTO_UTIL) << "the lower edge stays";
    const Rectangulo antes = zona(p);
    for (const float malo : {-1.0F, 1e30F, std::numeric_limits<float>::quiet_NaN()}) {
        p.Left(malo);
        p.Top(malo);
        p.Width(malo);
        p.Height(malo);
        EXPECT_EQ(zona(p), antes) << malo;
    }
    p.Width(ANCHO - 1000 + 1);
    EXPECT_EQ(zona(p), antes);
    p.Width(ANCHO - 1000);
    p.Height(ALTO - 600);  // over the button bar: the full height is allowed
    EXPECT_EQ(zona(p), (Rectangulo{1000, 600, ANCHO - 1000, ALTO - 600}));
}

TEST(Parrilla, lasCeldasYLasLineasLlenanLaZona) {
    EntornoDoble e;
    e.ini("[RETICULA]\r\nFilasColumnas=2x3\r\ngruesoVertical=2\r\ngruesoHorizontal=1\r\ncolorReticula=0000FF\r\n");
    SuperficieDoble lienzo;
    VentanaDoble ventana;
    Parrilla p(e.entorno);
    EXPECT_FALSE(p.getCell(1, 1)) << "nothing to paint on yet";
    p.definir(lienzo, ventana);
    const float ancho = (ANCHO - 4 * 30) / 3;
    const float alto = (ALTO_UTIL - 3 * 15) / 2;
    EXPECT_EQ(p.getCell(1, 1), (Rectangulo{30, 15, ancho, alto}));
    EXPECT_EQ(p.getCell(2, 3), (Rectangulo{30 + 2 * (ancho + 30), 15 + alto + 15, ancho, alto}));
    EXPECT_FLOAT_EQ(p.getCell(2, 3)->derecha() + 30, ANCHO);
    EXPECT_FLOAT_EQ(p.getCell(2, 3)->abajo() + 15, ALTO_UTIL);
    for (const auto& [f, c] : {std::pair{0, 1}, {1, 0}, {3, 1}, {1, 4}, {-1, -1}}) {
        EXPECT_FALSE(p.getCell(static_cast<std::int16_t>(f), static_cast<std::int16_t>(c)));
    }
    EXPECT_EQ(p.Dimensiones(2, 3, 1, 2), (Rectangulo{30 + ancho + 30, 15, 2 * ancho + 30, 2 * alto + 15}));
    EXPECT_FALSE(p.Dimensiones(1, 1, 3, 1));

    p.pintarReticula();
    EXPECT_EQ(lienzo.lineas(),
              (std::vector<std::string>{
                  "colorFondo #FFFFFF", "limpiar #FFFFFF", "caja 0 0 15360 11040 #808080", "caja 0 0 30 11040 #FF0000",
                  "caja 5110 0 30 11040 #FF0000", "caja 10220 0 30 11040 #FF0000", "caja 15330 0 30 11040 #FF0000",
                  "caja 0 0 15360 15 #FF0000", "caja 0 5512.5 15360 15 #FF0000", "caja 0 11025 15360 15 #FF0000"}));
    lienzo.olvidar();
    p.fondoCelda(NEGRO, 1, 1);
    p.fondoCelda(NEGRO, 9, 1);
    EXPECT_EQ(lienzo.lineas(), std::vector<std::string>{"caja 30 15 5080 5497.5 #000000"});
}

TEST(Parrilla, unaAplicacionTransparenteDejaLaZonaYLaFranja) {
    EntornoDoble e;
    e.ini("[RETICULA]\r\nPosicion=0,25;0,25\r\nDimensiones=0,5;0,5\r\ncolorAplicacion=transparente\r\n");
    SuperficieDoble lienzo;
    VentanaDoble ventana;
    Parrilla p(e.entorno);
    p.definir(lienzo, ventana);
    p.pintarReticula();
    EXPECT_EQ(ventana.zonas, (std::vector<RectPixel>{{256, 192, 768, 560}, {0, 736, 1024, 768}}));
    ventana.franja = {0, 10000, 15360, 1520};
    p.darForma();
    EXPECT_EQ(ventana.zonas[1], (RectPixel{0, 667, 1024, 768}));
    p.colorAplicacion(NEGRO);
    p.pintarReticula();
    EXPECT_EQ(ventana.zonas, (std::vector<RectPixel>{{0, 0, 1024, 768}})) << "whole again";
    const int antes = ventana.recortes;
    p.indefinir();
    p.darForma();
    EXPECT_EQ(ventana.recortes, antes);
}

TEST(Parrilla, sinLineasLasCeldasSeTocanYNoSePintaNinguna) {
    EntornoDoble e;
    e.ini("[RETICULA]\r\nFilasColumnas=1x2\r\ngruesoVertical=0\r\ngruesoHorizontal=0\r\n");
    SuperficieDoble lienzo;
    VentanaDoble ventana;
    Parrilla p(e.entorno);
    p.definir(lienzo, ventana);
    EXPECT_EQ(p.getCell(1, 1)->derecha(), p.getCell(1, 2)->x);
    EXPECT_EQ(p.getCell(1, 2)->derecha(), ANCHO);
    p.pintarReticula();
    EXPECT_EQ(lienzo.lineas().back(), "caja 0 0 15360 11040 #808080");
}

TEST(Parrilla, sinContextoDeDispositivoNoPintaNada) {
    EntornoDoble e;
    SuperficieDoble lienzo;
    VentanaDoble ventana;
    lienzo.conDC(false);
    Parrilla p(e.entorno);
    EXPECT_FALSE(p.definir(lienzo, ventana));
    EXPECT_FALSE(p.definida());
    lienzo.conDC(true);
    EXPECT_TRUE(p.definir(lienzo, ventana));
    lienzo.conDC(false);
    lienzo.olvidar();
    p.pintarReticula();
    p.Left(100);
    EXPECT_FALSE(p.getCell(1, 1));
    EXPECT_TRUE(lienzo.lineas().empty());
}

TEST(Parrilla, sinMonitorLasFraccionesDelArchivoQuedan) {
    EntornoDoble e;
    e.ini("[RETICULA]\r\nPosicion=0,100000;0,200000\r\nDimensiones=0,500000;0,600000\r\n");
    e.monitores.lista.clear();
    SuperficieDoble lienzo;
    VentanaDoble ventana;
    Parrilla p(e.entorno);
    p.definir(lienzo, ventana);
    p.filas(2);
    p.pintarReticula();
    EXPECT_EQ(e.valor("RETICULA", "Posicion"), "0,100000;0,200000");
    EXPECT_EQ(e.valor("RETICULA", "Dimensiones"), "0,500000;0,600000");
    EXPECT_EQ(e.valor("RETICULA", "FilasColumnas"), "2x1");
    e.monitores.lista = MonitoresDoble().lista;
    p.recargar();
    EXPECT_EQ(p.Left(), 1536);
    EXPECT_EQ(p.filas(), 2);
}

}  // namespace
}  // namespace sorvanel
