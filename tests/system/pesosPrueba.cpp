#include <gmock/gmock.h>

#include <algorithm>

#include "harness/pantalla.h"
#include "harness/programa.h"
#include "harness/red.h"
#include "platform/color.h"

namespace sorvanel::pruebas {
namespace {

constexpr Color FONDO = rgb(0x10, 0x20, 0x30);
constexpr Color TINTA = rgb(0xE0, 0xD0, 0x00);

// One display over the whole grid, in colours that occur nowhere else on the screen.
class Pesos : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(programa.marchar()); }
    Fotografia retrato() const { return Fotografia(programa.control(IdControl::picRep, 1)); }

    const int puerto = puertosLibres();
    Programa programa{Configuracion()
                          .reticula(1, 1)
                          .visor(puerto, 1, 1)
                          .clave("Etiqueta", "Tolva")
                          .clave("formatoPeso", "0000.0")
                          .clave("fondoPeso", "302010")
                          .clave("textoPeso", "00D0E0")};
    EmisorUDP indicador;
};

TEST_F(Pesos, LasCifrasYLaMarcaSeVenEnSusColores) {
    EXPECT_EQ(programa.texto(IdControl::picCap, 1), "Tolva");
    indicador.enviar(puerto, "XXX+0123");  // in two datagrams
    indicador.enviar(puerto, "4500\r");
    ASSERT_TRUE(programa.lee(1, "1234.5"));
    // As large as the cell allows: a good part of it is ink.
    EXPECT_TRUE(esperar([&] {
        const Fotografia foto = retrato();
        return foto.cuantos(TINTA) > foto.ancho() * foto.alto() / 50;
    }));
    const Fotografia antes = retrato();
    EXPECT_GT(antes.cuantos(FONDO), antes.ancho() * antes.alto() / 2);
    indicador.enviar(puerto, trama(1'111'100));
    ASSERT_TRUE(programa.lee(1, "1111.1"));
    EXPECT_TRUE(esperar([&] { return retrato().cuantos(TINTA) < antes.cuantos(TINTA) * 9 / 10; }));
    indicador.enviar(puerto, trama(1'234'500, "EXX"));
    ASSERT_TRUE(programa.lee(1, "1234.5 E"));
    EXPECT_TRUE(esperar([&] { return retrato().cuantos(TINTA) > antes.cuantos(TINTA) * 11 / 10; }));
    for (const int peso : {1'284'700, 1'603'900, 5'603'880, 5'628'880, 9'999'900, 900, 1'003'500}) {
        const Fotografia ultima = retrato();
        indicador.enviar(puerto, trama(peso, "EXX"));
        EXPECT_TRUE(esperar([&] { return !(retrato() == ultima); }));
        const Fotografia cambiado = retrato();
        RedrawWindow(programa.control(IdControl::picRep, 1), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
        EXPECT_TRUE(retrato() == cambiado) << peso << ": painted whole it is the same";
    }
}

TEST_F(Pesos, ElSilencioSonCincoRayasRojas) {
    indicador.enviar(puerto, trama(5000));
    ASSERT_TRUE(programa.lee(1, "0005.0"));
    ASSERT_TRUE(programa.lee(1, "-----"));
    std::vector<int> rayas;
    EXPECT_TRUE(esperar([&] {
        const Fotografia foto = retrato();
        rayas = foto.tramos(foto.alto() / 2, ROJO);
        return rayas.size() == 5 && std::all_of(rayas.begin(), rayas.end(), [&](int una) {
                   return std::abs(una - rayas.front()) <= 1;  // twips do not fall on whole pixels
               });
    })) << testing::PrintToString(rayas);
    // From a quarter of the height to three quarters, and no digit left.
    const Fotografia foto = retrato();
    for (const auto& [alto, cuantas] : {std::pair{foto.alto() / 4 - 3, 0U},
                                        {foto.alto() / 4 + 3, 5U},
                                        {foto.alto() * 3 / 4 - 3, 5U},
                                        {foto.alto() * 3 / 4 + 3, 0U}})
        EXPECT_EQ(foto.tramos(alto, ROJO).size(), cuantas) << alto;
    EXPECT_EQ(foto.cuantos(TINTA), 0);
    // The same weight once more is news after a silence.
    indicador.enviar(puerto, trama(5000));
    EXPECT_TRUE(programa.lee(1, "0005.0"));
}

// All that comes here comes from 127.0.0.1.
TEST(Origen, SoloSeTomaLoQueVieneDeEl) {
    const int puerto = puertosLibres(2);
    Programa programa{Configuracion()
                          .reticula(1, 2)
                          .visor(puerto, 1, 1)
                          .clave("Origen", "127.0.0.1")
                          .visor(puerto + 1, 1, 2)
                          .clave("Origen", "127.0.0.2")};
    ASSERT_TRUE(programa.marchar());
    EmisorUDP indicador;
    EXPECT_TRUE(esperar([&] {
        for (const int cual : {puerto, puerto + 1}) indicador.enviar(cual, trama(5000));
        return programa.peso(1) == "5" && programa.peso(2) == "-----";
    }));
}

}  // namespace
}  // namespace sorvanel::pruebas
