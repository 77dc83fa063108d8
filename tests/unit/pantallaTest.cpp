#include <gtest/gtest.h>

#include "doubles/entornoDoble.h"
#include "doubles/ventanaDoble.h"
#include "platform/geometria.h"
#include "screen/oScreen.h"
#include "screen/transpa.h"

namespace sorvanel {
namespace {

const Monitor PRIMARIO{{0, 0, 1280, 800}, {0, 0, 1280, 760}, true, "A", 15, 15};
const Monitor IZQUIERDO{{-1024, 0, 0, 768}, {-1024, 0, 0, 768}, false, "B", 15, 15};
const Monitor GRANDE{{1280, -200, 5120, 1960}, {1280, -200, 5120, 1960}, false, "C", 7.5F, 7.5F};

TEST(oScreen, daElRectanguloDelMonitorEnUsoEnTwipsDeSuEscala) {
    struct Caso {
        const char* ini;
        std::int16_t actual;
        Rectangulo esperado;
    };
    const Rectangulo primario{0, 0, 19200, 12000};
    const Rectangulo izquierdo{-15360, 0, 15360, 11520};
    const Rectangulo grande{9600, -1500, 28800, 16200};
    const Caso casos[] = {
        {"", 2, primario},  // nothing stored: the primary one
        {"[MONITORES]\r\nEnUso=1\r\n", 1, izquierdo},
        {"[MONITORES]\r\nEnUso=3\r\n", 3, grande},
        {"[MONITORES]\r\nEnUso=4\r\n", 4, primario},  // unplugged: kept, not used
        {"[MONITORES]\r\nEnUso=0\r\n", 0, primario},
        {"[MONITORES]\r\nEnUso=-1\r\n", -1, primario},
        {"[MONITORES]\r\nEnUso=uno\r\n", 2, primario},
        {"[MONITORES]\r\nEnUso=70000\r\n", 2, primario},
    };
    for (const Caso& caso : casos) {
        EntornoDoble e;
        e.monitores.lista = {IZQUIERDO, PRIMARIO, GRANDE};
        e.ini(caso.ini);
        const oScreen pantalla(e.entorno);
        EXPECT_EQ(pantalla.numMonitores(), 3);
        EXPECT_EQ(pantalla.monitorActual(), caso.actual) << caso.ini;
        EXPECT_EQ((Rectangulo{pantalla.X0(), pantalla.Y0(), pantalla.Width(), pantalla.Height()}), caso.esperado)
            << caso.ini;
        EXPECT_EQ(e.ini(), caso.ini) << "reading must not rewrite the file";
    }
}

TEST(oScreen, guardaLaEleccionYCambiaLaImposiblePorElPrimario) {
    EntornoDoble e;
    e.monitores.lista = {IZQUIERDO, PRIMARIO};
    oScreen pantalla(e.entorno);
    for (const auto& [pedido, guardado] : {std::pair{1, "1"}, {2, "2"}, {0, "2"}, {3, "2"}, {-5, "2"}}) {
        pantalla.monitorActual(static_cast<std::int16_t>(pedido));
        EXPECT_EQ(e.valor("MONITORES", "EnUso"), guardado) << pedido;
        EXPECT_EQ(std::to_string(pantalla.monitorActual()), guardado) << pedido;
    }
}

TEST(oScreen, sinMonitoresTodoEsCero) {
    EntornoDoble e;
    e.monitores.lista.clear();
    oScreen pantalla(e.entorno);
    pantalla.monitorActual(1);
    EXPECT_EQ(pantalla.monitorActual(), 0);
    EXPECT_EQ((Rectangulo{pantalla.X0(), pantalla.Y0(), pantalla.Width(), pantalla.Height()}), Rectangulo{});
}

TEST(Transpa, redondeaLasMitadesAlParYNoTocaLaFormaSinRectangulos) {
    VentanaDoble ventana;
    const Monitor alMedio{{-1024, 0, 0, 768}, {}, false, "", 10, 10};
    const Transpa transpa(alMedio);
    transpa.transparentar(ventana.forma(), std::nullopt);
    EXPECT_EQ(ventana.zonas, (std::vector<RectPixel>{{0, 0, 1024, 768}}));
    transpa.transparentar(ventana.forma(), std::span<const Rectangulo>{});
    EXPECT_EQ(ventana.recortes, 1) << "an empty list is not an absent one";
    const std::vector<Rectangulo> zonas{{5, 15, 20, 30}, {24, 26, 0, 10}};
    transpa.transparentar(ventana.forma(), zonas);
    EXPECT_EQ(ventana.zonas, (std::vector<RectPixel>{{0, 2, 2, 4}, {2, 3, 2, 4}}));
}

}  // namespace
}  // namespace sorvanel
