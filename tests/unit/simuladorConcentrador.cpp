#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iterator>
#include <regex>
#include <sstream>

#include "simulador/concentrador.h"

namespace sorvanel::simulador {
namespace {

using namespace std::chrono_literals;
using namespace std::string_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

using Trozo = std::pair<std::int64_t, std::string>;  // milliseconds, what went in one piece

const std::string UNA = "--direcciones 12/3 --contar --decimales 3 --ritmo 10 ";
const std::string ABIERTA = "LIN>XXX>";

std::string linea(int n) {
    std::string cifras = std::to_string(n);
    cifras.insert(0, 7 - cifras.size(), '0');
    return "12/03 -- " + cifras.insert(4, 1, '.') + " 0000.000\r";
}

// The clock, the network and the one who is told, all three. Clients come and speak at moments told beforehand, and
// answer the greeting as soon as they have all of it; what is sent to them is kept.
class SimuladorConcentrador : public testing::Test, public Reloj, public Red, public TestigoConcentrador {
protected:
    ResumenConcentrador correr(const std::string& argumentos) {
        std::istringstream texto(argumentos);
        const auto opciones =
            leerOpcionesConcentrador(std::vector<std::string>{std::istream_iterator<std::string>(texto), {}});
        m_saludo = opciones.faltas.saludo;
        m_enviado.clear();
        m_trozos.clear();
        m_hechos.clear();
        m_ahora = {};
        m_vueltas = 0;
        return m_resumen = Concentrador(opciones, 5, *this, *this, *this).correr();
    }
    // What the one client of a run is told.
    std::string sesion(const std::string& argumentos) {
        llega(0s, 1);
        correr(argumentos);
        return m_enviado[1];
    }
    void llega(Instante cuando, std::int64_t conexion) { ocurre(cuando, conexion, Suceso::Tipo::Llega); }
    void ocurre(Instante cuando, std::int64_t conexion, Suceso::Tipo tipo, const std::string& datos = {}) {
        m_guion.insert({cuando, {tipo, conexion, datos}});
    }

    Instante ahora() override { return m_ahora; }
    void esperarHasta(Instante instante) override { m_ahora = std::max(m_ahora, instante); }
    bool finPedido() override { return m_fin && m_ahora >= *m_fin; }

    std::string escuchar() override {
        m_hechos.push_back(m_ahora < m_ocupadaHasta ? "ocupado" : "escucha");
        return m_ahora < m_ocupadaHasta ? "está en uso" : "";
    }
    void dejarDeEscuchar() override { m_hechos.push_back("calla"); }
    std::string donde() const override { return "aquí"; }
    void esperar(Instante cuanto, bool acepta, std::vector<Suceso>& sucesos) override {
        EXPECT_GE(cuanto, 0ms);
        ++m_vueltas;
        Instante hasta = m_ahora + cuanto;
        if (!m_guion.empty()) hasta = std::min(hasta, m_guion.begin()->first);
        // Each turn takes some time, so that nothing can go round without end.
        m_ahora = std::max(hasta, m_ahora + m_vuelta);
        for (; !m_guion.empty() && m_guion.begin()->first <= m_ahora; m_guion.erase(m_guion.begin()))
            if (acepta || m_guion.begin()->second.tipo != Suceso::Tipo::Llega)
                sucesos.push_back(m_guion.begin()->second);
    }
    std::size_t enviar(std::int64_t conexion, std::string_view datos) override {
        EXPECT_LT(datos.size(), Sesion::CABIDA + 100);
        if (m_atasco.contiene(m_ahora)) return 0;
        const std::size_t cuantos = std::min(datos.size(), m_cabe);
        m_enviado[conexion] += datos.substr(0, cuantos);
        m_trozos.emplace_back(m_ahora / 1ms, datos.substr(0, cuantos));
        if (m_responde && m_enviado[conexion] == m_saludo) ocurre(m_ahora, conexion, Suceso::Tipo::Datos, "REP\r");
        return cuantos;
    }
    void cerrar(std::int64_t conexion) override { m_hechos.push_back("cierra " + std::to_string(conexion)); }
    void reiniciar(std::int64_t conexion) override { m_hechos.push_back("reinicia " + std::to_string(conexion)); }

    void alEscuchar(Instante cuando, const std::string&) override { m_escuchas.push_back(cuando / 1ms); }
    void alCallar(Instante) override {}
    void alFallar(Instante, const std::string&) override {}
    void alLlegar(Instante, std::int64_t, const std::string&) override {}
    void alRecibir(Instante, std::int64_t, std::string_view) override {}
    void alEnviar(Instante, std::int64_t, std::string_view) override {}
    void alTerminar(Instante, std::int64_t, std::string_view motivo, const CuentaSesion&) override {
        m_motivos.emplace_back(motivo);
    }

    Instante m_ahora{}, m_vuelta = 10us, m_ocupadaHasta{};
    std::optional<Instante> m_fin;
    Ventana m_atasco;
    std::size_t m_cabe = 1'000'000;
    bool m_responde = true;
    std::string m_saludo;
    std::multimap<Instante, Suceso> m_guion;
    std::map<std::int64_t, std::string> m_enviado;
    std::vector<Trozo> m_trozos;
    std::vector<std::string> m_hechos, m_motivos;
    std::vector<std::int64_t> m_escuchas;  // milliseconds
    int m_vueltas = 0;
    ResumenConcentrador m_resumen;
};

TEST_F(SimuladorConcentrador, SaludaEsperaRepYDaLecturas) {
    sesion(UNA + "--duracion 0.25");
    EXPECT_THAT(m_trozos, ElementsAre(Trozo{0, "LIN>"}, Trozo{0, "XXX>"}, Trozo{100, linea(0)}, Trozo{200, linea(1)}));
    sesion(UNA + "--duracion 0.05 --pegada");
    EXPECT_THAT(m_trozos, ElementsAre(Trozo{0, "LIN>"}, Trozo{0, "XXX>" + linea(0)}));
    sesion(UNA + "--duracion 0.35 --saludo Hola\\r\\nLIN> --segundo \\x00XXX> --trozos 5:0.2");
    EXPECT_THAT(m_trozos,
                ElementsAre(Trozo{0, "Hola\r"}, Trozo{200, "\nLIN>"}, Trozo{200, "\0XXX>"s}, Trozo{300, linea(0)}));
    // The prompt goes alone even where it cannot go at once; nor is there anything to do meanwhile.
    m_atasco = {1ms, 500ms};
    m_responde = false;
    ocurre(2ms, 1, Suceso::Tipo::Datos, "REP\r");
    sesion(UNA + "--duracion 0.65");
    EXPECT_THAT(m_trozos, ElementsAre(Trozo{0, "LIN>"}, Trozo{502, "XXX>"}, Trozo{602, linea(0)}));
    EXPECT_LT(m_vueltas, 30);
}

TEST_F(SimuladorConcentrador, SoloValeRepConSuRetornoYTrasElSaludo) {
    const struct {
        std::vector<std::string> respuestas;
        bool abre;
        int inesperadas, deMas;
        std::string opciones;
        Ventana atasco;
    } casos[] = {{{"R", "EP", "\r"}, true, 0, 0, "", {}},
                 {{"REP"}, false, 0, 0, "", {}},
                 {{"REP\n"}, false, 0, 0, "", {}},
                 {{"rep\r"}, false, 1, 0, "", {}},
                 {{"REPX\r", "REP\r"}, true, 1, 0, "", {}},
                 {{"REP\r\n"}, true, 0, 1, "", {}},
                 {{"REP\r", "abc"}, true, 0, 3, "", {}},
                 {{std::string(5000, 'a')}, false, 0, 5000, "", {}},
                 {{"REP\r"}, false, 0, 4, "--enmudece saludo:1", {}},
                 {{"REP\r"}, false, 0, 4, "", {0ms, 600ms}}};
    m_responde = false;
    for (const auto& caso : casos) {
        SCOPED_TRACE(testing::PrintToString(caso.respuestas));
        m_atasco = caso.atasco;
        for (const auto& respuesta : caso.respuestas) ocurre(500ms, 1, Suceso::Tipo::Datos, respuesta);
        const std::string dicho = sesion(UNA + "--duracion 2 " + caso.opciones);
        EXPECT_TRUE(caso.abre ? dicho.starts_with(ABIERTA + linea(0)) : dicho == "LIN>") << dicho;
        EXPECT_EQ(m_resumen.cuenta.inesperadas, caso.inesperadas);
        EXPECT_EQ(m_resumen.cuenta.bytesDeMas, caso.deMas);
    }
}

TEST_F(SimuladorConcentrador, CadaMomentoAdmiteSilencioCierreYReinicio) {
    const std::string tras2 = ABIERTA + linea(0) + linea(1), sana = sesion(UNA + "--duracion 10");
    const std::pair<std::string, std::string> casos[] = {
        {"saludo", ""}, {"rep", "LIN>"}, {"abierta", ABIERTA}, {"lecturas:2", tras2}, {"media:2", tras2}};
    const std::pair<std::string, std::string> faltas[] = {
        {"--enmudece ", "calla"}, {"--cierra ", "cierra 1"}, {"--reinicia ", "reinicia 1"}};
    for (const auto& [momento, antes] : casos) {
        for (const auto& [falta, hecho] : faltas) {
            SCOPED_TRACE(falta + momento);
            const std::string dicho = sesion(UNA + "--duracion 60 " + falta + momento);
            EXPECT_EQ(m_hechos[1], hecho);
            EXPECT_LT(m_vueltas, 650);
            ASSERT_THAT(dicho, StartsWith(antes));
            const std::string media = dicho.substr(antes.size());
            EXPECT_EQ(media.empty(), momento != "media:2");
            EXPECT_TRUE(linea(2).starts_with(media) && media.size() < linea(2).size() - 1) << media;
        }
        // A silence that ends delays and changes nothing.
        EXPECT_THAT(sana, StartsWith(sesion(UNA + "--duracion 10 --enmudece " + momento + ":2.5"))) << momento;
        EXPECT_GT(m_resumen.cuenta.lineas, 60) << momento;
        std::int64_t hueco = m_trozos[0].first;
        for (std::size_t i = 1; i < m_trozos.size(); ++i)
            hueco = std::max(hueco, m_trozos[i].first - m_trozos[i - 1].first);
        EXPECT_NEAR(static_cast<double>(hueco), momento == "abierta" ? 2600 : 2500, 1) << momento;
    }
    EXPECT_EQ(sesion(UNA + "--enmudece rep:1,media:1:2 --cierra lecturas:2 --fin crlf --sesiones 1"),
              ABIERTA + linea(0) + "\n" + linea(1) + "\n");
    EXPECT_EQ(m_resumen.tiempo / 1ms, 3100);
}

TEST_F(SimuladorConcentrador, LoQueSobraNoQuitaNingunaLectura) {
    const std::regex buena("\n?(12/03 -- [0-9]{4}\\.[0-9]{3} 0000\\.000\r)");
    const std::pair<std::string, int> casos[] = {{"--malas 3", 33},
                                                 {"--malas 4:media,direccion", 25},
                                                 {"--basura 2", 50},
                                                 {"--partir 2:0.01", 0},
                                                 {"--malas 5 --basura 5 --partir 5:0.03 --fin crlf", 40}};
    for (const auto& [faltas, defectuosas] : casos) {
        SCOPED_TRACE(faltas);
        std::istringstream dicho(sesion(UNA + faltas + " --tramas 100 --duracion 20").substr(ABIERTA.size()));
        int buenas = 0;
        std::smatch partes;
        for (std::string trozo; std::getline(dicho, trozo, '\r');)
            if (trozo += '\r'; std::regex_match(trozo, partes, buena) && partes[1] == linea(buenas)) ++buenas;
        EXPECT_EQ(buenas, 100);
        EXPECT_EQ(m_resumen.cuenta.lineas, 100);
        EXPECT_EQ(m_resumen.cuenta.defectuosas, defectuosas);
    }
}

TEST_F(SimuladorConcentrador, CadaDireccionCuentaPorSuUltimaCifra) {
    EXPECT_EQ(sesion("--direcciones 1/1,99/99,0/7 --contar --decimales 0,2,0. --tramas 2 --acumulado 7 --marcas CD "
                     "--duracion 5"),
              ABIERTA +
                  "01/01 CD 00000000 00000007\r99/99 CD 00000.00 00007.00\r00/07 CD 0000000. 0000007.\r"
                  "01/01 CD 00000001 00000007\r99/99 CD 00000.01 00007.00\r00/07 CD 0000001. 0000007.\r");
    EXPECT_THAT(m_motivos, ElementsAre("fin de la ejecución"));
}

TEST_F(SimuladorConcentrador, NiSinSitioNiEnAvalanchaSePierdeNada) {
    const auto seguidas = [](const std::string& dicho) {
        int n = 0;
        for (std::size_t i = ABIERTA.size(); i < dicho.size(); i += 27)
            if (dicho.substr(i, 27) == linea(n)) ++n;
        EXPECT_EQ(dicho.size(), ABIERTA.size() + static_cast<std::size_t>(n) * 27);
        return n;
    };
    m_atasco = {150ms, 5s};
    seguidas(sesion("--direcciones 12/3 --contar --decimales 3 --ritmo 1000 --duracion 5.1"));
    EXPECT_EQ(m_resumen.cuenta.retrasos, 1);
    m_atasco = {};
    m_vuelta = 100ms;
    const int n = seguidas(sesion(UNA + "--avalancha 1:2 --duracion 3.2"));
    EXPECT_EQ(n, m_resumen.cuenta.lineas);
    EXPECT_GT(m_resumen.cuenta.avalancha, 5'000);
    EXPECT_NEAR(static_cast<double>(n - m_resumen.cuenta.avalancha), 30, 1);
    const std::int64_t primera = m_trozos[2].first;
    for (const auto& [cuando, trozo] : m_trozos)
        EXPECT_EQ(trozo.size() > 100, cuando >= primera + 1000 && cuando < primera + 2000) << cuando;
}

TEST_F(SimuladorConcentrador, LasFaltasDeLasPrimerasSesiones) {
    m_responde = false;
    for (int i = 0; i < 3; ++i) {
        llega(i * 1s, i + 1);
        ocurre(i * 1s + 10ms, i + 1, Suceso::Tipo::Datos, "REP\r");
    }
    correr("--saludo NO --reinicia lecturas:1 --direcciones 1/1 --veces 2 --duracion 5");
    EXPECT_THAT(m_enviado[2], StartsWith("NOXXX>"));
    EXPECT_THAT(m_enviado[3], StartsWith(ABIERTA));
    EXPECT_THAT(m_motivos, ElementsAre("reiniciada", "reiniciada", "fin de la ejecución"));
}

TEST_F(SimuladorConcentrador, ElPuertoFaltaYVuelveASuHora) {
    llega(0s, 1);
    correr("--ausente 2.01:5.03,7:8 --duracion 9");
    EXPECT_THAT(m_hechos, ElementsAre("escucha", "calla", "cierra 1", "escucha", "calla", "escucha", "calla"));
    EXPECT_THAT(m_escuchas, ElementsAre(0, 5030, 8000));
    EXPECT_THAT(m_motivos, ElementsAre("ausente"));
    m_ocupadaHasta = 3s;
    EXPECT_TRUE(correr("--duracion 9").fallo);
    EXPECT_THAT(m_hechos, ElementsAre("ocupado", "calla"));
}

}  // namespace
}  // namespace sorvanel::simulador
