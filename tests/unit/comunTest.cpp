#include <gtest/gtest.h>

#include "doubles/entornoDoble.h"

namespace sorvanel {
namespace {

TEST(Comun, PrepararSinSeccionDejaLaQueHabia) {
    EntornoDoble e;
    AccesorINI accesor = e.com.abrir("VISOR_1");
    e.com.prepararINI(accesor, "");
    accesor.escribir("Port", "7");
    EXPECT_EQ(e.ini(), "[VISOR_1]\r\nPort=7\r\n");
}

TEST(Comun, ColoresComoTexto) {
    const std::pair<std::string, Color> casos[] = {{"0000FF", 255}, {"FF0000", 0xFF0000}, {"030201", rgb(1, 2, 3)}};
    for (const auto& [texto, color] : casos) {
        EXPECT_EQ(comun::rgb2Long(texto), color);
        EXPECT_EQ(comun::Long2RGB(color), texto);
    }
    EXPECT_EQ(comun::Long2RGB(-1), "FFFFFF") << "what must never be stored still gives six digits";
    EXPECT_EQ(comun::rgb2Long("ff"), 255);
    EXPECT_EQ(comun::rgb2Long("12G4"), 0x12);
    EXPECT_EQ(comun::rgb2Long("0000000000FF"), 255);
    for (const char* nada : {"", "rojo", "0x12", "-1", "123456789"}) EXPECT_EQ(comun::rgb2Long(nada), 0) << nada;
}

}  // namespace
}  // namespace sorvanel
