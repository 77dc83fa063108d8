#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "simulador/bascula.h"
#include "simulador/silencio.h"
#include "simulador/trama.h"

namespace sorvanel::simulador {
namespace {

using namespace std::chrono_literals;

struct CasoBascula {
    std::int64_t capacidad, division;
    std::chrono::milliseconds ciclo;
};

class SimuladorBascula : public testing::TestWithParam<CasoBascula> {
protected:
    // Ten loads, each seen 1500 times.
    std::vector<Lectura> lecturas(std::uint64_t semilla) const {
        const auto& [capacidad, division, ciclo] = GetParam();
        const Bascula bascula({capacidad, division, ciclo, semilla});
        std::vector<Lectura> vistas;
        for (int i = 0; i < 10 * 1500; ++i) vistas.push_back(bascula.lectura(Instante{ciclo} / 1500 * i));
        return vistas;
    }
};

TEST_P(SimuladorBascula, SeCargaRebotaSeAsientaYSeDescarga) {
    const auto& [capacidad, division, ciclo] = GetParam();
    const auto vistas = lecturas(7);
    std::set<std::int64_t> pesosEstables;
    int estables = 0;
    int ceros = 0;
    int corrientes = 0;
    bool vacia = false;
    int rebotes = 0;
    for (std::size_t i = 1; i < vistas.size(); ++i) {
        const Lectura& antes = vistas[i - 1];
        const Lectura& ahora = vistas[i];
        EXPECT_EQ(ahora.milesimas % division, 0);
        EXPECT_GE(ahora.milesimas, 0);
        EXPECT_LE(ahora.milesimas, capacidad);
        EXPECT_LE(ahora.estable + ahora.cargando + ahora.descargando, 1);
        EXPECT_TRUE(!antes.estable || !ahora.estable || antes.milesimas == ahora.milesimas) << i;
        if (ahora.estable) pesosEstables.insert(ahora.milesimas);
        estables += ahora.estable;
        ceros += ahora.estable && ahora.milesimas == 0;
        vacia = (vacia || (ahora.estable && ahora.milesimas == 0)) && !ahora.cargando;
        corrientes += vacia && !ahora.estable && ahora.milesimas == division;
        // The first swing goes up, well above what is shown once settled.
        if (antes.cargando && !ahora.cargando) {
            const auto asentada = std::find_if(vistas.begin() + static_cast<std::ptrdiff_t>(i), vistas.end(),
                                               [](const Lectura& l) { return l.estable; });
            const auto tope = std::max_element(vistas.begin() + static_cast<std::ptrdiff_t>(i), asentada,
                                               [](auto& a, auto& b) { return a.milesimas < b.milesimas; });
            if (asentada != vistas.end() && tope->milesimas > asentada->milesimas * 102 / 100) ++rebotes;
        }
    }
    EXPECT_GE(pesosEstables.size(), 8U) << "every load is another one";
    EXPECT_GE(rebotes, 8);
    EXPECT_GT(estables, 15000 / 3);
    EXPECT_GT(ceros, 15000 / 10);
    EXPECT_GT(corrientes, 0);
}

INSTANTIATE_TEST_SUITE_P(Varias, SimuladorBascula,
                         testing::Values(CasoBascula{6'000'000, 1'000, 30s}, CasoBascula{60'000'000, 20'000, 60s},
                                         CasoBascula{1'500'000, 500, 5s}, CasoBascula{MAXMILESIMAS, 1'000, 3600s}));

TEST(SimuladorAzar, LaSemillaRepiteYDistingue) {
    const auto serie = [](std::uint64_t semilla) {
        const Bascula bascula({.semilla = semilla});
        std::vector<std::int64_t> pesos;
        for (int i = 0; i < 600; ++i) pesos.push_back(bascula.lectura(100ms * i).milesimas);
        return pesos;
    };
    EXPECT_EQ(serie(1), serie(1));
    EXPECT_NE(serie(1), serie(2));
}

TEST(SimuladorTrama, DiceLoQueSabeLaLectura) {
    const auto trama = [](const Lectura& lectura, const Marcas& marcas = {}) {
        return tramaTessel(lectura, marcas, 0);
    };
    EXPECT_EQ(trama({.milesimas = 12345}), "XXX+00012345\r");
    EXPECT_EQ(trama({.milesimas = 0, .estable = true}), "EXX+00000000\r");
    EXPECT_EQ(trama({.milesimas = 1, .cargando = true}), "XCX+00000001\r");
    EXPECT_EQ(trama({.milesimas = 1, .descargando = true}), "XXD+00000001\r");
    EXPECT_EQ(trama({.milesimas = 7, .estable = true}, {Marcas::Modo::Fijas, "XNZ"}), "XNZ+00000007\r");
    // Always a frame of the family, whatever comes.
    EXPECT_EQ(trama({.milesimas = -5}), "XXX+00000000\r");
    EXPECT_EQ(trama({.milesimas = MAXMILESIMAS + 1}), "XXX+99999999\r");
}

TEST(SimuladorTrama, ElAzarDaTodasLasMarcasYNingunaOtra) {
    std::set<std::string> vistas;
    for (std::uint64_t azar = 0; azar < 100; ++azar)
        vistas.insert(tramaTessel({}, {Marcas::Modo::Azar, ""}, azar).substr(0, 3));
    EXPECT_EQ(vistas.size(), 18U);
    EXPECT_TRUE(std::all_of(vistas.begin(), vistas.end(), sonMarcas));
}

TEST(SimuladorSilencio, CadaUnoCallaEnSuMomento) {
    Silencios silencios;
    silencios.calladas = {{.indicador = 1, .desde = 5s, .hasta = {}}, {.indicador = 2, .desde = 1s, .hasta = 2s}};
    const auto callado = [&](std::size_t indicador, Instante instante) {
        return estaCallado(silencios, indicador, instante, 0);
    };
    EXPECT_FALSE(callado(0, 10s));
    EXPECT_FALSE(callado(1, 5s - 1ns));
    EXPECT_TRUE(callado(1, 5s));
    EXPECT_TRUE(callado(1, 24h));
    EXPECT_TRUE(callado(2, 1s));
    EXPECT_FALSE(callado(2, 2s));
}

TEST(SimuladorSilencio, LasPausasDuranLoDichoYNoCoinciden) {
    for (const bool azar : {false, true}) {
        const Silencios silencios{{}, Pausas{.cada = 10s, .dura = 2s, .azar = azar}};
        std::set<int> comienzos;
        for (std::size_t indicador = 0; indicador < 8; ++indicador) {
            int callados = 0;
            int primero = -1;
            for (int i = 0; i < 10'000; ++i) {
                if (!estaCallado(silencios, indicador, 10ms * i, 3)) continue;
                ++callados;
                if (primero < 0) primero = i;
            }
            EXPECT_NEAR(callados, 2'000, 10) << indicador;
            comienzos.insert(primero);
        }
        EXPECT_GE(comienzos.size(), 6U) << azar;
    }
}

TEST(SimuladorAcumulado, CadaCargaSeSumaAlDescargarYElGrupoVuelveACero) {
    constexpr int CARGAS = 3;
    const Bascula bascula({.ciclo = 10s, .semilla = 7});
    std::int64_t anterior = bascula.acumulado(0s, CARGAS);
    Lectura antes = bascula.lectura(0s);
    std::int64_t reposo = 0;
    std::vector<char> pasos;  // + a load more, 0 the group begins again
    for (Instante instante = 0s; instante < 200s; instante += 10ms) {
        const Lectura ahora = bascula.lectura(instante);
        const std::int64_t acumulado = bascula.acumulado(instante, CARGAS);
        if (ahora.estable) reposo = ahora.milesimas;
        if (acumulado > anterior) {
            EXPECT_TRUE(ahora.descargando && !antes.descargando);
            EXPECT_EQ(acumulado - anterior, reposo);
        }
        if (acumulado < anterior) {
            EXPECT_EQ(acumulado, 0);
        }
        if (acumulado != anterior) pasos.push_back(acumulado == 0 ? '0' : '+');
        anterior = acumulado;
        antes = ahora;
    }
    std::string todos(pasos.begin(), pasos.end());
    EXPECT_NE(todos.find("0+++0+++0+++0"), std::string::npos) << todos;
}

}  // namespace
}  // namespace sorvanel::simulador
