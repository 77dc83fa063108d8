#include "grid/parrilla.h"

#include <gtest/gtest.h>

#include "doubles/entornoDoble.h"
#include "doubles/superficieDoble.h"
#include "doubles/ventanaDoble.h"

namespace sorvanel {
namespace {

// The double's monitor: 1024 by 768 pixels at 15 twips.
constexpr float ANCHO = 15360;
constexpr float ALTO = 11520;
constexpr float ALTO_UTIL = ALTO - 480;

// The grid of such a section.
struct Banco {
    EntornoDoble e;
    SuperficieDoble lienzo;
    VentanaDoble ventana;
    std::unique_ptr<Parrilla> p;

    explicit Banco(const std::string& seccion = "", bool definida = true) {
        e.ini(seccion.empty() ? "" : "[RETICULA]\r\n" + seccion + "\r\n");
        p = std::make_unique<Parrilla>(e.com, e.pantalla());
        if (definida) p->definir(lienzo, ventana);
    }
    Rectangulo zona() const { return {p->Left(), p->Top(), p->Width(), p->Height()}; }
};

TEST(Parrilla, leeLoQueElArchivoTiene) {
    const Rectangulo toda{0, 0, ANCHO, ALTO_UTIL};
    const auto leido = [](const Parrilla& p) {
        return std::vector<int>{p.filas(), p.columnas(), p.gruesoHorizontal(), p.gruesoVertical(), p.colorAplicacion()};
    };
    const std::map<std::string, std::vector<int>> casos = {
        {"", {4, 1, 4, 4, BLANCO}},
        {"FilasColumnas=3x7", {3, 7, 4, 4, BLANCO}},
        {"FilasColumnas=9x0", {8, 1, 4, 4, BLANCO}},
        {"FilasColumnas=10x2", {4, 1, 4, 4, BLANCO}},
        {"FilasColumnas=3X7", {4, 1, 4, 4, BLANCO}},
        {"gruesoHorizontal=99\r\ngruesoVertical=-1", {4, 1, 32, 0, BLANCO}},
        {"gruesoHorizontal=tres\r\ncolorAplicacion=TRANSPARENTE", {4, 1, 4, 4, -1}},
        {"colorAplicacion=tran", {4, 1, 4, 4, -1}},
        {"colorAplicacion=0000FF", {4, 1, 4, 4, ROJO}}};
    for (const auto& [linea, esperado] : casos) {
        Banco b(linea, false);
        EXPECT_EQ(leido(*b.p), esperado) << linea;
        EXPECT_EQ(b.zona(), toda);
    }
    const std::map<std::string, Rectangulo> zonas = {
        {"Posicion=0,5;0.25\r\nDimensiones=0,5;0,5", {7680, 2880, 7680, 5520}},
        {"Posicion=0,5;0,5", {7680, 5760, 7680, 5760}},  // the size clamped to the screen
        {"Posicion=2;-3", {ANCHO, 0, 0, ALTO_UTIL}},
        {"Posicion=1e300;nada\r\nDimensiones=;", {ANCHO, 0, 0, ALTO_UTIL}},
        {"Dimensiones=-1;-1", {0, 0, 0, 0}}};
    for (const auto& [linea, zona] : zonas) EXPECT_EQ(Banco(linea).zona(), zona) << linea;
}

TEST(Parrilla, cadaCambioSeGuardaEnLaFormaDelArchivo) {
    Banco b;
    EXPECT_EQ(b.e.ini(), "") << "loading must not write";
    Parrilla& p = *b.p;
    for (const auto n : std::initializer_list<std::int16_t>{3, 9, 0}) EXPECT_EQ(p.filas(n), n == 3);
    for (const auto n : std::initializer_list<std::int16_t>{2, 9, 0}) EXPECT_EQ(p.columnas(n), n == 2);
    EXPECT_FALSE(p.gruesoVertical(40) || p.gruesoHorizontal(-4)) << "clamped";
    p.colorFondo(ROJO);
    p.colorAplicacion(Parrilla::TRANSPARENTE);
    p.Left(ANCHO / 4);
    p.Top(ALTO / 4);
    p.Width(ANCHO / 2);
    p.Height(ALTO_UTIL / 2);
    EXPECT_EQ(b.e.ini(),
              "[RETICULA]\r\nPosicion=0,250000;0,250000\r\nDimensiones=0,500000;0,500000\r\nFilasColumnas=3x2\r\n"
              "gruesoHorizontal=0\r\ngruesoVertical=32\r\ncolorReticula=000000\r\ncolorFondo=0000FF\r\n"
              "colorAplicacion=Transparente\r\n");
}

TEST(Parrilla, losBordesSeMuevenSoloDentroDeLaPantalla) {
    Banco b;
    Parrilla& p = *b.p;
    p.Left(1000);
    p.Top(600);
    const Rectangulo antes{1000, 600, ANCHO - 1000, ALTO_UTIL - 600};
    EXPECT_EQ(b.zona(), antes) << "the right and the lower edge stay";
    for (const float malo : {-1.0F, 1e30F, std::numeric_limits<float>::quiet_NaN()}) {
        p.Left(malo);
        p.Top(malo);
        p.Width(malo);
        p.Height(malo);
        EXPECT_EQ(b.zona(), antes) << malo;
    }
    p.Width(ANCHO - 1000 + 1);
    EXPECT_EQ(b.zona(), antes);
    p.Height(ALTO - 600);  // over the button bar: the full height is allowed
    EXPECT_EQ(b.zona(), (Rectangulo{1000, 600, ANCHO - 1000, ALTO - 600}));
}

TEST(Parrilla, lasCeldasYLasLineasLlenanLaZona) {
    Banco b("FilasColumnas=2x3\r\ngruesoVertical=2\r\ngruesoHorizontal=1\r\ncolorReticula=0000FF");
    const Parrilla& p = *b.p;
    const float ancho = (ANCHO - 4 * 30) / 3, alto = (ALTO_UTIL - 3 * 15) / 2;
    EXPECT_EQ(p.getCell(1, 1), (Rectangulo{30, 15, ancho, alto}));
    EXPECT_EQ(p.getCell(2, 3), (Rectangulo{30 + 2 * (ancho + 30), 15 + alto + 15, ancho, alto}));
    for (const auto n : std::initializer_list<std::int16_t>{-1, 0, 4})
        EXPECT_FALSE(p.getCell(1, n) || p.getCell(n, 1)) << n;
    EXPECT_FALSE(p.getCell(3, 1));
    EXPECT_EQ(p.Dimensiones(2, 3, 1, 2), (Rectangulo{30 + ancho + 30, 15, 2 * ancho + 30, 2 * alto + 15}));
    EXPECT_FALSE(p.Dimensiones(1, 1, 3, 1));
    b.p->pintarReticula();
    EXPECT_EQ(b.lienzo.lineas(),
              (std::vector<std::string>{
                  "colorFondo #FFFFFF", "limpiar #FFFFFF", "caja 0 0 15360 11040 #808080", "caja 0 0 30 11040 #FF0000",
                  "caja 5110 0 30 11040 #FF0000", "caja 10220 0 30 11040 #FF0000", "caja 15330 0 30 11040 #FF0000",
                  "caja 0 0 15360 15 #FF0000", "caja 0 5512.5 15360 15 #FF0000", "caja 0 11025 15360 15 #FF0000"}));
    b.lienzo.olvidar();
    b.p->fondoCelda(NEGRO, 1, 1);
    b.p->fondoCelda(NEGRO, 9, 1);
    EXPECT_EQ(b.lienzo.lineas(), std::vector<std::string>{"caja 30 15 5080 5497.5 #000000"});

    Banco sinLineas("FilasColumnas=1x2\r\ngruesoVertical=0\r\ngruesoHorizontal=0");
    EXPECT_EQ(sinLineas.p->getCell(1, 1)->derecha(), sinLineas.p->getCell(1, 2)->x);
    sinLineas.p->pintarReticula();
    EXPECT_EQ(sinLineas.lienzo.lineas().back(), "caja 0 0 15360 11040 #808080");
}

TEST(Parrilla, masPequenaQueSusLineasNoPintaFueraDeSi) {
    // 5 by 4 pixels, and lines of 8.
    Banco b(
        "Posicion=0,5;0,5\r\nDimensiones=0,0048828125;0,0054347826\r\nFilasColumnas=1x2\r\n"
        "gruesoVertical=8\r\ngruesoHorizontal=8\r\ncolorReticula=0000FF");
    b.p->pintarReticula();
    std::vector<std::string> pintado(5, "caja 7680 5760 75 60 #FF0000");
    pintado.insert(pintado.begin(), {"colorFondo #FFFFFF", "limpiar #FFFFFF", "caja 7680 5760 75 60 #808080"});
    EXPECT_EQ(b.lienzo.lineas(), pintado);
}

TEST(Parrilla, sinContextoDeDispositivoNoPintaNada) {
    Banco b("", false);
    b.lienzo.conDC(false);
    EXPECT_FALSE(b.p->definir(b.lienzo, b.ventana) || b.p->definida());
    b.lienzo.conDC(true);
    EXPECT_TRUE(b.p->definir(b.lienzo, b.ventana));
    b.lienzo.conDC(false);
    for (int vez = 0; vez < 2; ++vez) {
        b.p->pintarReticula();
        EXPECT_FALSE(b.p->getCell(1, 1));
        EXPECT_TRUE(b.lienzo.lineas().empty() && b.ventana.recortes == 0);
        b.lienzo.conDC(true);
        b.p->indefinir();
    }
}

TEST(Parrilla, sinMonitorLasFraccionesDelArchivoQuedan) {
    EntornoDoble e;
    e.ini("[RETICULA]\r\nPosicion=0,100000;0,200000\r\nDimensiones=0,500000;0,600000\r\n");
    e.monitores.lista.clear();
    Parrilla p(e.com, e.pantalla());
    p.filas(2);
    EXPECT_EQ(e.ini().find("[RETICULA]\r\nPosicion=0,100000;0,200000\r\nDimensiones=0,500000;0,600000\r\n"), 0U);
    e.monitores.lista = MonitoresDoble().lista;
    p.recargar(e.pantalla());
    EXPECT_EQ(p.Left(), 1536);
    EXPECT_EQ(p.filas(), 2);
}

// At a scale whose twips are no whole number, "screen less x, and x again" is not always the screen.
TEST(Parrilla, unBordeEnElDeLaPantallaNoSeRechazaPorUnRedondeo) {
    EntornoDoble e;
    e.monitores.lista = {{{0, 0, 3440, 1440}, {0, 0, 3440, 1440}, true, "A", 60.0F / 7, 60.0F / 7}};
    Parrilla p(e.com, e.pantalla());
    const float ancho = p.Left() + p.Width();
    for (int pixel = 1; pixel < 3440; ++pixel) {
        const float x = static_cast<float>(pixel) * 60 / 7;
        p.mover({x, 0, ancho - x, 3000});
        ASSERT_EQ(p.Left(), x) << pixel;
        ASSERT_LE(p.Width(), ancho - x);
    }
}

}  // namespace
}  // namespace sorvanel
