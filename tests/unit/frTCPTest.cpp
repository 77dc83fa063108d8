#include "links/frTCP.h"

#include <gtest/gtest.h>

#include <sstream>

#include "doubles/entornoDoble.h"

namespace sorvanel {
namespace {

using Estado = frTCP::Estado;
using Textos = std::vector<std::string>;

const std::string LECTURA = "12/03 C- 0001.250 0000.500";
const std::string OTRA = "07/42 -- 0000.100 0000.200";

// Notes what it is told: "1203" for a reading of that address, "s" for silence. Takes its own address.
class VisorDoble : public SuscriptorPeso {
public:
    explicit VisorDoble(std::int32_t puerto = 1203) : m_puerto(puerto) {}

    Textos oido;
    std::function<void()> alOir;

    std::int32_t port() const override { return m_puerto; }
    std::int16_t modoBulk() const override { return 4; }
    bool frWsk_refrescoPeso(std::string_view) override { return false; }
    bool mmTCP_refrescoPeso(std::int16_t primero, std::int16_t segundo, std::string_view carga) override {
        const int direccion = primero * 100 + segundo;
        oido.push_back(carga.empty() && direccion == 0 ? "s" : std::to_string(direccion));
        if (alOir) alOir();
        return !carga.empty() && direccion == m_puerto;
    }

private:
    std::int32_t m_puerto;
};

struct Banco {
    EntornoDoble e;
    VisorDoble visor;
    frTCP enlace{e.com, e.fabrica, e.reloj};

    ZocaloDoble& zocalo() { return *e.fabrica.ultimoZocalo(); }
    OyenteZocalo& oyente() { return zocalo().oyente(); }
    bool suena() { return e.fabrica.ultimoTemporizador()->habilitado(); }
    std::size_t conexiones() { return zocalo().conexiones.size(); }
    // Up to that state, by the shortest way.
    void llevar(Estado hasta) {
        if (hasta == Estado::cerrado) return;
        ASSERT_TRUE(enlace.enMarcha(visor));
        if (hasta == Estado::conectando) return;
        zocalo().conectado();
        if (hasta == Estado::fallado) zocalo().llegar("basura");
        if (hasta >= Estado::esperaSegundo && hasta < Estado::fallado) zocalo().llegar("LIN>");
        if (hasta >= Estado::abierta && hasta < Estado::fallado) zocalo().llegar("XXX>");
        if (hasta == Estado::leyendo) zocalo().llegar(LECTURA + "\r");
        ASSERT_EQ(enlace.estado(), hasta);
    }
    // What comes when nothing is connected comes too late: it is told all the same.
    void llegar(const std::string& texto) {
        if (!zocalo().llegar(texto)) oyente().alLlegarDatos();
    }
};

// Each cell: the state that follows, then "*" for a new attempt to connect, "R" for the answer sent, "L" for
// a reading handed over, "s" for silence told.
TEST(frTCP, cadaSucesoEnCadaEstado) {
    const struct {
        const char *suceso, *queda;  // from each state, in order
        std::function<void(Banco&)> ocurre;
    } TABLA[] = {
        {"conectado", "0 2 2 3 4 5 6", [](Banco& b) { b.zocalo().conectado() || (b.oyente().alConectar(), true); }},
        {"fallo", "0 1* 1* 1* 1* 1* 6", [](Banco& b) { b.zocalo().fallar() || (b.oyente().alFallar(), true); }},
        {"cierre", "0 1* 1* 1* 1* 1* 6", [](Banco& b) { b.zocalo().cerrarse() || (b.oyente().alCerrarse(), true); }},
        {"primer aviso", "0 1 3R 6 4 5 6", [](Banco& b) { b.llegar("LIN>"); }},
        {"aviso largo", "0 1 3R 6 4 5 6", [](Banco& b) { b.llegar("P3\r\nLIN>"); }},
        {"segundo aviso", "0 1 6 4 4 5 6", [](Banco& b) { b.llegar("XXX>"); }},
        {"otro texto", "0 1 6 6 4 5 6", [](Banco& b) { b.llegar("LIN> "); }},
        {"tres letras", "0 1 2 3 4 5 6", [](Banco& b) { b.llegar("IN>"); }},
        {"lectura", "0 1 6 6 5L 5L 6", [](Banco& b) { b.llegar(LECTURA + "\r"); }},
        {"aviso y lectura", "0 1 6 5L 4 5 6", [](Banco& b) { b.llegar("XXX>" + LECTURA + "\r"); }},
        {"aviso y media", "0 1 6 4 4 5 6", [](Banco& b) { b.llegar("12/03 XXX>" + LECTURA.substr(0, 20)); }},
        {"aviso y basura", "0 1 6 6 5L 5L 6", [](Banco& b) { b.llegar("XXX>\r" + LECTURA + "\r"); }},
        {"aviso, lectura y basura", "0 1 6 6 4 5 6", [](Banco& b) { b.llegar("XXX>" + LECTURA + "\rbasura"); }},
        {"basura y dos avisos", "0 1 6 4 4 5 6", [](Banco& b) { b.llegar("XXX>basura\rXXX>"); }},
        {"basura", "0 1 6 6 4 5 6", [](Banco& b) { b.llegar("2/03 C- 0001.250 0000.500\r"); }},
        {"segundo", "0 1s 1*s 1*s 1*s 5s 1*s", [](Banco& b) { b.e.reloj.avanzar(1000); }},
        {"Cerrar", "0 0 0 0 0 0 0", [](Banco& b) { b.enlace.Cerrar(b.visor); }},
        {"hola y adiós", "0 0 0 0 0 0 0", [](Banco& b) { b.enlace.hola(), b.enlace.adios(); }}};
    for (const auto& fila : TABLA) {
        std::istringstream celdas(fila.queda);
        for (int estado = 0; estado <= 6; ++estado) {
            SCOPED_TRACE(fila.suceso + std::to_string(estado));
            Banco b;
            b.llevar(static_cast<Estado>(estado));
            const std::size_t conexiones = b.conexiones();
            b.zocalo().enviado.clear();
            b.visor.oido.clear();
            fila.ocurre(b);
            const Estado final = b.enlace.estado();
            std::string queda = std::to_string(static_cast<int>(final)), esperado;
            if (b.conexiones() == conexiones + 1) queda += '*';
            if (b.zocalo().enviado == "REP\r") queda += 'R';
            for (const std::string& oido : b.visor.oido) queda += oido == "1203" ? "L" : oido;
            celdas >> esperado;
            EXPECT_EQ(queda, esperado);
            EXPECT_EQ(b.zocalo().abierto(), final != Estado::cerrado && final != Estado::fallado);
            EXPECT_EQ(b.suena(), final != Estado::cerrado);
        }
    }
}

TEST(frTCP, unaSesionCortadaPorDondeSea) {
    const std::vector<Textos> sesiones = {{"LIN>", "XXX>", LECTURA + "\r\nbasura\r\n\r\n" + OTRA + "\r" + LECTURA},
                                          {"LIN>", "XXX>" + LECTURA + "\r\n" + OTRA + "\r" + LECTURA}};
    const auto cortada = [](const Textos& mensajes, const std::string& cual, std::size_t i, std::size_t j) {
        Banco b;
        b.llevar(Estado::esperaLinea);
        for (const std::string& todo : mensajes) {
            const Textos trozos = {cual.substr(0, i), cual.substr(i, j - i), cual.substr(j)};
            for (const std::string& trozo : todo == cual ? trozos : Textos{todo}) b.zocalo().llegar(trozo);
        }
        ASSERT_EQ(b.visor.oido, (Textos{"1203", "742", "1203"})) << cual << " cut at " << i << " and " << j;
        ASSERT_EQ(b.zocalo().enviado, "REP\r");
    };
    for (const Textos& mensajes : sesiones) {
        for (const std::string& cual : mensajes) {
            for (std::size_t i = 0; i <= cual.size() && !HasFatalFailure(); ++i) {
                for (std::size_t j = i; j <= cual.size(); ++j) cortada(mensajes, cual, i, j);
            }
        }
    }
}

TEST(frTCP, soloElSaltoDeLineaTrasElRetornoSobra) {
    for (const Textos& trozos : {Textos{"\r\n\n" + LECTURA + "\r"}, Textos{"\r", "\n", "\n" + LECTURA + "\r"}}) {
        Banco b;
        b.llevar(Estado::abierta);
        for (const std::string& trozo : trozos) b.zocalo().llegar(trozo);
        EXPECT_EQ(b.visor.oido, Textos{}) << "the second line feed is part of the line, in however many pieces";
        b.zocalo().llegar(LECTURA + "\r");
        EXPECT_EQ(b.visor.oido, Textos{"1203"});
    }
}

TEST(frTCP, mediaLineaNoEnvejece) {
    Banco b;
    b.llevar(Estado::leyendo);
    b.visor.oido.clear();
    b.zocalo().llegar("basura\r" + LECTURA.substr(0, 20));
    b.e.reloj.avanzar(1000);
    b.zocalo().llegar(LECTURA.substr(20) + "\r");
    EXPECT_EQ(b.visor.oido, Textos{"s"});
    b.zocalo().llegar(LECTURA + "\r");
    b.e.reloj.avanzar(1000);
    b.zocalo().llegar("\n" + OTRA + "\r");
    EXPECT_EQ(b.visor.oido, (Textos{"s", "1203", "s", "742"})) << "the line feed of a line that was taken";
}

TEST(frTCP, sinRetornoElBuferSeVaciaALos64KiB) {
    for (const std::size_t largo : {frTCP::BUFER_MAXIMO - 1, frTCP::BUFER_MAXIMO}) {
        Banco b;
        b.llevar(Estado::abierta);
        b.zocalo().llegar(std::string(largo, 'x'));
        b.zocalo().llegar(LECTURA);
        EXPECT_EQ(b.visor.oido.size(), largo == frTCP::BUFER_MAXIMO ? 1U : 0U) << largo;
        b.zocalo().llegar("\r" + LECTURA);
        EXPECT_EQ(b.visor.oido.back(), "1203") << largo;
    }
}

TEST(frTCP, elSilencioSeAvisaCadaSegundoTambienMientrasConecta) {
    Banco b;
    b.llevar(Estado::conectando);
    b.e.reloj.avanzar(2999);
    EXPECT_EQ(b.visor.oido, Textos(2, "s"));
    EXPECT_EQ(b.conexiones(), 1U);
    b.e.reloj.avanzar(1);
    EXPECT_EQ(b.conexiones(), 2U) << "an attempt without an answer has failed after three seconds";
    b.e.reloj.avanzar(3000);
    EXPECT_EQ(b.conexiones(), 3U);
    b.zocalo().conectado();
    b.zocalo().llegar("LIN>");
    b.zocalo().llegar("XXX>");
    b.visor.oido.clear();
    for (int i = 0; i < 5; ++i) {
        b.e.reloj.avanzar(900);
        b.zocalo().llegar(LECTURA + "\r");
    }
    EXPECT_EQ(b.visor.oido, Textos(5, "1203")) << "each arrival begins the second anew";
    b.e.reloj.avanzar(5000);
    EXPECT_EQ(b.visor.oido.size(), 10U);
    EXPECT_EQ(b.enlace.estado(), Estado::leyendo) << "silence does not end a session that has read";
}

TEST(frTCP, seReconectaEnseguidaPeroNoMasDeDiezVecesPorSegundo) {
    Banco b;
    b.llevar(Estado::conectando);
    b.e.reloj.avanzar(1100);
    for (int i = 1; i <= 11; ++i) b.zocalo().fallar();
    EXPECT_EQ(b.conexiones(), 11U);
    EXPECT_EQ(b.enlace.estado(), Estado::fallado);
    b.e.reloj.avanzar(899);
    EXPECT_EQ(b.conexiones(), 11U);
    b.e.reloj.avanzar(1);
    EXPECT_EQ(b.conexiones(), 12U) << "the tick always tries, however short ago the others were";
    b.e.reloj.avanzar(99);
    b.zocalo().fallar();
    EXPECT_EQ(b.enlace.estado(), Estado::fallado) << "the tick's attempt counts too";
    b.e.reloj.avanzar(901);
    b.zocalo().fallar();
    EXPECT_EQ(b.conexiones(), 14U) << "the second is over";
}

TEST(frTCP, unaSesionQueSePierdeSinCesarNoDejaUnPesoViejo) {
    Banco b;
    b.llevar(Estado::leyendo);
    b.visor.oido.clear();
    for (int i = 0; i < 17; ++i) {
        b.e.reloj.avanzar(600);
        b.zocalo().cerrarse();
        b.zocalo().conectado();
    }
    EXPECT_EQ(std::set(b.visor.oido.begin(), b.visor.oido.end()), std::set<std::string>{"s"})
        << "after ten seconds, although the second never passes";
    Banco lenta;
    lenta.llevar(Estado::leyendo);
    lenta.visor.oido.clear();
    for (int i = 0; i < 19; ++i, lenta.zocalo().llegar("basura\r")) lenta.e.reloj.avanzar(500);
    lenta.zocalo().cerrarse();
    lenta.e.reloj.avanzar(900);
    lenta.zocalo().conectado();
    EXPECT_EQ(lenta.visor.oido, Textos{"s"}) << "also when the next one begins it anew";
    lenta.e.reloj.avanzar(900);
    lenta.zocalo().llegar("LIN>");
    EXPECT_EQ(lenta.visor.oido, Textos(2, "s"));
}

TEST(frTCP, quienNoTomaLecturaEnDiezSegundosOyeElSilencio) {
    Banco b;
    VisorDoble callado(742);
    b.llevar(Estado::leyendo);
    ASSERT_TRUE(b.enlace.enMarcha(callado));
    for (int i = 1; i < 50; ++i) {
        b.e.reloj.avanzar(500);
        b.zocalo().llegar((i % 2 == 0 ? LECTURA : "basura") + "\r");
        const bool dicho = std::count(callado.oido.begin(), callado.oido.end(), "s") != 0;
        EXPECT_EQ(dicho, i >= 20) << i;
    }
    EXPECT_EQ(std::count(b.visor.oido.begin(), b.visor.oido.end(), "s"), 0);
    callado.oido.clear();
    b.zocalo().llegar(OTRA + "\r");
    for (int i = 0; i < 19; ++i) {
        b.e.reloj.avanzar(500);
        b.zocalo().llegar("basura\r");
    }
    EXPECT_EQ(callado.oido, Textos{"742"}) << "its own reading begins the ten seconds anew";
}

TEST(frTCP, unVisorQueFallaNoDejaALosDemasSinLecturaNiSinSilencio) {
    Banco b;
    VisorDoble malo(742);
    b.llevar(Estado::abierta);
    ASSERT_TRUE(b.enlace.enMarcha(malo));
    VisorDoble ultimo(742);
    ASSERT_TRUE(b.enlace.enMarcha(ultimo));
    EXPECT_EQ(b.conexiones(), 1U) << "the link is shared";
    malo.alOir = [] { throw std::runtime_error("no font"); };
    b.zocalo().llegar(OTRA + "\r" + LECTURA + "\r");
    EXPECT_EQ(b.visor.oido, (Textos{"742", "1203"}));
    EXPECT_EQ(ultimo.oido, (Textos{"742", "1203"}));
    b.e.reloj.avanzar(1000);
    EXPECT_EQ(b.visor.oido.back(), "s");
    EXPECT_EQ(ultimo.oido.back(), "s");
}

TEST(frTCP, elUltimoAdiosCierra) {
    Banco b;
    b.enlace.hola();
    b.enlace.hola();
    b.llevar(Estado::leyendo);
    b.enlace.adios();
    b.enlace.hola();
    EXPECT_EQ(b.enlace.estado(), Estado::leyendo) << "only the first one finds it closed";
    b.enlace.adios();
    b.enlace.adios();
    EXPECT_EQ(b.enlace.estado(), Estado::cerrado);
    EXPECT_FALSE(b.zocalo().abierto() || b.suena());
    b.enlace.adios();
    b.enlace.hola();
    b.enlace.Cerrar(b.visor);
    b.llevar(Estado::leyendo);
    b.enlace.hola();
    EXPECT_EQ(b.enlace.estado(), Estado::leyendo) << "one goodbye too many is forgotten";
}

// What the first of three does while it is told a reading, or silence, and what all of them then hear of
// two readings and a silence.
TEST(frTCP, unVisorPuedeIrseMientrasOye) {
    const Textos TODO = {"1203", "742", "s"};
    const struct {
        const char* hace;
        std::function<void(frTCP&, std::array<VisorDoble, 3>&)> accion;
        std::array<Textos, 3> oyen;
    } CASOS[] = {{"se va", [](frTCP& f, auto& v) { f.Cerrar(v[0]); }, {Textos{"1203"}, TODO, TODO}},
                 {"se va un ajeno",
                  [](frTCP& f, auto&) {
                      VisorDoble ajeno;
                      f.Cerrar(ajeno);
                  },
                  {TODO, TODO, TODO}},
                 {"se va el segundo", [](frTCP& f, auto& v) { f.Cerrar(v[1]); }, {TODO, Textos{}, TODO}},
                 {"se van todos",
                  [](frTCP& f, auto& v) {
                      for (auto& u : v) f.Cerrar(u);
                  },
                  {Textos{"1203"}, Textos{}, Textos{}}},
                 {"se va y vuelve",
                  [](frTCP& f, auto& v) {
                      f.Cerrar(v[0]);
                      v[0].alOir = nullptr;
                      EXPECT_TRUE(f.enMarcha(v[0]));
                  },
                  {TODO, TODO, TODO}}};
    for (const auto& caso : CASOS) {
        Banco b;
        b.llevar(Estado::leyendo);
        std::array<VisorDoble, 3> v;
        for (VisorDoble& uno : v) ASSERT_TRUE(b.enlace.enMarcha(uno));
        b.enlace.Cerrar(b.visor);
        v[0].alOir = [&] { caso.accion(b.enlace, v); };
        b.zocalo().llegar(LECTURA + "\r" + OTRA + "\r");
        b.e.reloj.avanzar(1000);
        for (std::size_t i = 0; i < v.size(); ++i) EXPECT_EQ(v[i].oido, caso.oyen[i]) << caso.hace << ' ' << i;
        EXPECT_EQ(b.suena(), b.enlace.estado() != Estado::cerrado) << caso.hace;
    }
}

TEST(frTCP, cerrarYVolverAAbrirMientrasOyeEmpiezaDeNuevo) {
    Banco b;
    b.llevar(Estado::leyendo);
    b.visor.oido.clear();
    b.visor.alOir = [&] {
        b.enlace.Cerrar(b.visor);
        EXPECT_TRUE(b.enlace.enMarcha(b.visor));
    };
    b.zocalo().llegar(LECTURA + "\r" + OTRA + "\r");
    EXPECT_EQ(b.visor.oido, Textos{"1203"}) << "what was left belonged to the old session";
    EXPECT_EQ(b.enlace.estado(), Estado::conectando);
    b.e.reloj.avanzar(1000);
    EXPECT_EQ(b.visor.oido, (Textos{"1203", "s"}));
}

TEST(frTCP, seConectaADondeDicenLosAjustes) {
    const struct {
        const char *ini, *destino;
        bool vale;
    } CASOS[] = {{"", "localhost:9084", true},
                 {"[PAVONA]\r\nHost=sala-2\r\nPort=4001\r\n", "sala-2:4001", true},
                 {"[PAVONA]\r\nHost=\r\nPort=puerto\r\n", "localhost:9084", true},
                 {"[PAVONA]\r\nPort=0\r\n", "localhost:0", false},
                 {"[PAVONA]\r\nPort=70000\r\n", "localhost:70000", false}};
    for (const auto& caso : CASOS) {
        Banco b;
        b.e.ini(caso.ini);
        EXPECT_EQ(b.enlace.enMarcha(b.visor), caso.vale) << caso.ini;
        EXPECT_EQ(b.zocalo().conexiones, Textos{caso.destino});
        EXPECT_EQ(b.zocalo().protocolo(), ProtocoloZocalo::TCP);
        if (caso.vale) continue;
        b.e.reloj.avanzar(5000);
        EXPECT_EQ(b.conexiones(), 1U) << "nobody listens: nothing goes on";
        b.e.valor("PAVONA", "Port", "4001");
        EXPECT_TRUE(b.enlace.enMarcha(b.visor));
        b.e.reloj.avanzar(1000);
        EXPECT_EQ(b.visor.oido, Textos{"s"});
    }
}

TEST(frTCP, loQueYaCorriaSigueProbandoAunqueElPuertoDejeDeValer) {
    Banco b;
    b.llevar(Estado::leyendo);
    b.visor.oido.clear();
    b.e.valor("PAVONA", "Port", "0");
    b.zocalo().cerrarse();
    b.e.reloj.avanzar(2000);
    EXPECT_EQ(b.enlace.estado(), Estado::fallado);
    EXPECT_EQ(b.visor.oido, Textos(2, "s"));
    b.e.valor("PAVONA", "Port", "4001");
    b.e.reloj.avanzar(1000);
    EXPECT_EQ(b.zocalo().conexiones.back(), "localhost:4001");
}

}  // namespace
}  // namespace sorvanel
