#include <gmock/gmock.h>

#include <algorithm>

#include "harness/configuracion.h"
#include "harness/emisorUDP.h"
#include "harness/esperar.h"
#include "harness/fotografia.h"
#include "harness/programa.h"
#include "harness/trama.h"
#include "platform/color.h"

namespace sorvanel::pruebas {
namespace {

constexpr Color FONDO = rgb(0x10, 0x20, 0x30);
constexpr Color TINTA = rgb(0xE0, 0xD0, 0x00);
constexpr const char* SIN_DATOS = "-----";

// One display over the whole grid, in colours that occur nowhere else on the screen.
Configuracion unVisor(int puerto, const std::string& formato = "0000.0") {
    Configuracion configuracion;
    configuracion.reticula(1, 1).visor(puerto, 1, 1);
    configuracion.clave("Etiqueta", "Tolva").clave("formatoPeso", formato).clave("anchoEtiqueta", "2");
    configuracion.clave("fondoPeso", "302010").clave("textoPeso", "00D0E0");
    return configuracion;
}

Fotografia retrato(const Programa& programa) {
    return Fotografia(programa.control(IdControl::picRep, 1));
}

TEST(Pesos, LasTramasSeLeenEnElVisor) {
    struct Caso {
        const char* formato;
        const char* datos;
        const char* esperado;
    };
    const Caso casos[] = {
        {"####0", "XNZ+00012345\r", "12"},
        {"0000.0", "XNZ+00012345\r", "0012.3"},
        {"####0", "EXX+00000000\r", "0 E"},
        {"0000.0", "XCD+01234567\r", "1234.6"},
        // Only the plus sign is a weight; what comes after is.
        {"####0", "XXX-00012345\rXXX+00077000\r", "77"},
        {"####0", "XXX+0001234\rXXX+00078000\r", "78"},
        {"####0", "XXX+00001000\rXXX+00002000\r", "2"},
    };
    EmisorUDP indicador;
    for (const Caso& caso : casos) {
        SCOPED_TRACE(std::string(caso.formato) + " " + caso.datos);
        const int puerto = puertosLibres();
        Programa programa(unVisor(puerto, caso.formato));
        programa.arrancar();
        ASSERT_TRUE(programa.esperarVisible(IdControl::botPau));
        indicador.enviar(puerto, caso.datos);
        EXPECT_TRUE(programa.esperarTexto(IdControl::picRep, 1, caso.esperado)) << programa.texto(IdControl::picRep, 1);
        EXPECT_EQ(programa.texto(IdControl::picCap, 1), "Tolva");
        EXPECT_TRUE(programa.terminar());
    }
}

TEST(Pesos, UnaTramaPartidaEnDosDatagramasEsUna) {
    const int puerto = puertosLibres();
    Programa programa(unVisor(puerto));
    programa.arrancar();
    ASSERT_TRUE(programa.esperarVisible(IdControl::botPau));
    EmisorUDP indicador;
    indicador.enviar(puerto, "XXX+000");
    indicador.enviar(puerto, "42500\r");
    EXPECT_TRUE(programa.esperarTexto(IdControl::picRep, 1, "0042.5")) << programa.texto(IdControl::picRep, 1);
    EXPECT_TRUE(programa.terminar());
}

TEST(Pesos, LasCifrasSeVenEnSusColores) {
    const int puerto = puertosLibres();
    Programa programa(unVisor(puerto));
    programa.arrancar();
    ASSERT_TRUE(programa.esperarVisible(IdControl::botPau));
    EmisorUDP indicador;
    indicador.enviar(puerto, trama(1'234'500));
    ASSERT_TRUE(programa.esperarTexto(IdControl::picRep, 1, "1234.5"));
    // As large as the cell allows: a good part of it is ink.
    EXPECT_TRUE(esperar([&] {
        const Fotografia foto = retrato(programa);
        return foto.cuantos(TINTA) > foto.ancho() * foto.alto() / 50;
    }));
    const Fotografia antes = retrato(programa);
    EXPECT_GT(antes.cuantos(FONDO), antes.ancho() * antes.alto() / 2);
    indicador.enviar(puerto, trama(1'111'100));
    ASSERT_TRUE(programa.esperarTexto(IdControl::picRep, 1, "1111.1"));
    EXPECT_TRUE(esperar([&] { return retrato(programa).cuantos(TINTA) < antes.cuantos(TINTA) * 9 / 10; }));
    EXPECT_TRUE(programa.terminar());
}

TEST(Pesos, ElSilencioSonCincoRayasRojas) {
    const int puerto = puertosLibres();
    Programa programa(unVisor(puerto));
    programa.arrancar();
    ASSERT_TRUE(programa.esperarVisible(IdControl::botPau));
    EmisorUDP indicador;
    indicador.enviar(puerto, trama(5000));
    ASSERT_TRUE(programa.esperarTexto(IdControl::picRep, 1, "0005.0"));
    ASSERT_TRUE(programa.esperarTexto(IdControl::picRep, 1, SIN_DATOS)) << programa.texto(IdControl::picRep, 1);
    std::vector<int> rayas;
    EXPECT_TRUE(esperar([&] {
        const Fotografia foto = retrato(programa);
        rayas = foto.tramos(foto.alto() / 2, ROJO);
        return rayas.size() == 5 && std::all_of(rayas.begin(), rayas.end(), [&](int una) {
                   return std::abs(una - rayas.front()) <= 1;  // twips do not fall on whole pixels
               });
    })) << testing::PrintToString(rayas);
    const Fotografia foto = retrato(programa);
    // From a quarter of the height to three quarters, and no digit left.
    EXPECT_THAT(foto.tramos(foto.alto() / 4 - 3, ROJO), testing::IsEmpty());
    EXPECT_THAT(foto.tramos(foto.alto() / 4 + 3, ROJO), testing::SizeIs(5));
    EXPECT_THAT(foto.tramos(foto.alto() * 3 / 4 - 3, ROJO), testing::SizeIs(5));
    EXPECT_THAT(foto.tramos(foto.alto() * 3 / 4 + 3, ROJO), testing::IsEmpty());
    EXPECT_EQ(foto.cuantos(TINTA), 0);
    // The same weight once more is news after a silence.
    indicador.enviar(puerto, trama(5000));
    EXPECT_TRUE(programa.esperarTexto(IdControl::picRep, 1, "0005.0"));
    EXPECT_TRUE(programa.terminar());
}

}  // namespace
}  // namespace sorvanel::pruebas
