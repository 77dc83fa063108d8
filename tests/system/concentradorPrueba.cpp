#include <gmock/gmock.h>

#include <algorithm>
#include <memory>
#include <utility>

#include "harness/concentrador.h"
#include "harness/configuracion.h"
#include "harness/emisorUDP.h"
#include "harness/fotografia.h"
#include "harness/programa.h"
#include "harness/trama.h"
#include "platform/color.h"

namespace sorvanel::pruebas {
namespace {

constexpr Color TINTA = rgb(0xE0, 0xD0, 0x00);
constexpr const char* SIN_DATOS = "-----";

// Displays of the concentrator's family, one under the other, weights with one decimal; below them
// may be room for more.
Configuracion visoresPavona(const std::vector<int>& direcciones, int masFilas = 0) {
    Configuracion configuracion;
    const int cuantos = static_cast<int>(direcciones.size());
    configuracion.reticula(cuantos + masFilas, 1)
        .seccion("VISORES")
        .clave("formatoPeso", "####0.0")
        .clave("textoPeso", "00D0E0");
    for (int i = 0; i < cuantos; ++i)
        configuracion.visor(direcciones[static_cast<std::size_t>(i)], i + 1, 1)
            .clave("Protocolo", "Pavona")
            .clave("ModoBulk", "0");
    return configuracion;
}

Configuracion& con(Configuracion& configuracion, const std::string& host, const std::string& puerto) {
    return configuracion.seccion("PAVONA").clave("Host", host).clave("Port", puerto);
}

class Pavona : public testing::Test {
protected:
    void arrancar(Configuracion configuracion) {
        programa.escribirINI(con(configuracion, "127.0.0.1", std::to_string(concentrador->puerto())));
        programa.arrancar();
    }

    // A session with a first reading, so that it is not opened anew after a second.
    void arrancarYAbrir(const std::vector<int>& direcciones) {
        arrancar(visoresPavona(direcciones));
        ASSERT_TRUE(concentrador->abrirSesion());
        std::string primeras;
        for (const int una : direcciones) primeras += lineaPavona(una, "--", "0.1");
        ASSERT_TRUE(leeAlDecir(primeras, static_cast<int>(direcciones.size()), "0.1"));
    }

    bool lee(int visor, std::string_view esperado) const {
        return programa.esperarTexto(IdControl::picRep, visor, esperado);
    }

    // Says it again and again, as a concentrator does, until the condition holds.
    template <class Condicion>
    bool alDecir(const std::string& lineas, Condicion condicion) {
        constexpr ULONGLONG PERIODO = 200;  // ms
        ULONGLONG ultima = 0;
        return esperar([&] {
            if (GetTickCount64() - ultima >= PERIODO) {
                concentrador->decir(lineas);
                ultima = GetTickCount64();
            }
            return condicion();
        });
    }

    bool leeAlDecir(const std::string& lineas, int visor, std::string_view esperado) {
        return alDecir(lineas, [&] { return programa.texto(IdControl::picRep, visor) == esperado; });
    }

    // The next session and a reading of display 1 in it.
    bool vuelve(const char* peso) {
        return concentrador->abrirSesion() && leeAlDecir(lineaPavona(305, "--", peso), 1, peso);
    }

    std::unique_ptr<Concentrador> concentrador = std::make_unique<Concentrador>();
    Programa programa;
};

TEST_F(Pavona, UnaSesionLlegaALaPantalla) {
    arrancar(visoresPavona({305}));
    ASSERT_TRUE(concentrador->abrirSesion());
    ASSERT_TRUE(leeAlDecir(lineaPavona(305, "--", "0001.250", "0000.500"), 1, "1.3"))
        << programa.texto(IdControl::picRep, 1);
    const HWND visor = programa.control(IdControl::picRep, 1);
    EXPECT_TRUE(alDecir(lineaPavona(305, "--", "0099.900"), [&] {
        const Fotografia foto(visor);
        return programa.texto(IdControl::picRep, 1) == "99.9" && foto.cuantos(TINTA) > 500 && foto.cuantos(ROJO) == 0;
    }));
    // All on that one connection, on which nothing more is said.
    EXPECT_EQ(concentrador->oir(1, 0), "");
    EXPECT_TRUE(programa.terminar());
    EXPECT_TRUE(concentrador->esperarDespedida());
}

TEST_F(Pavona, PorLaOtraVersionDeIP) {
    concentrador = std::make_unique<Concentrador>(0, AF_INET6);
    Configuracion configuracion = visoresPavona({305});
    programa.escribirINI(con(configuracion, "::1", std::to_string(concentrador->puerto())));
    programa.arrancar();
    ASSERT_TRUE(concentrador->abrirSesion());
    EXPECT_TRUE(leeAlDecir(lineaPavona(305, "--", "12.5"), 1, "12.5"));
}

// One that takes whoever comes and hangs up at once must not be called in a busy circle.
TEST_F(Pavona, AQuienCuelgaEnseguidaNoSeLeLlamaSinDescanso) {
    arrancar(visoresPavona({305}));
    int llamadas = 0;
    const ULONGLONG fin = GetTickCount64() + 2500;
    while (GetTickCount64() < fin)
        if (concentrador->tomarCliente(100)) {
            ++llamadas;
            concentrador->despedir();
        }
    EXPECT_GE(llamadas, 3);
    EXPECT_LE(llamadas, 40) << "some ten a second";
    EXPECT_TRUE(lee(1, SIN_DATOS));
}

TEST_F(Pavona, LasMarcasDeCargaYDescarga) {
    arrancarYAbrir({305});
    const HWND visor = programa.control(IdControl::picRep, 1);
    struct Caso {
        const char* marcas;
        const char* esperado;
    };
    std::vector<Fotografia> fotos;
    for (const Caso& caso : {Caso{"--", "7.0"}, Caso{"C-", "7.0 C"}, Caso{"-D", "7.0 D"}, Caso{"--", "7.0"}}) {
        SCOPED_TRACE(caso.marcas);
        Fotografia foto(visor);
        const Fotografia antes = foto;
        // Two looks alike: a picture may be taken while it is being painted.
        ASSERT_TRUE(alDecir(lineaPavona(305, caso.marcas, "00007.00", "00001.00"), [&] {
            const Fotografia anterior = std::exchange(foto, Fotografia(visor));
            return programa.texto(IdControl::picRep, 1) == caso.esperado && foto == anterior && foto != antes &&
                   foto.cuantos(ROJO) == 0;
        })) << programa.texto(IdControl::picRep, 1);
        fotos.push_back(foto);
    }
    // Right of the digits only, at the same place but not the same, and gone without a trace.
    EXPECT_GT(fotos[1].cuantos(TINTA), fotos[0].cuantos(TINTA));
    EXPECT_GT(fotos[2].cuantos(TINTA), fotos[0].cuantos(TINTA));
    EXPECT_TRUE(fotos[1] != fotos[2]);
    EXPECT_TRUE(fotos[3] == fotos[0]);
    EXPECT_TRUE(programa.terminar());
}

// Six displays of one address, each of another of its six readings.
TEST_F(Pavona, CadaModoMuestraSuLectura) {
    Configuracion configuracion;
    configuracion.reticula(3, 2).seccion("VISORES").clave("formatoPeso", "####0.0");
    for (int modo = 0; modo < 6; ++modo)
        configuracion.visor(1203, modo / 2 + 1, modo % 2 + 1)
            .clave("Protocolo", "Pavona")
            .clave("ModoBulk", std::to_string(modo));
    arrancar(configuracion);
    ASSERT_TRUE(concentrador->abrirSesion());
    struct Caso {
        const char* marcas;
        const char* primero;
        const char* segundo;
        std::vector<std::string> esperado;
    };
    const Caso casos[] = {
        {"--", "000010.0", "000025.0", {"10.0", "25.0", "35.0", "35.0", "25.0", "25.0"}},
        {"C-", "000010.0", "000025.0", {"10.0 C", "25.0 C", "35.0 C", "35.0 C", "35.0 C", "25.0 C"}},
        {"-D", "000010.0", "000025.0", {"10.0 D", "25.0 D", "35.0 D", "25.0 D", "25.0 D", "15.0 D"}},
        // The first value's decimals hold for the second too.
        {"--", "00012.50", "00000700", {"12.5", "7.0", "19.5", "19.5", "7.0", "7.0"}},
        // A display whose reading is below zero keeps the last one.
        {"-D", "000030.0", "000020.0", {"30.0 D", "20.0 D", "50.0 D", "20.0 D", "20.0 D", "7.0"}},
    };
    for (const Caso& caso : casos) {
        SCOPED_TRACE(std::string(caso.marcas) + " " + caso.primero);
        std::vector<std::string> leidos;
        EXPECT_TRUE(alDecir(lineaPavona(1203, caso.marcas, caso.primero, caso.segundo), [&] {
            leidos.clear();
            for (int modo = 0; modo < 6; ++modo) leidos.push_back(programa.texto(IdControl::picRep, modo + 1));
            return leidos == caso.esperado;
        })) << testing::PrintToString(leidos);
    }
    EXPECT_TRUE(programa.terminar());
}

TEST_F(Pavona, CadaVisorOyeSoloSuDireccion) {
    arrancarYAbrir({305, 306, 1203, 9999});
    std::string lineas;
    const std::pair<int, const char*> propias[] = {{305, "1.1"}, {306, "2.2"}, {1203, "3.3"}, {9999, "4.4"}};
    for (const auto& [direccion, peso] : propias) lineas += lineaPavona(direccion, "--", peso);
    // What does not concern them comes last: it would stay.
    for (const int ajena : {503, 304, 1205, 1303, 35, 9998}) lineas += lineaPavona(ajena, "--", "66.6");
    std::vector<std::string> leidos;
    EXPECT_TRUE(alDecir(lineas, [&] {
        leidos.clear();
        for (int i = 1; i <= 4; ++i) leidos.push_back(programa.texto(IdControl::picRep, i));
        return leidos == std::vector<std::string>{"1.1", "2.2", "3.3", "4.4"};
    })) << testing::PrintToString(leidos);
    EXPECT_TRUE(programa.terminar());
}

TEST_F(Pavona, LoQueNoEsUnaLecturaNoEstorba) {
    arrancarYAbrir({305, 306});
    const std::string lecturaRota = lineaPavona(305, "--", "55.5");
    const std::string basura[] = {
        "\r",
        "\n\n\r\r\r\n",
        "LIN>\rXXX>\r",
        std::string("\0\x01\xFF\xFE\r", 5),
        std::string(20000, 'x') + "\r",
        lecturaRota.substr(1),                 // one digit before the "/"
        lecturaRota.substr(0, 20) + "\r",      // cut short
        " " + lecturaRota,                     // shifted
        lineaPavona(305, "DC", "55.5"),        // flags the wrong way round
        lineaPavona(305, "--", "abcdefgh"),    // no number
        lineaPavona(305, "--", "55.5", "x0"),  // half of it no number
    };
    int peso = 100;
    for (const std::string& una : basura) {
        SCOPED_TRACE(testing::PrintToString(una.substr(0, 30)));
        const std::string bueno = std::to_string(++peso) + ".0";
        const std::string lineas = lineaPavona(305, "--", bueno) + una + lineaPavona(306, "--", bueno);
        EXPECT_TRUE(leeAlDecir(lineas, 2, bueno)) << programa.texto(IdControl::picRep, 2);
        EXPECT_EQ(programa.texto(IdControl::picRep, 1), bueno);
    }
    EXPECT_TRUE(programa.terminar());
}

TEST_F(Pavona, LosAvisosVienenEnTrozos) {
    arrancar(visoresPavona({305}));
    ASSERT_TRUE(concentrador->tomarCliente());
    // Nothing tells from outside that a piece has been read: so long is enough for it, and if the
    // system joins two after all, nothing fails that should not.
    constexpr DWORD ENTRE_TROZOS = 40;  // ms
    for (const char* trozo : {"L", "IN", ">"}) {
        ASSERT_TRUE(concentrador->decir(trozo));
        Sleep(ENTRE_TROZOS);
    }
    ASSERT_EQ(concentrador->oir(4), "REP\r");
    // The first reading in one segment with the end of the prompt.
    for (const std::string& trozo : {std::string("XX"), "X>" + lineaPavona(305, "-D", "00041.50")}) {
        ASSERT_TRUE(concentrador->decir(trozo));
        Sleep(ENTRE_TROZOS);
    }
    ASSERT_TRUE(lee(1, "41.5 D"));
    const std::string linea = lineaPavona(305, "C-", "00042.50");
    EXPECT_TRUE(esperar([&] {
        for (const std::string& trozo : {linea.substr(0, 9), linea.substr(9, 17), linea.substr(26)}) {
            concentrador->decir(trozo);
            Sleep(ENTRE_TROZOS);
        }
        return programa.texto(IdControl::picRep, 1) == "42.5 C";
    })) << programa.texto(IdControl::picRep, 1);
    EXPECT_TRUE(programa.terminar());
}

TEST_F(Pavona, UnSaludoMaloCierraYDespuesHayOtro) {
    arrancar(visoresPavona({305}));
    ASSERT_TRUE(concentrador->tomarCliente());
    concentrador->decir("LIN> ");
    ASSERT_TRUE(concentrador->esperarDespedida(900)) << "not closed at once";
    ASSERT_TRUE(concentrador->tomarCliente());
    // The same with the second prompt; the text before a prompt does not matter.
    concentrador->decir("Concentrador 4\r\nLIN>");
    ASSERT_EQ(concentrador->oir(4), "REP\r");
    concentrador->decir("XXX?");
    ASSERT_TRUE(concentrador->esperarDespedida(900)) << "not closed at once";
    ASSERT_TRUE(lee(1, SIN_DATOS));
    EXPECT_TRUE(vuelve("12.0"));
    EXPECT_TRUE(programa.terminar());
}

// A concentrator that was killed: its port refuses until it is started again.
TEST_F(Pavona, ElConcentradorCaeYVuelve) {
    arrancarYAbrir({305, 306});
    // Closed in good order, it is called again.
    concentrador->despedir();
    EXPECT_TRUE(vuelve("11.0"));
    const int puerto = concentrador->puerto();
    concentrador.reset();
    EXPECT_TRUE(lee(1, SIN_DATOS));
    EXPECT_TRUE(lee(2, SIN_DATOS));
    concentrador = std::make_unique<Concentrador>(puerto);
    EXPECT_TRUE(vuelve("10.0"));
    EXPECT_TRUE(programa.terminar());
}

// It says nothing, or no more: each second another attempt, until one comes to readings.
TEST_F(Pavona, UnConcentradorMudoSeLlamaDeNuevo) {
    arrancar(visoresPavona({305}));
    for (const int avisos : {0, 1, 2}) {
        SCOPED_TRACE(avisos);
        ASSERT_TRUE(concentrador->tomarCliente());
        if (avisos > 0) {
            concentrador->decir("LIN>");
            ASSERT_EQ(concentrador->oir(4), "REP\r");
        }
        if (avisos > 1) concentrador->decir("XXX>");
        EXPECT_TRUE(concentrador->esperarDespedida(2500));
        EXPECT_TRUE(lee(1, SIN_DATOS));
    }
    EXPECT_TRUE(vuelve("13.0"));
    EXPECT_TRUE(programa.terminar());
}

// A port that refuses and a name that nobody knows hold nobody up.
TEST(PavonaInalcanzable, LaPantallaNoSeDetiene) {
    struct Caso {
        const char* host;
        int puerto;
    };
    for (const Caso& caso : {Caso{"127.0.0.1", puertoTCPLibre()}, Caso{"no-existe.invalid", 9084}}) {
        SCOPED_TRACE(caso.host);
        const int udp = puertosLibres();
        Configuracion configuracion = visoresPavona({305, 306, 307}, 1);
        configuracion.visor(udp, 4, 1);
        Programa programa(con(configuracion, caso.host, std::to_string(caso.puerto)));
        programa.arrancar();
        ASSERT_TRUE(programa.esperarVisible(IdControl::botPau));
        EmisorUDP indicador;
        ULONGLONG peor = 0;
        const ULONGLONG fin = GetTickCount64() + 2000;
        for (int peso = 1; GetTickCount64() < fin; ++peso) {
            indicador.enviar(udp, trama(peso * 1000));
            const ULONGLONG inicio = GetTickCount64();
            ASSERT_TRUE(programa.esperarTexto(IdControl::picRep, 4, std::to_string(peso) + ".0"));
            peor = std::max(peor, GetTickCount64() - inicio);
        }
        EXPECT_LT(peor, 1500U);
        for (int i = 1; i <= 3; ++i) EXPECT_EQ(programa.texto(IdControl::picRep, i), SIN_DATOS);
        EXPECT_EQ(programa.caja().ventana(), nullptr);
        programa.pulsar(IdControl::botPau);
        EXPECT_TRUE(programa.esperarVisible(IdControl::botRun));
        EXPECT_TRUE(programa.terminar());
    }
}

// A host or a port that no attempt could use: each display says so, and none runs.
TEST(PavonaInalcanzable, UnDestinoQueNoPuedeSerSeAvisa) {
    struct Caso {
        std::string host;
        std::string puerto;
    };
    const Caso casos[] = {{"127.0.0.1", "0"},
                          {"127.0.0.1", "-1"},
                          {"127.0.0.1", "65536"},
                          {"dos palabras", "9084"},
                          {std::string(256, 'h'), "9084"}};
    for (const Caso& caso : casos) {
        SCOPED_TRACE(caso.host.substr(0, 20) + ":" + caso.puerto);
        Configuracion configuracion = visoresPavona({305, 1203});
        Programa programa(con(configuracion, caso.host, caso.puerto));
        programa.arrancar();
        EXPECT_EQ(programa.caja().esperarTexto(),
                  "Port 305 inadecuado. Posiblemente en uso\nPort 1203 inadecuado. Posiblemente en uso");
        EXPECT_TRUE(programa.caja().cerrar());
        EXPECT_EQ(programa.texto(IdControl::picRep, 1), SIN_DATOS);
        EXPECT_TRUE(programa.terminar());
    }
}

}  // namespace
}  // namespace sorvanel::pruebas
