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

struct Banco {
    EntornoDoble e;
    SuperficieDoble lienzo;
    VentanaDoble ventana;
    FormularioDoble formulario;
    int refrescos = 0;
    std::unique_ptr<Parrilla> parrilla;
    AsasParrilla asas{formulario, [this] { ++refrescos; }};

    Banco() {
        e.ini("[RETICULA]\r\nPosicion=0,25;0,25\r\nDimensiones=0,5;0,5\r\n");
        parrilla = std::make_unique<Parrilla>(e.entorno);
        parrilla->definir(lienzo, ventana);
        asas.mostrar(*parrilla, ANCHO, LIMITE);
    }
    AsaDoble& xy() { return *formulario.asa(IdControl::imDrgXY); }
    AsaDoble& wh() { return *formulario.asa(IdControl::imDrgWH); }
    Rectangulo zona() const { return {parrilla->Left(), parrilla->Top(), parrilla->Width(), parrilla->Height()}; }
};

TEST(AsasParrilla, semuestranEnLasEsquinas) {
    Banco b;
    EXPECT_TRUE(b.xy().visible && b.wh().visible);
    EXPECT_EQ(b.xy().lugar, (Rectangulo{3840, 2880, LADO, LADO}));
    EXPECT_EQ(b.wh().lugar, (Rectangulo{11520 - LADO, 8400 - LADO, LADO, LADO}));
    b.asas.ocultar();
    EXPECT_FALSE(b.xy().visible || b.wh().visible);
    b.xy().arrastrar(100, 100);
    EXPECT_EQ(b.zona(), (Rectangulo{3840, 2880, 7680, 5520})) << "hidden handles move nothing";
}

TEST(AsasParrilla, cadaAsaTieneSusTopes) {
    struct Caso {
        bool tamano;
        float dx, dy;
        Rectangulo zona;
    };
    const Rectangulo inicial{3840, 2880, 7680, 5520};
    const float derecha = inicial.derecha(), abajo = inicial.abajo();
    const Caso casos[] = {
        {false, 150, -300, {3990, 2580, derecha - 3990, abajo - 2580}},
        {false, -9999, -9999, {0, 0, derecha, abajo}},
        {false, 99999, 0, {derecha - 2 * LADO, 2880, 2 * LADO, 5520}},
        {false, 0, 99999, {3840, abajo - 2 * LADO, 7680, 2 * LADO}},
        {true, 150, -300, {3840, 2880, 7830, 5220}},
        {true, 99999, 99999, {3840, 2880, ANCHO - 3840, LIMITE - 2880}},
        {true, -99999, -99999, {3840, 2880, 2 * LADO, 2 * LADO}},
    };
    for (const Caso& c : casos) {
        Banco b;
        (c.tamano ? b.wh() : b.xy()).arrastrar(c.dx, c.dy);
        EXPECT_EQ(b.zona(), c.zona) << c.tamano << " " << c.dx << " " << c.dy;
        EXPECT_EQ(b.xy().lugar, (Rectangulo{c.zona.x, c.zona.y, LADO, LADO}));
        EXPECT_EQ(b.wh().lugar, (Rectangulo{c.zona.derecha() - LADO, c.zona.abajo() - LADO, LADO, LADO}));
    }
}

TEST(AsasParrilla, unMovimientoEsUnPintadoYUnGuardado) {
    Banco b;
    b.lienzo.olvidar();
    b.e.perfil.ocio(true);
    const int antes = b.e.archivos.reemplazos;
    b.xy().arrastrar(1500, 1500);
    b.e.perfil.ocio(true);
    EXPECT_EQ(b.e.archivos.reemplazos, antes + 1);
    EXPECT_EQ(b.refrescos, 1);
    const auto& lineas = b.lienzo.lineas();
    EXPECT_EQ(std::count_if(lineas.begin(), lineas.end(),
                            [](const std::string& l) { return l.find("#808080") != std::string::npos; }),
              1)
        << "the grid's ground is painted once";
    b.xy().quienOye->alMoverAsa({500, 500});
    EXPECT_EQ(b.refrescos, 1) << "not pressed: it does not move";
}

TEST(AsasParrilla, lasFlechasMuevenElAsaQueTieneElFoco) {
    Banco b;
    b.wh().quienOye->alEmpujarAsa({15, 0});
    b.xy().quienOye->alEmpujarAsa({0, -150});
    EXPECT_EQ(b.zona(), (Rectangulo{3840, 2730, 7695, 5670}));
    EXPECT_EQ(b.e.valor("RETICULA", "Posicion"), "0,250000;0,236979");
}

}  // namespace
}  // namespace sorvanel
