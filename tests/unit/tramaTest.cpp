#include "display/trama.h"

#include <gtest/gtest.h>

namespace sorvanel {
namespace {

TEST(TramaTest, LeeBanderasYPeso) {
    const std::map<std::string, Trama> casos = {
        {"XXX+00000000", {false, false, false, 0}},     {"EXX+00000000", {true, false, false, 0}},
        {"XCX+00012345", {false, true, false, 12345}},  {"XXD+01234567", {false, false, true, 1234567}},
        {"ECD+99999999", {true, true, true, 99999999}}, {"ENZ+10000001", {true, false, false, 10000001}}};
    for (const auto& [texto, esperada] : casos) EXPECT_EQ(leerTrama(texto), esperada) << texto;
}

// One wrong character at any place is enough: every byte is tried at each of the twelve.
TEST(TramaTest, CadaLugarAdmiteSoloLoSuyoYElLargoEsExacto) {
    const std::string buena = "ECD+12345678";
    const std::string admitidas[] = {"EX", "CNX", "DZX", "+"};
    for (std::size_t lugar = 0; lugar < buena.size(); ++lugar) {
        const std::string validas = lugar < 4 ? admitidas[lugar] : "0123456789";
        for (int byte = 0; byte < 256; ++byte) {
            std::string texto = buena;
            texto[lugar] = static_cast<char>(byte);
            EXPECT_EQ(leerTrama(texto).has_value(), validas.find(texto[lugar]) != std::string::npos) << lugar << byte;
        }
        EXPECT_FALSE(leerTrama(std::string_view(buena).substr(0, lugar)));
    }
    for (const std::string& larga : {buena + "6", buena + '\0', " " + buena}) EXPECT_FALSE(leerTrama(larga)) << larga;
}

}  // namespace
}  // namespace sorvanel
