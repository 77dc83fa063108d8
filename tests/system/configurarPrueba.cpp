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
    abrir(IdControl::botVisores, visores);
    visores.pulsar(IdControl::botNvo);
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

// What the system makes of the key goes from a control to its window, and from a tool to the main one.
TEST_F(Configurar, F1SinManualLoDiceDesdeCadaVentana) {
    configurar(dosVisores);
    const auto pedir = [&](HWND conFoco) {
        HELPINFO ayuda{};
        ayuda.cbSize = sizeof ayuda;
        SendMessageW(conFoco, WM_HELP, 0, reinterpret_cast<LPARAM>(&ayuda));
        return programa.caja().contestar();
    };
    EXPECT_THAT(pedir(programa.control(IdControl::botOk)), HasSubstr("manual.html"));
    abrir(IdControl::botVisores, visores);
    ASSERT_TRUE(visores.esperarControl(IdControl::txPort, 2));
    EXPECT_THAT(pedir(visores.control(IdControl::txPort, 2)), HasSubstr("manual.html"));
}

TEST_F(Configurar, UnaEntradaInvalidaSeDiceYCancelarDevuelveCadaByte) {
    configurar(dosVisores);
    abrir(IdControl::botVisores, visores);
    // The box of a row that came after the window has its frame as that of the first row has.
    ASSERT_TRUE(visores.esperarControl(IdControl::txPort, 2));
    const auto filo = [&](int n) {
        RECT caja = lugar(visores.control(IdControl::txPort, n));
        caja.bottom = caja.top + 3;
        return Fotografia(caja);
    };
    EXPECT_TRUE(esperar([&] { return filo(1) == filo(2) && filo(2).en(9, 0) != filo(2).en(9, 2); }));
    entrar(IdControl::txUbi, 2, "1,1");
    const char* aviso = "La ubicación entrada no es correcta o está duplicada";
    EXPECT_EQ(programa.caja().contestar(), aviso);
    programa.pulsar(IdControl::botOk);
    EXPECT_EQ(programa.caja().contestar(), aviso) << "accepting asks again, and refuses";
    EXPECT_EQ(visores.texto(IdControl::txUbi, 2), "1,1") << "what was typed stays";
    visores.tecla(IdControl::txUbi, 2, VK_ESCAPE);
    ASSERT_TRUE(visores.esperarTexto(IdControl::txUbi, 2, "2,1"));
    // Select the first, and delete it.
    visores.pulsar(IdControl::botNvo);
    ASSERT_TRUE(visores.esperarControl(IdControl::txPort, 3));
    entrar(IdControl::txEtq, 1, "Otra");
    ASSERT_TRUE(esperarINI("Etiqueta=Otra"));
    for (int mitad = 0; mitad < 2; ++mitad) visores.pulsar(IdControl::botElim);
    EXPECT_TRUE(visores.esperarTexto(IdControl::txPort, 1, std::to_string(puerto + 1)));
    EXPECT_TRUE(esperar([&] { return !programa.seVe(IdControl::picRep, 3); }));
    EXPECT_TRUE(esperar([&] { return programa.leerINI().find("[VISOR_3]") == std::string::npos; }));
    EXPECT_THAT(programa.leerINI(), HasSubstr("[VISOR_2]")) << "a double click deletes one";
    programa.pulsar(IdControl::botCan);
    EXPECT_TRUE(visores.esperarCerrada());
    EXPECT_TRUE(esperar([&] { return programa.leerINI() == original; })) << programa.leerINI();
    EXPECT_TRUE(programa.seVe(IdControl::botOk)) << "still configuring";
}

// With the mouse itself, on the grid: 2 rows of 2, of which the tool covers the middle.
TEST_F(Configurar, SituarMoverEIntercambiarConElRaton) {
    configurar(Configuracion().reticula(2, 2).visor(puerto, 1, 1).visor(puerto + 1, 2, 1));
    abrir(IdControl::botVisores, visores);
    ASSERT_TRUE(visores.esperarControl(IdControl::imFoco, 2));
    const RECT todo = lugar(programa.ventana());
    const auto en = [&](int fila, int columna) {
        return POINT{columna == 1 ? todo.left + 30 : todo.right - 30,
                     (fila == 1 ? todo.top + 30 : todo.top + (todo.bottom - todo.top - 32) / 2 + 30)};
    };
    const auto clic = [&](POINT donde) { clicEnPantalla(donde.x, donde.y); };
    visores.pulsar(IdControl::botNvo);
    ASSERT_TRUE(visores.esperarControl(IdControl::txPort, 3));
    clic(en(1, 2));
    ASSERT_TRUE(visores.esperarTexto(IdControl::txUbi, 3, "1,2"));
    EXPECT_TRUE(programa.esperarVisible(IdControl::picRep, 3));
    // The keyboard is where it was, in the tool.
    EXPECT_TRUE(esperar([&] { return foco(programa.ventana()) == visores.control(IdControl::txPort, 3); }));
    clic(en(2, 1));
    EXPECT_TRUE(esperar([&] { return foco(programa.ventana()) == visores.control(IdControl::txPort, 2); }));
    arrastrarEnPantalla(en(2, 1), en(2, 2));
    ASSERT_TRUE(visores.esperarTexto(IdControl::txUbi, 2, "2,2"));
    // Shown while it is dragged, each time; then Escape, and nothing of it is done.
    for (int vez = 1; vez <= 2; ++vez) {
        std::string dicho;
        arrastrarEnPantalla(en(1, 1), en(1, 2), [&] {
            EXPECT_TRUE(esperar([&] { return programa.seVe(IdControl::picMarca, 4); })) << vez;
            dicho = programa.texto(IdControl::picMarca, 4);
            // Above the display, too.
            const HWND lado = programa.control(IdControl::picMarca, 3);
            EXPECT_TRUE(esperar([&] { return Fotografia(lado).cuantos(0xC45C0B) > 100; }));
            teclear(programa.ventana(), VK_ESCAPE);
            EXPECT_TRUE(esperar([&] { return !programa.seVe(IdControl::picMarca, 4); }));
        });
        EXPECT_EQ(dicho, "Intercambiar #1 y #3");
    }
    arrastrarEnPantalla(en(1, 1), en(1, 2));
    ASSERT_TRUE(visores.esperarTexto(IdControl::txUbi, 1, "1,2"));
    EXPECT_TRUE(visores.esperarTexto(IdControl::txUbi, 3, "1,1"));
    EXPECT_TRUE(
        esperar([&] { return lugar(programa.control(IdControl::picRep, 3)).left < en(1, 2).x / 2 + en(1, 1).x / 2; }));
    EXPECT_TRUE(esperarINI("Ubicacion=1,2")) << programa.leerINI();
    EXPECT_NE(visores.ventana(), nullptr);
}

// What another program sends to the selected display is told before anything runs; its port is held no longer than
// that.
TEST_F(Configurar, SeVeLoQueLlegaAlPortYQuedaLibreEnseguida) {
    configurar(dosVisores);
    abrir(IdControl::botVisores, visores);
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
    abrir(IdControl::botDise, contexto);
    // Two presses are two, however quick; held, it goes on to the end.
    contexto.pulsar(IdControl::imCoP);
    contexto.pulsar(IdControl::imCoP);
    EXPECT_TRUE(contexto.esperarTexto(IdControl::lbCol, 0, "3"));
    EXPECT_EQ(GetClassLongPtrW(contexto.control(IdControl::imCoP), GCL_STYLE) & CS_DBLCLKS, 0U);
    PostMessageW(contexto.control(IdControl::imRwP), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 3));
    EXPECT_TRUE(contexto.esperarTexto(IdControl::lbRow, 0, "8"));
    PostMessageW(contexto.control(IdControl::imRwP), WM_LBUTTONUP, 0, MAKELPARAM(3, 3));
    EXPECT_TRUE(esperarINI("FilasColumnas=8x3"));
    contexto.escribir(IdControl::txRatio, 0, "4x5");
    EXPECT_TRUE(esperarINI("ratioAlturas=0")) << "the letter never reaches the box";
    EXPECT_EQ(contexto.texto(IdControl::txRatio), "45");
    // The system's own colour window.
    contexto.pulsar(IdControl::frColorRet);
    const HWND colores = delSistema(706);
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
