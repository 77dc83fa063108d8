#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iterator>
#include <sstream>

#include "simulador/opciones.h"
#include "simulador/opcionesConcentrador.h"

namespace sorvanel::simulador {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

std::vector<std::string> palabras(const std::string& orden) {
    std::istringstream texto(orden);
    return {std::istream_iterator<std::string>(texto), {}};
}
Opciones tessel(const std::string& orden) {
    return leerOpciones(palabras(orden));
}
OpcionesConcentrador pavona(const std::string& orden) {
    return leerOpcionesConcentrador(palabras(orden));
}

TEST(SimuladorOpciones, LoQueSeEntiende) {
    EXPECT_EQ(tessel("").destinos.size(), 4U);
    // The common host reaches the bare ports wherever it is written.
    EXPECT_THAT(tessel("--puertos=9001,10.0.0.5:9001,65535 --destino sala").destinos,
                ElementsAre(Destino{"sala", 9001}, Destino{"10.0.0.5", 9001}, Destino{"sala", 65535}));
    const Opciones numeros =
        tessel("--ritmo 0.1 --capacidad 60000,1500.5 --division=20,.5 --semilla 9223372036854775807");
    EXPECT_EQ(numeros.ritmo, 100);
    EXPECT_THAT(numeros.peso.capacidades, ElementsAre(60'000'000, 1'500'500));
    EXPECT_THAT(numeros.peso.divisiones, ElementsAre(20'000, 500));
    EXPECT_EQ(numeros.semilla, 9223372036854775807U);
    EXPECT_THAT(pavona("--escucha todas").escucha, ElementsAre("0.0.0.0", "::"));
    EXPECT_THAT(pavona("--direcciones 12/98-13/1,0/5").direcciones,
                ElementsAre(Direccion{12, 98}, Direccion{12, 99}, Direccion{13, 0}, Direccion{13, 1}, Direccion{0, 5}));
}

struct Rechazo {
    const char* orden;
    const char* dice;
};

constexpr Rechazo DE_TESSEL[] = {{"--nada", "opción desconocida: «--nada»"},
                                 {"--ritmo", "--ritmo necesita un valor"},
                                 {"--mostrar=1", "--mostrar no lleva valor"},
                                 {"--ritmo 1000.001", "de 0.1 a 1000"},
                                 {"--ritmo 1,5", "punto decimal"},
                                 {"--ritmo 1.2345", "no es un número"},
                                 {"--peso 99999999999999999999", "--peso"},
                                 {"--tramas 1e3", "no es un número entero"},
                                 {"--puertos 65536", "de 1 a 65535"},
                                 {"--puertos 9004-9001", "al revés"},
                                 {"--puertos :9001", "falta el equipo"},
                                 {"--puertos 9001-9003,9002", "127.0.0.1:9002 está dos veces"},
                                 {"--destino sala:9001", "los puertos van en --puertos"},
                                 {"--callar 5:1", "no hay indicador 5, solo 4"},
                                 {"--callar 1:3-2", "termina antes"},
                                 {"--pausas 2:2", "dura más"},
                                 {"--barrido 5:0:1", "no deja sitio"},
                                 {"--marcas CED", "no son marcas"},
                                 {"--peso 1 --contar", "--contar no puede ir con --peso"},
                                 {"--malas 2:signo,sigo", "«sigo» no es ninguna de estas clases: letras, signo"},
                                 {"--juntar 1", "de 2 a 100"},
                                 {"--avalancha 1:62", "dura más de 60 segundos"},
                                 {"--capacidad 100,5 --division 10,1", "la del indicador 2"}};

constexpr Rechazo DE_PAVONA[] = {{"--direcciones 12", "dirección como 12/3"},
                                 {"--direcciones 1/5-1/4", "al revés"},
                                 {"--direcciones 1/1-1/2-1/3", "intervalo"},
                                 {"--direcciones 1/1-1/9,1/4", "1/4 está dos veces"},
                                 {"--decimales 5", "de 0 a 4"},
                                 {"--decimales 3 --capacidad 10000", "--capacidad: la capacidad no cabe"},
                                 {"--decimales 4 --peso direccion", "--peso: el peso no cabe"},
                                 {"--decimales 4 --acumulado 1000 --peso 1", "--acumulado"},
                                 {"--decimales 1 --barrido 0:10:0.01", "el paso no cabe"},
                                 {"--decimales 3 --barrido 0:10000:1", "el máximo no cabe"},
                                 {"--marcas DC", "no son marcas"},
                                 {"--fin nada", "cr, lf o crlf"},
                                 {"--saludo a\\q", "tras «\\»"},
                                 {"--cierra luego", "no es un momento"},
                                 {"--cierra lecturas", "falta cuántas"},
                                 {"--cierra lecturas:0", "--cierra: «0» está fuera de margen"},
                                 {"--cierra rep --reinicia rep", "no puede ir con --cierra"},
                                 {"--sin-aceptar --cierra rep", "no puede ir con"},
                                 {"--trozos 2", "N:SEGUNDOS"},
                                 {"--ausente 5:5", "termina antes"}};

TEST(SimuladorOpciones, LosErroresDicenQueOpcionYPorQue) {
    const auto comprobar = [](std::span<const Rechazo> rechazos, const auto& leer) {
        for (const auto& [orden, dice] : rechazos) {
            try {
                leer(orden);
                ADD_FAILURE() << orden << " se acepta";
            } catch (const ErrorUso& error) {
                EXPECT_THAT(error.what(), HasSubstr(dice)) << orden;
            }
        }
    };
    comprobar(DE_TESSEL, tessel);
    comprobar(DE_PAVONA, pavona);
}

TEST(SimuladorOpciones, LaAyudaVaPorDelanteYSusEjemplosValen) {
    for (const char* pedida : {"--help", "-h", "--ayuda", "/?"})
        EXPECT_TRUE(tessel(std::string("--nada ") + pedida).ayuda) << pedida;
    int ejemplos = 0;
    std::istringstream ayuda(std::string(textoAyuda()) + std::string(textoAyudaConcentrador()));
    for (std::string linea; std::getline(ayuda, linea);) {
        if (!linea.starts_with("  simulador")) continue;
        ++ejemplos;
        linea.erase(0, std::string("  simulador").size());
        if (linea.starts_with(" concentrador")) {
            EXPECT_NO_THROW(pavona(linea.substr(std::string(" concentrador").size()))) << linea;
        } else {
            EXPECT_NO_THROW(tessel(linea)) << linea;
        }
    }
    EXPECT_EQ(ejemplos, 11);
}

}  // namespace
}  // namespace sorvanel::simulador
