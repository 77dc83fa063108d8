#include <gmock/gmock.h>

#include <atomic>
#include <numeric>
#include <sstream>
#include <thread>
#include <vector>

#include "harness/archivo.h"
#include "harness/configuracion.h"
#include "harness/emisorUDP.h"
#include "harness/esperar.h"
#include "harness/fotografia.h"
#include "harness/programa.h"
#include "harness/trama.h"
#include "harness/ventana.h"

namespace sorvanel::pruebas {
namespace {

constexpr int VISORES = 64;

class Caudal : public testing::Test {
protected:
    void SetUp() override {
        Configuracion configuracion;
        configuracion.reticula(8, 8);
        for (int i = 0; i < VISORES; ++i) configuracion.visor(puerto + i, i / 8 + 1, i % 8 + 1);
        programa.escribirINI(configuracion);
        programa.arrancar();
        ASSERT_TRUE(programa.esperarVisible(IdControl::botPau));
    }

    // Each display a value of its own, and each round another.
    static int valor(int visor, int ronda) { return visor * 1000 + ronda; }

    void enviarRonda(int ronda, int primero = 0, int cuantos = VISORES) {
        for (int i = primero; i < primero + cuantos; ++i) indicadores.enviar(puerto + i, trama(valor(i, ronda) * 1000));
    }

    bool muestra(int visor, int ronda) const {
        return programa.texto(IdControl::picRep, visor + 1) == std::to_string(valor(visor, ronda));
    }

    // How many of these displays never showed the value of that round. A weight stands for a second
    // only, so each is asked until it was seen once.
    int sinMostrar(int ronda, int primero, int cuantos) const {
        std::vector<int> faltan(static_cast<std::size_t>(cuantos));
        std::iota(faltan.begin(), faltan.end(), primero);
        esperar([&] {
            std::erase_if(faltan, [&](int visor) { return muestra(visor, ronda); });
            return faltan.empty();
        });
        return static_cast<int>(faltan.size());
    }

    void enviar(int visor, int ronda) { enviarRonda(ronda, visor, 1); }

    // Whether it shows that value at last, sending it again meanwhile.
    bool alcanza(int visor, int ronda) {
        // A busy machine may have a long queue of frames before it.
        constexpr int PLAZO_COLA = 40000;
        const auto intento = [&] {
            enviar(visor, ronda);
            return esperar([&] { return muestra(visor, ronda); }, 300);
        };
        return esperar(intento, PLAZO_COLA);
    }

    int puerto = puertosLibres(VISORES);
    Programa programa;
    EmisorUDP indicadores;
};

// Datagrams that the system had to throw away because the program did not fetch them in time, for
// the ports from `primero` on. Known under Wine only, where Linux tells; 0 elsewhere.
int perdidosEnElSistema(int primero) {
    std::istringstream lineas(leerArchivo(L"Z:\\proc\\net\\udp"));
    int perdidos = 0;
    for (std::string linea; std::getline(lineas, linea);) {
        std::istringstream campos(linea);
        std::string numero, local, campo;
        campos >> numero >> local;
        if (local.size() != 13 || local[8] != ':') continue;  // "00000000:1F90"
        const int suyo = std::stoi(local.substr(9), nullptr, 16);
        while (campos >> campo) {
        }
        if (suyo >= primero && suyo < primero + VISORES) perdidos += std::stoi(campo);
    }
    return perdidos;
}

// A burst to a few displays at once, few enough to look at each before its weight grows old.
TEST_F(Caudal, CadaTramaDeUnaRafagaSeMuestra) {
    constexpr int GRUPO = 8;
    for (int ronda = 1; ronda <= 200; ++ronda) {
        const int primero = ronda * GRUPO % VISORES;
        enviarRonda(ronda, primero, GRUPO);
        ASSERT_EQ(sinMostrar(ronda, primero, GRUPO), 0) << "round " << ronda;
    }
    EXPECT_TRUE(programa.terminar());
}

TEST_F(Caudal, SesentaYCuatroVisoresACincuentaTramasPorSegundo) {
    constexpr int RONDAS = 300;
    constexpr ULONGLONG PERIODO = 20;  // ms
    const DWORD graficosAntes = programa.proceso().objetosGDI();
    const ULONGLONG inicio = GetTickCount64();
    int vistas = 0;
    std::string anterior;
    for (int ronda = 1; ronda <= RONDAS; ++ronda) {
        enviarRonda(ronda);
        const ULONGLONG siguiente = inicio + static_cast<ULONGLONG>(ronda) * PERIODO;
        const std::string ahora = programa.texto(IdControl::picRep, 1);
        vistas += ahora != anterior;
        anterior = ahora;
        while (GetTickCount64() < siguiente) Sleep(1);
    }
    // A busy machine sends slower; what it did reach is in the report.
    RecordProperty("tramas_por_segundo",
                   std::to_string(RONDAS * VISORES * 1000 / static_cast<int>(GetTickCount64() - inicio)));
    for (int i = 0; i < VISORES; ++i) ASSERT_TRUE(alcanza(i, RONDAS)) << i;
    EXPECT_EQ(perdidosEnElSistema(puerto), 0);
    // It shows weights while they come, not only once they have stopped.
    EXPECT_GT(vistas, RONDAS / 10);

    // A graphic object lost with each weight would end the painting after some hours. Wine does not
    // count them (it says 0), so only Windows can tell here.
    EXPECT_LE(programa.proceso().objetosGDI(), graficosAntes + 50);
    // It says the weight; does it paint, too? Other digits make another picture.
    const HWND ultimo = programa.control(IdControl::picRep, VISORES);
    const auto retrato = [&](int ronda) {
        EXPECT_TRUE(alcanza(VISORES - 1, ronda));
        return Fotografia(ultimo);
    };
    EXPECT_TRUE(esperar([&] { return retrato(RONDAS + 11) != retrato(RONDAS + 88); }));
    EXPECT_TRUE(programa.terminar());
}

// As many frames to so many ports as the machine can send, while it lives.
class Riada {
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
    Riada(const Riada&) = delete;
    Riada& operator=(const Riada&) = delete;

private:
    std::atomic<bool> m_fin = false;
    std::thread m_hilo;
};

// Boxes and menus run loops of the system's own, which hand out datagrams before everything else.
TEST(Riada, NingunBucleDelSistemaDejaUnPesoViejoNiSeQuedaSordo) {
    constexpr int SILENCIO = 5000;  // ms; two beats of a second, and a busy machine
    const int puerto = puertosLibres(VISORES);
    Configuracion configuracion;
    configuracion.reticula(8, 8);
    for (int i = 0; i < VISORES - 1; ++i) configuracion.visor(puerto + i, i / 8 + 1, i % 8 + 1);
    configuracion.visor(305, 8, 8).clave("Protocolo", "Pavona").seccion("PAVONA").clave("Port", "0");
    Programa programa(configuracion);
    programa.arrancar();
    ASSERT_NE(programa.caja().esperarTexto(), "");
    const HWND caja = programa.caja().ventana();
    EmisorUDP indicador;
    const Riada riada(puerto + 1, VISORES - 2);
    const auto calla = [&](int peso) {
        EXPECT_TRUE(esperar([&] {
            indicador.enviar(puerto, trama(peso * 1000));
            return programa.texto(IdControl::picRep, 1) == std::to_string(peso);
        }));
        return esperar([&] { return programa.texto(IdControl::picRep, 1) == "-----"; }, SILENCIO);
    };
    EXPECT_TRUE(calla(7)) << "a box is open";
    EXPECT_TRUE(esperar([&] { return programa.texto(IdControl::picRep, 2) != "-----"; })) << "the others go on";
    const auto oprimir = [](BYTE tecla) {
        keybd_event(tecla, 0, 0, 0);
        keybd_event(tecla, 0, KEYEVENTF_KEYUP, 0);
    };
    oprimir(VK_RETURN);
    ASSERT_TRUE(esperar([&] { return !IsWindow(caja); }, SILENCIO)) << "the box can be answered";

    const auto enMenu = [&] {
        GUITHREADINFO hilo{};
        hilo.cbSize = sizeof hilo;
        GetGUIThreadInfo(GetWindowThreadProcessId(programa.ventana(), nullptr), &hilo);
        return (hilo.flags & GUI_INMENUMODE) != 0;
    };
    PostMessageW(programa.ventana(), WM_SYSCOMMAND, SC_KEYMENU, ' ');
    ASSERT_TRUE(esperar(enMenu));
    EXPECT_TRUE(calla(8)) << "the menu is open";
    const auto salir = [&] {
        oprimir(VK_ESCAPE);  // of the menu, and then of the bar that it belongs to
        return esperar([&] { return !enMenu(); }, 500);
    };
    EXPECT_TRUE(esperar(salir, SILENCIO)) << "the menu can be left";
    EXPECT_TRUE(calla(9));
    EXPECT_TRUE(programa.terminar());
}

}  // namespace
}  // namespace sorvanel::pruebas
