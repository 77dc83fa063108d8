#include <gmock/gmock.h>

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
    Rectangulo zona() const { return {parrilla->Left(), parrilla->Top(), parrilla->Width(), parrilla->Height()}; }
    // The grid stands there, and the handles at its corners.
    void comprobar(const Rectangulo& donde) const {
        EXPECT_EQ(zona(), donde);
        EXPECT_EQ(xy.lugar, (Rectangulo{donde.x, donde.y, LADO, LADO}));
        EXPECT_EQ(wh.lugar, (Rectangulo{donde.derecha() - LADO, donde.abajo() - LADO, LADO, LADO}));
    }
};

TEST(AsasParrilla, cadaAsaTieneSusTopes) {
    const float derecha = INICIAL.derecha(), abajo = INICIAL.abajo();
    // A tiny grid at the edge: the handle of its size does not fit beside the other one, nor out of the window.
    const std::string normal = "Posicion=0,25;0,25\r\nDimensiones=0,5;0,5\r\n",
                      estrecha = "Posicion=0,990234375;0,25\r\nDimensiones=0,009765625;0,5\r\n",
                      baja = "Posicion=0,25;0,9453125\r\nDimensiones=0,5;0,0135869565\r\n";
    const struct {
        const std::string& ini;
        bool tamano;
        float dx, dy;
        Rectangulo zona;
    } casos[] = {{normal, false, 150, -300, {3990, 2580, derecha - 3990, abajo - 2580}},
                 {normal, false, -9999, -9999, {0, 0, derecha, abajo}},
                 {normal, false, 99999, 0, {derecha - 2 * LADO, 2880, 2 * LADO, 5520}},
                 {normal, false, 0, 99999, {3840, abajo - 2 * LADO, 7680, 2 * LADO}},
                 {normal, true, 150, -300, {3840, 2880, 7830, 5220}},
                 {normal, true, 99999, 99999, {3840, 2880, ANCHO - 3840, LIMITE - 2880}},
                 {normal, true, -99999, -99999, {3840, 2880, 2 * LADO, 2 * LADO}},
                 {estrecha, true, 300, -300, {ANCHO - 150, 2880, 150, 5220}},
                 {estrecha, false, -600, 0, {ANCHO - 750, 2880, 750, 5520}},
                 {baja, true, -300, 300, {3840, LIMITE - 150, 7380, 150}},
                 {baja, false, 0, -600, {3840, LIMITE - 750, 7680, 750}}};
    for (const auto& c : casos) {
        SCOPED_TRACE(&c - casos);
        Banco b(c.ini);
        (c.tamano ? b.wh : b.xy).arrastrar(c.dx, c.dy);
        const Rectangulo zona = b.zona();
        for (const float d : {zona.x - c.zona.x, zona.y - c.zona.y, zona.ancho - c.zona.ancho, zona.alto - c.zona.alto})
            EXPECT_NEAR(d, 0, 1);
    }
}

TEST(AsasParrilla, unDobleClicTomaTodoElSitio) {
    Banco b;
    b.xy.dobleClic();
    b.comprobar({0, 0, INICIAL.derecha(), INICIAL.abajo()});
    b.wh.dobleClic();
    b.comprobar({0, 0, ANCHO, LIMITE});
    EXPECT_FALSE(b.formulario.superficie(IdControl::lbMedida)->visible());
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
    const SuperficieDoble& medida = *b.formulario.superficie(IdControl::lbMedida);
    EXPECT_FALSE(medida.visible()) << "released";
    const auto suelo = testing::HasSubstr("#808080");
    EXPECT_THAT(b.lienzo.lineas(), testing::Contains(suelo).Times(1)) << "the grid's ground is painted once";
    b.xy.quienOye->alMoverAsa({500, 500});
    EXPECT_EQ(b.refrescos, 1) << "not pressed: it does not move";
    b.wh.quienOye->alEmpujarAsa({15, -150});  // an arrow needs no press
    EXPECT_TRUE(medida.visible());
    EXPECT_EQ(medida.textoLeyenda(), "Ancho 40,3 % · Alto 35,1 %");
    b.xy.quienOye->alPulsarAsa({10, 10});
    EXPECT_EQ(medida.textoLeyenda(), "Izquierda 34,8 % · Arriba 39,7 %");
    b.asas.ocultar();
    EXPECT_FALSE(medida.visible());
    EXPECT_FALSE(b.xy.seVe || b.wh.seVe);
    b.xy.arrastrar(100, 100);
    b.comprobar({5340, 4380, 6195, 3870});
}

}  // namespace
}  // namespace sorvanel
