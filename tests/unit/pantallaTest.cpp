#include <gtest/gtest.h>

#include "doubles/entornoDoble.h"
#include "doubles/ventanaDoble.h"
#include "screen/oScreen.h"
#include "screen/transpa.h"

namespace sorvanel {
namespace {

const Monitor IZQUIERDO{{-1024, 0, 0, 768}, {-1024, 0, 0, 768}, false, "A", 15, 15};
const Monitor PRIMARIO{{0, 0, 1280, 800}, {0, 0, 1280, 760}, true, "B", 15, 15};
const Monitor GRANDE{{1280, -200, 5120, 1960}, {1280, -200, 5120, 1960}, false, "C", 7.5F, 7.5F};

Rectangulo zona(const oScreen& p) {
    return {p.X0(), p.Y0(), p.Width(), p.Height()};
}

TEST(oScreen, daElRectanguloDelMonitorEnUsoEnTwipsDeSuEscala) {
    const Rectangulo primario{0, 0, 19200, 12000};
    const std::tuple<const char*, std::int16_t, Rectangulo> casos[] = {
        {"", 2, primario},  // nothing stored: the primary one
        {"1", 1, {-15360, 0, 15360, 11520}},
        {"3", 3, {9600, -1500, 28800, 16200}},
        {"4", 4, primario},  // unplugged: kept, not used
        {"0", 0, primario},
        {"-1", -1, primario},
        {"uno", 2, primario},
        {"70000", 2, primario},
        {"5", 5, primario},  // one whose data cannot be had: it takes no number from those after it
        {"6", 6, {-15360, 0, 15360, 11520}}};
    for (const auto& [enUso, actual, esperado] : casos) {
        EntornoDoble e;
        e.monitores.lista = {IZQUIERDO, PRIMARIO, GRANDE};
        if (actual > 4) e.monitores.lista.insert(e.monitores.lista.end(), {GRANDE, Monitor{}, IZQUIERDO});
        const std::string ini = std::string("[MONITORES]\r\nEnUso=") + enUso + "\r\n";
        e.ini(ini);
        const oScreen pantalla(e.com, e.monitores);
        EXPECT_EQ(pantalla.monitorActual(), actual) << enUso;
        EXPECT_EQ(zona(pantalla), esperado) << enUso;
        EXPECT_EQ(e.ini(), ini) << "reading must not rewrite the file";
    }
}

TEST(oScreen, guardaLaEleccionYCambiaLaImposiblePorElPrimario) {
    EntornoDoble e;
    e.monitores.lista = {IZQUIERDO, PRIMARIO, Monitor{}};
    oScreen pantalla(e.com, e.monitores);
    EXPECT_EQ(pantalla.numMonitores(), 3);
    for (const auto pedido : std::initializer_list<std::int16_t>{1, 2, 0, 3, 4, -5}) {
        EXPECT_EQ(pantalla.monitorActual(pedido), pedido == 1 || pedido == 2);
        EXPECT_EQ(pantalla.monitorActual(), pedido == 1 ? 1 : 2) << pedido;
        EXPECT_EQ(e.valor("MONITORES", "EnUso"), pedido == 1 ? "1" : "2") << pedido;
    }
    EntornoDoble sinMonitores;
    sinMonitores.monitores.lista.clear();
    oScreen ninguna(sinMonitores.com, sinMonitores.monitores);
    ninguna.monitorActual(1);
    EXPECT_EQ(ninguna.monitorActual(), 0);
    EXPECT_EQ(zona(ninguna), Rectangulo{});
}

TEST(Transpa, redondeaLasMitadesAlParYNoTocaLaFormaSinRectangulos) {
    VentanaDoble ventana;
    const Transpa transpa(Monitor{{-1024, 0, 0, 768}, {}, false, "", 10, 10});
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
