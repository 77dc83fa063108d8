#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/asasParrilla.h"
#include "doubles/entornoDoble.h"
#include "doubles/formularioDoble.h"
#include "doubles/ventanaDoble.h"

namespace sorvanel {
namespace {

// A window of 1024 by 768 pixels; the bar takes the lowest 32.
constexpr float ANCHO = 15360;
constexpr float LIMITE = 11040;
constexpr float LADO = 360;
constexpr Rectangulo INICIAL{3840, 2880, 7680, 5520};

struct Banco {
    EntornoDoble e;
    SuperficieDoble lienzo;
    VentanaDoble ventana;
    FormularioDoble formulario;
    int refrescos = 0;
    std::unique_ptr<Parrilla> parrilla;
    AsasParrilla asas{formulario, [this] { ++refrescos; }};
    AsaDoble& xy = *formulario.asa(IdControl::imDrgXY);
    AsaDoble& wh = *formulario.asa(IdControl::imDrgWH);

    explicit Banco(const std::string& zona = "Posicion=0,25;0,25\r\nDimensiones=0,5;0,5\r\n") {
        e.ini("[RETICULA]\r\n" + zona);
        parrilla = std::make_unique<Parrilla>(e.com, e.pantalla());
        parrilla->definir(lienzo, ventana);
        asas.mostrar(*parrilla, ANCHO, LIMITE);
    }
    // The grid stands there, and the handles at its corners.
    void comprobar(const Rectangulo& zona) const {
        EXPECT_EQ((Rectangulo{parrilla->Left(), parrilla->Top(), parrilla->Width(), parrilla->Height()}), zona);
        EXPECT_EQ(xy.lugar, (Rectangulo{zona.x, zona.y, LADO, LADO}));
        EXPECT_EQ(wh.lugar, (Rectangulo{zona.derecha() - LADO, zona.abajo() - LADO, LADO, LADO}));
    }
};

TEST(AsasParrilla, cadaAsaTieneSusTopes) {
    const float derecha = INICIAL.derecha(), abajo = INICIAL.abajo();
    const struct {
        bool tamano;
        float dx, dy;
        Rectangulo zona;
    } casos[] = {{false, 150, -300, {3990, 2580, derecha - 3990, abajo - 2580}},
                 {false, -9999, -9999, {0, 0, derecha, abajo}},
                 {false, 99999, 0, {derecha - 2 * LADO, 2880, 2 * LADO, 5520}},
                 {false, 0, 99999, {3840, abajo - 2 * LADO, 7680, 2 * LADO}},
                 {true, 150, -300, {3840, 2880, 7830, 5220}},
                 {true, 99999, 99999, {3840, 2880, ANCHO - 3840, LIMITE - 2880}},
                 {true, -99999, -99999, {3840, 2880, 2 * LADO, 2 * LADO}}};
    for (const auto& c : casos) {
        SCOPED_TRACE(&c - casos);
        Banco b;
        (c.tamano ? b.wh : b.xy).arrastrar(c.dx, c.dy);
        b.comprobar(c.zona);
    }
}

// The handle of its size does not fit beside the other one, nor out of the window.
TEST(AsasParrilla, unaParrillaMinimaEnElBordeSeMueveYSeDimensiona) {
    const Rectangulo derecha{ANCHO - 150, 2880, 150, 5520}, abajo{3840, LIMITE - 150, 7680, 150};
    const struct {
        const char* ini;
        Rectangulo antes;
        Punto tamano;
        Rectangulo dimensionada;
        Punto posicion;
        Rectangulo movida;
    } casos[] = {{"Posicion=0,990234375;0,25\r\nDimensiones=0,009765625;0,5\r\n",
                  derecha,
                  {300, -300},
                  {derecha.x, 2880, 150, 5220},
                  {-600, 0},
                  {ANCHO - 750, 2880, 750, 5220}},
                 {"Posicion=0,25;0,9453125\r\nDimensiones=0,5;0,0135869565\r\n",
                  abajo,
                  {-300, 300},
                  {3840, abajo.y, 7380, 150},
                  {0, -600},
                  {3840, LIMITE - 750, 7380, 750}}};
    const auto cerca = [](const Rectangulo& a, const Rectangulo& b) {
        for (const float d : {a.x - b.x, a.y - b.y, a.ancho - b.ancho, a.alto - b.alto}) EXPECT_NEAR(d, 0, 1);
    };
    for (const auto& c : casos) {
        SCOPED_TRACE(&c - casos);
        Banco b(c.ini);
        const auto zona = [&] {
            return Rectangulo{b.parrilla->Left(), b.parrilla->Top(), b.parrilla->Width(), b.parrilla->Height()};
        };
        cerca(zona(), c.antes);
        b.wh.arrastrar(c.tamano.x, c.tamano.y);
        cerca(zona(), c.dimensionada);
        b.xy.arrastrar(c.posicion.x, c.posicion.y);
        cerca(zona(), c.movida);
    }
}

TEST(AsasParrilla, unMovimientoEsUnPintadoYUnGuardado) {
    Banco b;
    EXPECT_TRUE(b.xy.seVe && b.wh.seVe);
    b.comprobar(INICIAL);
    b.lienzo.olvidar();
    b.xy.arrastrar(1500, 1500);
    b.e.perfil.ocio(true);
    EXPECT_EQ(b.e.archivos.reemplazos, 1);
    EXPECT_EQ(b.refrescos, 1);
    const auto suelo = testing::HasSubstr("#808080");
    EXPECT_THAT(b.lienzo.lineas(), testing::Contains(suelo).Times(1)) << "the grid's ground is painted once";
    b.xy.quienOye->alMoverAsa({500, 500});
    EXPECT_EQ(b.refrescos, 1) << "not pressed: it does not move";
    b.wh.quienOye->alEmpujarAsa({15, -150});  // an arrow needs no press
    b.asas.ocultar();
    EXPECT_FALSE(b.xy.seVe || b.wh.seVe);
    b.xy.arrastrar(100, 100);
    b.comprobar({5340, 4380, 6195, 3870});
}

}  // namespace
}  // namespace sorvanel
