#include <gtest/gtest.h>

#include <atomic>
#include <regex>
#include <thread>
#include <utility>

#include "harness/pantalla.h"
#include "harness/programa.h"
#include "harness/red.h"

namespace sorvanel::pruebas {
namespace {

constexpr int VISORES = 64;

// A full grid, each display of its own port.
Configuracion llena(int puerto, int cuantos) {
    Configuracion configuracion;
    configuracion.reticula(8, 8);
    for (int i = 0; i < cuantos; ++i) configuracion.visor(puerto + i, i / 8 + 1, i % 8 + 1);
    return configuracion;
}

// Datagrams that the system had to throw away because the program did not fetch them in time, for
// the ports from `primero` on. Known under Wine only, where Linux tells; 0 elsewhere.
int perdidosEnElSistema(int primero) {
    const std::string tabla = leerArchivo(L"Z:\\proc\\net\\udp");
    const std::regex linea(": [0-9A-F]{8}:([0-9A-F]{4}) .* ([0-9]+) *\n");  // the local port; the last number
    int perdidos = 0;
    for (std::sregex_iterator una(tabla.begin(), tabla.end(), linea), fin; una != fin; ++una) {
        const int suyo = std::stoi((*una)[1], nullptr, 16);
        if (suyo >= primero && suyo < primero + VISORES) perdidos += std::stoi((*una)[2]);
    }
    return perdidos;
}

TEST(Caudal, SesentaYCuatroVisoresACincuentaTramasPorSegundo) {
    constexpr int RONDAS = 300;
    constexpr ULONGLONG PERIODO = 20;  // ms
    const int puerto = puertosLibres(VISORES);
    Programa programa(llena(puerto, VISORES));
    ASSERT_TRUE(programa.marchar());
    EmisorUDP indicadores;
    // Each display a value of its own, and each round another.
    const auto enviar = [&](int visor, int ronda) {
        indicadores.enviar(puerto + visor, trama((visor * 1000 + ronda) * 1000));
    };
    const auto alcanza = [&](int visor, int ronda) {
        return insistir([&] { enviar(visor, ronda); },
                        [&] { return programa.peso(visor + 1) == std::to_string(visor * 1000 + ronda); });
    };
    const DWORD graficosAntes = programa.proceso().objetosGDI();
    const ULONGLONG inicio = GetTickCount64();
    int vistas = 0;
    std::string anterior;
    for (int ronda = 1; ronda <= RONDAS; ++ronda) {
        for (int i = 0; i < VISORES; ++i) enviar(i, ronda);
        const ULONGLONG siguiente = inicio + static_cast<ULONGLONG>(ronda) * PERIODO;
        const std::string ahora = programa.peso(1);
        vistas += ahora != std::exchange(anterior, ahora);
        while (GetTickCount64() < siguiente) Sleep(1);
    }
    // A busy machine may have a long queue of frames before the first.
    EXPECT_TRUE(esperar([&] { return alcanza(0, RONDAS); }, 4 * PLAZO));
    for (int i = 0; i < VISORES; ++i) ASSERT_TRUE(alcanza(i, RONDAS)) << i;
    EXPECT_EQ(perdidosEnElSistema(puerto), 0);
    // It shows weights while they come, not only once they have stopped.
    EXPECT_GT(vistas, RONDAS / 10);
    // A graphic object lost with each weight would end the painting after some hours. Wine does not
    // count them (it says 0), so only Windows can tell here.
    EXPECT_LE(programa.proceso().objetosGDI(), graficosAntes + 50);
    // It says the weight; does it paint, too? Other digits make another picture.
    const auto retrato = [&](int ronda) {
        EXPECT_TRUE(alcanza(VISORES - 1, ronda));
        return Fotografia(programa.control(IdControl::picRep, VISORES));
    };
    EXPECT_TRUE(esperar([&] { return retrato(RONDAS + 11) != retrato(RONDAS + 88); }));
    EXPECT_TRUE(programa.terminar());
}

// As many frames to so many ports as the machine can send, while it lives.
class Riada : private SinCopia {
public:
    Riada(int puerto, int cuantos)
        : m_hilo([=, this] {
              EmisorUDP indicador;
              for (int i = 0; !m_fin; ++i) indicador.enviar(puerto + i % cuantos, trama(i % 9999 * 1000));
          }) {}
    ~Riada() {
        m_fin = true;
        m_hilo.join();
    }

private:
    std::atomic<bool> m_fin = false;
    std::thread m_hilo;
};

// Boxes and menus run loops of the system's own, which hand out datagrams before everything else.
TEST(Riada, NingunBucleDelSistemaDejaUnPesoViejoNiSeQuedaSordo) {
    constexpr int SILENCIO = 5000;  // ms; two beats of a second, and a busy machine
    const int puerto = puertosLibres(VISORES);
    Programa programa(
        llena(puerto, VISORES - 1).visor(305, 8, 8).clave("Protocolo", "Pavona").seccion("PAVONA").clave("Port", "0"));
    programa.arrancar();
    ASSERT_NE(programa.caja().esperarTexto(), "");
    const HWND caja = programa.caja().ventana();
    EmisorUDP indicador;
    const Riada riada(puerto + 1, VISORES - 2);
    const auto calla = [&](int peso) {
        EXPECT_TRUE(insistir([&] { indicador.enviar(puerto, trama(peso * 1000)); },
                             [&] { return programa.peso(1) == std::to_string(peso); }));
        return esperar([&] { return programa.peso(1) == "-----"; }, SILENCIO);
    };
    EXPECT_TRUE(calla(7)) << "a box is open";
    EXPECT_TRUE(esperar([&] { return programa.peso(2) != "-----"; })) << "the others go on";
    const auto oprimir = [](BYTE tecla) {
        keybd_event(tecla, 0, 0, 0);
        keybd_event(tecla, 0, KEYEVENTF_KEYUP, 0);
    };
    oprimir(VK_RETURN);
    ASSERT_TRUE(esperar([&] { return !IsWindow(caja); }, SILENCIO)) << "the box can be answered";

    const auto menu = [&] { return enMenu(programa.ventana()); };
    PostMessageW(programa.ventana(), WM_SYSCOMMAND, SC_KEYMENU, ' ');
    ASSERT_TRUE(esperar(menu));
    EXPECT_TRUE(calla(8)) << "the menu is open";
    const auto salir = [&] {
        oprimir(VK_ESCAPE);  // of the menu, and then of the bar that it belongs to
        return esperar([&] { return !menu(); }, 500);
    };
    EXPECT_TRUE(esperar(salir, SILENCIO)) << "the menu can be left";
    EXPECT_TRUE(calla(9));
    EXPECT_TRUE(programa.terminar());
}

}  // namespace
}  // namespace sorvanel::pruebas
