#include <gmock/gmock.h>

#include <memory>

#include "harness/programa.h"
#include "harness/red.h"

namespace sorvanel::pruebas {
namespace {

constexpr const char* SIN_DATOS = "-----";

// A display of each family under one roof: 1 has a port of its own, 2 reads from the concentrator.
class Concentradores : public testing::Test {
protected:
    std::string ajustes(const std::string& host, const std::string& port) const {
        return Configuracion()
            .reticula(2, 1)
            .visor(puerto, 1, 1)
            .visor(305, 2, 1)
            .clave("Protocolo", "Pavona")
            .clave("ModoBulk", "0")
            .seccion("PAVONA")
            .clave("Host", host)
            .clave("Port", port);
    }
    void marchar(const std::string& host) {
        programa.escribirINI(ajustes(host, std::to_string(concentrador->puerto())));
        ASSERT_TRUE(programa.marchar());
    }
    // Both indicators say their weights again and again until both displays show what is expected.
    bool leen(int peso1, const std::string& peso2, const std::string& esperado2) {
        return insistir(
            [&] {
                indicador.enviar(puerto, trama(peso1 * 1000));
                if (concentrador) concentrador->decir(lineaPavona(305, "C-", peso2));
            },
            [&] { return programa.peso(1) == std::to_string(peso1) && programa.peso(2) == esperado2; });
    }

    int puerto = puertosLibres();
    std::unique_ptr<Concentrador> concentrador = std::make_unique<Concentrador>();
    EmisorUDP indicador;
    Programa programa;
};

// Closed in good order, and killed: then its port refuses until it is started again.
TEST_F(Concentradores, CaeYVuelveYLaOtraFamiliaSigue) {
    marchar("localhost");
    ASSERT_TRUE(concentrador->abrirSesion());
    EXPECT_TRUE(leen(11, "0022.000", "22 C"));
    concentrador->despedir();
    ASSERT_TRUE(concentrador->abrirSesion());
    EXPECT_TRUE(leen(12, "0023.000", "23 C"));
    const int suyo = concentrador->puerto();
    concentrador.reset();
    EXPECT_TRUE(leen(13, "", SIN_DATOS));
    concentrador = std::make_unique<Concentrador>(suyo);
    ASSERT_TRUE(concentrador->abrirSesion());
    EXPECT_TRUE(leen(14, "0024.000", "24 C"));
    // All on that one connection, on which nothing more is said.
    EXPECT_EQ(concentrador->oir(1, 0), "");
}

TEST_F(Concentradores, LaPausaSueltaLosDosEnlacesYLaMarchaLosToma) {
    concentrador = std::make_unique<Concentrador>(0, AF_INET6);
    marchar("::1");
    ASSERT_TRUE(concentrador->abrirSesion());
    EXPECT_TRUE(leen(11, "0022.000", "22 C"));
    EXPECT_FALSE(EmisorUDP().ocupar(puerto));
    ASSERT_TRUE(programa.pausar());
    EXPECT_TRUE(concentrador->esperarDespedida());
    EXPECT_FALSE(concentrador->tomarCliente(1200)) << "paused, it calls";
    EXPECT_TRUE(EmisorUDP().ocupar(puerto));
    EXPECT_EQ(programa.peso(1) + programa.peso(2), "");
    programa.pulsar(IdControl::botRun);
    ASSERT_TRUE(concentrador->abrirSesion());
    EXPECT_TRUE(leen(13, "0024.000", "24 C"));
    EXPECT_TRUE(programa.terminar());
    EXPECT_TRUE(concentrador->esperarDespedida());
}

TEST_F(Concentradores, UnNombreQueNadieConoceNoDetieneLaPantalla) {
    programa.escribirINI(ajustes("no-existe.invalid", "9084"));
    ASSERT_TRUE(programa.marchar());
    for (const ULONGLONG fin = GetTickCount64() + 2000; GetTickCount64() < fin;) {
        const auto peso = static_cast<int>(GetTickCount64() % 9000);
        indicador.enviar(puerto, trama(peso * 1000));
        ASSERT_TRUE(esperar([&] { return programa.peso(1) == std::to_string(peso); }, 1500));
    }
    EXPECT_EQ(programa.peso(2), SIN_DATOS);
    EXPECT_EQ(programa.caja().ventana(), nullptr);
}

// A host that no attempt could use, and a port of its own that another program holds: each display says so.
TEST_F(Concentradores, LoQueNoPuedeSerSeAvisaYLosDemasMarchan) {
    for (const std::string& host : {std::string("dos palabras"), std::string(256, 'h')}) {
        SCOPED_TRACE(host);
        programa.escribirINI(ajustes(host, "9084"));
        programa.arrancar();
        EXPECT_EQ(programa.caja().esperarTexto(), "Visor #2: Port 305 inadecuado. Posiblemente en uso");
        // The other runs already while the box is open.
        EXPECT_TRUE(leen(7, "", SIN_DATOS));
        EXPECT_FALSE(IsWindowEnabled(programa.ventana()));
        EXPECT_TRUE(programa.caja().cerrar());
        EXPECT_TRUE(IsWindowEnabled(programa.ventana()));
        EXPECT_TRUE(programa.terminar());
    }
    EmisorUDP otroPrograma;
    ASSERT_TRUE(otroPrograma.ocupar(puerto));
    programa.arrancar();
    EXPECT_THAT(programa.caja().contestar(), testing::HasSubstr("Error en reconexión TCP/IP"));
    EXPECT_EQ(programa.peso(1), SIN_DATOS);
}

}  // namespace
}  // namespace sorvanel::pruebas
