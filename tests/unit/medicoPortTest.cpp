#include <gmock/gmock.h>

#include "pruebaVisor.h"

namespace sorvanel {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

const std::string TRAMA = "EXX+00001500\r";
const std::string LECTURA = "12/03 C- 0001.250 0000.500\r";

// What the tool of the displays says about what comes to the selected one.
class MedicoPort : public PruebaVisor {
protected:
    std::string linea() { return v().rotulo(Id::lbRecepcion)->texto(); }
    std::string consejo() { return v().rotulo(Id::lbRecepcion)->textoSugerencia; }
    ZocaloDoble* oido(int puerto) { return e.fabrica.enPuerto(puerto); }
    void elegir(int n) {
        caja(Id::txPort, n).irA();
        e.reloj.avanzar(1000);
    }
    // Each of them, ten a second, for so many tenths.
    void llegar(int puerto, std::initializer_list<std::string> datos, int decimas = 30) {
        for (int i = 0; i < decimas; ++i) {
            for (const std::string& d : datos) oido(puerto)->llegar(d);
            e.reloj.avanzar(100);
        }
    }
    // The concentrator's; only one is connecting or connected.
    ZocaloDoble* conexion() {
        for (ZocaloDoble* z : e.fabrica.zocalos()) {
            if (z->abierto() && z->puerto() == 0) return z;
        }
        return nullptr;
    }
    void abrirPavona() {
        abrirCon(4, "Protocolo=Pavona\r\n[PAVONA]\r\nHost=equipo\r\nPort=9084\r\n");
        e.valor("VISOR_1", "Port", "1203");
        e.valor("VISOR_2", "Protocolo", "Pavona");
        e.valor("VISOR_2", "Port", "1204");
        v().pedirCierre();
        dialogo.Mostrar();
        e.cola.ejecutar();
        elegir(1);
        e.reloj.avanzar(1000);
    }
};

TEST_F(MedicoPort, elRegistroSeAbreOSeDiceQueNoHay) {
    abrirCon(1);
    for (const bool hay : {true, false}) {
        e.bitacora.hay = hay;
        pulsar(Id::botRegistro);
        e.cola.ejecutar();
        EXPECT_EQ(e.avisos.informaciones.size(), hay ? 0U : 1U);
    }
    EXPECT_EQ(e.bitacora.abierta, 2);
}

TEST_F(MedicoPort, diceLoQueLlegaAlPort) {
    abrirCon(3);
    EXPECT_THAT(linea(), StartsWith("Elija un visor"));
    e.reloj.avanzar(1000);
    EXPECT_EQ(v().rotulo(Id::lbEquipo)->texto(), "192.168.1.20, 10.0.0.7");
    EXPECT_TRUE(std::none_of(e.fabrica.zocalos().begin(), e.fabrica.zocalos().end(), [](const ZocaloDoble* z) {
        return z->abierto();
    })) << "nothing is taken that nobody has asked about";
    elegir(2);
    EXPECT_EQ(linea(), "Escuchando en el port 3002…");
    e.reloj.avanzar(2000);
    EXPECT_EQ(linea(), "Nada recibido en el port 3002");
    EXPECT_THAT(consejo(), HasSubstr("192.168.1.20"));
    llegar(3002, {TRAMA});
    EXPECT_EQ(linea(), "Recibiendo de 192.168.1.40, 10 por segundo");
    llegar(3002, {"EXX+0000", "1500\r"});
    EXPECT_EQ(linea(), "Recibiendo de 192.168.1.40, 10 por segundo") << "in pieces";
    llegar(3002, {"\x02 12,5 kg\r\n\xE9"}, 40);
    EXPECT_EQ(linea(), "Llega algo que no es un peso: «<STX> 12,5 kg<CR><LF><E9>»");
    llegar(3002, {"\x02" + std::string(300, 'x')});
    EXPECT_EQ(linea(), "Llega algo que no es un peso: «<STX>" + std::string(23, 'x') + "…»");
    EXPECT_THAT(consejo(), HasSubstr("192.168.1.40"));
    llegar(3002, {TRAMA});
    oido(3002)->quien = "192.168.1.41";
    llegar(3002, {TRAMA}, 10);
    EXPECT_THAT(linea(), StartsWith("Recibiendo de 192.168.1.40 y 192.168.1.41"));
    for (const char* quien : {"192.168.1.42", "192.168.1.43", "192.168.1.44"}) {
        oido(3002)->quien = quien;
        for (int i = 0; i < 3; ++i, e.reloj.avanzar(2000)) oido(3002)->llegar(TRAMA);
        EXPECT_EQ(linea(), std::string("Recibiendo de ") + quien + ", menos de una por segundo");
    }
    e.reloj.avanzar(3000);
    EXPECT_EQ(linea(), "Nada recibido en el port 3002");
}

TEST_F(MedicoPort, diceDeQuienLlegaLoQueNoSeAdmite) {
    abrirCon(2, "Origen=192.168.1.40\r\n");
    e.valor("VISOR_2", "Origen", "tolva");
    elegir(1);
    llegar(3001, {TRAMA});
    EXPECT_THAT(linea(), StartsWith("Recibiendo de 192.168.1.40"));
    EXPECT_THAT(consejo(), HasSubstr("\nSolo se admite lo que envía 192.168.1.40 (Origen)."));
    oido(3001)->quien = "192.168.1.41";
    llegar(3001, {TRAMA});
    EXPECT_EQ(linea(), "Llega de 192.168.1.41, pero solo se admite 192.168.1.40 (Origen)");
    v().pedirCierre();
    dialogo.Mostrar();
    e.cola.ejecutar();
    elegir(2);
    EXPECT_EQ(linea(), "Origen no es una dirección: «tolva»");
    EXPECT_EQ(oido(3002), nullptr);
}

// Whatever takes the display away: its port is free before anything else can happen.
TEST_F(MedicoPort, sueltaEnseguidaYDiceLoQueNoPuedeSer) {
    abrirCon(3);
    elegir(1);
    ASSERT_NE(oido(3001), nullptr);
    caja(Id::txPort, 2).irA();
    EXPECT_EQ(oido(3001), nullptr);
    e.reloj.avanzar(1000);
    ASSERT_NE(oido(3002), nullptr);
    caja(Id::txPort, 2).reescribir("3009");
    caja(Id::txPort, 2).pulsar(Tecla::abajo);
    EXPECT_EQ(oido(3002), nullptr);
    e.fabrica.red().ocupados = {3009};
    elegir(2);
    EXPECT_EQ(linea(), "El port 3009 lo tiene otro programa");
    e.fabrica.red().ocupados.clear();
    e.fabrica.red().vedados = {3009};
    e.reloj.avanzar(1500);
    EXPECT_EQ(linea(), "El port 3009 no está disponible");
    e.fabrica.red().vedados.clear();
    e.reloj.avanzar(1500);
    EXPECT_NE(oido(3009), nullptr) << "as soon as it can be had";
    v().boton(Id::imPtc, 2)->pulsar();
    EXPECT_EQ(oido(3009), nullptr);
    elegir(1);
    v().boton(Id::botElim)->pulsar();
    EXPECT_EQ(oido(3001), nullptr);
    e.reloj.avanzar(1000);
    dialogo.Descargar(true);
    EXPECT_TRUE(std::all_of(e.fabrica.zocalos().begin(), e.fabrica.zocalos().end(),
                            [](const ZocaloDoble* z) { return z->puerto() == 0 || z->puerto() == 49152; }));
    const std::pair<const char*, const char*> casos[] = {{"0", "El visor no tiene port"},
                                                         {"65536", "El port 65536 no existe: van de 1 a 65535"},
                                                         {"3002", "El visor #2 tiene el mismo port 3002"}};
    for (const auto& [port, dicho] : casos) {
        abrirCon(2);
        e.valor("VISOR_1", "Port", port);
        v().pedirCierre();
        dialogo.Mostrar();
        e.cola.ejecutar();
        elegir(1);
        if (*port != '0') {
            EXPECT_EQ(linea(), dicho);
        }
    }
}

TEST_F(MedicoPort, diceLoQueHablaElConcentradorYNoLeContestaMasQueElEnlace) {
    abrirPavona();
    ASSERT_NE(conexion(), nullptr);
    EXPECT_EQ(linea(), "Conectando con equipo:9084…");
    const struct {
        MotivoFallo motivo;
        const char* dicho;
    } fallos[] = {{MotivoFallo::noEncontrado, "No se encuentra el equipo equipo"},
                  {MotivoFallo::rechazado, "El equipo equipo rechaza el port 9084"},
                  {MotivoFallo::sinRespuesta, "El concentrador no contesta en equipo:9084"}};
    for (const auto& f : fallos) {
        conexion()->porque = f.motivo;
        conexion()->fallar();
        e.reloj.avanzar(1000);
        EXPECT_EQ(linea(), f.dicho);
    }
    conexion()->conectado();
    conexion()->llegar("HTTP/1.0 400\r\n");
    e.reloj.avanzar(1000);
    EXPECT_EQ(linea(), "Llega algo que no es un peso: «HTTP/1.0 400<CR><LF>»");
    EXPECT_EQ(conexion()->enviado, "");
    e.reloj.avanzar(10000);
    conexion()->conectado();
    e.reloj.avanzar(1500);
    EXPECT_EQ(linea(), "equipo:9084 contesta, pero no saluda como un concentrador");
    conexion()->conectado();
    conexion()->llegar("LIN>");
    conexion()->llegar("XXX>");
    e.reloj.avanzar(500);
    EXPECT_EQ(linea(), "Conectado con equipo:9084…") << "heard for too short a time";
    e.reloj.avanzar(1600);
    EXPECT_EQ(linea(), "El concentrador contesta, pero no envía pesos");
    ZocaloDoble* const z = conexion();
    z->conectado();
    for (const char* aviso : {"LIN>", "XXX>"}) z->llegar(aviso);
    for (const char* otra : {"12/01", "12/02", "12/05", "12/06"}) z->llegar(otra + LECTURA.substr(5));
    e.reloj.avanzar(300);
    EXPECT_EQ(linea(), "El concentrador contesta, pero no habla de 12/3 (sí de 12/1, 12/2, 12/5 y 1 más)");
    for (int i = 0; i < 40; ++i, e.reloj.avanzar(100)) z->llegar(LECTURA);
    EXPECT_EQ(linea(), "Recibiendo de equipo, 10 por segundo");
    e.valor("PAVONA", "Caducidad", "2");
    for (int i = 0; i < 21; ++i, e.reloj.avanzar(100)) z->llegar("12/01" + LECTURA.substr(5));
    EXPECT_THAT(linea(), StartsWith("El concentrador contesta, pero no habla de 12/3")) << "as the display would";
    EXPECT_THAT(consejo(), HasSubstr("se queda sin datos a los 2 s (Caducidad)."));
    elegir(2);
    EXPECT_EQ(linea(), "Conectado con equipo:9084…");
    for (int i = 0; i < 15; ++i, e.reloj.avanzar(100)) z->llegar(LECTURA);
    EXPECT_THAT(linea(), StartsWith("El concentrador contesta, pero no habla de 12/4 (sí de 12/1")) << "no new session";
    EXPECT_EQ(conexion(), z);
    EXPECT_EQ(z->enviado, "REP\rREP\r");
    // A host is typed letter by letter: nobody is called meanwhile.
    const std::size_t llamadas = z->conexiones.size();
    caja(Id::txPavHost).reescribir("e");
    e.reloj.avanzar(300);
    EXPECT_EQ(conexion(), nullptr);
    caja(Id::txPavHost).reescribir("equis");
    e.reloj.avanzar(1600);
    ASSERT_NE(conexion(), nullptr);
    EXPECT_EQ(conexion()->conexiones, std::vector<std::string>{"equis:9084"});
    EXPECT_GT(llamadas, 4U);
    dialogo.Descargar(true);
    EXPECT_EQ(conexion(), nullptr);
}

}  // namespace
}  // namespace sorvanel
