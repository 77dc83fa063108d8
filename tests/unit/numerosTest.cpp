#include "config/numeros.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>

#include "platform/direccionIP.h"

namespace sorvanel {
namespace {

const std::string CEROS(400, '0');

TEST(Numeros, SeLeenConPuntoOComa) {
    const std::pair<std::string, double> casos[] = {
        {"12", 12},  {" \t-3 ", -3}, {"+1,5", 1.5},           {"1.5", 1.5},
        {",5", 0.5}, {"5.", 5},      {"1e3", 1000},           {"1,5E-1", 0.15},
        {"007", 7},  {"0,95", 0.95}, {"1e-999", 0},           {"0e9999999999999999999999", 0},
        {"0,00", 0}, {"-0", 0},      {"0." + CEROS + "1", 0}, {"1" + CEROS + "e-400", 1}};
    for (const auto& [texto, valor] : casos) EXPECT_EQ(leerNumero(texto), valor) << texto;
    for (const std::string malo : {"", " ", "abc", ".", "-", "1.2.3", "1,2.3", "1e", "1e+", "e5", "1 2", "--1", "12a",
                                   "1e999", "0x10", "inf", "nan", "\u00A05", "1e99999999999999999999"}) {
        EXPECT_EQ(leerNumero(malo), std::nullopt) << malo;
    }
}

TEST(Numeros, EnterosConSuTamano) {
    const std::pair<std::string, std::int32_t> casos[] = {
        {"32767", 32767}, {"32768", 32768}, {"-32768,4", -32768}, {"-32769", -32769}, {"1e5", 100000},
        {"0,5", 0},       {"1.5", 2},       {"2.5", 2},           {"-1,5", -2},       {"-2147483648", INT32_MIN}};
    for (const auto& [texto, largo] : casos) {
        EXPECT_EQ(leerEntero32(texto), largo) << texto;
        EXPECT_EQ(leerEntero16(texto), largo >= -32768 && largo <= 32767 ? std::optional(largo) : std::nullopt)
            << texto;
    }
    for (const char* malo : {"2147483647,5", "x"}) EXPECT_FALSE(leerEntero32(malo) || leerEntero16(malo)) << malo;
}

TEST(Numeros, ElNumeroInicial) {
    const std::pair<std::string, std::int32_t> casos[] = {
        {"  3001 kg", 3001}, {"12abc", 12}, {"-7-", -7},      {"3e", 3},         {"1e2x", 100},
        {"99999999999", 0},  {"1e999", 0},  {"abc", 0},       {"", 0},           {"- 5", 0},
        {"9.6", 10},         {"1.2.3", 1},  {"65536", 65536}, {"2147483648", 0}, {"&H10", 0}};
    for (const auto& [texto, valor] : casos) EXPECT_EQ(numeroInicial(texto), valor) << texto;
}

TEST(Numeros, Hexadecimal) {
    EXPECT_EQ(leerHexadecimal("00FF00"), 65280);
    EXPECT_EQ(leerHexadecimal("ff"), 255);
    EXPECT_EQ(leerHexadecimal("FFFFFFFF"), -1);
    for (const std::string malo : {"000000001", "", "0x1", "-1", "FF ", "FG"}) {
        EXPECT_EQ(leerHexadecimal(malo), std::nullopt) << malo;
    }
}

TEST(Numeros, DireccionesIP) {
    for (const char* buena : {"192.168.1.40", "1.0.0.0", "223.255.255.255"})
        EXPECT_EQ(textoDireccionIP(leerDireccionIP(buena).value_or(0)), buena);
    EXPECT_EQ(leerDireccionIP("192.168.001.040"), 0xC0A80128) << "not octal";
    for (const char* mala :
         {"", "0.0.0.0", "224.0.0.1", "1.2.3", "1.2.3.256", "1.2.3.4.", "1.2.3.4.5", "1..2.3", "1.2.3.4 "})
        EXPECT_EQ(leerDireccionIP(mala), std::nullopt) << mala;
}

TEST(Numeros, SeEscribenDeModoQueVuelven) {
    EXPECT_EQ(textoDeReal(0.95F, ","), "0,95");
    EXPECT_EQ(textoDeReal(-2.5F, "'"), "-2.5");
    EXPECT_EQ(textoDeReal(1.0F, ""), "1");
    EXPECT_EQ(textoDeReal(std::numeric_limits<float>::infinity(), ","), "0");
    for (const float valor : {0.1F, 0.333333343F, 1e-20F, 3.4e38F, 16777217.0F, -1e-45F}) {
        EXPECT_EQ(static_cast<float>(leerNumero(textoDeReal(valor, ",")).value()), valor);
    }
    EXPECT_EQ(textoSeisDecimales(1.0 / 3, "."), "0.333333");
    EXPECT_EQ(textoSeisDecimales(0.9999999, ","), "1,000000");
    EXPECT_EQ(textoSeisDecimales(-0.25, ","), "-0,250000");
    for (const double nada : {0.0, -0.0000001, std::nan("")}) EXPECT_EQ(textoSeisDecimales(nada, ","), "0,000000");
    EXPECT_EQ(textoSeisDecimales(std::numeric_limits<double>::max(), ".").size(), 316U);
}

}  // namespace
}  // namespace sorvanel
