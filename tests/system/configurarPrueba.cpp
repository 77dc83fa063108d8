// What an operator does with the tools: the real controls are pressed, then the file and the screen
// are read.

#include <gmock/gmock.h>

#include <optional>

#include "configurar.h"
#include "harness/pantalla.h"

namespace sorvanel::pruebas {
namespace {

using testing::HasSubstr;

// From nothing to a live weight, as someone does who has never seen the program.
TEST_F(Configurar, DeLaNadaAUnPesoVivo) {
    programa.arrancar();
    ASSERT_TRUE(programa.esperarVisible(IdControl::botVisores));
    ASSERT_TRUE(abrir(IdControl::botVisores, visores));
    visores.pulsar(IdControl::botNvo);
    ASSERT_TRUE(visores.esperarControl(IdControl::txPort, 1));
    visores.escribir(IdControl::txPort, 1, std::to_string(puerto));
    visores.escribir(IdControl::txEtq, 1, "Tolva nº 1 €");
    visores.escribir(IdControl::txUbi, 1, "1;1");
    ASSERT_TRUE(visores.esperarTexto(IdControl::txUbi, 1, "1,1"));
    visores.tecla(IdControl::txUbi, 1, VK_RETURN);
    // The display is there before anything is accepted.
    ASSERT_TRUE(programa.esperarTexto(IdControl::picCap, 1, "Tolva\u00a0nº\u00a01\u00a0€"));
    EXPECT_TRUE(programa.seVe(IdControl::picRep, 1));
    programa.pulsar(IdControl::botOk);
    ASSERT_TRUE(programa.esperarVisible(IdControl::botRun));
    EXPECT_TRUE(visores.esperarCerrada());
    programa.pulsar(IdControl::botRun);
    ASSERT_TRUE(programa.esperarVisible(IdControl::botPau));
    EmisorUDP indicador;
    EXPECT_TRUE(insistir([&] { indicador.enviar(puerto, trama(12000)); }, [&] { return programa.peso(1) == "12"; }));
    EXPECT_THAT(programa.leerINI(), HasSubstr("Etiqueta=Tolva\xa0n\xba\xa0"
                                              "1\xa0\x80\r\n"));
    EXPECT_TRUE(programa.terminar());
}

TEST_F(Configurar, UnaEntradaInvalidaSeDiceYCancelarDevuelveCadaByte) {
    configurar(dosVisores);
    ASSERT_TRUE(abrir(IdControl::botVisores, visores));
    ASSERT_TRUE(visores.esperarControl(IdControl::txPort, 2));
    visores.escribir(IdControl::txUbi, 2, "1,1");
    ASSERT_TRUE(visores.esperarTexto(IdControl::txUbi, 2, "1,1"));
    visores.tecla(IdControl::txUbi, 2, VK_RETURN);
    const char* aviso = "La ubicación entrada no es correcta o está duplicada";
    EXPECT_EQ(programa.caja().contestar(), aviso);
    EXPECT_EQ(visores.texto(IdControl::txUbi, 2), "1,1") << "what was typed stays";
    programa.pulsar(IdControl::botOk);
    EXPECT_EQ(programa.caja().contestar(), aviso) << "accepting asks again, and refuses";
    EXPECT_NE(visores.ventana(), nullptr);
    visores.tecla(IdControl::txUbi, 2, VK_ESCAPE);
    ASSERT_TRUE(visores.esperarTexto(IdControl::txUbi, 2, "2,1"));
    visores.escribir(IdControl::txEtq, 2, "Otra");
    visores.tecla(IdControl::txEtq, 2, VK_RETURN);
    ASSERT_TRUE(esperarINI("Etiqueta=Otra"));
    programa.pulsar(IdControl::botCan);
    EXPECT_TRUE(visores.esperarCerrada());
    EXPECT_TRUE(esperar([&] { return programa.leerINI() == original; })) << programa.leerINI();
    EXPECT_TRUE(programa.seVe(IdControl::botOk)) << "still configuring";
}

TEST_F(Configurar, NuevoYEliminarRenumeranElArchivoYLaPantalla) {
    configurar(dosVisores);
    ASSERT_TRUE(abrir(IdControl::botVisores, visores));
    ASSERT_TRUE(visores.esperarControl(IdControl::txPort, 2));
    // The box of a row that came after the window has its frame as that of the first row has.
    const auto filo = [&](int n) {
        RECT caja = lugar(visores.control(IdControl::txPort, n));
        caja.bottom = caja.top + 3;
        return Fotografia(caja);
    };
    EXPECT_TRUE(esperar([&] { return filo(1) == filo(2) && filo(2).en(9, 0) != filo(2).en(9, 2); }));
    visores.pulsar(IdControl::botNvo);
    ASSERT_TRUE(visores.esperarControl(IdControl::txPort, 3));
    EXPECT_TRUE(esperarINI("[VISOR_3]"));
    // Select the first, and delete it.
    visores.tecla(IdControl::txEtq, 1, VK_RETURN);
    visores.pulsar(IdControl::botElim);
    EXPECT_TRUE(esperar([&] { return programa.leerINI().find("[VISOR_3]") == std::string::npos; }));
    EXPECT_TRUE(visores.esperarTexto(IdControl::txPort, 1, std::to_string(puerto + 1)));
    EXPECT_TRUE(esperar([&] { return !programa.seVe(IdControl::picRep, 3); }));
}

// What another program sends to the selected display is told before anything runs; its port is held no longer than
// that.
TEST_F(Configurar, SeVeLoQueLlegaAlPortYQuedaLibreEnseguida) {
    configurar(dosVisores);
    ASSERT_TRUE(abrir(IdControl::botVisores, visores));
    EmisorUDP indicador;
    std::optional<EmisorUDP> otro(std::in_place);
    EXPECT_TRUE(otro->ocupar(puerto + 1)) << "nobody has asked for it";
    visores.tecla(IdControl::txEtq, 1, VK_RETURN);
    const std::string port = std::to_string(puerto);
    EXPECT_TRUE(visores.esperarTexto(IdControl::lbRecepcion, 0, "Nada recibido en el port " + port));
    const auto dice = [&](std::string_view datos, const std::string& dicho) {
        return insistir([&] { indicador.enviar(puerto, datos); },
                        [&] { return visores.texto(IdControl::lbRecepcion).starts_with(dicho); });
    };
    EXPECT_TRUE(dice(trama(12000), "Recibiendo de 127.0.0.1, "));
    EXPECT_TRUE(dice("\x02+ 12 kg\r\n", "Llega algo que no es un peso: «<STX>+ 12 kg<CR><LF>»"));
    EXPECT_THAT(visores.texto(IdControl::lbEquipo), testing::Not(HasSubstr("127.0.0.1")));
    visores.tecla(IdControl::txEtq, 2, VK_RETURN);
    EXPECT_TRUE(visores.esperarTexto(IdControl::lbRecepcion, 0,
                                     "El port " + std::to_string(puerto + 1) + " lo tiene otro programa"));
    EXPECT_TRUE(EmisorUDP().ocupar(puerto)) << "let go with the selection";
    visores.tecla(IdControl::txEtq, 1, VK_RETURN);
    EXPECT_TRUE(dice(trama(12000), "Recibiendo de 127.0.0.1, "));
    otro.reset();
    programa.pulsar(IdControl::botOk);
    ASSERT_TRUE(programa.esperarVisible(IdControl::botRun));
    programa.pulsar(IdControl::botRun);
    EXPECT_TRUE(insistir([&] { indicador.enviar(puerto, trama(12000)); }, [&] { return programa.peso(1) == "12"; }));
    EXPECT_EQ(programa.caja().ventana(), nullptr);
}

TEST_F(Configurar, ElDisenoDeLaParrillaSeVeYSeGuardaEnseguida) {
    configurar(dosVisores);
    ASSERT_TRUE(abrir(IdControl::botDise, contexto));
    contexto.pulsar(IdControl::imRwP);
    ASSERT_TRUE(contexto.esperarTexto(IdControl::lbRow, 0, "3"));
    EXPECT_TRUE(esperarINI("FilasColumnas=3x1"));
    // Held, it goes on to the end.
    PostMessageW(contexto.control(IdControl::imRwP), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 3));
    EXPECT_TRUE(contexto.esperarTexto(IdControl::lbRow, 0, "8"));
    PostMessageW(contexto.control(IdControl::imRwP), WM_LBUTTONUP, 0, MAKELPARAM(3, 3));
    EXPECT_TRUE(esperarINI("FilasColumnas=8x1"));
    contexto.pulsar(IdControl::imGrVM);
    EXPECT_TRUE(esperarINI("gruesoVertical=3"));
    contexto.escribir(IdControl::txRatio, 0, "4x5");
    EXPECT_TRUE(esperarINI("ratioAlturas=0")) << "the letter never reaches the box";
    EXPECT_EQ(contexto.texto(IdControl::txRatio), "45");
    // The system's own colour window.
    contexto.pulsar(IdControl::frColorRet);
    HWND colores = nullptr;
    ASSERT_TRUE(esperar([&] {
        colores = programa.caja().ventana();
        return colores != nullptr && GetDlgItem(colores, 706) != nullptr;
    }));
    EXPECT_FALSE(IsWindowEnabled(contexto.ventana()));
    for (const auto& [id, valor] : {std::pair{706, L"255"}, {707, L"128"}, {708, L"0"}}) {
        SendMessageW(GetDlgItem(colores, id), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(valor));
    }
    PostMessageW(colores, WM_COMMAND, IDOK, 0);
    EXPECT_TRUE(esperarINI("colorReticula=0080FF"));
    EXPECT_TRUE(esperar([&] { return Fotografia(programa.control(IdControl::picRep)).cuantos(0x0080FF) > 1000; }));
    // The button toggles.
    programa.pulsar(IdControl::botDise);
    EXPECT_TRUE(contexto.esperarCerrada());
}

}  // namespace
}  // namespace sorvanel::pruebas
