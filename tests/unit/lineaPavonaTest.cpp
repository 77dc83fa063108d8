#include "links/lineaPavona.h"

#include <gtest/gtest.h>

namespace sorvanel {
namespace {

std::string cargaDe(std::string_view linea) {
    const auto leida = leerLineaPavona(linea);
    return leida ? std::string(leida->texto()) : "";
}

// Both values' groups of a line that neither loads nor unloads, the first two of the six.
std::string dosGrupos(const std::string& valores) {
    return cargaDe("01/02 -- " + valores).substr(0, 21).erase(0, 3);
}

TEST(LineaPavona, lasMarcasDecidenLosSeisValores) {
    const struct {
        const char* marcas;
        const char* carga;
    } CASOS[] = {
        {"--", "XXX+00001250+00000500+00001750+00001750+00000500+00000500"},
        {"C-", "XCX+00001250+00000500+00001750+00001750+00001750+00000500"},
        {"-D", "XXD+00001250+00000500+00001750+00000500+00000500-00000750"},
        {"CD", "XCX+00001250+00000500+00001750+00001750+00001750+00000500"},
    };
    for (const auto& caso : CASOS) {
        const auto leida = leerLineaPavona("12/03 " + std::string(caso.marcas) + " 0001.250 0000.500");
        ASSERT_TRUE(leida) << caso.marcas;
        EXPECT_EQ(leida->texto(), caso.carga) << caso.marcas;
        EXPECT_EQ(leida->primero, 12);
        EXPECT_EQ(leida->segundo, 3);
    }
}

TEST(LineaPavona, losDecimalesDelPrimeroValenParaLosDos) {
    const struct {
        const char* valores;
        const char* grupos;
    } CASOS[] = {
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
        {"9999999. -9999999", "+--------+--------"},
        {"99999.99 -9999999", "+99999990-99999990"},
        {"99999.99 00000001", "+99999990+00000010"},
    };
    for (const auto& caso : CASOS) EXPECT_EQ(dosGrupos(caso.valores), caso.grupos) << caso.valores;
}

TEST(LineaPavona, laSumaQueNoCabeNoDaNumero) {
    EXPECT_EQ(cargaDe("01/02 -- 60000.00 04000000"), "XXX+60000000+40000000+--------+--------+40000000+40000000");
    EXPECT_EQ(cargaDe("01/02 -D 60000.00 -4000000"), "XXD+60000000-40000000+20000000-40000000-40000000+--------");
}

TEST(LineaPavona, loQueNoTieneLaFormaNoEsLectura) {
    for (const std::string linea : {"",
                                    "2/03 C- 0001.250 0000.500",
                                    "12/03 C- 0001.250 0000.50",
                                    "12/03 C- 0001.250 0000.5000",
                                    " 12/03 C- 0001.250 0000.500",
                                    "12-03 C- 0001.250 0000.500",
                                    "12/0x C- 0001.250 0000.500",
                                    "12/03 c- 0001.250 0000.500",
                                    "12/03 -C 0001.250 0000.500",
                                    "12/03 D- 0001.250 0000.500",
                                    "12/03 C-  001.250 0000.500 ",
                                    "12/03 C-_0001.250 0000.500",
                                    "12/03 C- 0001.250_0000.500",
                                    "12/03 C- 0001.250          ",
                                    "12/03 C- ........ 0000.500",
                                    "12/03 C- 0001,250 0000.500",
                                    "12/03 C- 0001.25- 0000.500",
                                    "12/03 C- --01.250 0000.500",
                                    "12/03 C- - 01.250 0000.500",
                                    "12/03 C- 00 1.250 0000.500",
                                    "12/03 C- 0001.250 0x00.500",
                                    "12/03 C- 0001.250 1e00.500",
                                    "\n12/03 C- 0001.250 0000.50"}) {
        EXPECT_FALSE(leerLineaPavona(linea)) << '"' << linea << '"';
    }
}

}  // namespace
}  // namespace sorvanel
