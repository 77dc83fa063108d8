#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <regex>
#include <set>

#include "simulador/azar.h"
#include "simulador/defectos.h"
#include "simulador/linea.h"

namespace sorvanel::simulador {
namespace {

const std::regex LINEA("[0-9]{2}/[0-9]{2} [C-][D-] [0-9.]{8} [0-9.]{8}");
const std::regex TRAMA("[EX][CNX][DZX]\\+[0-9]{8}");

TEST(SimuladorLinea, CadaFormaDeDecimales) {
    struct Caso {
        std::int64_t peso, acumulado;
        Decimales decimales;
        const char* valores;
    };
    const Caso casos[] = {
        {1'250, 500, {3}, "0001.250 0000.500"},
        {1'250, 43'210'000, {0}, "00000001 00043210"},
        {1'500, 499, {0, true}, "0000002. 0000000."},
        {1'250, 99'999'900, {1}, "000001.3 099999.9"},
        {1'234'567, 4, {2}, "01234.57 00000.00"},
        {1'250, 999'999, {4}, "001.2500 999.9990"},
        // What does not fit stays at the most that does.
        {99'999'999, -5, {3}, "9999.999 0000.000"},
        {99'999'999, 1'000'000, {4}, "999.9990 999.9990"},
        {99'999'999, 99'999'999, {0}, "00099999 00099999"},
        {99'999'999, 99'999'999, {1}, "099999.9 099999.9"},
    };
    for (const auto& caso : casos)
        EXPECT_EQ(lineaPavona({12, 3}, {.milesimas = caso.peso}, caso.acumulado, caso.decimales, {}, 0),
                  std::string("12/03 -- ") + caso.valores);
}

TEST(SimuladorLinea, LasLetrasDicenSiCargaODescarga) {
    struct Caso {
        Lectura lectura;
        Marcas marcas;
        const char* principio;
    };
    const Caso casos[] = {
        {{.estable = true}, {}, "00/99 -- "},           {{.cargando = true}, {}, "00/99 C- "},
        {{.descargando = true}, {}, "00/99 -D "},       {{.cargando = true}, {Marcas::Modo::Fijas, "-D"}, "00/99 -D "},
        {{}, {Marcas::Modo::Fijas, "CD"}, "00/99 CD "},
    };
    for (const auto& caso : casos)
        EXPECT_THAT(lineaPavona({0, 99}, caso.lectura, 0, {}, caso.marcas, 0), testing::StartsWith(caso.principio));

    std::set<std::string> vistas;
    for (std::uint64_t azar = 0; azar < 64; ++azar)
        vistas.insert(lineaPavona({1, 2}, {}, 0, {}, {Marcas::Modo::Azar, ""}, mezclar(azar)).substr(6, 2));
    EXPECT_THAT(vistas, testing::ElementsAre("--", "-D", "C-", "CD"));
}

TEST(SimuladorLinea, LasMalasNuncaSonBuenas) {
    for (std::size_t clase = 0; clase < CLASESLINEA.size(); ++clase) {
        std::set<std::string> distintas;
        for (std::uint64_t azar = 0; azar < 2000; ++azar) {
            const std::string buena = lineaPavona({12, 34}, {.milesimas = 1'234'567}, 9'876'543, {3}, {}, 0);
            ASSERT_TRUE(std::regex_match(buena, LINEA)) << buena;
            const std::string mala = lineaMala(static_cast<ClaseLinea>(clase), buena, mezclar(azar));
            ASSERT_FALSE(std::regex_match(mala, LINEA)) << mala;
            ASSERT_FALSE(mala.empty());
            ASSERT_EQ(mala.find_first_of("\r\n"), std::string::npos);
            distintas.insert(mala);
        }
        EXPECT_GE(distintas.size(), 2U) << CLASESLINEA[clase];
    }
    // Of the line's shape, though no number: only the reader's arithmetic can tell.
    const std::string sinNumero = lineaMala(ClaseLinea::Valor, "12/03 -- 0001.250 0000.500", 0);
    EXPECT_EQ(sinNumero.size(), 26U);
    EXPECT_EQ(lineaMala(ClaseLinea::Direccion, "12/03 -- 0001.250 0000.500", 0), "2/03 -- 0001.250 0000.500");
}

TEST(SimuladorTramaMala, NuncaEsBuenaYConservaSuRetorno) {
    const std::string buena = "ECX+00012345\r";
    for (std::size_t clase = 0; clase < CLASESTRAMA.size(); ++clase) {
        std::set<std::size_t> largos;
        for (std::uint64_t azar = 0; azar < 2000; ++azar) {
            const std::string mala = tramaMala(static_cast<ClaseTrama>(clase), buena, mezclar(azar));
            ASSERT_EQ(mala.find('\r'), mala.size() - 1) << mala;
            ASSERT_FALSE(std::regex_match(mala.substr(0, mala.size() - 1), TRAMA)) << mala;
            largos.insert(mala.size());
        }
        const bool cambiaDeLargo = clase == static_cast<std::size_t>(ClaseTrama::Corta) ||
                                   clase == static_cast<std::size_t>(ClaseTrama::Larga);
        EXPECT_EQ(largos.size(), cambiaDeLargo ? 8U : 1U) << CLASESTRAMA[clase];
        EXPECT_EQ(largos.contains(buena.size()), !cambiaDeLargo) << CLASESTRAMA[clase];
    }
    EXPECT_EQ(tramaMala(ClaseTrama::Signo, buena, 7), "ECX-00012345\r");
}

TEST(SimuladorBasura, DejaEnteroLoQueLaSigue) {
    bool vacia = false;
    bool conRetornoDentro = false;
    for (std::uint64_t azar = 0; azar < 4000; ++azar) {
        const std::string bytes = basura(mezclar(azar));
        vacia |= bytes.empty();
        if (bytes.empty()) continue;
        ASSERT_EQ(bytes.back(), '\r');
        ASSERT_LE(bytes.size(), 64U);
        ASSERT_EQ(bytes.find_first_of("+/"), std::string::npos);
        conRetornoDentro |= bytes.find('\r') < bytes.size() - 1;
    }
    EXPECT_TRUE(vacia);
    EXPECT_TRUE(conRetornoDentro);
}

}  // namespace
}  // namespace sorvanel::simulador
