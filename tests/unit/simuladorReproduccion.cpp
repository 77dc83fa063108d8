#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iterator>
#include <sstream>

#include "simulador/calendario.h"
#include "simulador/reproduccion.h"

namespace sorvanel::simulador {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;

using Envio = std::tuple<int, std::size_t, std::string>;  // milliseconds, indicator, what was sent

// The clock moves only when it is waited on, or when sending takes time.
class SimuladorReproduccion : public testing::Test, public Reloj, public Emisor, public Testigo {
protected:
    Resumen correr(const std::string& argumentos, std::uint64_t semilla = 5) {
        m_envios.clear();
        std::istringstream texto(argumentos);
        m_opciones = leerOpciones(std::vector<std::string>{std::istream_iterator<std::string>(texto), {}});
        return reproducir(m_opciones, semilla, *this, *this, *this);
    }
    Instante ahora() override { return m_ahora; }
    void esperarHasta(Instante instante) override {
        EXPECT_GT(instante, m_ahora);
        m_ahora = m_fin ? std::min(instante, std::max(*m_fin, m_ahora)) : instante;
    }
    bool finPedido() override { return m_fin && m_ahora >= *m_fin; }
    bool enviar(std::size_t indicador, std::string_view datos) override {
        m_envios.emplace_back((m_ahora - 1000h) / 1ms, indicador, datos);
        m_ahora += m_tarda;
        return indicador != m_roto;
    }
    void alEnviar(Instante, std::size_t, std::string_view) override {}
    void alFallar(std::size_t) override { ++m_fallidas; }
    void alEsperar() override {}

    std::string todo() const {
        std::string dicho;
        for (const auto& [cuando, indicador, datos] : m_envios) dicho += datos;
        return dicho;
    }

    Instante m_ahora = 1000h, m_tarda{};
    std::optional<Instante> m_fin;
    Opciones m_opciones;
    std::vector<Envio> m_envios;
    std::size_t m_roto = 99;
    int m_fallidas = 0;
};

TEST_F(SimuladorReproduccion, CuantasSeEnvianYQueDicen) {
    // The last moment of a duration is outside.
    const std::pair<std::string, int> totales[] = {
        {"--duracion 1", 50}, {"--duracion 1.001", 51}, {"--duracion 1 --tramas 3", 3}};
    for (const auto& [hasta, total] : totales) EXPECT_EQ(correr("--puertos 1 --ritmo 50 " + hasta).total(), total);
    correr("--puertos 9001,65535 --peso puerto --tramas 1");
    EXPECT_EQ(todo(), "EXX+09001000\rEXX+65535000\r");
    // A sweep goes round, and does not go on in a silence.
    const Resumen resumen = correr("--puertos 1 --barrido 1:3:1 --tramas 7 --ritmo 1 --callar 1:2-4");
    EXPECT_EQ(todo(), "XXX+00001000\rXXX+00002000\rXXX+00003000\rXXX+00001000\rXXX+00002000\r");
    EXPECT_EQ(resumen.calladas, 2);
}

TEST_F(SimuladorReproduccion, UnRetrasoCortoSeRecuperaYUnoLargoNo) {
    // 40 ms a frame against one each 25 ms: 15 ms more are lost with each.
    m_tarda = 40ms;
    EXPECT_EQ(correr("--tramas 10").retrasos, 0);
    const Resumen largo = correr("--tramas 50");
    EXPECT_EQ(largo.total(), 200);
    EXPECT_EQ(largo.retrasos, 2);
}

TEST_F(SimuladorReproduccion, LoQueNoSePudoEnviarSeCuentaAparte) {
    m_roto = 1;
    const Resumen resumen = correr("--puertos 8,9 --tramas 4");
    EXPECT_THAT(resumen.enviadas, ElementsAre(4, 0));
    EXPECT_EQ(m_fallidas, 4);
    const std::string texto = textoResumen(resumen, m_opciones.destinos);
    for (const char* dice : {"Enviadas: 4 tramas en 0.350 s (11.4 por segundo)\n", "No se pudieron enviar: 4\n"})
        EXPECT_THAT(texto, HasSubstr(dice));
}

TEST_F(SimuladorReproduccion, LosDefectosNoQuitanNingunaTrama) {
    const struct {
        std::string defectos;
        std::size_t datagramas;
        int buenas, defectuosas;
    } casos[] = {{"--malas 4", 25, 20, 5},
                 {"--malas 7:signo --basura 3", 28, 20, 8},
                 {"--partir 2", 30, 20, 0},
                 {"--juntar 3", 20, 60, 0},
                 {"--juntar 3 --partir 5 --basura 5", 28, 60, 4}};
    for (const auto& caso : casos) {
        SCOPED_TRACE(caso.defectos);
        const Resumen resumen = correr("--puertos 1 --contar --tramas 20 " + caso.defectos);
        std::istringstream dicho(todo());
        int buenas = 0;
        for (std::string trozo; std::getline(dicho, trozo, '\r');) {
            const std::string cifras = std::to_string(buenas);
            buenas += trozo == "XXX+" + std::string(8 - cifras.size(), '0') + cifras ? 1 : 0;
        }
        EXPECT_EQ(todo().back(), '\r');
        EXPECT_EQ(m_envios.size(), caso.datagramas);
        EXPECT_EQ(buenas, caso.buenas);
        EXPECT_EQ(resumen.total(), caso.buenas);
        EXPECT_EQ(resumen.defectuosas, caso.defectuosas);
    }
}

TEST(SimuladorCalendario, NoDerivaNiSeDesborda) {
    const Calendario tercios(3, 1'000, {}, {});
    EXPECT_EQ(tercios.vence(1), 333'333'333ns);
    EXPECT_EQ(tercios.vence(3'000'000'001), 1'000'000'000s + 333'333'333ns);
    EXPECT_EQ(tercios.indicador(3'000'000'001), 1U);
    EXPECT_EQ(Calendario(65'535, 1'000'000, {}, {}).vence(65'535'000LL * 86'400), 24h);
    EXPECT_EQ(Calendario(1, 100, {}, {}).vence(7), 70s);
}

}  // namespace
}  // namespace sorvanel::simulador
