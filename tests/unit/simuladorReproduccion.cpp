#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "simulador/calendario.h"
#include "simulador/reproduccion.h"

namespace sorvanel::simulador {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;

// A clock that moves only when it is waited on, or when sending takes time.
class RelojDePrueba : public Reloj {
public:
    Instante ahora() override { return m_ahora; }
    void esperarHasta(Instante instante) override {
        EXPECT_GT(instante, m_ahora);
        m_ahora = m_fin ? std::min(instante, std::max(*m_fin, m_ahora)) : instante;
    }
    bool finPedido() override { return m_fin && m_ahora >= *m_fin; }

    Instante m_ahora = 1000h;
    std::optional<Instante> m_fin;
};

struct Envio {
    Instante cuando;
    std::size_t indicador;
    std::string datos;

    bool operator==(const Envio&) const = default;
};

class EmisorDePrueba : public Emisor {
public:
    explicit EmisorDePrueba(RelojDePrueba& reloj) : m_reloj(reloj) {}
    bool enviar(std::size_t indicador, std::string_view datos) override {
        m_envios.push_back({m_reloj.m_ahora - 1000h, indicador, std::string(datos)});
        m_reloj.m_ahora += m_tarda;
        return indicador != m_roto;
    }

    std::vector<Envio> m_envios;
    std::size_t m_roto = 99;
    Instante m_tarda{};

private:
    RelojDePrueba& m_reloj;
};

class TestigoDePrueba : public Testigo {
public:
    void alEnviar(Instante, std::size_t, std::string_view) override { ++m_enviadas; }
    void alFallar(std::size_t) override { ++m_fallidas; }
    void alEsperar() override {}

    int m_enviadas = 0;
    int m_fallidas = 0;
};

class SimuladorReproduccion : public testing::Test {
protected:
    Resumen correr(const std::vector<std::string>& argumentos) {
        m_emisor.m_envios.clear();
        return reproducir(leerOpciones(argumentos), 5, m_emisor, m_reloj, m_testigo);
    }

    RelojDePrueba m_reloj;
    EmisorDePrueba m_emisor{m_reloj};
    TestigoDePrueba m_testigo;
};

TEST_F(SimuladorReproduccion, SeTurnanRepartidosEnElTiempo) {
    const Resumen resumen = correr({"--puertos", "9001,9002", "--ritmo", "10", "--tramas", "2", "--contar"});
    EXPECT_THAT(m_emisor.m_envios, ElementsAre(Envio{0ms, 0, "XXX+00000000\r"}, Envio{50ms, 1, "XXX+00000000\r"},
                                               Envio{100ms, 0, "XXX+00000001\r"}, Envio{150ms, 1, "XXX+00000001\r"}));
    EXPECT_THAT(resumen.enviadas, ElementsAre(2, 2));
    EXPECT_EQ(resumen.tiempo, 150ms);
}

TEST_F(SimuladorReproduccion, LaDuracionNoIncluyeSuUltimoInstante) {
    EXPECT_EQ(correr({"--duracion", "1", "--puertos", "1", "--ritmo", "50"}).total(), 50);
    EXPECT_EQ(correr({"--duracion", "1.001", "--puertos", "1", "--ritmo", "50"}).total(), 51);
    EXPECT_EQ(correr({"--duracion", "1", "--tramas", "3", "--puertos", "1", "--ritmo", "50"}).total(), 3);
}

TEST_F(SimuladorReproduccion, ElBarridoDaLaVueltaYNoAvanzaEnSilencio) {
    const Resumen resumen =
        correr({"--puertos", "1", "--barrido", "1:3:1", "--tramas", "7", "--ritmo", "1", "--callar", "1:2-4"});
    std::string pesos;
    for (const auto& envio : m_emisor.m_envios) pesos += envio.datos[8];
    EXPECT_EQ(pesos, "12312");
    EXPECT_EQ(resumen.calladas, 2);
    EXPECT_THAT(resumen.enviadas, ElementsAre(5));
}

TEST_F(SimuladorReproduccion, ConPesoPuertoCadaUnoDiceElSuyo) {
    correr({"--puertos", "9001,65535", "--peso", "puerto", "--tramas", "1"});
    EXPECT_THAT(m_emisor.m_envios[0].datos, "EXX+09001000\r");
    EXPECT_THAT(m_emisor.m_envios[1].datos, "EXX+65535000\r");
}

TEST_F(SimuladorReproduccion, LoEnviadoNoDependeDeLaPuntualidad) {
    const std::vector<std::string> argumentos = {"--duracion", "20", "--marcas", "azar", "--pausas", "azar:5:1"};
    correr(argumentos);
    const auto puntuales = m_emisor.m_envios;
    m_emisor.m_tarda = 60ms;
    correr(argumentos);
    ASSERT_EQ(puntuales.size(), m_emisor.m_envios.size());
    for (std::size_t i = 0; i < puntuales.size(); ++i) ASSERT_EQ(puntuales[i].datos, m_emisor.m_envios[i].datos);
}

TEST_F(SimuladorReproduccion, UnRetrasoCortoSeRecuperaYUnoLargoNo) {
    // 40 ms a frame against one each 25 ms: 15 ms more are lost with each.
    m_emisor.m_tarda = 40ms;
    EXPECT_EQ(correr({"--tramas", "10"}).retrasos, 0);
    const Resumen largo = correr({"--tramas", "50"});
    EXPECT_EQ(largo.total(), 200);
    EXPECT_EQ(largo.retrasos, 2);
}

TEST_F(SimuladorReproduccion, ElUsuarioTerminaDuranteUnaEsperaYTambienSinEsperas) {
    m_reloj.m_fin = m_reloj.m_ahora + 5s;
    EXPECT_EQ(correr({"--puertos", "1", "--ritmo", "0.1"}).total(), 1);

    m_reloj.m_fin = m_reloj.m_ahora + 5s;
    m_emisor.m_tarda = 10ms;
    EXPECT_NEAR(static_cast<double>(correr({"--puertos", "1", "--ritmo", "1000"}).total()), 500, 64);
}

TEST_F(SimuladorReproduccion, LoQueNoSePudoEnviarSeCuentaAparte) {
    m_emisor.m_roto = 1;
    const Opciones opciones = leerOpciones({"--puertos", "8,9", "--tramas", "4"});
    const Resumen resumen = reproducir(opciones, 5, m_emisor, m_reloj, m_testigo);
    EXPECT_THAT(resumen.enviadas, ElementsAre(4, 0));
    EXPECT_EQ(resumen.fallidas, 4);
    EXPECT_EQ(m_testigo.m_enviadas, 4);
    EXPECT_EQ(m_testigo.m_fallidas, 4);
    const std::string texto = textoResumen(resumen, opciones.destinos);
    EXPECT_THAT(texto, HasSubstr("127.0.0.1:8  4 tramas\n"));
    EXPECT_THAT(texto, HasSubstr("Enviadas: 4 tramas en 0.350 s (11.4 por segundo)\n"));
    EXPECT_THAT(texto, HasSubstr("No se pudieron enviar: 4\n"));
    EXPECT_EQ(texto.find("Retrasos"), std::string::npos);
}

TEST_F(SimuladorReproduccion, LosDefectosNoQuitanNingunaTrama) {
    struct Caso {
        std::vector<std::string> defectos;
        std::size_t datagramas, buenas, defectuosas;
    };
    const Caso casos[] = {{{"--malas", "4"}, 25, 20, 5},
                          {{"--malas", "7:signo", "--basura", "3"}, 28, 20, 8},
                          {{"--partir", "2"}, 30, 20, 0},
                          {{"--juntar", "3"}, 20, 60, 0},
                          {{"--juntar", "3", "--partir", "5", "--basura", "5"}, 28, 60, 4}};
    for (const auto& caso : casos) {
        std::vector<std::string> argumentos = {"--puertos", "1", "--contar", "--tramas", "20"};
        argumentos.insert(argumentos.end(), caso.defectos.begin(), caso.defectos.end());
        const Resumen resumen = correr(argumentos);
        const std::string usado = testing::PrintToString(caso.defectos);
        std::string todo;
        for (const auto& envio : m_emisor.m_envios) todo += envio.datos;
        std::size_t buenas = 0;
        for (std::size_t fin = 0; (fin = todo.find('\r')) != std::string::npos; todo.erase(0, fin + 1)) {
            const std::string cifras = std::to_string(buenas);
            buenas += todo.substr(0, fin) == "XXX+" + std::string(8 - cifras.size(), '0') + cifras ? 1 : 0;
        }
        EXPECT_EQ(todo, "") << usado;
        EXPECT_EQ(m_emisor.m_envios.size(), caso.datagramas) << usado;
        EXPECT_EQ(buenas, caso.buenas) << usado;
        EXPECT_EQ(resumen.total(), static_cast<std::int64_t>(caso.buenas)) << usado;
        EXPECT_EQ(resumen.defectuosas, static_cast<std::int64_t>(caso.defectuosas)) << usado;
    }
}

TEST_F(SimuladorReproduccion, LaAvalanchaEsDeMasYAcabaASuHora) {
    m_emisor.m_tarda = 1ms;
    const Resumen resumen =
        correr({"--puertos", "1,2", "--contar", "--ritmo", "10", "--duracion", "3", "--avalancha", "1:1.5"});
    EXPECT_EQ(resumen.total() - resumen.avalancha, 60);
    EXPECT_NEAR(static_cast<double>(resumen.avalancha), 500, 30);
    const auto enAvalancha = [](const Envio& envio) { return envio.cuando >= 1s && envio.cuando < 1520ms; };
    const auto fuera = m_emisor.m_envios.size() - static_cast<std::size_t>(std::count_if(
                                                      m_emisor.m_envios.begin(), m_emisor.m_envios.end(), enAvalancha));
    EXPECT_NEAR(static_cast<double>(fuera), 50, 1);
    std::vector<int> siguiente(2);
    for (const auto& envio : m_emisor.m_envios)
        ASSERT_EQ(std::stoi(envio.datos.substr(4)), siguiente[envio.indicador]++);
    EXPECT_EQ(correr({"--duracion", "3", "--avalancha", "1:1.001", "--callar", "1:0,2:0,3:0,4:0"}).calladas, 120);
}

TEST(SimuladorCalendario, NoDerivaNiSeDesborda) {
    const Calendario tercios(3, 1'000, {}, {});
    EXPECT_EQ(tercios.vence(1), 333'333'333ns);
    EXPECT_EQ(tercios.vence(3'000'000'000), 1'000'000'000s);
    EXPECT_EQ(tercios.vence(3'000'000'001), 1'000'000'000s + 333'333'333ns);
    EXPECT_EQ(tercios.indicador(3'000'000'001), 1U);

    const Calendario lleno(65'535, 1'000'000, {}, {});
    EXPECT_EQ(lleno.vence(65'535'000LL * 86'400), 24h);
    const Calendario lento(1, 100, {}, {});
    EXPECT_EQ(lento.vence(7), 70s);
}

}  // namespace
}  // namespace sorvanel::simulador
