#include "links/frWsk.h"

#include <gtest/gtest.h>

#include "doubles/entornoDoble.h"
#include "doubles/suscriptorDoble.h"

namespace sorvanel {
namespace {

using Lineas = std::vector<std::string>;

struct Banco {
    EntornoDoble e;
    SuscriptorDoble visor;
    frWsk enlace{e.fabrica, e.reloj};

    explicit Banco(std::int32_t puerto = 3001) {
        visor.puerto = puerto;
        visor.toma = [](std::string_view linea) { return linea.starts_with("+"); };
    }
    Lineas& lineas() { return visor.lineas; }
    bool arrancar() { return enlace.enMarcha(visor); }
    void llegar(const std::string& datos) { e.fabrica.ultimoZocalo()->llegar(datos); }
};

TEST(frWsk, cortaEnElRetornoDeCarroComoSeaQueLlegue) {
    const std::string todo = "+uno\r+dos\r\r\n+tres\r+cola";
    for (std::size_t i = 0; i <= todo.size(); ++i) {
        for (std::size_t j = i; j <= todo.size(); ++j) {
            Banco b;
            ASSERT_TRUE(b.arrancar());
            for (const auto& pieza : {todo.substr(0, i), todo.substr(i, j - i), todo.substr(j)}) b.llegar(pieza);
            ASSERT_EQ(b.lineas(), (Lineas{"+uno", "+dos", "", "\n+tres"})) << i << " " << j;
            b.llegar("\r");
            ASSERT_EQ(b.lineas().back(), "+cola");
        }
    }
}

TEST(frWsk, elSilencioSeAvisaCadaSegundoYCadaLineaLoAplaza) {
    Banco b;
    ASSERT_TRUE(b.arrancar());
    b.e.reloj.avanzar(999);
    EXPECT_EQ(b.lineas(), Lineas{});
    b.e.reloj.avanzar(2001);
    EXPECT_EQ(b.lineas(), Lineas(3, ""));
    b.lineas().clear();
    for (int i = 0; i < 5; ++i) {
        b.e.reloj.avanzar(900);
        b.llegar("+x\r");
    }
    EXPECT_EQ(b.lineas(), Lineas(5, "+x"));
    b.e.reloj.avanzar(900);
    b.llegar("sin fin");  // a piece is no line: the silence goes on
    b.e.reloj.avanzar(100);
    EXPECT_EQ(b.lineas().back(), "");
    b.llegar(" ya\r");
    EXPECT_EQ(b.lineas().back(), " ya") << "and the piece is dropped with it";
}

TEST(frWsk, loQueElVisorNoTomaNoEsSenalDeVidaMasDeTresSegundos) {
    Banco b;
    ASSERT_TRUE(b.arrancar());
    b.llegar("+x\r");
    const auto basura = [&] {
        b.e.reloj.avanzar(100);
        b.llegar("-basura\r");
    };
    for (int i = 0; i < 29; ++i) basura();
    EXPECT_EQ(std::count(b.lineas().begin(), b.lineas().end(), ""), 0);
    basura();
    EXPECT_EQ(b.lineas().back(), "") << "three seconds without a reading";
    b.lineas().clear();
    b.llegar("+y\r-basura\r");
    EXPECT_EQ(b.lineas(), (Lineas{"+y", "-basura"})) << "a reading starts them anew";
}

TEST(frWsk, unVisorQueFallaOyeLoQueSigueYElSilencio) {
    Banco b;
    b.visor.toma = [](std::string_view) -> bool { throw std::runtime_error("no font"); };
    ASSERT_TRUE(b.arrancar());
    b.llegar("+1\r+2\r");
    b.e.reloj.avanzar(1000);
    EXPECT_EQ(b.lineas(), (Lineas{"+1", "+2", ""}));
}

TEST(frWsk, elPuertoOcupadoEImposibleSeNiegan) {
    for (const std::int32_t puerto : {3001, 65536, -1}) {
        Banco b(puerto);
        b.e.fabrica.red().ocupados = {3001};
        EXPECT_FALSE(b.arrancar()) << puerto;
        b.e.reloj.avanzar(5000);
        EXPECT_EQ(b.lineas(), Lineas{}) << "nothing was started";
    }
}

TEST(frWsk, cerrarDejaElPuertoLibreYDescartaLoQueLlegue) {
    Banco b;
    ASSERT_TRUE(b.arrancar());
    EXPECT_NE(b.e.fabrica.enPuerto(3001), nullptr);
    b.llegar("+media");
    b.enlace.Cerrar();
    EXPECT_EQ(b.e.fabrica.enPuerto(3001), nullptr);
    ASSERT_TRUE(b.arrancar());
    b.visor.alRecibir = [&] { b.enlace.Cerrar(); };
    b.llegar("+nueva\r+dos\r");
    b.llegar("+tarde\r");
    b.e.reloj.avanzar(5000);
    EXPECT_EQ(b.lineas(), Lineas{"+nueva"}) << "no half line of the last time, and no more once closed";
}

TEST(frWsk, loQueNoVieneDeSuOrigenEsComoSiNoLlegara) {
    Banco b;
    b.visor.deQuien = 0xC0A80128;
    ASSERT_TRUE(b.arrancar());
    const auto llegarDe = [&](const char* quien, const std::string& datos, MotivoSilencio motivo) {
        b.e.fabrica.ultimoZocalo()->quien = quien;
        b.llegar(datos);
        EXPECT_EQ(b.enlace.motivo(b.visor), motivo) << datos;
    };
    llegarDe("192.168.1.40", "+dos", MotivoSilencio::callado);
    llegarDe("192.168.1.41", "+nada\r", MotivoSilencio::callado);
    llegarDe("192.168.1.40", " mitades\r", MotivoSilencio::callado);
    b.e.reloj.avanzar(900);
    llegarDe("192.168.1.41", "+viva\r", MotivoSilencio::callado);
    b.e.reloj.avanzar(100);
    EXPECT_EQ(b.lineas(), (Lineas{"+dos mitades", ""}));
    b.e.reloj.avanzar(frWsk::MEMORIA);
    llegarDe("192.168.1.41", "+", MotivoSilencio::otroEquipo);
    llegarDe("192.168.1.40", "basura", MotivoSilencio::callado);
}

TEST(frWsk, sinRetornoDeCarroElBuferNoCreceSinFin) {
    Banco b;
    ASSERT_TRUE(b.arrancar());
    for (std::size_t i = 0; i < frWsk::BUFER_MAXIMO; i += 1024) b.llegar(std::string(1024, '+'));
    b.llegar("+viva\r");
    EXPECT_EQ(b.lineas(), Lineas{"+viva"});
}

}  // namespace
}  // namespace sorvanel
