#include <gtest/gtest.h>

#include "doubles/entornoDoble.h"
#include "links/frWsk.h"

namespace sorvanel {
namespace {

// Notes what the link hands over; takes what begins with "+".
class SuscriptorDoble : public SuscriptorPeso {
public:
    std::int32_t puerto = 3001;
    std::vector<std::string> lineas;
    std::function<void()> alRecibir;

    std::int32_t port() const override { return puerto; }
    std::int16_t modoBulk() const override { return 4; }
    bool frWsk_refrescoPeso(std::string_view linea) override {
        lineas.emplace_back(linea);
        if (alRecibir) alRecibir();
        return linea.starts_with("+");
    }
    bool mmTCP_refrescoPeso(std::int16_t, std::int16_t, std::string_view) override { return false; }
};

using Lineas = std::vector<std::string>;

struct Banco {
    EntornoDoble e;
    SuscriptorDoble visor;
    frWsk enlace{e.fabrica, e.reloj};

    ZocaloDoble& zocalo() { return *e.fabrica.ultimoZocalo(); }
    bool arrancar() { return enlace.enMarcha(visor); }
};

TEST(frWsk, cortaEnElRetornoDeCarroComoSeaQueLlegue) {
    const std::string todo = "+uno\r+dos\r\r\n+tres\r+cola";
    const Lineas esperado = {"+uno", "+dos", "", "\n+tres"};
    for (std::size_t i = 0; i <= todo.size(); ++i) {
        for (std::size_t j = i; j <= todo.size(); ++j) {
            Banco b;
            ASSERT_TRUE(b.arrancar());
            b.zocalo().llegar(todo.substr(0, i));
            b.zocalo().llegar(todo.substr(i, j - i));
            b.zocalo().llegar(todo.substr(j));
            ASSERT_EQ(b.visor.lineas, esperado) << i << " " << j;
            b.zocalo().llegar("\r");
            ASSERT_EQ(b.visor.lineas.back(), "+cola");
        }
    }
}

TEST(frWsk, elSilencioSeAvisaCadaSegundoYCadaLineaLoAplaza) {
    Banco b;
    ASSERT_TRUE(b.arrancar());
    b.e.reloj.avanzar(999);
    EXPECT_TRUE(b.visor.lineas.empty());
    b.e.reloj.avanzar(1);
    EXPECT_EQ(b.visor.lineas, Lineas{""});
    b.e.reloj.avanzar(2000);
    EXPECT_EQ(b.visor.lineas.size(), 3U);
    b.visor.lineas.clear();
    for (int i = 0; i < 5; ++i) {
        b.e.reloj.avanzar(900);
        b.zocalo().llegar("+x\r");
    }
    EXPECT_EQ(b.visor.lineas, Lineas(5, "+x"));
    b.e.reloj.avanzar(900);
    b.zocalo().llegar("sin fin");  // a piece is no line: the silence goes on
    b.e.reloj.avanzar(100);
    EXPECT_EQ(b.visor.lineas.back(), "");
}

TEST(frWsk, loQueElVisorNoTomaNoEsSenalDeVidaMasDeDiezSegundos) {
    Banco b;
    ASSERT_TRUE(b.arrancar());
    b.zocalo().llegar("+x\r");
    for (int i = 0; i < 99; ++i) {
        b.e.reloj.avanzar(100);
        b.zocalo().llegar("-basura\r");
    }
    EXPECT_EQ(std::count(b.visor.lineas.begin(), b.visor.lineas.end(), ""), 0);
    b.e.reloj.avanzar(100);
    b.zocalo().llegar("-basura\r");
    EXPECT_EQ(b.visor.lineas.back(), "") << "ten seconds without a reading";
    b.visor.lineas.clear();
    b.zocalo().llegar("+y\r-basura\r");
    EXPECT_EQ(b.visor.lineas, (Lineas{"+y", "-basura"})) << "a reading starts the ten seconds anew";
}

TEST(frWsk, elPuertoOcupadoEImposibleSeNiegan) {
    for (const std::int32_t puerto : {3001, 65536, 99999, -1}) {
        Banco b;
        b.e.fabrica.red().ocupados = {3001};
        b.visor.puerto = puerto;
        EXPECT_FALSE(b.arrancar()) << puerto;
        b.e.reloj.avanzar(5000);
        EXPECT_TRUE(b.visor.lineas.empty()) << "nothing was started";
    }
}

TEST(frWsk, cerrarDejaElPuertoLibreYDescartaLoQueLlegue) {
    Banco b;
    ASSERT_TRUE(b.arrancar());
    EXPECT_EQ(b.zocalo().puerto(), 3001);
    b.zocalo().llegar("+media");
    b.enlace.Cerrar();
    EXPECT_NE(b.zocalo().puerto(), 3001);
    b.zocalo().llegar("+tarde\r");
    b.e.reloj.avanzar(5000);
    EXPECT_TRUE(b.visor.lineas.empty());
    ASSERT_TRUE(b.arrancar());
    b.zocalo().llegar("+nueva\r");
    EXPECT_EQ(b.visor.lineas, Lineas{"+nueva"}) << "no half line of the last time";
}

TEST(frWsk, elVisorPuedeCerrarMientrasRecibe) {
    Banco b;
    ASSERT_TRUE(b.arrancar());
    b.visor.alRecibir = [&] { b.enlace.Cerrar(); };
    b.zocalo().llegar("+uno\r+dos\r+tres\r");
    b.e.reloj.avanzar(3000);
    EXPECT_EQ(b.visor.lineas, Lineas{"+uno"});
}

TEST(frWsk, sinRetornoDeCarroElBuferNoCreceSinFin) {
    Banco b;
    ASSERT_TRUE(b.arrancar());
    for (std::size_t i = 0; i < frWsk::BUFER_MAXIMO; i += 1024) b.zocalo().llegar(std::string(1024, '+'));
    b.zocalo().llegar("+viva\r");
    EXPECT_EQ(b.visor.lineas, Lineas{"+viva"});
}

}  // namespace
}  // namespace sorvanel
