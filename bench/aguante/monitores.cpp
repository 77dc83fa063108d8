// The second monitor, on which the program runs, is unplugged and plugged in; now and then the one that is left changes
// its size. Each time the window must cover the monitor that is its own then, and weights go on.

#include <algorithm>

#include "crecimiento.h"
#include "escena.h"
#include "estado.h"
#include "harness/red.h"
#include "linux.h"
#include "modo.h"
#include "recursos.h"
#include "tabla.h"

namespace sorvanel::medidas {
namespace {

using namespace pruebas;

constexpr int VISORES = 4;
constexpr int ENTRE_MEDIDAS = 10;  // turns
// Wine takes the server's last answer without asking again: it is asked here.
constexpr const char* QUITAR = "xrandr --output DUMMY1 --off && xrandr";
constexpr const char* PONER =
    "xrandr --output DUMMY1 --mode 1024x768 --pos 0x0 --output DUMMY0 --mode 1280x800 --pos 1024x0 --primary && "
    "xrandr --output DUMMY0 --right-of DUMMY1 && xrandr";
constexpr const char* OTRA_MEDIDA = "xrandr --output DUMMY0 --mode 1024x768 && xrandr";
constexpr const char* LA_MEDIDA = "xrandr --output DUMMY0 --mode 1280x800 && xrandr";
constexpr RECT PRIMARIO{0, 0, 1280, 800}, PRIMARIO_MENOR{0, 0, 1024, 768}, SEGUNDO{-1024, 0, 0, 768};

std::string enCifras(const RECT& uno) {
    return "(" + std::to_string(uno.left) + "," + std::to_string(uno.top) + " to " + std::to_string(uno.right) + "," +
           std::to_string(uno.bottom) + ")";
}

class Sala {
public:
    Sala() : m_programa(ajustes(VISORES, m_puerto, 0, 0) + enElSegundo()) {
        exigir(m_programa.marchar(), "it does not run");
        exigirEn(SEGUNDO);
    }
    ~Sala() {
        try {
            enLinux(PONER);
        } catch (const std::exception& fallo) {
            nota(fallo.what());
        }
    }
    Sala(const Sala&) = delete;
    Sala& operator=(const Sala&) = delete;
    const Programa& programa() const { return m_programa; }

    void vuelta(int cual, bool romper) {
        pasar(QUITAR, PRIMARIO, 1, romper);
        if (cual % ENTRE_MEDIDAS == 0) {
            pasar(OTRA_MEDIDA, PRIMARIO_MENOR, 1, romper);
            pasar(LA_MEDIDA, PRIMARIO, 1, romper);
        }
        pasar(PONER, SEGUNDO, 2, romper);
    }
    bool terminar() { return m_programa.terminar(); }

private:
    static std::string enElSegundo() {
        const std::vector<MonitorVisto> todos = monitores();
        exigir(todos.size() == 2, "two monitors are needed");
        return Configuracion().seccion("MONITORES").clave("EnUso", todos[0].primario ? "2" : "1");
    }

    // Wine takes the change in when somebody asks for the monitors, which this side does, but does not always tell the
    // windows: here they are told, several times, as Windows does. Then the window must be on `suyo`. Broken: the
    // program is stopped for as long.
    void pasar(const char* orden, const RECT& suyo, std::size_t cuantos, bool romper) {
        const std::string proceso = procesoLinux(m_programa);
        if (romper) enLinuxBien("kill -STOP " + proceso + "; (sleep 15; kill -CONT " + proceso + ") &");
        enLinuxBien(orden);
        const auto sabido = [&] {
            const std::vector<MonitorVisto> todos = monitores();
            return todos.size() == cuantos && std::any_of(todos.begin(), todos.end(), [&](const MonitorVisto& uno) {
                       return EqualRect(&uno.area, &suyo) != FALSE;
                   });
        };
        exigir(esperar(sabido), "Wine does not come to know of the change");
        for (int i = 0; i < 3; ++i)
            for (const HWND una : m_programa.proceso().ventanas())
                PostMessageW(una, WM_DISPLAYCHANGE, 24, MAKELPARAM(1280, 800));
        exigirEn(suyo);
    }

    void exigirEn(const RECT& debido) {
        RECT visto{};
        const bool cubre = esperar([&] {
            visto = lugar(m_programa.ventana());
            return EqualRect(&visto, &debido) != FALSE;
        });
        exigir(cubre, "the window does not cover its monitor " + enCifras(debido) + " but " + enCifras(visto));
        // The displays are laid out anew: the one at the edge must lie on that monitor, too.
        for (int i = 0; i < VISORES; ++i) exigirPeso(m_programa, i + 1, m_puerto + i, ++m_valor);
        RECT comun{};
        const RECT celda = lugar(m_programa.control(IdControl::picRep, VISORES));
        exigir(IntersectRect(&comun, &celda, &debido) && EqualRect(&comun, &celda),
               "a display lies beside the monitor");
    }

    int m_puerto = puertosLibres(VISORES);
    Programa m_programa;
    int m_valor = 0;
};

}  // namespace

bool aguantarMonitores(const Modo& modo) {
    exigir(cuentasFiables(), "objects or handles cannot be counted here");
    const int vueltas = modo.veces(500, 10), primeras = vueltas / 10;
    Sala sala;
    const Observado observado(sala.programa().proceso().id(), sala.programa().ejecutable());
    int vuelta = 0;
    while (vuelta < primeras) sala.vuelta(++vuelta, false);
    const Recursos antes = mirar(observado);
    while (vuelta < vueltas) sala.vuelta(++vuelta, modo.romper);
    const bool bien = comparar(antes, mirar(observado));
    exigir(sala.terminar(), "it does not end well");
    nota("= unplugged and plugged in " + std::to_string(vueltas) + " times, another size " +
         std::to_string(vueltas / ENTRE_MEDIDAS) + " times: the window on its monitor, weights on every display" +
         (bien ? ", nothing grew after the first " + std::to_string(primeras) : ", but SOMETHING GREW"));
    return bien;
}

}  // namespace sorvanel::medidas
