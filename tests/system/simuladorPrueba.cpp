#include <gtest/gtest.h>

#include "harness/programa.h"
#include "harness/red.h"

namespace sorvanel::pruebas {
namespace {

// The project's simulator, as a user runs it.
TEST(Simulador, ElProgramaLeeDeSuConcentrador) {
    const std::string puerto = std::to_string(puertoTCPLibre());
    Configuracion ajustes;
    ajustes.reticula(2, 1);
    for (int i = 1; i <= 2; ++i) ajustes.visor(1202 + i, i, 1).clave("Protocolo", "Pavona").clave("ModoBulk", "0");
    Programa programa(ajustes.seccion("PAVONA").clave("Host", "127.0.0.1").clave("Port", puerto));
    const Proceso simulador(carpetaPropia() + L"\\" + ancho(SIMULADOR_RELATIVO),
                            ancho("concentrador --direcciones 12/3,12/4 --peso direccion --puerto " + puerto));
    programa.arrancar();
    EXPECT_TRUE(programa.lee(1, "1203"));
    EXPECT_TRUE(programa.lee(2, "1204"));
}

}  // namespace
}  // namespace sorvanel::pruebas
