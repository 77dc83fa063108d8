#include <gmock/gmock.h>

#include <memory>

#include "harness/concentrador.h"
#include "harness/configuracion.h"
#include "harness/emisorUDP.h"
#include "harness/programa.h"
#include "harness/trama.h"

namespace sorvanel::pruebas {
namespace {

constexpr const char* SIN_DATOS = "-----";

// A display of each family under one roof: 1 has a port of its own, 2 reads from the concentrator.
class Familias : public testing::Test {
protected:
    std::string ajustes() const {
        return Configuracion()
            .reticula(2, 1)
            .visor(puerto, 1, 1)
            .visor(305, 2, 1)
            .clave("Protocolo", "Pavona")
            .clave("ModoBulk", "0")
            .clave("Etiqueta", "Tolva Ñ")
            .seccion("PAVONA")
            .clave("Host", "localhost")
            .clave("Port", std::to_string(concentrador->puerto()));
    }

    void arrancar(const std::string& ini) {
        programa.escribirINI(ini);
        programa.arrancar();
        ASSERT_TRUE(programa.esperarVisible(IdControl::botPau));
    }

    // Both indicators say their weights again and again until both displays show what is expected.
    bool leen(int peso1, int peso2, const std::string& esperado1, const std::string& esperado2) {
        constexpr int PERIODO = 200;  // ms
        return esperar([&] {
            indicador.enviar(puerto, trama(peso1 * 1000));
            if (concentrador) concentrador->decir(lineaPavona(305, "--", std::to_string(peso2)));
            return esperar(
                [&] {
                    return programa.texto(IdControl::picRep, 1) == esperado1 &&
                           programa.texto(IdControl::picRep, 2) == esperado2;
                },
                PERIODO);
        });
    }
    bool leen(int peso1, int peso2) { return leen(peso1, peso2, std::to_string(peso1), std::to_string(peso2)); }

    int puerto = puertosLibres();
    std::unique_ptr<Concentrador> concentrador = std::make_unique<Concentrador>();
    EmisorUDP indicador;
    Programa programa;
};

TEST_F(Familias, SinConcentradorLaOtraSigue) {
    arrancar(ajustes());
    ASSERT_TRUE(concentrador->abrirSesion());
    EXPECT_TRUE(leen(11, 22));
    const int suyo = concentrador->puerto();
    concentrador.reset();
    EXPECT_TRUE(leen(12, 0, "12", SIN_DATOS));
    EXPECT_TRUE(leen(13, 0, "13", SIN_DATOS));
    concentrador = std::make_unique<Concentrador>(suyo);
    ASSERT_TRUE(concentrador->abrirSesion());
    EXPECT_TRUE(leen(14, 24));
    EXPECT_TRUE(programa.terminar());
}

TEST_F(Familias, LaPausaSueltaLosDosEnlacesYLaMarchaLosToma) {
    arrancar(ajustes());
    ASSERT_TRUE(concentrador->abrirSesion());
    EXPECT_TRUE(leen(11, 22));
    programa.pulsar(IdControl::botPau);
    ASSERT_TRUE(programa.esperarVisible(IdControl::botRun));
    EXPECT_TRUE(concentrador->esperarDespedida());
    EXPECT_FALSE(concentrador->tomarCliente(1200)) << "paused, it calls";
    EXPECT_TRUE(EmisorUDP().ocupar(puerto));
    EXPECT_EQ(programa.texto(IdControl::picRep, 1), "");
    EXPECT_EQ(programa.texto(IdControl::picRep, 2), "");
    programa.pulsar(IdControl::botRun);
    ASSERT_TRUE(programa.esperarVisible(IdControl::botPau));
    ASSERT_TRUE(concentrador->abrirSesion());
    EXPECT_TRUE(leen(13, 24));
    // Closed while both read.
    EXPECT_TRUE(programa.terminar());
    EXPECT_TRUE(concentrador->esperarDespedida());
    EXPECT_TRUE(EmisorUDP().ocupar(puerto));
}

// Whatever another editor made of the file, a day's work leaves it so.
TEST_F(Familias, ElArchivoQuedaComoEra) {
    const std::string crlf = ajustes();
    std::string lf;
    for (const char letra : crlf)
        if (letra != '\r') lf += letra;
    for (const std::string& ini :
         {"\xEF\xBB\xBF" + lf, "\xEF\xBB\xBF" + crlf + ";fin", lf + "\n\n[MENSAJE]\nEnUso=No"}) {
        SCOPED_TRACE(testing::PrintToString(ini));
        arrancar(ini);
        if (ini.front() == '\xEF') {
            EXPECT_EQ(programa.texto(IdControl::picCap, 2), "Tolva Ñ");
        }
        ASSERT_TRUE(concentrador->abrirSesion());
        EXPECT_TRUE(leen(11, 22));
        programa.pulsar(IdControl::botPau);
        programa.pulsar(IdControl::botRun);
        ASSERT_TRUE(concentrador->abrirSesion());
        EXPECT_TRUE(leen(12, 23));
        EXPECT_TRUE(programa.terminar());
        EXPECT_EQ(programa.leerINI(), ini);
        EXPECT_EQ(programa.leerCopia(), "");
    }
}

}  // namespace
}  // namespace sorvanel::pruebas
