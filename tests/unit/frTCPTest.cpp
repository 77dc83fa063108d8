#include "links/frTCP.h"

#include <gtest/gtest.h>

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
    frTCP enlace{e.entorno};

    ZocaloDoble& zocalo() { return *e.fabrica.ultimoZocalo(); }
    bool suena() { return e.fabrica.ultimoTemporizador()->habilitado(); }
    int conexiones() {
        const Textos& l = zocalo().llamadas;
        return static_cast<int>(std::count_if(l.begin(), l.end(), [](auto& s) { return s.starts_with("conectar"); }));
    }
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
        if (!zocalo().llegar(texto)) zocalo().oyente().alLlegarDatos();
    }
};

// Each cell: the state that follows, then "*" for a new attempt to connect, "R" for the answer sent, "L" for
// a reading handed over, "s" for silence told.
TEST(frTCP, cadaSucesoEnCadaEstado) {
    const struct {
        const char* suceso;
        std::function<void(Banco&)> ocurre;
        std::array<std::string, 7> queda;
    } TABLA[] = {
        {"conectado",
         [](Banco& b) { b.zocalo().conectado() || (b.zocalo().oyente().alConectar(), true); },
         {"0", "2", "2", "3", "4", "5", "6"}},
        {"fallo",
         [](Banco& b) { b.zocalo().fallar() || (b.zocalo().oyente().alFallar(), true); },
         {"0", "1*", "1*", "1*", "1*", "1*", "6"}},
        {"cierre",
         [](Banco& b) { b.zocalo().cerrarse() || (b.zocalo().oyente().alCerrarse(), true); },
         {"0", "1*", "1*", "1*", "1*", "1*", "6"}},
        {"primer aviso", [](Banco& b) { b.llegar("LIN>"); }, {"0", "1", "3R", "6", "4", "5", "6"}},
        {"segundo aviso", [](Banco& b) { b.llegar("XXX>"); }, {"0", "1", "6", "4", "4", "5", "6"}},
        {"otro texto", [](Banco& b) { b.llegar("LIN> "); }, {"0", "1", "6", "6", "4", "5", "6"}},
        {"tres letras", [](Banco& b) { b.llegar("IN>"); }, {"0", "1", "2", "3", "4", "5", "6"}},
        {"lectura", [](Banco& b) { b.llegar(LECTURA + "\r"); }, {"0", "1", "6", "6", "5L", "5L", "6"}},
        {"basura", [](Banco& b) { b.llegar("2/03 C- 0001.250 0000.500\r"); }, {"0", "1", "6", "6", "4", "5", "6"}},
        {"segundo", [](Banco& b) { b.e.reloj.avanzar(1000); }, {"0", "1s", "1*s", "1*s", "1*s", "5s", "1*s"}},
        {"Cerrar", [](Banco& b) { b.enlace.Cerrar(b.visor); }, {"0", "0", "0", "0", "0", "0", "0"}},
        {"hola y adiós",
         [](Banco& b) {
             b.enlace.hola();
             b.enlace.adios();
         },
         {"0", "0", "0", "0", "0", "0", "0"}},
    };
    for (const auto& fila : TABLA) {
        for (int estado = 0; estado <= 6; ++estado) {
            Banco b;
            b.llevar(static_cast<Estado>(estado));
            const int conexiones = b.conexiones();
            b.zocalo().enviado.clear();
            b.visor.oido.clear();
            fila.ocurre(b);
            std::string queda = std::to_string(static_cast<int>(b.enlace.estado()));
            if (b.conexiones() == conexiones + 1) queda += '*';
            if (b.zocalo().enviado == "REP\r") queda += 'R';
            for (const std::string& oido : b.visor.oido) queda += oido == "1203" ? "L" : oido;
            EXPECT_EQ(queda, fila.queda[static_cast<std::size_t>(estado)]) << fila.suceso << " en " << estado;
            const Estado final = b.enlace.estado();
            EXPECT_EQ(b.zocalo().abierto(), final != Estado::cerrado && final != Estado::fallado)
                << fila.suceso << estado;
            EXPECT_EQ(b.suena(), final != Estado::cerrado) << fila.suceso << estado;
        }
    }
}

// Hands each message over in the pieces that two cuts make of it; the last word says whether the greeting
// should fail.
void sesionCortada(const std::array<std::string, 3>& mensajes, std::size_t cual, std::size_t i, std::size_t j,
                   bool falla) {
    Banco b;
    b.llevar(Estado::esperaLinea);
    for (std::size_t m = 0; m < mensajes.size(); ++m) {
        const std::string& todo = mensajes[m];
        if (m != cual) {
            b.zocalo().llegar(todo);
            continue;
        }
        for (const std::string& trozo : {todo.substr(0, i), todo.substr(i, j - i), todo.substr(j)})
            b.zocalo().llegar(trozo);
        ASSERT_EQ(b.enlace.estado() == Estado::fallado, falla) << "message " << m << " cut at " << i << " and " << j;
        if (!falla) continue;
        b.e.reloj.avanzar(1000);
        b.zocalo().conectado();
        b.zocalo().llegar(todo);
        b.visor.oido.clear();
    }
    ASSERT_EQ(b.visor.oido, (Textos{"1203", "742", "1203"})) << "message " << cual << " cut at " << i << " and " << j;
    ASSERT_EQ(b.zocalo().enviado, "REP\r");
}

TEST(frTCP, unaSesionCortadaPorDondeSea) {
    // Of a greeting that is more than the prompt only what has come is judged, from four characters on.
    const std::array<std::string, 3> mensajes = {"P3\r\nLIN>", "XXX>",
                                                 LECTURA + "\r\n" + "basura\r\n\r\n" + OTRA + "\r" + LECTURA};
    for (std::size_t m = 0; m < mensajes.size(); ++m) {
        const std::size_t largo = mensajes[m].size();
        for (std::size_t i = 0; i <= largo; ++i) {
            for (std::size_t j = i; j <= largo; ++j) {
                const auto juzgado = [&](std::size_t k) { return k > 4 && k < largo; };  // the line feed is none
                sesionCortada(mensajes, m, i, j, m == 0 && (juzgado(i) || juzgado(j)));
                if (HasFatalFailure()) return;
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
    EXPECT_EQ(b.conexiones(), 1);
    b.e.reloj.avanzar(1);
    EXPECT_EQ(b.conexiones(), 2) << "an attempt without an answer has failed after three seconds";
    b.e.reloj.avanzar(3000);
    EXPECT_EQ(b.conexiones(), 3);
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
    for (int i = 1; i <= 10; ++i) {
        b.zocalo().fallar();
        ASSERT_EQ(b.conexiones(), 1 + i);
    }
    b.zocalo().fallar();
    EXPECT_EQ(b.conexiones(), 11);
    EXPECT_EQ(b.enlace.estado(), Estado::fallado);
    b.e.reloj.avanzar(899);
    EXPECT_EQ(b.conexiones(), 11);
    b.e.reloj.avanzar(1);
    EXPECT_EQ(b.conexiones(), 12) << "the tick always tries, however short ago the others were";
    b.e.reloj.avanzar(99);
    b.zocalo().fallar();
    EXPECT_EQ(b.enlace.estado(), Estado::fallado) << "the tick's attempt counts too";
    b.e.reloj.avanzar(901);
    b.zocalo().fallar();
    EXPECT_EQ(b.conexiones(), 14) << "the second is over";
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
    EXPECT_EQ(b.visor.oido, Textos{"s"}) << "after ten seconds, although the second never passes";
}

TEST(frTCP, quienNoTomaLecturaEnDiezSegundosOyeElSilencio) {
    Banco b;
    VisorDoble callado(742);
    b.llevar(Estado::leyendo);
    ASSERT_TRUE(b.enlace.enMarcha(callado));
    for (int i = 0; i < 50; ++i) {
        b.e.reloj.avanzar(500);
        b.zocalo().llegar((i % 2 == 0 ? LECTURA : "basura") + "\r");
    }
    EXPECT_EQ(std::count(b.visor.oido.begin(), b.visor.oido.end(), "s"), 0);
    EXPECT_EQ(std::count(callado.oido.begin(), callado.oido.end(), "s"), 2) << "in 25 seconds";
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
    malo.alOir = [] { throw std::runtime_error("no font"); };
    b.zocalo().llegar(OTRA + "\r" + LECTURA + "\r");
    EXPECT_EQ(b.visor.oido, (Textos{"742", "1203"}));
    EXPECT_EQ(ultimo.oido, (Textos{"742", "1203"}));
    b.e.reloj.avanzar(1000);
    EXPECT_EQ(b.visor.oido.back(), "s");
    EXPECT_EQ(ultimo.oido.back(), "s");
}

TEST(frTCP, entradasIgualesYVisoresSinSuscribir) {
    Banco b;
    VisorDoble igual;
    VisorDoble ajeno;
    b.llevar(Estado::leyendo);
    ASSERT_TRUE(b.enlace.enMarcha(igual));
    EXPECT_EQ(b.conexiones(), 1) << "the link is shared";
    b.enlace.Cerrar(ajeno);
    b.visor.oido.clear();
    b.zocalo().llegar(LECTURA + "\r");
    EXPECT_EQ(b.visor.oido, igual.oido);
    b.enlace.Cerrar(b.visor);
    b.enlace.Cerrar(b.visor);
    b.zocalo().llegar(LECTURA + "\r");
    EXPECT_EQ(b.visor.oido.size(), 1U);
    EXPECT_EQ(igual.oido.size(), 2U);
    b.enlace.Cerrar(igual);
    EXPECT_FALSE(b.zocalo().abierto());
}

TEST(frTCP, elUltimoAdiosCierra) {
    Banco b;
    b.enlace.hola();
    b.enlace.hola();
    b.llevar(Estado::leyendo);
    b.enlace.adios();
    EXPECT_EQ(b.enlace.estado(), Estado::leyendo);
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
    } CASOS[] = {
        {"se va", [](frTCP& f, auto& v) { f.Cerrar(v[0]); }, {Textos{"1203"}, TODO, TODO}},
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
         {TODO, TODO, TODO}},
    };
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
        const char* ini;
        const char* llamada;
        bool vale;
    } CASOS[] = {
        {"", "conectar localhost:9084", true},
        {"[PAVONA]\r\nHost=sala-2\r\nPort=4001\r\n", "conectar sala-2:4001", true},
        {"[PAVONA]\r\nHost=\r\nPort=puerto\r\n", "conectar localhost:9084", true},
        {"[PAVONA]\r\nPort=0\r\n", "conectar localhost:0", false},
        {"[PAVONA]\r\nPort=70000\r\n", "conectar localhost:70000", false},
    };
    for (const auto& caso : CASOS) {
        Banco b;
        b.e.ini(caso.ini);
        EXPECT_EQ(b.enlace.enMarcha(b.visor), caso.vale) << caso.ini;
        EXPECT_EQ(b.zocalo().llamadas.back(), caso.llamada);
        EXPECT_EQ(b.zocalo().protocolo(), ProtocoloZocalo::TCP);
        if (caso.vale) continue;
        EXPECT_EQ(b.enlace.estado(), Estado::fallado);
        b.e.reloj.avanzar(5000);
        EXPECT_EQ(b.conexiones(), 1) << "nobody listens: nothing goes on";
        EXPECT_TRUE(b.visor.oido.empty());
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
    EXPECT_EQ(b.zocalo().llamadas.back(), "conectar localhost:4001");
}

}  // namespace
}  // namespace sorvanel
