#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <regex>
#include <set>

#include "simulador/azar.h"
#include "simulador/defectos.h"
#include "simulador/linea.h"

namespace sorvanel::simulador {
namespace {

using testing::ElementsAre;

TEST(SimuladorLinea, CadaFormaDeDecimales) {
    const struct {
        std::int64_t peso, acumulado;
        Decimales decimales;
        std::string valores;
    } casos[] = {{1'250, 500, {3}, "0001.250 0000.500"},
                 {1'250, 43'210'000, {0}, "00000001 00043210"},
                 {1'500, 499, {0, true}, "0000002. 0000000."},
                 {1'250, 99'999'900, {1}, "000001.3 099999.9"},
                 {1'234'567, 4, {2}, "01234.57 00000.00"},
                 {1'250, 999'999, {4}, "001.2500 999.9990"},
                 // What does not fit stays at the most that does.
                 {99'999'999, -5, {3}, "9999.999 0000.000"},
                 {99'999'999, 1'000'000, {4}, "999.9990 999.9990"},
                 {99'999'999, 99'999'999, {1}, "099999.9 099999.9"}};
    for (const auto& [peso, acumulado, decimales, valores] : casos)
        EXPECT_EQ(lineaPavona({12, 3}, {.milesimas = peso}, acumulado, decimales, {}, 0), "12/03 -- " + valores);
}

TEST(SimuladorLinea, LasLetrasDicenSiCargaODescarga) {
    const auto letras = [](const Lectura& lectura, const Marcas& marcas = {}, std::uint64_t azar = 0) {
        return lineaPavona({0, 99}, lectura, 0, {}, marcas, azar).substr(6, 2);
    };
    EXPECT_EQ(letras({.estable = true}), "--");
    EXPECT_EQ(letras({.cargando = true}), "C-");
    EXPECT_EQ(letras({.descargando = true}), "-D");
    EXPECT_EQ(letras({.cargando = true}, {Marcas::Modo::Fijas, "-D"}), "-D");
    std::set<std::string> vistas;
    for (std::uint64_t azar = 0; azar < 64; ++azar) vistas.insert(letras({}, {Marcas::Modo::Azar, ""}, mezclar(azar)));
    EXPECT_THAT(vistas, ElementsAre("--", "-D", "C-", "CD"));
}

// Never good, whatever chance says; and more than one of each class.
TEST(SimuladorDefectos, LasMalasNuncaSonBuenas) {
    const std::regex linea("[0-9]{2}/[0-9]{2} [C-][D-] [0-9.]{8} [0-9.]{8}"), trama("[EX][CNX][DZX]\\+[0-9]{8}\r");
    const std::string buenaLinea = "12/34 -- 1234.567 9876.543", buenaTrama = "ECX+00012345\r";
    ASSERT_TRUE(std::regex_match(buenaLinea, linea) && std::regex_match(buenaTrama, trama));
    for (std::size_t clase = 0; clase < CLASESLINEA.size(); ++clase) {
        std::set<std::string> distintas;
        for (std::uint64_t azar = 0; azar < 2000; ++azar)
            distintas.insert(lineaMala(static_cast<ClaseLinea>(clase), buenaLinea, mezclar(azar)));
        EXPECT_GE(distintas.size(), 2U) << CLASESLINEA[clase];
        for (const auto& mala : distintas)
            EXPECT_TRUE(!mala.empty() && !std::regex_match(mala, linea) && mala.find('\r') == mala.npos) << mala;
    }
    for (std::size_t clase = 0; clase < CLASESTRAMA.size(); ++clase) {
        std::set<std::size_t> largos;
        for (std::uint64_t azar = 0; azar < 2000; ++azar) {
            const std::string mala = tramaMala(static_cast<ClaseTrama>(clase), buenaTrama, mezclar(azar));
            EXPECT_TRUE(mala.find('\r') == mala.size() - 1 && !std::regex_match(mala, trama)) << mala;
            largos.insert(mala.size());
        }
        const bool otroLargo = clase == static_cast<std::size_t>(ClaseTrama::Corta) ||
                               clase == static_cast<std::size_t>(ClaseTrama::Larga);
        EXPECT_EQ(largos.size(), otroLargo ? 8U : 1U) << CLASESTRAMA[clase];
        EXPECT_EQ(largos.contains(buenaTrama.size()), !otroLargo) << CLASESTRAMA[clase];
    }
    EXPECT_EQ(tramaMala(ClaseTrama::Signo, buenaTrama, 7), "ECX-00012345\r");
    // Of a line's shape, though no number: only the reader's arithmetic can tell.
    EXPECT_EQ(lineaMala(ClaseLinea::Valor, buenaLinea, 0).size(), buenaLinea.size());
}

}  // namespace
}  // namespace sorvanel::simulador
