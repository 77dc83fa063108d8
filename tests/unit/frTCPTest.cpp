#include "links/frTCP.h"

#include <gtest/gtest.h>

#include <sstream>
#include <tuple>

#include "doubles/entornoDoble.h"
#include "doubles/suscriptorDoble.h"

namespace sorvanel {
namespace {

using Estado = frTCP::Estado;
using Textos = std::vector<std::string>;

const std::string LECTURA = "12/03 C- 0001.250 0000.500";
const std::string OTRA = "07/42 -- 0000.100 0000.200";

struct Banco {
    EntornoDoble e;
    SuscriptorDoble visor{1203};
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

TEST(frTCP, dicePorQueCalla) {
    Banco b;
    const auto motivo = [&] { return b.enlace.motivo(b.visor); };
    const auto leer = [&](const std::string& linea, int segundos) {
        for (int s = 0; s < segundos; ++s) {
            b.zocalo().llegar(linea + "\r");
            b.e.reloj.saltar(1000);
        }
    };
    b.llevar(Estado::esperaSegundo);
    EXPECT_EQ(motivo(), MotivoSilencio::sinRespuesta);
    b.zocalo().llegar("XXX>");
    leer(OTRA, 12);
    EXPECT_EQ(motivo(), MotivoSilencio::noOido);
    b.visor.toma = [](std::string_view) { return false; };
    leer(LECTURA, 12);
    EXPECT_EQ(motivo(), MotivoSilencio::callado) << "heard, and said nothing";
    leer(OTRA, 12);
    EXPECT_EQ(motivo(), MotivoSilencio::noOido);
    b.e.reloj.saltar(frTCP::PACIENCIA);
    EXPECT_EQ(motivo(), MotivoSilencio::sinRespuesta) << "connected and mute";
}

TEST(frTCP, cuentaComoEstaLaConexion) {
    using Motivo = EstadoConexion::Motivo;
    Banco b;
    const auto estado = [&](bool enUso, bool abierta, unsigned veces, Motivo motivo) {
        const EstadoConexion c = b.enlace.conexion();
        EXPECT_EQ(std::tuple(c.enUso, c.abierta, c.veces), std::tuple(enUso, abierta, veces));
        EXPECT_TRUE(c.abierta || c.motivo == motivo) << static_cast<int>(c.motivo);
    };
    estado(false, false, 0, Motivo::sinRespuesta);
    b.llevar(Estado::conectando);
    const std::pair<MotivoFallo, Motivo> fallos[] = {{MotivoFallo::noEncontrado, Motivo::noEncontrado},
                                                     {MotivoFallo::rechazado, Motivo::rechazada}};
    for (const auto& [fallo, motivo] : fallos) {
        b.zocalo().porque = fallo;
        b.zocalo().fallar();
        estado(true, false, 0, motivo);
    }
    b.e.reloj.avanzar(frTCP::ESPERA_CONEXION);
    estado(true, false, 0, Motivo::sinRespuesta);
    b.zocalo().conectado();
    b.e.reloj.avanzar(frTCP::VIGILANCIA);
    estado(true, false, 0, Motivo::sinLecturas);
    for (unsigned vez = 1; vez <= 2; ++vez) {
        b.zocalo().conectado();
        for (const char* const texto : {"LIN>", "XXX>", LECTURA.c_str()}) b.zocalo().llegar(texto);
        estado(true, true, vez, {});
        b.zocalo().cerrarse();
        estado(true, false, vez, Motivo::cerrada);
    }
    b.enlace.Cerrar(b.visor);
    estado(false, false, 0, Motivo::cerrada);
}

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
        {"hola", "0 0 0 0 0 0 0", [](Banco& b) { b.enlace.hola(); }},
        {"dos avisos y lectura", "0 1 6 5L 4 5 6", [](Banco& b) { b.llegar("XXX>XXX>" + LECTURA + "\r"); }},
        {"hola y adiós", "0 0 0 0 0 0 0", [](Banco& b) { b.enlace.hola(), b.enlace.adios(); }}};
    for (const auto& fila : TABLA) {
        std::istringstream celdas(fila.queda);
        for (int estado = 0; estado <= 6; ++estado) {
            SCOPED_TRACE(fila.suceso + std::to_string(estado));
            Banco b;
            b.llevar(static_cast<Estado>(estado));
            const std::size_t conexiones = b.conexiones();
            b.zocalo().enviado.clear();
            b.visor.lineas.clear();
            fila.ocurre(b);
            const Estado final = b.enlace.estado();
            std::string queda = std::to_string(static_cast<int>(final)), esperado;
            if (b.conexiones() == conexiones + 1) queda += '*';
            if (b.zocalo().enviado == "REP\r") queda += 'R';
            for (const std::string& oida : b.visor.lineas) queda += oida == "1203" ? "L" : oida;
            celdas >> esperado;
            EXPECT_EQ(queda, esperado);
            EXPECT_EQ(b.zocalo().abierto(), final != Estado::cerrado && final != Estado::fallado);
            EXPECT_EQ(b.suena(), final != Estado::cerrado);
        }
    }
}

TEST(frTCP, unaSesionCortadaPorDondeSea) {
    const std::string tercera = "05/01 -- 0000.300 0000.200";
    const std::vector<Textos> sesiones = {{"LIN>", "XXX>", LECTURA + "\r\nbasura\r\n\r\n" + OTRA + "\r" + tercera},
                                          {"LIN>", "XXX>" + LECTURA + "\r\n" + OTRA + "\r" + tercera}};
    const auto cortada = [](const Textos& mensajes, const std::string& cual, std::size_t i, std::size_t j) {
        Banco b;
        SuscriptorDoble segundo(742), ultimo(501);
        b.llevar(Estado::esperaLinea);
        for (SuscriptorDoble* otro : {&segundo, &ultimo}) ASSERT_TRUE(b.enlace.enMarcha(*otro));
        for (const std::string& todo : mensajes) {
            const Textos trozos = {cual.substr(0, i), cual.substr(i, j - i), cual.substr(j)};
            for (const std::string& trozo : todo == cual ? trozos : Textos{todo}) b.zocalo().llegar(trozo);
        }
        ASSERT_EQ(b.visor.lineas.at(0) + segundo.lineas.at(0) + ultimo.lineas.at(0) + b.zocalo().enviado,
                  "1203742501REP\r")
            << cual << " cut at " << i << " and " << j;
    };
    for (const Textos& mensajes : sesiones) {
        for (const std::string& cual : mensajes) {
            for (std::size_t i = 0; i <= cual.size() && !HasFatalFailure(); ++i) {
                for (std::size_t j = i; j <= cual.size(); ++j) cortada(mensajes, cual, i, j);
            }
        }
    }
}

// What comes, and when: "+900" milliseconds pass, "*C" it is connected, "*X" closed by the other end, "*F" the attempt
// fails, "=3" the settings say so of the seconds that an address may be unheard; all else are bytes.
void jugar(Banco& b, const Textos& guion) {
    for (const std::string& paso : guion) {
        if (paso[0] == '+') {
            b.e.reloj.avanzar(std::stoi(paso));
        } else if (paso[0] == '=') {
            b.e.valor("PAVONA", "Caducidad", paso.substr(1));
        } else if (paso[0] == '*') {
            paso == "*C" ? b.zocalo().conectado() : paso == "*X" ? b.zocalo().cerrarse() : b.zocalo().fallar();
        } else {
            b.llegar(paso);
        }
    }
}

Textos operator+(Textos unos, const Textos& otros) {
    unos.insert(unos.end(), otros.begin(), otros.end());
    return unos;
}
Textos veces(int cuantas, const Textos& guion) {
    return cuantas == 0 ? Textos{} : guion + veces(cuantas - 1, guion);
}

TEST(frTCP, loQueSeOyeYCuantasVecesSeLlama) {
    const Textos L{LECTURA + "\r"}, sorda = veces(19, {"+500", "basura\r"}), diez = Textos{"+1100"} + veces(11, {"*F"});
    const std::string x(frTCP::BUFER_MAXIMO, 'x'), sinPeso = "12/03 -- 0009.000 0000.200\r";
    const Textos otras{"+500", OTRA + "\r"}, reabre{"*X", "*C", "LIN>", "XXX>"}, minutos = veces(300, otras);
    const auto con = [&](const char* caducidad) { return Textos{caducidad} + reabre + L; };
    const struct {
        const char* que;
        Estado desde;
        Textos guion, oye;
        std::size_t llamadas = 1;
    } CASOS[] = {
        // A line feed goes with the return before it, and only that one.
        {"two line feeds", Estado::abierta, Textos{"\r\n\n" + LECTURA + "\r"} + L, {"1203"}},
        {"in pieces", Estado::abierta, Textos{"\r", "\n", "\n" + LECTURA + "\r"} + L, {"1203"}},
        {"of a reading taken", Estado::abierta, L + Textos{"+1000", "\n" + L[0]}, {"1203", "s", "1203"}},
        // Half a line does not grow old, nor without end.
        {"half", Estado::leyendo, {"basura\r" + LECTURA.substr(0, 20), "+1000", LECTURA.substr(20) + "\r"}, {"s"}},
        {"64 KiB less one", Estado::abierta, {x.substr(1), LECTURA, "\r" + LECTURA}, {"1203"}},
        {"64 KiB", Estado::abierta, {x, LECTURA, "\r" + LECTURA}, {"1203", "1203"}},
        {"of another session", Estado::leyendo, Textos{"12/03 C-", "*X", "*C", "L", "IN>", "XXX>"} + L, {"1203"}, 2},
        // Silence is told each second, while connecting too; an attempt without an answer fails after three.
        {"connecting", Estado::conectando, {"+2999"}, {"s", "s"}},
        {"too long", Estado::conectando, {"+3000"}, {"s", "s", "s"}, 2},
        {"and again", Estado::conectando, {"+6000"}, Textos(6, "s"), 3},
        {"each arrival begins it anew", Estado::leyendo, veces(5, Textos{"+900"} + L), Textos(5, "1203")},
        {"it does not end a session", Estado::leyendo, {"+5000"}, Textos(5, "s")},
        // Who takes nothing for ten seconds hears it, although the second never passes.
        {"not yet", Estado::leyendo, sorda, {}},
        {"now", Estado::leyendo, sorda + Textos{"+500", "basura\r"}, {"s"}},
        {"others' readings", Estado::leyendo, veces(20, {"+500", OTRA + "\r"}), {"s"}},
        {"its own", Estado::leyendo, sorda + L + sorda, {"1203"}},
        {"lost again and again", Estado::leyendo, veces(17, {"+600", "*X", "*C"}), {"s", "s"}, 18},
        {"slow to connect", Estado::leyendo, sorda + Textos{"*X", "+900", "*C"}, {"s"}, 2},
        {"slow to greet", Estado::leyendo, sorda + Textos{"*X", "+900", "*C", "+900", "LIN>"}, {"s", "s"}, 2},
        // That time is the settings', from the next session on; of an address unheard in this one, and of nothing else.
        {"sooner", Estado::leyendo, con("=3") + veces(6, otras), {"1203", "s"}, 2},
        {"later", Estado::leyendo, con("=30") + veces(60, otras), {"1203", "s"}, 2},
        {"from the next one on", Estado::leyendo, Textos{"=0"} + veces(20, otras), {"s"}},
        {"never, but for the second", Estado::leyendo, con("=0") + minutos + Textos{"+1000"}, {"1203", "s"}, 2},
        {"nothing is read",
         Estado::leyendo,
         con("=0") + minutos + sorda + Textos{"+500", "basura\r"},
         {"1203", "s"},
         2},
        {"not one yet", Estado::leyendo, Textos{"=0"} + reabre + veces(20, otras), {"s"}, 2},
        {"it has none", Estado::leyendo, con("=0") + Textos{sinPeso} + veces(20, otras), {"1203", "1203", "s"}, 2},
        {"cut since", Estado::leyendo, con("=0") + minutos + Textos{"*X", "*C"}, {"1203", "s"}, 3},
        {"of another one", Estado::leyendo, con("=0") + reabre + veces(20, otras), {"1203", "s"}, 3},
        // Ten calls a second and no more, but that the tick always tries.
        {"ten", Estado::conectando, diez + Textos{"+899"}, {"s"}, 11},
        {"the tick", Estado::conectando, diez + Textos{"+900"}, {"s", "s"}, 12},
        {"it counts", Estado::conectando, diez + Textos{"+900", "+99", "*F"}, {"s", "s"}, 12},
        {"over", Estado::conectando, diez + Textos{"+900", "+99", "*F", "+901", "*F"}, {"s", "s", "s"}, 14}};
    for (const auto& caso : CASOS) {
        Banco b;
        b.llevar(caso.desde);
        b.visor.lineas.clear();
        b.visor.toma = [](std::string_view carga) { return carga.find("00009000") == std::string_view::npos; };
        jugar(b, caso.guion);
        EXPECT_EQ(b.visor.lineas, caso.oye) << caso.que;
        EXPECT_EQ(b.conexiones(), caso.llamadas) << caso.que;
    }
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
    using Tres = std::array<SuscriptorDoble, 3>;
    const Textos UNA = {"1203"}, TODO = {"1203", "s"};
    const std::pair<std::function<void(frTCP&, Tres&)>, std::array<Textos, 3>> CASOS[] = {
        {[](frTCP& f, Tres& v) { f.Cerrar(v[0]); }, {UNA, TODO, TODO}},
        {[](frTCP& f, Tres& v) { f.Cerrar(v[1]); }, {TODO, Textos{}, TODO}},
        {[](frTCP& f, Tres&) { f.Cerrar(*std::make_unique<SuscriptorDoble>()); }, {TODO, TODO, TODO}},
        {[](frTCP& f, Tres& v) { std::for_each(v.begin(), v.end(), [&](auto& uno) { f.Cerrar(uno); }); },
         {UNA, Textos{}, Textos{}}},
        {[](frTCP&, Tres&) { throw std::runtime_error("no font"); }, {TODO, TODO, TODO}},
        {[](frTCP& f, Tres& v) {
             f.Cerrar(v[0]);
             v[0].alRecibir = nullptr;
             EXPECT_TRUE(f.enMarcha(v[0]));
         },
         {TODO, TODO, TODO}}};
    for (const auto& [accion, oyen] : CASOS) {
        Banco b;
        b.llevar(Estado::leyendo);
        Tres v{SuscriptorDoble(1203), SuscriptorDoble(1203), SuscriptorDoble(1203)};
        for (SuscriptorDoble& uno : v) ASSERT_TRUE(b.enlace.enMarcha(uno));
        EXPECT_EQ(b.conexiones(), 1U) << "the link is shared";
        b.enlace.Cerrar(b.visor);
        v[0].alRecibir = [&] { accion(b.enlace, v); };
        b.zocalo().llegar(LECTURA + "\r" + OTRA + "\r");
        b.e.reloj.avanzar(1000);
        for (std::size_t i = 0; i < v.size(); ++i) EXPECT_EQ(v[i].lineas, oyen[i]) << i;
        EXPECT_EQ(b.suena(), b.enlace.estado() != Estado::cerrado);
    }
}

TEST(frTCP, deLoQueLlegaJuntoCadaUnoTomaLoMasNuevo) {
    for (const bool rechaza : {false, true}) {
        Banco b;
        Textos cargas;
        b.llevar(Estado::leyendo);
        b.visor.toma = [&](std::string_view carga) {
            cargas.emplace_back(carga.substr(3, 9));
            return !rechaza;
        };
        b.zocalo().llegar(LECTURA + "\r" + OTRA + "\r12/03 -- 0009.000 0000.200\r");
        EXPECT_EQ(cargas, Textos{"+00009000"}) << "an older one would stand there as live";
    }
}

TEST(frTCP, cerrarYVolverAAbrirMientrasOyeEmpiezaDeNuevo) {
    Banco b;
    b.llevar(Estado::leyendo);
    b.visor.lineas.clear();
    b.visor.alRecibir = [&] {
        b.enlace.Cerrar(b.visor);
        EXPECT_TRUE(b.enlace.enMarcha(b.visor));
    };
    b.zocalo().llegar(LECTURA + "\r" + OTRA + "\r");
    EXPECT_EQ(b.visor.lineas, Textos{"1203"}) << "what was left belonged to the old session";
    EXPECT_EQ(b.enlace.estado(), Estado::conectando);
    b.e.reloj.avanzar(1000);
    EXPECT_EQ(b.visor.lineas, (Textos{"1203", "s"}));
}

TEST(frTCP, laCaducidadSonSegundosEnterosHastaUnDia) {
    constexpr std::int64_t OMISION = 10'000, NUNCA = DestinoPavona::SIN_CADUCIDAD;
    const std::pair<const char*, std::int64_t> CASOS[] = {
        {"", OMISION}, {"x", OMISION}, {"-1", OMISION}, {"1e999", OMISION},  {"0", NUNCA},
        {"0,2", 1000}, {"1.5", 2000},  {"3", 3000},     {"86401", 86400000}, {"1e99", 86400000}};
    EntornoDoble e;
    for (const auto& [texto, milesimas] : CASOS) {
        e.valor("PAVONA", "Caducidad", texto);
        guardarPortPavona(e.com, 9085);
        guardarHostPavona(e.com, texto);
        EXPECT_EQ(leerDestinoPavona(e.com).caducidad, milesimas) << texto;
    }
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
        b.e.reloj.avanzar(2000);
        EXPECT_EQ(b.conexiones(), 1U) << "where nobody listens nothing goes on";
        EXPECT_EQ(b.visor.lineas, caso.vale ? Textos(2, "s") : Textos{});
        // What runs goes on trying, also while its port is none.
        b.e.valor("PAVONA", "Port", caso.vale ? "0" : "4001");
        EXPECT_TRUE(caso.vale || b.enlace.enMarcha(b.visor));
        b.e.reloj.avanzar(2000);
        EXPECT_EQ(b.enlace.estado(), caso.vale ? Estado::fallado : Estado::conectando);
        b.e.valor("PAVONA", "Port", "4001");
        b.e.reloj.avanzar(1000);
        EXPECT_TRUE(b.zocalo().conexiones.back().ends_with(":4001"));
        EXPECT_EQ(b.visor.lineas.size(), caso.vale ? 5U : 3U);
    }
}

}  // namespace
}  // namespace sorvanel
