#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "simulador/bascula.h"
#include "simulador/silencio.h"
#include "simulador/trama.h"

namespace sorvanel::simulador {
namespace {

using namespace std::chrono_literals;

constexpr int VECES = 15'000;  // ten loads, each seen 1500 times

TEST(SimuladorBascula, SeCargaSeAsientaYSeDescarga) {
    const DatosBascula casos[] = {{6'000'000, 1'000, 30s, 7}, {1'500'000, 500, 5s, 7}, {MAXMILESIMAS, 1'000, 3600s, 7}};
    for (const auto& datos : casos) {
        SCOPED_TRACE(datos.capacidad);
        const Bascula bascula(datos);
        std::set<std::int64_t> reposos;
        int estables = 0, ceros = 0, rebotes = 0;
        Lectura antes{.cargando = true};
        std::int64_t tope = 0;  // of the first swing once loaded: it goes up
        for (int i = 0; i < VECES; ++i, tope = antes.cargando ? 0 : std::max(tope, antes.milesimas)) {
            const Lectura ahora = bascula.lectura(Instante{datos.ciclo} / 1500 * i);
            ASSERT_TRUE(ahora.milesimas % datos.division == 0 && ahora.milesimas >= 0);
            ASSERT_LE(ahora.milesimas, datos.capacidad);
            ASSERT_LE(ahora.estable + ahora.cargando + ahora.descargando, 1);
            ASSERT_TRUE(!antes.estable || !ahora.estable || antes.milesimas == ahora.milesimas);
            if (ahora.estable) reposos.insert(ahora.milesimas);
            estables += ahora.estable;
            ceros += ahora.estable && ahora.milesimas == 0;
            rebotes += ahora.estable && !antes.estable && tope > ahora.milesimas * 102 / 100 && ahora.milesimas > 0;
            antes = ahora;
        }
        EXPECT_GE(reposos.size(), 8U) << "every load is another one";
        EXPECT_GE(rebotes, 8);
        EXPECT_GT(estables, VECES / 3);
        EXPECT_GT(ceros, VECES / 10);
    }
}

TEST(SimuladorBascula, CadaCargaSeSumaAlDescargarYElGrupoVuelveACero) {
    const Bascula bascula({.ciclo = 10s, .semilla = 7});
    std::int64_t anterior = bascula.acumulado(0s, 3), reposo = 0;
    Lectura antes = bascula.lectura(0s);
    std::string pasos;  // + a load more, 0 the group begins again
    for (Instante instante = 0s; instante < 200s; instante += 10ms) {
        const Lectura ahora = bascula.lectura(instante);
        const std::int64_t acumulado = bascula.acumulado(instante, 3);
        if (ahora.estable) reposo = ahora.milesimas;
        if (acumulado > anterior) {
            EXPECT_TRUE(ahora.descargando && !antes.descargando);
            EXPECT_EQ(acumulado - anterior, reposo);
        }
        if (acumulado != anterior) pasos += acumulado > anterior ? '+' : acumulado == 0 ? '0' : '?';
        anterior = acumulado;
        antes = ahora;
    }
    EXPECT_THAT(pasos, testing::HasSubstr("0+++0+++0+++0"));
}

TEST(SimuladorTrama, DiceLoQueSabeLaLectura) {
    const std::pair<Lectura, std::string> casos[] = {
        {{.milesimas = 12345}, "XXX+00012345\r"},
        {{.milesimas = 0, .estable = true}, "EXX+00000000\r"},
        {{.milesimas = 1, .cargando = true}, "XCX+00000001\r"},
        {{.milesimas = 1, .descargando = true}, "XXD+00000001\r"},
        // Always a frame of the family, whatever comes.
        {{.milesimas = -5}, "XXX+00000000\r"},
        {{.milesimas = MAXMILESIMAS + 1}, "XXX+99999999\r"},
    };
    for (const auto& [lectura, trama] : casos) EXPECT_EQ(tramaTessel(lectura, {}, 0), trama);
    EXPECT_EQ(tramaTessel({.milesimas = 7, .estable = true}, {Marcas::Modo::Fijas, "XNZ"}, 0), "XNZ+00000007\r");
    std::set<std::string> vistas;
    for (std::uint64_t azar = 0; azar < 100; ++azar)
        vistas.insert(tramaTessel({}, {Marcas::Modo::Azar, ""}, azar).substr(0, 3));
    EXPECT_EQ(vistas.size(), 18U);
    EXPECT_TRUE(std::all_of(vistas.begin(), vistas.end(), sonMarcas));
}

TEST(SimuladorSilencio, CadaUnoCallaEnSuMomento) {
    Silencios silencios;
    silencios.calladas = {{.indicador = 1, .desde = 5s, .hasta = {}}, {.indicador = 2, .desde = 1s, .hasta = 2s}};
    const std::tuple<std::size_t, Instante, bool> casos[] = {{0, 10s, false}, {1, 5s - 1ns, false}, {1, 5s, true},
                                                             {1, 24h, true},  {2, 1s, true},        {2, 2s, false}};
    for (const auto& [indicador, instante, calla] : casos)
        EXPECT_EQ(estaCallado(silencios, indicador, instante, 0), calla) << indicador << " " << instante / 1ns;
}

TEST(SimuladorSilencio, LasPausasDuranLoDichoYNoCoinciden) {
    for (const bool azar : {false, true}) {
        const Silencios silencios{{}, Pausas{.cada = 10s, .dura = 2s, .azar = azar}};
        std::set<int> comienzos;
        for (std::size_t indicador = 0; indicador < 8; ++indicador) {
            std::vector<int> callados;
            for (int i = 0; i < 10'000; ++i)
                if (estaCallado(silencios, indicador, 10ms * i, 3)) callados.push_back(i);
            ASSERT_NEAR(static_cast<double>(callados.size()), 2'000, 10) << indicador;
            comienzos.insert(callados.front());
        }
        EXPECT_GE(comienzos.size(), 6U) << azar;
    }
}

}  // namespace
}  // namespace sorvanel::simulador
