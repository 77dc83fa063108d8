// The pictures of the operator's manual; scripts/imagenes-manual.sh takes them. A plant as it might be: an indicator at
// 192.168.1.40 sends to this computer, where the network has those addresses.

#include <atomic>
#include <chrono>
#include <thread>
#include <utility>

#include "escena.h"
#include "harness/red.h"
#include "harness/sistema.h"

namespace sorvanel::escenas {
namespace {

using namespace pruebas;
using enum IdControl;

constexpr int PRIMERO = 9001;
constexpr std::chrono::milliseconds RITMO{100};  // between two frames of an indicator

constexpr const char* ESTE_EQUIPO = "192.168.1.20";
constexpr const char* INDICADOR = "192.168.1.40";

sockaddr_in direccion(const char* ip, int puerto) {
    sockaddr_in una{};
    una.sin_family = AF_INET;
    una.sin_addr.s_addr = inet_addr(ip);
    una.sin_port = htons(static_cast<u_short>(puerto));
    return una;
}

bool tomar(SOCKET zocalo, const char* ip) {
    const sockaddr_in propia = direccion(ip, 0);
    return bind(zocalo, reinterpret_cast<const sockaddr*>(&propia), sizeof propia) == 0;
}

// Elsewhere that address may be somebody else's: nothing is sent there. Asked by TCP, since Wine lets a datagram socket
// have any.
bool esDeEsteEquipo(const char* ip) {
    const SOCKET tanteo = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
    const bool si = tomar(tanteo, ip);
    closesocket(tanteo);
    return si;
}

// Each sends its frame to a port of its own, all the time.
class Indicadores : private SinCopia {
public:
    explicit Indicadores(std::vector<std::string> tramas)
        : m_zocalo(socket(AF_INET, SOCK_DGRAM, IPPROTO_UDP)),
          m_tramas(std::move(tramas)),
          m_destino(esDeEsteEquipo(ESTE_EQUIPO) && tomar(m_zocalo, INDICADOR) ? ESTE_EQUIPO : "127.0.0.1") {
        m_hilo = std::thread([this] { enviar(); });
    }
    ~Indicadores() {
        m_fin = true;
        m_hilo.join();
        closesocket(m_zocalo);
    }

private:
    void enviar() const {
        for (auto turno = std::chrono::steady_clock::now(); !m_fin; std::this_thread::sleep_until(turno += RITMO)) {
            for (std::size_t i = 0; i < m_tramas.size(); ++i) {
                const auto destino = direccion(m_destino, PRIMERO + static_cast<int>(i));
                sendto(m_zocalo, m_tramas[i].data(), static_cast<int>(m_tramas[i].size()), 0,
                       reinterpret_cast<const sockaddr*>(&destino), sizeof destino);
            }
        }
    }

    SOCKET m_zocalo;
    std::vector<std::string> m_tramas;
    const char* m_destino;
    std::atomic<bool> m_fin = false;
    std::thread m_hilo;
};

void diseno(Configuracion& ini) {
    ini.seccion("VISORES").clave("anchoEtiqueta", "4").clave("ratioAlturas", "0,6").clave("fondoEtiqueta", "7A3B12");
}

Configuracion planta(int visores = 6, const char* posicion = "0;0", const char* dimensiones = "1;1") {
    constexpr std::pair<const char*, const char*> VISORES[] = {{"Báscula puente", ""}, {"Tolva 1", "##0.0"},
                                                               {"Tolva 2", "##0.0"},   {"Silo de harina", ""},
                                                               {"Ensacado", "#0.00"},  {"Paletizado", ""}};
    Configuracion ini;
    ini.reticula(3, 2).clave("Posicion", posicion).clave("Dimensiones", dimensiones);
    diseno(ini);
    for (int i = 0; i < visores; ++i) {
        const auto& [etiqueta, formato] = VISORES[i];
        ini.visor(PRIMERO + i, i / 2 + 1, i % 2 + 1).clave("Etiqueta", etiqueta).clave("formatoPeso", formato);
    }
    return ini;
}

std::vector<std::string> pesos() {
    return {trama(38'460'000, "EXX"), trama(612'500, "XXX"), trama(87'200, "EXX"),
            trama(14'250'000, "EXX"), trama(25'020, "EXX"),  trama(742'000, "XXX")};
}

RECT celda(Escena& e, int visor) {
    const RECT etiqueta = lugar(e.programa().control(picCap, visor));
    const RECT peso = lugar(e.programa().control(picRep, visor));
    RECT todo{};
    UnionRect(&todo, &etiqueta, &peso);
    return todo;
}

// So that what is done beside it is seen.
void apartar(Escena& e, int x, int y) {
    const RECT todo = lugar(e.programa().ventana());
    SetWindowPos(e.herramienta().ventana(), nullptr, todo.left + x, todo.top + y, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
}

void esperarRitmo(Escena& e) {
    exigir(esperar([&] { return e.herramienta().texto(lbRecepcion).ends_with("10 por segundo"); }, 2 * PLAZO),
           "it does not say what comes");
}

RECT barra(Escena& e) {
    return lugar(e.programa().control(picBot));
}

void esperarPesos(Escena& e, int cuantos) {
    for (int n = 1; n <= cuantos; ++n)
        exigir(esperar([&] { return e.programa().peso(n).find_first_of("0123456789") != std::string::npos; }),
               "display " + std::to_string(n) + " shows no weight");
}

void enMarcha(Escena& e) {
    e.arrancar(planta());
    {
        const Indicadores indicadores(pesos());
        esperarPesos(e, 6);
        e.foto("marcha");
        e.foto("barra-marcha", barra(e));
        e.foto("signo-equilibrio", celda(e, 1));
    }
    e.esperarPeso(2, "-----");
    e.foto("signo-rayas", celda(e, 2));
    e.pausar();
    e.foto("barra-pausa", barra(e));
    e.foto("signo-vacia", celda(e, 2));
    e.configurar(planta());
    e.foto("barra-configurando", barra(e));
    e.programa().pulsar(botCan);
    exigir(e.programa().esperarTexto(lbEstado, 0, "Cambios cancelados: acepte para volver"), "it is not told");
    e.foto("barra-cancelado", barra(e));
}

// Marks of the concentrator's family, and a display that says at once why it has no data.
void signos(Escena& e) {
    Concentrador concentrador(CONCENTRADOR);
    Configuracion ini;
    ini.reticula(3, 2);
    diseno(ini);
    ini.visor(PRIMERO, 1, 1).clave("Etiqueta", "Báscula puente");
    for (int i = 1; i <= 2; ++i) {
        ini.visor(1200 + i, 1 + i, 1).clave("Etiqueta", "Tolva " + std::to_string(i));
        ini.clave("Protocolo", "Pavona").clave("ModoBulk", "0").clave("formatoPeso", "##0.0");
    }
    ini.seccion("PAVONA").clave("Host", "127.0.0.1").clave("Port", std::to_string(CONCENTRADOR));
    EmisorUDP otro;
    exigir(otro.ocupar(PRIMERO), "the port is taken already");
    e.arrancar(ini);
    exigir(!e.programa().caja().contestar().empty(), "nothing is told");
    exigir(concentrador.abrirSesion(), "no session");
    e.mientras([&] { concentrador.decir(lineaPavona(1201, "C-", "612.5") + lineaPavona(1202, "-D", "87.2")); });
    e.esperarPeso(2, "612.5");
    e.esperarPeso(3, "87.2");
    e.foto("signo-carga", celda(e, 2));
    e.foto("signo-descarga", celda(e, 3));
    e.foto("signo-motivo", celda(e, 1));
    e.vaciar();
}

void primerVisor(Escena& e) {
    e.configurar("");
    e.foto("primer-arranque");
    const Indicadores indicadores(pesos());
    e.abrir(botVisores, cfgVisor, botNvo);
    e.pulsar(botNvo, 0, imFoco, 1);
    const VentanaHerramienta& tool = e.herramienta();
    tool.escribir(txPort, 1, "9001");
    tool.tecla(txPort, 1, VK_RETURN);
    tool.escribir(txEtq, 1, "Tolva");
    tool.tecla(txEtq, 1, VK_RETURN);
    const RECT todo = lugar(e.programa().ventana());
    clicEnPantalla(todo.left + 20, todo.top + 20);
    exigir(tool.esperarTexto(txUbi, 1, "1,1"), "the click places nothing");
    SetCursorPos(todo.left - 20, todo.top + 20);
    apartar(e, 664, 190);
    esperarRitmo(e);
    e.foto("primer-visor");
}

void visores(Escena& e) {
    Configuracion ini = planta(4);
    ini.visor(1201, 3, 1).clave("Etiqueta", "Ensacado").clave("Protocolo", "Pavona").clave("ModoBulk", "0");
    ini.visor(1202, 3, 2).clave("Etiqueta", "Paletizado").clave("Protocolo", "Pavona").clave("ModoBulk", "1");
    ini.seccion("PAVONA").clave("Host", "192.168.1.30").clave("Port", "9084");
    const Indicadores indicadores(pesos());
    e.configurar(ini);
    e.abrir(botVisores, cfgVisor, imFoco, 6);
    e.enfocar(txPort, 2);
    esperarRitmo(e);
    e.foto("visores", lugar(e.herramienta().ventana()));
    e.pulsar(imFoco, 2, ckFmt, 0);
    e.pulsar(ckFdPe, 0, frColorFdPe, 0);
    e.foto("particular", lugar(e.herramienta().ventana()));
}

void situar(Escena& e) {
    const Indicadores indicadores(pesos());
    e.configurar(planta(5));
    e.abrir(botVisores, cfgVisor, imFoco, 3);
    apartar(e, 12, 290);
    const RECT todo = lugar(e.programa().ventana());
    const LONG dentro = (todo.right - todo.left) / 10;
    arrastrarEnPantalla({todo.left + dentro, todo.top + dentro}, {todo.right - dentro, todo.bottom - 32 - dentro}, [&] {
        exigir(e.programa().esperarVisible(picMarca, 4), "nothing says what the drag would do");
        esperarRitmo(e);
        e.foto("situar");
        teclear(e.programa().ventana(), VK_ESCAPE);
        exigir(esperar([&] { return !e.programa().seVe(picMarca, 4); }), "Escape does not end it");
    });
}

void contexto(Escena& e) {
    e.configurar(planta());
    e.abrir(botDise, cfgContexto, imUnload);
    e.foto("contexto", lugar(e.herramienta().ventana()));
}

void tamano(Escena& e) {
    e.configurar(planta(6, "0,1;0,1", "0,8;0,7"));
    e.programa().pulsar(botSize);
    exigir(e.programa().esperarVisible(imDrgWH), "no handle comes");
    e.enfocar(imDrgWH);
    PostMessageW(e.programa().control(imDrgWH), WM_KEYDOWN, VK_LEFT, 1);
    exigir(e.programa().esperarVisible(lbMedida), "no measure is seen");
    e.foto("tamano");
}

void mensaje(Escena& e) {
    Configuracion ini = planta();
    ini.seccion("MENSAJE").clave("EnUso", "Sí").clave("Texto", "Descarga de cisternas por la puerta 3");
    ini.clave("Font", "Arial,40,xxx").clave("Color", "302010,00D0E0").clave("Velocidad", "0");
    e.configurar(ini);
    e.abrir(botMensaje, cfgMensaje, txTexto);
    e.foto("mensaje", lugar(e.herramienta().ventana()));
    e.pulsar(botAjustar, 0, botAjustar, 0, false);
    exigir(esperar([&] { return e.programa().leerINI().find("Dimensiones=1;1\r") == std::string::npos; }),
           "the grid is not saved");
    e.arrancar(e.programa().leerINI().substr(3));  // it begins with the mark of UTF-8, as what is started with does
    const Indicadores indicadores(pesos());
    esperarPesos(e, 6);
    e.foto("mensaje-marcha");
}

void manual(Escena& e) {
    for (void (*const parte)(Escena&) : {enMarcha, signos, primerVisor, visores, situar, contexto, tamano, mensaje}) {
        parte(e);
        e.vaciar();
    }
}

}  // namespace

const std::vector<Acto> MANUAL{{L"manual", manual}};

}  // namespace sorvanel::escenas
