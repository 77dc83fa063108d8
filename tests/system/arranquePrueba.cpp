#include <gmock/gmock.h>

#include <algorithm>

#include "harness/configuracion.h"
#include "harness/emisorUDP.h"
#include "harness/esperar.h"
#include "harness/monitores.h"
#include "harness/programa.h"
#include "harness/ventana.h"

namespace sorvanel::pruebas {
namespace {

std::string enTexto(const RECT& marco) {
    return std::to_string(marco.left) + "," + std::to_string(marco.top) + "," + std::to_string(marco.right) + "," +
           std::to_string(marco.bottom);
}

bool iguales(const RECT& a, const RECT& b) {
    return EqualRect(&a, &b) != 0;
}

const MonitorVisto& primario(const std::vector<MonitorVisto>& todos) {
    return *std::find_if(todos.begin(), todos.end(), [](const MonitorVisto& uno) { return uno.primario; });
}

// Whoever has no monitor at negative coordinates has not tested them.
TEST(Arranque, ElEntornoTieneUnMonitorALaIzquierdaDelPrimario) {
    const std::vector<MonitorVisto> todos = monitores();
    ASSERT_GE(todos.size(), 2U);
    EXPECT_TRUE(std::any_of(todos.begin(), todos.end(), [](const MonitorVisto& uno) { return uno.area.left < 0; }));
}

TEST(Arranque, CubreElMonitorEnUso) {
    const std::vector<MonitorVisto> todos = monitores();
    struct Caso {
        std::string enUso;
        RECT esperado;
    };
    std::vector<Caso> casos{{"0", primario(todos).area},
                            {"9", primario(todos).area},
                            {"-1", primario(todos).area},
                            {"dos", primario(todos).area},
                            {"", primario(todos).area}};
    for (std::size_t i = 0; i < todos.size(); ++i) casos.push_back({std::to_string(i + 1), todos[i].area});
    for (const Caso& caso : casos) {
        SCOPED_TRACE("EnUso=" + caso.enUso);
        const std::string ini = Configuracion().seccion("MONITORES").clave("EnUso", caso.enUso);
        Programa programa(ini);
        programa.arrancar();
        RECT visto{};
        EXPECT_TRUE(esperar([&] { return iguales(visto = lugar(programa.ventana()), caso.esperado); }))
            << "window at " << enTexto(visto) << ", monitor at " << enTexto(caso.esperado);
        EXPECT_EQ(programa.leerINI(), ini);
        EXPECT_TRUE(programa.terminar());
    }
}

TEST(Arranque, SinVisoresAbreConfigurando) {
    Programa programa;  // not even a settings file
    programa.arrancar();
    for (const IdControl boton : {IdControl::botOk, IdControl::botCan, IdControl::botDise, IdControl::botVisores,
                                  IdControl::botSize, IdControl::botMensaje})
        EXPECT_TRUE(programa.esperarVisible(boton)) << numero(boton);
    for (const IdControl boton : {IdControl::botOff, IdControl::botRun, IdControl::botPau, IdControl::botCfg})
        EXPECT_TRUE(programa.esperarOculto(boton)) << numero(boton);
    EXPECT_EQ(programa.control(IdControl::picRep, 1), nullptr);
    EXPECT_TRUE(programa.terminar());
}

TEST(Arranque, UnArchivoRetenidoNoEsUnoVacio) {
    Programa programa(Configuracion().reticula(1, 1).visor(puertosLibres(), 1, 1));
    // As one that looks for viruses does, or one that makes a backup.
    const HANDLE retenido = CreateFileW(programa.rutaINI().c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING,
                                        FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(retenido, INVALID_HANDLE_VALUE);
    programa.arrancar();
    const auto sigue = [&] { return programa.seVe(IdControl::botOk) || programa.seVe(IdControl::botPau); };
    EXPECT_TRUE(
        esperar([&] { return programa.texto(IdControl::picRep).starts_with("No se puede leer la configuración: "); }));
    EXPECT_FALSE(sigue());
    CloseHandle(retenido);
    EXPECT_TRUE(programa.esperarVisible(IdControl::botPau));
    EXPECT_TRUE(programa.terminar());
}

// As the system does for an installer; nobody has answered the box that told of an error at the start.
TEST(Arranque, UnInstaladorLoCierraAunqueHayaUnAviso) {
    Programa programa(Configuracion()
                          .reticula(1, 1)
                          .visor(305, 1, 1)
                          .clave("Protocolo", "Pavona")
                          .seccion("PAVONA")
                          .clave("Port", "0"));
    programa.arrancar();
    ASSERT_NE(programa.caja().esperarTexto(), "");
    DWORD_PTR respuesta = 0;
    SendMessageTimeoutW(programa.ventana(), WM_QUERYENDSESSION, 0, ENDSESSION_CLOSEAPP, SMTO_NORMAL, PLAZO, &respuesta);
    ASSERT_EQ(respuesta, 1U);
    SendMessageTimeoutW(programa.ventana(), WM_ENDSESSION, 1, ENDSESSION_CLOSEAPP, SMTO_NORMAL, PLAZO, &respuesta);
    EXPECT_EQ(programa.proceso().esperarFin(PLAZO), 0U);
}

TEST(Arranque, LaSegundaCopiaAcabaCallada) {
    Programa programa(Configuracion().reticula(1, 1).visor(puertosLibres(), 1, 1));
    programa.arrancar();
    const Proceso segunda(programa.ejecutable());
    bool mostro = false;
    const bool acabo = esperar([&] {
        const std::vector<HWND> suyas = segunda.ventanas();
        mostro = mostro || std::any_of(suyas.begin(), suyas.end(), [](HWND una) { return seVe(una); });
        return !segunda.vivo();
    });
    EXPECT_TRUE(acabo);
    EXPECT_FALSE(mostro);
    EXPECT_EQ(segunda.esperarFin(0), 0U);
    EXPECT_TRUE(programa.esperarVisible(IdControl::botPau));
    EXPECT_TRUE(programa.terminar());
}

TEST(Arranque, CopiasDeOtroNombreConviven) {
    Programa una;
    Programa otra;
    una.arrancar();
    otra.arrancar();
    EXPECT_TRUE(una.proceso().vivo());
    EXPECT_TRUE(otra.terminar());
    EXPECT_TRUE(una.terminar());
}

TEST(Arranque, MuestraLaVersion) {
    Programa programa;
    programa.arrancar();
    // Such as "1.00A".
    const std::string version = programa.texto(IdControl::lbVer);
    EXPECT_THAT(version, testing::MatchesRegex(".*\\d\\.\\d\\d\\w"));
    EXPECT_THAT(version.back(), testing::AllOf(testing::Ge('A'), testing::Le('Z')));
    EXPECT_TRUE(programa.terminar());
}

}  // namespace
}  // namespace sorvanel::pruebas
