#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <regex>

#include "simulador/sesion.h"

namespace sorvanel::simulador {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

struct Trozo {
    Instante cuando;
    std::string texto;

    bool operator==(const Trozo&) const = default;
};

void PrintTo(const Trozo& trozo, std::ostream* salida) {
    *salida << trozo.cuando / 1ms << " ms " << testing::PrintToString(trozo.texto);
}

// A client that answers the greeting as soon as it has all of it, and a clock that jumps to what comes next.
class Cliente {
public:
    explicit Cliente(std::vector<std::string> argumentos)
        : m_opciones(leerOpcionesConcentrador(argumentos)), m_sesion(m_opciones, m_opciones.faltas, 5) {}

    // Until then, or until nothing more can come of its own.
    Cliente& correr(Instante hasta) {
        for (;;) {
            m_sesion.avanzar(m_ahora);
            std::string& salida = m_sesion.salida();
            if (!salida.empty()) m_trozos.push_back({m_ahora, std::exchange(salida, {})});
            if (m_responde && !m_respondio && texto() == m_opciones.faltas.saludo) {
                m_respondio = true;
                m_sesion.alRecibir(m_respuesta);
                continue;
            }
            const auto proximo = m_sesion.proximo(m_ahora);
            if (!proximo || *proximo >= hasta) return *this;
            m_ahora = std::max(m_ahora, *proximo);
        }
    }

    std::string texto() const {
        std::string todo;
        for (const auto& trozo : m_trozos) todo += trozo.texto;
        return todo;
    }

    OpcionesConcentrador m_opciones;
    Sesion m_sesion;
    Instante m_ahora{};
    std::vector<Trozo> m_trozos;
    bool m_responde = true;
    bool m_respondio = false;
    std::string m_respuesta = "REP\r";
};

const std::vector<std::string> UNA = {"--direcciones", "12/3", "--contar", "--decimales", "3", "--ritmo", "10"};

std::vector<std::string> con(std::vector<std::string> argumentos, const std::vector<std::string>& mas) {
    argumentos.insert(argumentos.end(), mas.begin(), mas.end());
    return argumentos;
}

std::string linea(int n) {
    std::string cifras = std::to_string(n);
    cifras.insert(0, 7 - cifras.size(), '0');
    return "12/03 -- " + cifras.insert(4, 1, '.') + " 0000.000";
}

TEST(SimuladorSesion, SaludaEsperaRepYDaLecturas) {
    Cliente cliente(UNA);
    EXPECT_THAT(cliente.correr(250ms).m_trozos,
                ElementsAre(Trozo{0ms, "LIN>"}, Trozo{0ms, "XXX>" + linea(0) + "\r"}, Trozo{100ms, linea(1) + "\r"},
                            Trozo{200ms, linea(2) + "\r"}));
    EXPECT_EQ(cliente.m_sesion.cuenta().lineas, 3);
}

TEST(SimuladorSesion, SoloValeRepConSuRetorno) {
    struct Caso {
        std::vector<std::string> respuestas;
        bool abre;
        int inesperadas, deMas;
    };
    const Caso casos[] = {
        {{"REP\r"}, true, 0, 0},   {{"R", "EP", "\r"}, true, 0, 0},
        {{"REP"}, false, 0, 0},    {{"REP\n"}, false, 0, 0},
        {{"rep\r"}, false, 1, 0},  {{"REPX\r", "REP\r"}, true, 1, 0},
        {{"REP\r\n"}, true, 0, 1}, {{"REP\r", "abc"}, true, 0, 3},
        {{"\r"}, false, 1, 0},     {{std::string(5000, 'a')}, false, 0, 5000},
    };
    for (const auto& caso : casos) {
        Cliente cliente(UNA);
        cliente.m_responde = false;
        cliente.correr(1s);
        for (const auto& respuesta : caso.respuestas) cliente.m_sesion.alRecibir(respuesta);
        cliente.correr(2s);
        const std::string usado = testing::PrintToString(caso.respuestas);
        EXPECT_EQ(cliente.texto().starts_with("LIN>XXX>12/03"), caso.abre) << usado;
        EXPECT_EQ(cliente.m_sesion.cuenta().inesperadas, caso.inesperadas) << usado;
        EXPECT_EQ(cliente.m_sesion.cuenta().bytesDeMas, caso.deMas) << usado;
    }
}

TEST(SimuladorSesion, QuienHablaAntesDelSaludoNoEsOido) {
    Cliente cliente(con(UNA, {"--enmudece", "saludo:1"}));
    cliente.m_responde = false;
    cliente.correr(500ms).m_sesion.alRecibir("REP\r");
    EXPECT_EQ(cliente.correr(5s).texto(), "LIN>");
    EXPECT_EQ(cliente.m_sesion.cuenta().bytesDeMas, 4);

    // Nor is it while the greeting waits to be sent.
    Cliente otro(UNA);
    otro.m_sesion.avanzar(0s);
    otro.m_sesion.alRecibir("REP\r");
    EXPECT_EQ(otro.m_sesion.cuenta().respuestas, 0);
}

TEST(SimuladorSesion, CadaMomentoAdmiteSilencioCierreYReinicio) {
    struct Caso {
        const char* momento;
        std::string dicho;  // before the fault
    };
    const std::string abierta = "LIN>XXX>";
    const std::string tras2 = abierta + linea(0) + "\r" + linea(1) + "\r";
    const Caso casos[] = {
        {"saludo", ""}, {"rep", "LIN>"}, {"abierta", abierta}, {"lecturas:2", tras2}, {"media:2", tras2},
    };
    using Fin = Sesion::Fin;
    const std::pair<const char*, Fin> faltas[] = {
        {"--enmudece", Fin::Sigue}, {"--cierra", Fin::Cierra}, {"--reinicia", Fin::Reinicia}};
    const std::string sana = Cliente(UNA).correr(10s).texto();
    for (const auto& caso : casos) {
        const bool media = std::string(caso.momento).starts_with("media");
        for (const auto& [falta, fin] : faltas) {
            Cliente cliente(con(UNA, {falta, caso.momento}));
            const std::string dicho = cliente.correr(60s).texto();
            EXPECT_EQ(cliente.m_sesion.fin(), fin) << falta << caso.momento;
            EXPECT_FALSE(cliente.m_sesion.proximo(cliente.m_ahora)) << falta << caso.momento;
            if (media) {
                EXPECT_THAT(linea(2), StartsWith(dicho.substr(caso.dicho.size()))) << falta;
                EXPECT_GT(dicho.size(), caso.dicho.size()) << falta;
                EXPECT_LT(dicho.size(), caso.dicho.size() + linea(2).size()) << falta;
            } else {
                EXPECT_EQ(dicho, caso.dicho) << falta << caso.momento;
            }
        }
        // A silence that ends delays and changes nothing.
        Cliente cliente(con(UNA, {"--enmudece", std::string(caso.momento) + ":2.5"}));
        EXPECT_THAT(sana, StartsWith(cliente.correr(10s).texto())) << caso.momento;
        EXPECT_GT(cliente.m_sesion.cuenta().lineas, 60) << caso.momento;
        Instante hueco = cliente.m_trozos[0].cuando;
        for (std::size_t i = 1; i < cliente.m_trozos.size(); ++i)
            hueco = std::max(hueco, cliente.m_trozos[i].cuando - cliente.m_trozos[i - 1].cuando);
        EXPECT_EQ(hueco, 2500ms) << caso.momento;
    }
}

TEST(SimuladorSesion, LasFaltasSeCombinanEnOrden) {
    Cliente cliente(con(UNA, {"--enmudece", "rep:1,media:1:2", "--cierra", "lecturas:2", "--fin", "crlf"}));
    const std::string dicho = cliente.correr(60s).texto();
    EXPECT_EQ(dicho, "LIN>XXX>" + linea(0) + "\r\n" + linea(1) + "\r\n");
    EXPECT_EQ(cliente.m_ahora, 3s);
    EXPECT_EQ(cliente.m_sesion.fin(), Sesion::Fin::Cierra);
}

TEST(SimuladorSesion, LosAvisosPuedenSerOtrosYVenirATrozos) {
    Cliente cliente(con(UNA, {"--saludo", "Hola\\r\\nLIN>", "--segundo", "\\x00XXX>", "--trozos", "5:0.2"}));
    cliente.correr(900ms);
    using namespace std::string_literals;
    EXPECT_THAT(
        cliente.m_trozos,
        ElementsAre(Trozo{0ms, "Hola\r"}, Trozo{200ms, "\nLIN>"}, Trozo{200ms, "\0XXX>"s + linea(0) + "\r"},
                    Trozo{300ms, linea(1) + "\r"}, Trozo{400ms, linea(2) + "\r"}, Trozo{500ms, linea(3) + "\r"},
                    Trozo{600ms, linea(4) + "\r"}, Trozo{700ms, linea(5) + "\r"}, Trozo{800ms, linea(6) + "\r"}));
}

TEST(SimuladorSesion, LoQueSobraNoQuitaNingunaLectura) {
    const std::regex buena("12/03 -- [0-9]{4}\\.[0-9]{3} 0000\\.000");
    struct Caso {
        std::vector<std::string> faltas;
        int defectuosas;
    };
    const Caso casos[] = {{{"--malas", "3"}, 33},
                          {{"--malas", "4:media,direccion"}, 25},
                          {{"--basura", "2"}, 50},
                          {{"--partir", "2:0.01"}, 0},
                          {{"--malas", "5", "--basura", "5", "--partir", "5:0.03", "--fin", "crlf"}, 40}};
    for (const auto& caso : casos) {
        Cliente cliente(con(con(UNA, caso.faltas), {"--tramas", "100"}));
        std::string resto = cliente.correr(60s).texto().substr(8);
        const std::string usado = testing::PrintToString(caso.faltas);
        int buenas = 0;
        for (std::size_t fin = 0; (fin = resto.find('\r')) != std::string::npos; resto.erase(0, fin + 1)) {
            const std::string trozo = resto.substr(resto[0] == '\n' ? 1 : 0, fin - (resto[0] == '\n' ? 1 : 0));
            if (!std::regex_match(trozo, buena)) continue;
            ASSERT_EQ(trozo, linea(buenas++)) << usado;
        }
        EXPECT_EQ(buenas, 100) << usado;
        EXPECT_EQ(cliente.m_sesion.cuenta().lineas, 100) << usado;
        EXPECT_EQ(cliente.m_sesion.cuenta().defectuosas, caso.defectuosas) << usado;
    }
}

TEST(SimuladorSesion, CadaDireccionCuentaPorSuUltimaCifra) {
    Cliente cliente({"--direcciones", "1/1,99/99,0/7", "--contar", "--decimales", "0,2,0.", "--tramas", "2",
                     "--acumulado", "7", "--marcas", "CD"});
    EXPECT_EQ(cliente.correr(10s).texto(),
              "LIN>XXX>01/01 CD 00000000 00000007\r99/99 CD 00000.00 00007.00\r00/07 CD 0000000. 0000007.\r"
              "01/01 CD 00000001 00000007\r99/99 CD 00000.01 00007.00\r00/07 CD 0000001. 0000007.\r");
    EXPECT_FALSE(cliente.m_sesion.proximo(cliente.m_ahora));
    EXPECT_EQ(cliente.m_sesion.fin(), Sesion::Fin::Sigue);
}

TEST(SimuladorSesion, LoDichoNoDependeDeCuandoSePregunta) {
    const std::vector<std::string> argumentos = {"--direcciones", "12/1-12/8", "--ciclo",  "5",        "--marcas",
                                                 "azar",          "--pausas",  "azar:2:1", "--tramas", "300"};
    const std::string dicho = Cliente(argumentos).correr(100s).texto();
    Cliente lento(argumentos);
    for (lento.m_ahora = 0ms; lento.m_ahora < 60s; lento.m_ahora += 370ms) lento.correr(lento.m_ahora);
    EXPECT_GT(dicho.size(), 20'000U);
    EXPECT_EQ(lento.texto(), dicho);
}

TEST(SimuladorSesion, SinSitioEsperaYNoPierdeNada) {
    Cliente cliente({"--direcciones", "12/3", "--contar", "--decimales", "3", "--ritmo", "1000"});
    cliente.correr(1ms);
    for (Instante ahora = 0ms; ahora < 5s; ahora += 10ms) cliente.m_sesion.avanzar(ahora);
    EXPECT_GE(cliente.m_sesion.salida().size(), Sesion::CABIDA);
    EXPECT_LT(cliente.m_sesion.salida().size(), Sesion::CABIDA + 100);
    EXPECT_FALSE(cliente.m_sesion.proximo(5s));
    cliente.m_ahora = 5s;
    const std::string dicho = cliente.correr(5100ms).texto();
    int n = 0;
    for (std::size_t lugar = 8; lugar < dicho.size(); lugar += 27, ++n)
        ASSERT_EQ(dicho.substr(lugar, 27), linea(n) + "\r");
    EXPECT_EQ(n, cliente.m_sesion.cuenta().lineas);
    EXPECT_EQ(cliente.m_sesion.cuenta().retrasos, 1);
}

TEST(SimuladorSesion, LaAvalanchaLlenaLaSalidaMientrasDura) {
    const auto argumentos = con(UNA, {"--avalancha", "1:2"});
    Cliente cliente(argumentos);
    cliente.correr(1s);
    EXPECT_EQ(cliente.m_sesion.cuenta().lineas, 10);
    for (cliente.m_ahora = 1s; cliente.m_ahora < 3s; cliente.m_ahora += 100ms) {
        cliente.m_sesion.avanzar(cliente.m_ahora);
        const bool llena = cliente.m_sesion.salida().size() >= Sesion::CABIDA;
        EXPECT_EQ(llena, cliente.m_ahora < 2s) << cliente.m_ahora / 1ms;
        cliente.m_trozos.push_back({cliente.m_ahora, std::exchange(cliente.m_sesion.salida(), {})});
        if (llena) {
            EXPECT_LE(cliente.m_sesion.proximo(cliente.m_ahora), cliente.m_ahora);
        }
    }
    EXPECT_EQ(cliente.m_sesion.cuenta().lineas - cliente.m_sesion.cuenta().avalancha, 30);
    const std::string dicho = cliente.texto();
    EXPECT_THAT(dicho, HasSubstr(linea(0) + "\r" + linea(1) + "\r"));
    EXPECT_THAT(dicho, HasSubstr(linea(998) + "\r" + linea(999) + "\r"));
}

}  // namespace
}  // namespace sorvanel::simulador
