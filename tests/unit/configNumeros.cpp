#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <optional>
#include <string>

#include "config/numeros.h"

namespace sorvanel {
namespace {

TEST(Numeros, SeLeenConPuntoOComa) {
    const std::optional<double> no;
    const struct {
        std::string texto;
        std::optional<double> valor;
    } casos[] = {
        {"12", 12},
        {" \t-3 ", -3},
        {"+1,5", 1.5},
        {"1.5", 1.5},
        {",5", 0.5},
        {"5.", 5},
        {"1e3", 1000},
        {"1,5E-1", 0.15},
        {"007", 7},
        {"-0", 0},
        {"0,95", 0.95},
        {"1e-999", 0},
        {"0e9999999999999999999999", 0},
        {"1" + std::string(400, '0') + "e-400", 1},
        {"0,000000", 0},
        {"", no},
        {" ", no},
        {"abc", no},
        {".", no},
        {"-", no},
        {"1.2.3", no},
        {"1,2.3", no},
        {"1e", no},
        {"1e+", no},
        {"e5", no},
        {"1 2", no},
        {"--1", no},
        {"12a", no},
        {"1e999", no},
        {"0x10", no},
        {"inf", no},
        {"nan", no},
        {"\u00A05", no},
        {"1e99999999999999999999", no},
        {"0." + std::string(400, '0') + "1", 0},
    };
    for (const auto& c : casos) {
        EXPECT_EQ(leerNumero(c.texto), c.valor) << c.texto;
    }
}

TEST(Numeros, EnterosConSuTamano) {
    const struct {
        std::string texto;
        std::optional<std::int16_t> corto;
        std::optional<std::int32_t> largo;
    } casos[] = {
        {"32767", std::int16_t{32767}, 32767},
        {"32768", std::nullopt, 32768},
        {"-32768,4", std::int16_t{-32768}, -32768},
        {"2147483647,5", std::nullopt, std::nullopt},
        {"-2147483648", std::nullopt, std::numeric_limits<std::int32_t>::min()},
        {"1e5", std::nullopt, 100000},
        {"0,5", std::int16_t{0}, 0},
        {"1.5", std::int16_t{2}, 2},
        {"2.5", std::int16_t{2}, 2},
        {"-1,5", std::int16_t{-2}, -2},
        {"x", std::nullopt, std::nullopt},
    };
    for (const auto& c : casos) {
        EXPECT_EQ(leerEntero16(c.texto), c.corto) << c.texto;
        EXPECT_EQ(leerEntero32(c.texto), c.largo) << c.texto;
    }
}

TEST(Numeros, ElNumeroInicial) {
    const struct {
        std::string texto;
        std::int32_t valor;
    } casos[] = {{"3001", 3001},    {"  3001 kg", 3001}, {"12abc", 12}, {"-7-", -7}, {"3e", 3},
                 {"1e2x", 100},     {"99999999999", 0},  {"1e999", 0},  {"abc", 0},  {"", 0},
                 {"-", 0},          {"65536", 65536},    {"- 5", 0},    {"9.6", 10}, {"1.2.3", 1},
                 {"2147483648", 0}, {"&H10", 0}};
    for (const auto& c : casos) {
        EXPECT_EQ(numeroInicial(c.texto), c.valor) << c.texto;
    }
}

TEST(Numeros, Hexadecimal) {
    const struct {
        std::string texto;
        std::optional<std::int32_t> valor;
    } casos[] = {{"00FF00", 65280},           {"ff", 255},         {"FFFF", 65535},       {"FFFFFFFF", -1},
                 {"000000001", std::nullopt}, {"", std::nullopt},  {"0x1", std::nullopt}, {"-1", std::nullopt},
                 {"FF ", std::nullopt},       {"FG", std::nullopt}};
    for (const auto& c : casos) {
        EXPECT_EQ(leerHexadecimal(c.texto), c.valor) << c.texto;
    }
}

TEST(Numeros, SeEscribenDeModoQueVuelven) {
    const struct {
        float valor;
        std::string separador, texto;
    } casos[] = {{0.95F, ",", "0,95"}, {0.1F, ".", "0.1"},  {1.0F, ",", "1"},
                 {-2.5F, "'", "-2.5"}, {8.25F, "", "8.25"}, {std::numeric_limits<float>::infinity(), ",", "0"}};
    for (const auto& c : casos) {
        EXPECT_EQ(textoDeReal(c.valor, c.separador), c.texto);
    }
    for (const float valor : {0.333333343F, 1e-20F, 3.4e38F, 16777217.0F, -1e-45F}) {
        EXPECT_EQ(static_cast<float>(leerNumero(textoDeReal(valor, ",")).value()), valor);
    }
    EXPECT_EQ(textoSeisDecimales(0, ","), "0,000000");
    EXPECT_EQ(textoSeisDecimales(1.0 / 3, "."), "0.333333");
    EXPECT_EQ(textoSeisDecimales(0.9999999, ","), "1,000000");
    EXPECT_EQ(textoSeisDecimales(-0.0000001, ","), "0,000000");
    EXPECT_EQ(textoSeisDecimales(-0.25, ","), "-0,250000");
    EXPECT_EQ(textoSeisDecimales(std::numeric_limits<double>::max(), ".").size(), 316U);
    EXPECT_EQ(textoSeisDecimales(std::numeric_limits<double>::quiet_NaN(), ","), "0,000000");
}

}  // namespace
}  // namespace sorvanel
