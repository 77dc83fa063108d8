#include "links/lineaPavona.h"

#include <gtest/gtest.h>

namespace sorvanel {
namespace {

std::string cargaDe(std::string_view linea) {
    const auto leida = leerLineaPavona(linea);
    return leida ? std::string(leida->texto()) : "";
}

TEST(LineaPavona, lasMarcasDecidenLosSeisValores) {
    const std::map<std::string, std::string> casos = {
        {"-- 0001.250 0000.500", "XXX+00001250+00000500+00001750+00001750+00000500+00000500"},
        {"C- 0001.250 0000.500", "XCX+00001250+00000500+00001750+00001750+00001750+00000500"},
        {"-D 0001.250 0000.500", "XXD+00001250+00000500+00001750+00000500+00000500-00000750"},
        {"CD 0001.250 0000.500", "XCX+00001250+00000500+00001750+00001750+00001750+00000500"},
        // A sum that does not fit gives no number.
        {"-- 60000.00 04000000", "XXX+60000000+40000000+--------+--------+40000000+40000000"},
        {"-D 60000.00 -4000000", "XXD+60000000-40000000+20000000-40000000-40000000+--------"}};
    for (const auto& [valores, carga] : casos) {
        const auto leida = leerLineaPavona("12/03 " + valores);
        ASSERT_TRUE(leida) << valores;
        EXPECT_EQ(leida->texto(), carga) << valores;
        EXPECT_EQ(leida->primero, 12);
        EXPECT_EQ(leida->segundo, 3);
    }
}

// The first value's decimals count for both.
TEST(LineaPavona, losDosPrimerosGrupos) {
    const std::map<std::string, std::string> casos = {
        {"00012345 00000007", "+12345000+00007000"},  // no point
        {"0001234. 00000007", "+01234000+00007000"},
        {"000123.4 00000007", "+00123400+00000700"},
        {"00012.34 00000007", "+00012340+00000070"},
        {"0001.234 00000007", "+00001234+00000007"},
        {"000.1234 00000007", "+00000123+00000001"},  // a tenth of a thousandth is rounded
        {"000.1235 -0000005", "+00000124-00000001"},  // halves away from zero, on both sides
        {"-00.1235 00000004", "-00000124+00000000"},
        {"-00.0004 00000014", "+00000000+00000001"},  // no minus before zero
        {"00.12345 00000007", "+12345000+00007000"},  // five decimals count as none
        {"0001.250 000000.5", "+00001250+00000005"},  // the second's own point only goes
        {"0.01.250 0000.5.0", "+01250000+00050000"},  // the first point counts: six decimals
        {"    -1.5       +2", "-00001500+00000200"},
        {"1.5      2       ", "+00015000+00002000"},  // what follows the point are places, blanks too
        {"00099999 -0100000", "+99999000+--------"},  // nine digits fit in no group
        {"99999999 00000000", "+--------+00000000"},
        {"99999.99 -9999999", "+99999990-99999990"}};
    for (const auto& [valores, grupos] : casos) {
        EXPECT_EQ(cargaDe("01/02 -- " + valores).substr(0, 21), "XXX" + grupos) << valores;
    }
}

TEST(LineaPavona, seSabeQueUnPrincipioLoEs) {
    for (const std::string linea : {"12/03 C- 0001.250 0000.500", "12/03 -D      1.  -2      "}) {
        for (std::size_t n = 0; n <= linea.size(); ++n) EXPECT_TRUE(empiezaLineaPavona(linea.substr(0, n))) << n;
        EXPECT_FALSE(empiezaLineaPavona(linea + " "));
    }
    for (const char* no : {"1 ", "\n", "12/03 CC", "12/03 C- 1 2", "12/03 C- - ", "12/03 C-         0", "12/03 C- 0x",
                           "12/03 C- 00000001 00000002\r"}) {
        EXPECT_FALSE(empiezaLineaPavona(no)) << no;
    }
}

TEST(LineaPavona, loQueNoTieneLaFormaNoEsLectura) {
    const std::string buena = "12/03 C- 0001.250 0000.500";
    EXPECT_NE(cargaDe(buena), "");
    for (const std::string& linea : {std::string(), buena.substr(1), buena.substr(0, 25), buena + "0", " " + buena}) {
        EXPECT_EQ(cargaDe(linea), "") << linea;
    }
    // What stands there instead, from that place on.
    const std::pair<std::size_t, std::string> casos[] = {
        {0, "\n"},        {0, "x"},         {1, "x"},        {2, "-"},        {3, "x"},        {4, "x"},
        {5, "_"},         {6, "c-"},        {6, "-C"},       {6, "D-"},       {8, "_"},        {17, "_"},
        {18, "        "}, {9, "........"},  {9, "0001,250"}, {9, "0001.25-"}, {9, "--01.250"}, {9, "- 01.250"},
        {9, "00 1.250"},  {18, "0x00.500"}, {18, "1e00.500"}};
    for (const auto& [lugar, otro] : casos) {
        std::string linea = buena;
        EXPECT_EQ(cargaDe(linea.replace(lugar, otro.size(), otro)), "") << linea;
    }
}

}  // namespace
}  // namespace sorvanel
