#include <gmock/gmock.h>

#include "harness/configuracion.h"
#include "harness/emisorUDP.h"
#include "harness/esperar.h"
#include "harness/programa.h"
#include "harness/trama.h"

namespace sorvanel::pruebas {
namespace {

TEST(Enlaces, UnPuertoOcupadoSeAvisaYLosDemasMarchan) {
    const int puerto = puertosLibres(3);
    EmisorUDP otroPrograma;
    ASSERT_TRUE(otroPrograma.ocupar(puerto + 1));
    Programa programa(
        Configuracion().reticula(3, 1).visor(puerto, 1, 1).visor(puerto + 1, 2, 1).visor(puerto + 2, 3, 1));
    programa.arrancar();
    EXPECT_EQ(programa.caja().esperarTexto(), "Error en reconexión TCP/IP");
    // They run already while the box is open.
    EmisorUDP indicador;
    indicador.enviar(puerto, trama(1000));
    indicador.enviar(puerto + 2, trama(3000));
    EXPECT_TRUE(programa.esperarTexto(IdControl::picRep, 1, "1"));
    EXPECT_TRUE(programa.esperarTexto(IdControl::picRep, 3, "3"));
    EXPECT_EQ(programa.texto(IdControl::picRep, 2), "-----");
    EXPECT_FALSE(IsWindowEnabled(programa.ventana()));
    EXPECT_TRUE(programa.caja().cerrar());
    EXPECT_TRUE(IsWindowEnabled(programa.ventana()));
    EXPECT_TRUE(programa.seVe(IdControl::botPau));
    EXPECT_TRUE(programa.terminar());
}

TEST(Enlaces, AlPararQuedaLibreElPuerto) {
    const int puerto = puertosLibres();
    Programa programa(Configuracion().reticula(1, 1).visor(puerto, 1, 1));
    programa.arrancar();
    ASSERT_TRUE(programa.esperarVisible(IdControl::botPau));
    EXPECT_FALSE(EmisorUDP().ocupar(puerto));
    programa.pulsar(IdControl::botPau);
    ASSERT_TRUE(programa.esperarVisible(IdControl::botRun));
    EXPECT_TRUE(esperar([&] { return EmisorUDP().ocupar(puerto); }));
    EXPECT_TRUE(programa.terminar());
}

}  // namespace
}  // namespace sorvanel::pruebas
