#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iterator>
#include <sstream>

#include "simulador/opciones.h"

namespace sorvanel::simulador {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;

TEST(SimuladorOpciones, SinNadaSonCuatroBasculasEnEsteEquipo) {
    const Opciones opciones = leerOpciones({});
    EXPECT_THAT(opciones.destinos, ElementsAre(Destino{"127.0.0.1", 9001}, Destino{"127.0.0.1", 9002},
                                               Destino{"127.0.0.1", 9003}, Destino{"127.0.0.1", 9004}));
    EXPECT_EQ(opciones.ritmo, 10'000);
    EXPECT_EQ(opciones.peso.modo, OrigenPeso::Modo::Bascula);
    EXPECT_FALSE(opciones.duracion || opciones.tramas || opciones.semilla);
}

TEST(SimuladorOpciones, CadaPuertoPuedeTenerSuEquipo) {
    // The common host reaches the bare ports wherever it is written.
    const Opciones opciones = leerOpciones({"--puertos=9001-9002,10.0.0.5:9001,65535", "--destino", "sala"});
    EXPECT_THAT(opciones.destinos, ElementsAre(Destino{"sala", 9001}, Destino{"sala", 9002}, Destino{"10.0.0.5", 9001},
                                               Destino{"sala", 65535}));
}

TEST(SimuladorOpciones, LosNumerosSonMilesimasExactas) {
    const Opciones opciones = leerOpciones({"--ritmo", "0.1", "--capacidad", "60000,1500.5", "--division=20,.5",
                                            "--duracion", "2.25", "--semilla", "9223372036854775807"});
    EXPECT_EQ(opciones.ritmo, 100);
    EXPECT_THAT(opciones.peso.capacidades, ElementsAre(60'000'000, 1'500'500));
    EXPECT_THAT(opciones.peso.divisiones, ElementsAre(20'000, 500));
    EXPECT_EQ(opciones.duracion, 2250ms);
    EXPECT_EQ(opciones.semilla, 9223372036854775807U);
    EXPECT_EQ(leerOpciones({"--peso", "99999.999"}).peso.fijo, MAXMILESIMAS);
}

TEST(SimuladorOpciones, SilenciosDeUnoYDeTodos) {
    const Opciones opciones = leerOpciones({"--callar", "2:5,4:0-1.5", "--pausas", "azar:10:2"});
    ASSERT_EQ(opciones.silencios.calladas.size(), 2U);
    const Callada& primera = opciones.silencios.calladas[0];
    const Callada& segunda = opciones.silencios.calladas[1];
    EXPECT_EQ(primera.indicador, 1U);
    EXPECT_EQ(primera.desde, 5s);
    EXPECT_FALSE(primera.hasta);
    EXPECT_EQ(segunda.indicador, 3U);
    EXPECT_EQ(segunda.desde, 0s);
    EXPECT_EQ(segunda.hasta, 1500ms);
    ASSERT_TRUE(opciones.silencios.pausas);
    EXPECT_TRUE(opciones.silencios.pausas->azar);
    EXPECT_EQ(opciones.silencios.pausas->cada, 10s);
    EXPECT_EQ(opciones.silencios.pausas->dura, 2s);
}

TEST(SimuladorOpciones, LaAyudaVaPorDelanteDeLosErrores) {
    for (const char* pedida : {"--help", "-h", "--ayuda", "/?"})
        EXPECT_TRUE(leerOpciones({"--nada", pedida}).ayuda) << pedida;
}

TEST(SimuladorOpciones, LosErroresDicenQueOpcionYPorQue) {
    struct Caso {
        std::vector<std::string> argumentos;
        const char* dice;
    };
    const Caso casos[] = {
        {{"--nada"}, "opción desconocida: «--nada»"},
        {{"9001"}, "opción desconocida"},
        {{"--ritmo"}, "--ritmo necesita un valor"},
        {{"--ritmo", "--mostrar"}, "--ritmo necesita un valor"},
        {{"--mostrar=1"}, "--mostrar no lleva valor"},
        {{"--ritmo", "0.099"}, "de 0.1 a 1000"},
        {{"--ritmo", "1000.001"}, "de 0.1 a 1000"},
        {{"--ritmo", "1,5"}, "punto decimal"},
        {{"--ritmo", "1.2345"}, "no es un número"},
        {{"--ritmo", "-1"}, "no es un número"},
        {{"--ritmo", "."}, "no es un número"},
        {{"--ritmo="}, "no es un número"},
        {{"--peso", "100000"}, "de 0 a 99999.999"},
        {{"--peso", "99999999999999999999"}, "--peso"},
        {{"--tramas", "1e3"}, "no es un número entero"},
        {{"--tramas", "0"}, "fuera de margen"},
        {{"--puertos", "0"}, "de 1 a 65535"},
        {{"--puertos", "65536"}, "de 1 a 65535"},
        {{"--puertos", "9001,"}, "no es un número entero"},
        {{"--puertos", "9004-9001"}, "al revés"},
        {{"--puertos", "10.0.0.5:9001:9002"}, "«9001:9002» no es un número entero"},
        {{"--puertos", ":9001"}, "falta el equipo"},
        {{"--puertos", "9001-9003,9002"}, "127.0.0.1:9002 está dos veces"},
        {{"--destino", "sala:9001"}, "los puertos van en --puertos"},
        {{"--callar", "5:1"}, "no hay indicador 5, solo 4"},
        {{"--callar", "0:1"}, "fuera de margen"},
        {{"--callar", "1"}, "INDICADOR:SEGUNDOS"},
        {{"--callar", "1:3-2"}, "termina antes"},
        {{"--pausas", "2"}, "CADA:DURA"},
        {{"--pausas", "2:2"}, "dura más"},
        {{"--barrido", "0:1"}, "MÍNIMO:MÁXIMO:PASO"},
        {{"--barrido", "5:0:1"}, "no deja sitio"},
        {{"--barrido", "0:5:0"}, "fuera de margen"},
        {{"--marcas", "CED"}, "no son marcas"},
        {{"--marcas", "EX"}, "no son marcas"},
        {{"--peso", "1", "--contar"}, "--contar no puede ir con --peso"},
        {{"--malas", "0"}, "fuera de margen"},
        {{"--malas", "2:signo,sigo"}, "«sigo» no es ninguna de estas clases: letras, signo"},
        {{"--juntar", "1"}, "de 2 a 100"},
        {{"--avalancha", "1:62"}, "dura más de 60 segundos"},
        {{"--avalancha", "3"}, "DESDE:HASTA"},
        {{"--capacidad", "100,5", "--division", "10,1"}, "la del indicador 2"},
    };
    for (const auto& caso : casos) {
        const std::string usado = testing::PrintToString(caso.argumentos);
        try {
            leerOpciones(caso.argumentos);
            ADD_FAILURE() << usado << " se acepta";
        } catch (const ErrorUso& error) {
            EXPECT_THAT(error.what(), HasSubstr(caso.dice)) << usado;
        }
    }
}

TEST(SimuladorOpciones, LosEjemplosDeLaAyudaSonValidos) {
    const std::string ayuda{textoAyuda()};
    int ejemplos = 0;
    for (std::size_t lugar = 0; (lugar = ayuda.find("\n  simulador", lugar)) != std::string::npos; ++ejemplos) {
        lugar += 3;
        std::istringstream linea(ayuda.substr(lugar, ayuda.find('\n', lugar) - lugar));
        std::vector<std::string> palabras{std::istream_iterator<std::string>(linea), {}};
        palabras.erase(palabras.begin());
        EXPECT_NO_THROW(leerOpciones(palabras)) << linea.str();
    }
    EXPECT_EQ(ejemplos, 6);
}

}  // namespace
}  // namespace sorvanel::simulador
