// The controls as Windows makes them, in the operator's hands: lists, the clipboard, double clicks, the mouse on the
// handles, tips, the keyboard's order, the system's own windows; and what cancelling takes back of it.

#include <gmock/gmock.h>

#include <algorithm>

#include "configurar.h"

namespace sorvanel::pruebas {
namespace {

using testing::HasSubstr;

using Controles = Configurar;

void alPortapapeles(std::wstring_view texto) {
    const std::size_t bytes = (texto.size() + 1) * sizeof(wchar_t);
    const HGLOBAL memoria = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, bytes);
    texto.copy(static_cast<wchar_t*>(GlobalLock(memoria)), texto.size());
    GlobalUnlock(memoria);
    ASSERT_TRUE(esperar([] { return OpenClipboard(nullptr) != FALSE; }));
    EmptyClipboard();
    SetClipboardData(CF_UNICODETEXT, memoria);
    CloseClipboard();
}

TEST_F(Controles, UnaListaSeAbreYLoElegidoSeGuarda) {
    configurar(dosVisores);
    abrir(IdControl::botVisores, visores);
    ASSERT_TRUE(visores.esperarControl(IdControl::lstModo, 2));
    const HWND lista = visores.control(IdControl::lstModo, 2);
    pulsar(lista);
    ASSERT_TRUE(esperar([&] { return SendMessageW(lista, CB_GETDROPPEDSTATE, 0, 0) != 0; }));
    teclear(lista, VK_UP);
    teclear(lista, VK_UP);
    teclear(lista, VK_RETURN);
    EXPECT_TRUE(esperarINI("ModoBulk=2"));
    EXPECT_EQ(SendMessageW(lista, CB_GETCURSEL, 0, 0), 2);
    // Closed, the arrows are the rows'.
    visores.tecla(IdControl::lstModo, 2, VK_UP);
    EXPECT_TRUE(esperar([&] { return foco(lista) == visores.control(IdControl::lstModo, 1); }));
}

TEST_F(Controles, LoPegadoPasaElMismoFiltroQueLoTecleado) {
    configurar(dosVisores);
    abrir(IdControl::botVisores, visores);
    for (const auto& [campo, queda] : {std::pair{IdControl::txPort, "192"}, {IdControl::txEtq, "a\u00a019-2\u00a0ñ"}}) {
        visores.escribir(campo, 2, "");
        ASSERT_TRUE(visores.esperarTexto(campo, 2, ""));
        alPortapapeles(L"a 19-2 ñ");
        PostMessageW(visores.control(campo, 2), WM_PASTE, 0, 0);
        EXPECT_TRUE(visores.esperarTexto(campo, 2, queda));
        visores.tecla(campo, 2, VK_RETURN);
    }
    EXPECT_TRUE(
        esperarINI("Etiqueta=a\xa0"
                   "19-2\xa0\xf1\r\n"));
    EXPECT_THAT(programa.leerINI(), HasSubstr("Port=192\r\n"));
}

// Also where the box says the same for both displays, and where a row has become another display's.
TEST_F(Controles, DeshacerNoLlegaAOtroVisor) {
    configurar(dosVisores + "formatoPeso=0.00\r\n");
    abrir(IdControl::botVisores, visores);
    const auto deshacer = [&](IdControl id, int n) {
        const HWND caja = visores.control(id, n);
        EXPECT_EQ(SendMessageW(caja, EM_CANUNDO, 0, 0), FALSE);
        const std::string antes = visores.texto(id, n);
        SendMessageW(caja, WM_UNDO, 0, 0);
        EXPECT_EQ(visores.texto(id, n), antes);
    };
    visores.pulsar(IdControl::imFoco, 1);
    visores.pulsar(IdControl::ckFmt);
    visores.escribir(IdControl::txFmt, 0, "0.00");
    ASSERT_TRUE(visores.esperarTexto(IdControl::txFmt, 0, "0.00"));
    EXPECT_NE(SendMessageW(visores.control(IdControl::txFmt), EM_CANUNDO, 0, 0), FALSE) << "of its own";
    const HWND segunda = visores.control(IdControl::txPort, 2);
    visores.pulsar(IdControl::imFoco, 2);
    ASSERT_TRUE(esperar([&] { return foco(segunda) == segunda; }));
    deshacer(IdControl::txFmt, 0);
    visores.pulsar(IdControl::imDesf);
    entrar(IdControl::txEtq, 1, "Otra");
    ASSERT_TRUE(esperarINI("Etiqueta=Otra"));
    visores.pulsar(IdControl::botElim);
    ASSERT_TRUE(visores.esperarTexto(IdControl::txPort, 1, std::to_string(puerto + 1)));
    deshacer(IdControl::txEtq, 1);
}

TEST_F(Controles, ElTecladoVaComoLaVista) {
    configurar(dosVisores);
    abrir(IdControl::botVisores, visores);
    ASSERT_TRUE(visores.esperarControl(IdControl::imFoco, 2));
    HWND actual = visores.control(IdControl::imFoco, 1);
    for (const IdControl id : {IdControl::imPtc, IdControl::txPort, IdControl::lstModo, IdControl::txEtq}) {
        actual = GetNextDlgTabItem(visores.ventana(), actual, FALSE);
        EXPECT_EQ(actual, visores.control(id, 2)) << numero(id);
    }
}

TEST_F(Controles, SobreUnBotonApareceSuSugerencia) {
    configurar(dosVisores);
    abrir(IdControl::botMensaje, mensaje);
    const auto sugerida = [&] {
        std::string texto;
        for (const HWND una : programa.proceso().ventanas())
            if (IsWindowVisible(una) && clase(una) == L"tooltips_class32") texto = pruebas::texto(una);
        return texto;
    };
    for (const HWND control : {programa.control(IdControl::botCan), mensaje.control(IdControl::imUnload)}) {
        const RECT sitio = lugar(control);
        SetCursorPos(sitio.left + 4, sitio.top + 4);
        SetCursorPos((sitio.left + sitio.right) / 2, (sitio.top + sitio.bottom) / 2);
        EXPECT_TRUE(esperar([&] { return !sugerida().empty() && sugerida() == texto(control); })) << sugerida();
    }
    SetCursorPos(5, 5);
}

TEST_F(Controles, LasAsasSiguenAlRatonYAlTecladoYRespetanElMensaje) {
    configurar(dosVisores + std::string(Configuracion().seccion("MENSAJE").clave("EnUso", "Si")));
    programa.pulsar(IdControl::botSize);
    ASSERT_TRUE(programa.esperarVisible(IdControl::imDrgWH));
    const HWND xy = programa.control(IdControl::imDrgXY), wh = programa.control(IdControl::imDrgWH);
    EXPECT_TRUE(GetClassLongPtrW(wh, GCL_STYLE) & CS_DBLCLKS) << "the system would tell of no double click";
    const RECT franja = lugar(programa.control(IdControl::picMsg));
    const RECT pantalla = lugar(programa.ventana());
    arrastrar(wh, -400, -300);
    EXPECT_TRUE(esperar([&] { return lugar(wh).right == pantalla.right - 400; }));
    // Beyond the strip and the screen's edge it stops there.
    arrastrar(wh, 900, 900);
    EXPECT_TRUE(esperar([&] { return lugar(wh).bottom == franja.top && lugar(wh).right == pantalla.right; }))
        << lugar(wh).bottom << " " << franja.top;
    arrastrar(xy, 200, 100);
    EXPECT_TRUE(esperar([&] { return lugar(xy).left == pantalla.left + 200 && lugar(xy).top == pantalla.top + 100; }));
    EXPECT_EQ(lugar(wh).right, pantalla.right) << "the other corner stays";
    pulsar(xy);
    ASSERT_TRUE(esperar([&] { return foco(xy) == xy; }));
    for (int i = 0; i < 10; ++i) teclear(xy, VK_RIGHT);
    EXPECT_TRUE(esperar([&] { return lugar(xy).left == pantalla.left + 210; }));
    EXPECT_TRUE(esperarINI("Posicion=0"));
    programa.pulsar(IdControl::botCan);
    EXPECT_TRUE(esperar([&] { return programa.leerINI() == original; }));
}

TEST_F(Controles, UnaHerramientaSeQuedaDondeSeLlevoYSigueALaPantalla) {
    configurar(dosVisores);
    abrir(IdControl::botDise, contexto);
    const std::vector<MonitorVisto> todos = monitores();
    const auto otro = std::find_if(todos.begin(), todos.end(), [](const MonitorVisto& m) { return !m.primario; });
    ASSERT_NE(otro, todos.end());
    const RECT sitio{otro->area.left + 200, otro->area.top + 150, 0, 0}, antes = lugar(programa.ventana());
    SetWindowPos(contexto.ventana(), nullptr, sitio.left, sitio.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    contexto.pulsar(IdControl::ckTrpa);
    EXPECT_TRUE(esperarINI("colorAplicacion=Transparente"));
    const RECT ahora = lugar(contexto.ventana());
    EXPECT_TRUE(ahora.left == sitio.left && ahora.top == sitio.top) << ahora.left << " " << ahora.top;
    const auto juntas = [&] {
        return MonitorFromWindow(contexto.ventana(), MONITOR_DEFAULTTONULL) ==
               MonitorFromWindow(programa.ventana(), MONITOR_DEFAULTTONULL);
    };
    ASSERT_FALSE(juntas());
    contexto.pulsar(todos.front().primario ? IdControl::imMoP : IdControl::imMoM);
    EXPECT_TRUE(esperar([&] { return lugar(programa.ventana()).left != antes.left && juntas(); }));
    programa.pulsar(IdControl::botCan);
    EXPECT_TRUE(contexto.esperarCerrada());
    EXPECT_TRUE(esperar([&] { return programa.leerINI() == original; }));
    EXPECT_TRUE(esperar([&] { return lugar(programa.ventana()).left == antes.left; }));
}

TEST_F(Controles, LaFuenteDelMensajeSeEligeEnLaVentanaDelSistema) {
    configurar(dosVisores);
    abrir(IdControl::botMensaje, mensaje);
    mensaje.pulsar(IdControl::lbUsar);
    mensaje.escribir(IdControl::txTexto, 0, "Atención");
    ASSERT_TRUE(programa.esperarTexto(IdControl::picMsg, 0, "Atención"));
    const LONG antes = lugar(programa.control(IdControl::picMsg)).top;
    mensaje.pulsar(IdControl::botFont);
    constexpr int TAMANO = 1138, SUBRAYADO = 1041;
    const HWND fuentes = delSistema(TAMANO);
    SendMessageW(GetDlgItem(fuentes, TAMANO), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"36"));
    SendMessageW(GetDlgItem(fuentes, SUBRAYADO), BM_CLICK, 0, 0);
    PostMessageW(fuentes, WM_COMMAND, IDOK, 0);
    EXPECT_TRUE(esperarINI(",36,xxU\r\n")) << programa.leerINI();
    EXPECT_TRUE(esperar([&] { return lugar(programa.control(IdControl::picMsg)).top > antes; })) << "a lower strip";
}

}  // namespace
}  // namespace sorvanel::pruebas
