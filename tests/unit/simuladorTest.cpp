#include <gmock/gmock.h>

#include <regex>
#include <set>
#include <sstream>

#include "simulador/azar.h"
#include "simulador/indicador.h"
#include "simulador/opciones.h"
#include "simulador/sesion.h"
#include "simulador/trama.h"

namespace sorvanel::simulador {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;

Opciones leer(const std::string& orden) {
    std::istringstream texto(orden);
    return leerOpciones(std::vector<std::string>{std::istream_iterator<std::string>(texto), {}});
}

TEST(Simulador, LasLineasYTramasComoCadaFamilia) {
    const struct {
        std::int64_t peso, acumulado;
        int decimales;
        std::string valores;
    } lineas[] = {{1'250, 43'210'000, 0, "00000001 00043210"},     {1'250, 99'999'999, 1, "000001.3 099999.9"},
                  {1'234'567, 4, 2, "01234.57 00000.00"},          {1'250, 500, 3, "0001.250 0000.500"},
                  {99'999'999, 9'999'999, 3, "9999.999 9999.999"}, {-1'250, -99'999'999, 3, "-001.250 -999.999"}};
    for (const auto& [peso, acumulado, decimales, valores] : lineas)
        EXPECT_EQ(lineaPavona({2, 13}, {.milesimas = peso}, acumulado, decimales, ""), "02/13 -- " + valores);
    EXPECT_EQ(lineaPavona({0, 9}, {.cargando = true, .descargando = true}, 0, 0, "").substr(0, 8), "00/09 CD");
    EXPECT_EQ(lineaPavona({0, 9}, {.cargando = true}, 0, 0, "-D").substr(0, 8), "00/09 -D");
    EXPECT_EQ(tramaTessel({.milesimas = 12'345, .estable = true, .cargando = true}, ""), "ECX+00012345\r");
    EXPECT_EQ(tramaTessel({.milesimas = 100'000'000}, "XNZ"), "XNZ+99999999\r");
    EXPECT_EQ(tramaTessel({.milesimas = -1, .descargando = true}, ""), "XXD+00000000\r");
}

// Never good, whatever chance says; and more than one of each class.
TEST(Simulador, LasMalasNuncaSonBuenas) {
    const std::regex buenas("\r([0-9]{2}/[0-9]{2} [C-][D-] [0-9.]{8} [0-9.]{8}|[EX][CNX][DZX]\\+[0-9]{8})\r");
    const auto comprobar = [&](const auto& clases, const std::string& buena, const auto& mala) {
        ASSERT_TRUE(std::regex_search("\r" + buena + "\r", buenas));
        for (std::size_t clase = 0; clase < clases.size(); ++clase) {
            std::set<std::string> distintas;
            for (std::uint64_t azar = 0; azar < 500; ++azar) distintas.insert(mala(clase, buena, mezclar(azar)));
            EXPECT_GE(distintas.size(), clases[clase] == "signo" ? 1U : 2U) << clases[clase];
            for (const auto& una : distintas) EXPECT_FALSE(std::regex_search("\r" + una + "\r", buenas)) << una;
        }
    };
    comprobar(CLASESLINEA, "12/34 -- 1234.567 9876.543", [](std::size_t clase, const std::string& linea, auto azar) {
        return lineaMala(static_cast<ClaseLinea>(clase), linea, azar);
    });
    comprobar(CLASESTRAMA, "ECX+00012345\r", [](std::size_t clase, const std::string& trama, auto azar) {
        std::string mala = tramaMala(static_cast<ClaseTrama>(clase), trama, azar);
        EXPECT_TRUE(mala.empty() || mala.back() == '\r');
        return mala;
    });
}

TEST(Simulador, CadaErrorDiceQueOpcionYPorQue) {
    const std::pair<const char*, const char*> casos[] = {
        {"--escucha local", "opción desconocida"},
        {"--ritmo 1000.001", "--ritmo: «1000.001» está fuera de margen"},
        {"--callar 5:1", "no hay indicador 5, solo 4"},
        {"--malas 2:signo,sigo", "«sigo» no es una clase"},
        {"concentrador --direcciones 12", "dirección como 12/3"},
        {"concentrador --saludo a\\q", "tras «\\» va xHH"},
        {"concentrador --cierra luego", "no es un momento"}};
    for (const auto& [orden, dice] : casos) {
        try {
            leer(orden);
            ADD_FAILURE() << orden << " is taken";
        } catch (const ErrorUso& error) {
            EXPECT_THAT(error.what(), HasSubstr(dice)) << orden;
        }
    }
    // The examples of the help are taken.
    std::istringstream ayuda(textoAyuda());
    int ejemplos = 0;
    for (std::string linea; std::getline(ayuda, linea);) {
        if (!linea.starts_with("  simulador ")) continue;
        ++ejemplos;
        EXPECT_NO_THROW(leer(linea.substr(12))) << linea;
    }
    EXPECT_EQ(ejemplos, 6);
}

TEST(Simulador, LosDefectosNoQuitanNingunaTrama) {
    const std::tuple<const char*, std::size_t, int> casos[] = {{"", 20, 20},
                                                               {"--malas 4", 25, 20},
                                                               {"--partir 2", 30, 20},
                                                               {"--juntar 3 --partir 5", 24, 60},
                                                               {"--callar 1:0.55-1.0", 16, 16}};
    for (const auto& [orden, datagramas, buenas] : casos) {
        const Opciones opciones = leer(std::string("--contar --puertos 9001 ") + orden);
        Indicador indicador(opciones, 0, 5);
        std::string todo;
        std::size_t enviados = 0, lugar = 0;
        for (int i = 0; i < 20; ++i) {
            const Turno turno = indicador.turno(vence(i, opciones.ritmo));
            enviados += turno.datagramas.size();
            for (const auto& datagrama : turno.datagramas) todo += datagrama;
        }
        EXPECT_EQ(enviados, datagramas) << orden;
        for (int n = 0; n <= buenas; ++n)
            EXPECT_EQ((lugar = todo.find(tramaTessel({.milesimas = n}, ""), lugar)) != std::string::npos, n < buenas)
                << orden;
    }
}

// What one client is sent in ten seconds: "|" between pieces, "#" a close, "!" a reset. It answers the greeting at
// once.
std::string sesion(const std::string& orden, const std::string& respuesta = "REP\r") {
    const Opciones opciones = leer("concentrador --direcciones 12/3 --contar --decimales 3 --ritmo 1 " + orden);
    Sesion sesion(opciones, opciones.faltas, 5);
    std::string dicho, llano;
    for (Instante ahora{}; ahora < 4500ms; ahora += 50ms) {
        for (int vuelta = 0; vuelta < 3; ++vuelta) {
            sesion.avanzar(ahora);
            if (sesion.salida().empty()) continue;
            llano += sesion.salida();
            dicho += std::exchange(sesion.salida(), "") + "|";
            if (llano == opciones.faltas.saludo) sesion.alRecibir(respuesta);
        }
        if (sesion.fin() != Sesion::Fin::Sigue) return dicho + (sesion.fin() == Sesion::Fin::Cierra ? "#" : "!");
    }
    return dicho;
}

TEST(Simulador, LaSesionConSusFaltas) {
    const std::string avisos = "LIN>|XXX>", cero = "12/03 -- 0000.000 0000.000\r", uno = "12/03 -- 0000.001 0000.000\r",
                      resto =
                          "|12/03 -- 0000.002 0000.000\r|12/03 -- 0000.003 0000.000\r|12/03 -- 0000.004 0000.000\r|",
                      todo = avisos + cero + "|" + uno + resto;
    EXPECT_EQ(sesion(""), todo);
    const std::pair<const char*, std::string> casos[] = {
        {"--aparte", "LIN>|XXX>|" + cero + "|" + uno + resto},
        {"--saludo Ho\\x00la --segundo NO --cierra abierta", std::string("Ho\0la|NO|#", 10)},
        {"--fin crlf --cierra lecturas:1", avisos + cero + "\n|#"},
        {"--trozos 2:0.05 --cierra rep", "LI|N>|#"},
        {"--enmudece rep", "LIN>|"},
        {"--enmudece saludo:0.1 --reinicia saludo", "!"},
        {"--callar 1:1.5", avisos + cero + "|" + uno + "|"}};
    for (const auto& [orden, dice] : casos) EXPECT_EQ(sesion(orden), dice) << orden;
    EXPECT_EQ(sesion("", "rep\r"), "LIN>|");
    EXPECT_EQ(sesion("", "no\rREP\r"), todo);
    // Bad lines come between the others, and half a line is completed after the silence.
    const std::string mala = sesion("--malas 2:separador"), media = sesion("--enmudece media:1:0.3");
    EXPECT_EQ(std::regex_replace(mala, std::regex("[^\r|]*;[^\r]*\r"), ""), todo);
    EXPECT_EQ(std::regex_replace(media, std::regex("\\|"), ""), std::regex_replace(todo, std::regex("\\|"), ""));
}

}  // namespace
}  // namespace sorvanel::simulador
