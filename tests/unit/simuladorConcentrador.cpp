#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iterator>
#include <sstream>

#include "simulador/concentrador.h"

namespace sorvanel::simulador {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;

class RelojDeRed : public Reloj {
public:
    Instante ahora() override { return m_ahora; }
    void esperarHasta(Instante instante) override { m_ahora = std::max(m_ahora, instante); }
    bool finPedido() override { return m_fin && m_ahora - 1000h >= *m_fin; }

    Instante m_ahora = 1000h;
    std::optional<Instante> m_fin;
};

// Clients come and speak at moments told beforehand; what is sent to them is kept.
class RedDePrueba : public Red {
public:
    explicit RedDePrueba(RelojDeRed& reloj) : m_reloj(reloj) {}

    std::string escuchar() override {
        ++m_intentos;
        if (m_ocupadaHasta && m_reloj.m_ahora - 1000h < *m_ocupadaHasta) return "está en uso";
        m_hechos.push_back("escucha");
        return {};
    }
    void dejarDeEscuchar() override { m_hechos.push_back("calla"); }
    std::string donde() const override { return "aquí"; }
    void esperar(Instante cuanto, bool acepta, std::vector<Suceso>& sucesos) override {
        EXPECT_GE(cuanto, 0ms);
        Instante hasta = m_reloj.m_ahora + cuanto;
        if (!m_guion.empty()) hasta = std::min(hasta, std::max(m_reloj.m_ahora, 1000h + m_guion.begin()->first));
        // Each turn takes some time, so that nothing can go round without end.
        m_reloj.m_ahora = std::max(hasta, m_reloj.m_ahora + 10us);
        while (!m_guion.empty() && 1000h + m_guion.begin()->first <= m_reloj.m_ahora) {
            if (acepta || m_guion.begin()->second.tipo != Suceso::Tipo::Llega)
                sucesos.push_back(m_guion.begin()->second);
            m_guion.erase(m_guion.begin());
        }
    }
    std::size_t enviar(std::int64_t conexion, std::string_view datos) override {
        const std::size_t cuantos = std::min(datos.size(), m_cabe);
        m_enviado[conexion] += datos.substr(0, cuantos);
        return cuantos;
    }
    void cerrar(std::int64_t conexion) override { m_hechos.push_back("cierra " + std::to_string(conexion)); }
    void reiniciar(std::int64_t conexion) override { m_hechos.push_back("reinicia " + std::to_string(conexion)); }

    void llega(Instante cuando, std::int64_t conexion) {
        m_guion.insert({cuando, {Suceso::Tipo::Llega, conexion, "alguien"}});
        m_guion.insert({cuando + 10ms, {Suceso::Tipo::Datos, conexion, "REP\r"}});
    }

    RelojDeRed& m_reloj;
    std::multimap<Instante, Suceso> m_guion;
    std::map<std::int64_t, std::string> m_enviado;
    std::vector<std::string> m_hechos;
    std::optional<Instante> m_ocupadaHasta;
    std::size_t m_cabe = 1'000'000;
    int m_intentos = 0;
};

class TestigoMudo : public TestigoConcentrador {
public:
    void alEscuchar(Instante cuando, const std::string&) override { m_escuchas.push_back(cuando); }
    void alCallar(Instante) override {}
    void alFallar(Instante, const std::string&) override { ++m_fallos; }
    void alLlegar(Instante, std::int64_t, const std::string&) override {}
    void alRecibir(Instante, std::int64_t, std::string_view) override {}
    void alEnviar(Instante, std::int64_t, std::string_view datos) override { m_bytes += datos.size(); }
    void alTerminar(Instante, std::int64_t, std::string_view motivo, const CuentaSesion&) override {
        m_motivos.emplace_back(motivo);
    }

    std::vector<Instante> m_escuchas;
    std::vector<std::string> m_motivos;
    std::size_t m_bytes = 0;
    int m_fallos = 0;
};

class SimuladorConcentrador : public testing::Test {
protected:
    ResumenConcentrador correr(const std::vector<std::string>& argumentos) {
        const auto opciones = leerOpcionesConcentrador(argumentos);
        return Concentrador(opciones, 5, m_red, m_reloj, m_testigo).correr();
    }

    RelojDeRed m_reloj;
    RedDePrueba m_red{m_reloj};
    TestigoMudo m_testigo;
};

TEST_F(SimuladorConcentrador, CadaClienteRecibeLoMismoDesdeSuPrincipio) {
    m_red.llega(1s, 1);
    m_red.llega(1500ms, 2);
    const auto resumen = correr({"--tramas", "5", "--duracion", "4", "--semilla", "1"});
    EXPECT_EQ(m_red.m_enviado[1], m_red.m_enviado[2]);
    EXPECT_EQ(m_red.m_enviado[1].size(), 8U + 4 * 5 * 27);
    EXPECT_EQ(resumen.sesiones, 2);
    EXPECT_EQ(resumen.cuenta.lineas, 40);
    EXPECT_EQ(m_testigo.m_bytes, 2 * m_red.m_enviado[1].size());
    EXPECT_THAT(m_red.m_hechos, ElementsAre("escucha", "calla"));
    EXPECT_THAT(textoResumen(resumen), HasSubstr("Enviadas: 40 lecturas en 4.000 s (10.0 por segundo)\n"));
}

TEST_F(SimuladorConcentrador, UnEnvioAMediasSigueDondeQuedo) {
    m_red.m_cabe = 5;
    m_red.llega(0s, 1);
    correr({"--direcciones", "12/3", "--contar", "--decimales", "0", "--tramas", "2", "--cierra", "lecturas:2",
            "--sesiones", "1"});
    EXPECT_EQ(m_red.m_enviado[1], "LIN>XXX>12/03 -- 00000000 00000000\r12/03 -- 00000001 00000000\r");
    EXPECT_THAT(m_red.m_hechos, ElementsAre("escucha", "cierra 1", "calla"));
}

TEST_F(SimuladorConcentrador, LasFaltasDeLasPrimerasSesiones) {
    for (int i = 0; i < 3; ++i) m_red.llega(i * 1s, i + 1);
    correr({"--saludo", "NO", "--reinicia", "lecturas:1", "--direcciones", "1/1", "--veces", "2", "--duracion", "5"});
    EXPECT_THAT(m_red.m_enviado[1], testing::StartsWith("NOXXX>"));
    EXPECT_EQ(m_red.m_enviado[2], m_red.m_enviado[1]);
    EXPECT_THAT(m_red.m_enviado[3], testing::StartsWith("LIN>XXX>"));
    EXPECT_GT(m_red.m_enviado[3].size(), 20U * 27);
    EXPECT_THAT(m_red.m_hechos, ElementsAre("escucha", "reinicia 1", "reinicia 2", "calla"));
    EXPECT_THAT(m_testigo.m_motivos, ElementsAre("reiniciada", "reiniciada", "fin de la ejecución"));
}

TEST_F(SimuladorConcentrador, AusenteCortaYVuelveASuHora) {
    m_red.llega(0s, 1);
    correr({"--ausente", "2.01:5.03,7:8", "--duracion", "9"});
    EXPECT_THAT(m_red.m_hechos, ElementsAre("escucha", "calla", "cierra 1", "escucha", "calla", "escucha", "calla"));
    ASSERT_EQ(m_testigo.m_escuchas.size(), 3U);
    EXPECT_NEAR(static_cast<double>(m_testigo.m_escuchas[1] / 1ms), 5030, 1);
    EXPECT_NEAR(static_cast<double>(m_testigo.m_escuchas[2] / 1ms), 8000, 1);
    EXPECT_THAT(m_testigo.m_motivos, ElementsAre("ausente"));
}

TEST_F(SimuladorConcentrador, UnPuertoOcupadoAlPrincipioEsElFinYDespuesSeReintenta) {
    m_red.m_ocupadaHasta = 1s;
    EXPECT_TRUE(correr({"--duracion", "9"}).fallo);
    EXPECT_EQ(m_red.m_intentos, 1);

    m_reloj.m_ahora = 1000h;
    m_red.m_ocupadaHasta.reset();
    m_red.m_guion.insert({2s, {Suceso::Tipo::Cabe, 9, {}}});
    struct Ocupa : RedDePrueba {
        using RedDePrueba::RedDePrueba;
        void dejarDeEscuchar() override { m_ocupadaHasta = 3s; }
    } ocupada(m_reloj);
    const auto opciones = leerOpcionesConcentrador(std::vector<std::string>{"--ausente", "1:2", "--duracion", "4"});
    const auto resumen = Concentrador(opciones, 5, ocupada, m_reloj, m_testigo).correr();
    EXPECT_FALSE(resumen.fallo);
    // The first time, each fifth of a second while it is taken, and the one that succeeds.
    EXPECT_NEAR(ocupada.m_intentos, 7, 1);
    EXPECT_EQ(ocupada.m_hechos.size(), 2U);
}

TEST_F(SimuladorConcentrador, SinAceptarNoHaySesiones) {
    m_red.llega(1s, 1);
    EXPECT_EQ(correr({"--sin-aceptar", "--duracion", "3"}).sesiones, 0);
    EXPECT_TRUE(m_red.m_enviado.empty());
}

TEST_F(SimuladorConcentrador, ElClienteQueSeVaYElUsuarioQueTermina) {
    m_red.llega(0s, 1);
    m_red.m_guion.insert({1s, {Suceso::Tipo::SeVa, 1, {}}});
    m_red.m_guion.insert({2s, {Suceso::Tipo::Datos, 1, "tarde"}});
    m_reloj.m_fin = 3s;
    const auto resumen = correr({});
    EXPECT_THAT(m_testigo.m_motivos, ElementsAre("se fue el cliente"));
    EXPECT_NEAR(static_cast<double>(resumen.tiempo / 1ms), 3000, 100);
}

TEST(SimuladorVisible, EscribeLoQueNoSeVe) {
    EXPECT_EQ(visible(std::string("a\r\n\t\\\0\x7F\xE9z", 9)), "a\\r\\n\\t\\\\\\x00\\x7F\\xE9z");
}

TEST(SimuladorOpcionesConcentrador, LoQueSeEntiende) {
    using Punto = Etapa::Punto;
    const auto leer = [](std::vector<std::string> argumentos) { return leerOpcionesConcentrador(argumentos); };
    EXPECT_EQ(leer({}).puerto, 9084);
    EXPECT_THAT(leer({}).escucha, ElementsAre("127.0.0.1", "::1"));
    EXPECT_THAT(leer({"--escucha", "todas"}).escucha, ElementsAre("0.0.0.0", "::"));
    EXPECT_THAT(leer({"--direcciones", "12/98-13/1,0/5"}).direcciones,
                ElementsAre(Direccion{12, 98}, Direccion{12, 99}, Direccion{13, 0}, Direccion{13, 1}, Direccion{0, 5}));
    EXPECT_THAT(leer({"--decimales", "0,0.,2"}).decimales,
                ElementsAre(Decimales{0, false}, Decimales{0, true}, Decimales{2, false}));
    EXPECT_EQ(leer({"--saludo", "a\\x4C\\\\"}).faltas.saludo, "aL\\");
    EXPECT_EQ(leer({"--cierra", "media:0"}).faltas.cierre, (Etapa{Punto::Media, 0}));
    const auto mudeces = leer({"--enmudece", "rep,lecturas:20:1.5"}).faltas.mudeces;
    ASSERT_EQ(mudeces.size(), 2U);
    EXPECT_FALSE(mudeces[0].dura);
    EXPECT_EQ(mudeces[1].etapa, (Etapa{Punto::Lecturas, 20}));
    EXPECT_EQ(mudeces[1].dura, 1500ms);
}

TEST(SimuladorOpcionesConcentrador, LosErroresDicenQueOpcionYPorQue) {
    struct Caso {
        std::vector<std::string> argumentos;
        const char* dice;
    };
    const Caso casos[] = {
        {{"--puertos", "1"}, "opción desconocida"},
        {{"--puerto", "65536"}, "de 0 a 65535"},
        {{"--direcciones", "12"}, "dirección como 12/3"},
        {{"--direcciones", "100/1"}, "de 0 a 99"},
        {{"--direcciones", "1/5-1/4"}, "al revés"},
        {{"--direcciones", "1/1-1/2-1/3"}, "intervalo"},
        {{"--direcciones", "1/1-1/9,1/4"}, "1/4 está dos veces"},
        {{"--decimales", "5"}, "de 0 a 4"},
        {{"--decimales", "3", "--capacidad", "10000"}, "--capacidad: la capacidad no cabe"},
        {{"--decimales", "1,4", "--peso", "1000"}, "los decimales de 12/2"},
        {{"--decimales", "4", "--peso", "direccion"}, "--peso: el peso no cabe"},
        {{"--decimales", "4", "--acumulado", "1000", "--peso", "1"}, "--acumulado"},
        {{"--decimales", "1", "--barrido", "0:10:0.01"}, "el paso no cabe"},
        {{"--decimales", "3", "--barrido", "0:10000:1"}, "el máximo no cabe"},
        {{"--marcas", "EXX"}, "no son marcas"},
        {{"--marcas", "DC"}, "no son marcas"},
        {{"--fin", "nada"}, "cr, lf o crlf"},
        {{"--saludo", "a\\q"}, "tras «\\»"},
        {{"--saludo", "a\\x4"}, "tras «\\»"},
        {{"--cierra", "luego"}, "no es un momento"},
        {{"--cierra", "lecturas"}, "falta cuántas"},
        {{"--cierra", "lecturas:0"}, "--cierra: «0» está fuera de margen"},
        {{"--cierra", "rep:1"}, "sobra «1»"},
        {{"--enmudece", "rep:1:2"}, "sobra «2»"},
        {{"--cierra", "rep", "--reinicia", "rep"}, "no puede ir con --cierra"},
        {{"--sin-aceptar", "--cierra", "rep"}, "no puede ir con"},
        {{"--trozos", "2"}, "N:SEGUNDOS"},
        {{"--malas", "3:rotas"}, "media, larga, direccion, marcas, separador, valor"},
        {{"--ausente", "5:5"}, "termina antes"},
        {{"--avalancha", "0:60.001"}, "dura más de 60 segundos"},
        {{"--callar", "5:1"}, "no hay indicador 5"},
        {{"--contar", "--peso", "direccion"}, "no puede ir con"},
    };
    for (const auto& caso : casos) {
        const std::string usado = testing::PrintToString(caso.argumentos);
        try {
            leerOpcionesConcentrador(caso.argumentos);
            ADD_FAILURE() << usado << " se acepta";
        } catch (const ErrorUso& error) {
            EXPECT_THAT(error.what(), HasSubstr(caso.dice)) << usado;
        }
    }
}

TEST(SimuladorOpcionesConcentrador, LosEjemplosDeLaAyudaSonValidos) {
    const std::string ayuda{textoAyudaConcentrador()};
    int ejemplos = 0;
    for (std::size_t lugar = 0; (lugar = ayuda.find("\n  simulador concentrador", lugar)) != std::string::npos;
         ++ejemplos) {
        lugar += 3;
        std::istringstream texto(ayuda.substr(lugar, ayuda.find('\n', lugar) - lugar));
        const std::vector<std::string> palabras{std::istream_iterator<std::string>(texto), {}};
        EXPECT_NO_THROW(leerOpcionesConcentrador(std::span(palabras).subspan(2))) << texto.str();
    }
    EXPECT_EQ(ejemplos, 5);
}

}  // namespace
}  // namespace sorvanel::simulador
