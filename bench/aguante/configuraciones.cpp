// In and out of configuration, accepted and cancelled, with each tool opened in its turn. The file stays as it is,
// weights come, and nothing of it stays behind in memory, objects or handles.

#include "crecimiento.h"
#include "escena.h"
#include "estado.h"
#include "harness/red.h"
#include "modo.h"
#include "recursos.h"
#include "tabla.h"

namespace sorvanel::medidas {
namespace {

using namespace pruebas;

constexpr int VISORES = 8;
constexpr int ENTRE_PESOS = 10;  // turns

struct Herramienta {
    IdControl boton;
    IdControl ventana;
};
constexpr Herramienta HERRAMIENTAS[] = {{IdControl::botVisores, IdControl::cfgVisor},
                                        {IdControl::botDise, IdControl::cfgContexto},
                                        {IdControl::botMensaje, IdControl::cfgMensaje}};

class Sala {
public:
    Sala() : m_programa(ajustes(VISORES, m_puerto, 0, 0) + ajustesBanda(textoVariado(100))) {
        exigir(m_programa.marchar(), "it does not run");
    }
    const Programa& programa() const { return m_programa; }

    void vuelta(int cual) {
        if (cual % ENTRE_PESOS == 0) exigir(m_programa.pausar(), "it does not pause");
        m_programa.pulsar(IdControl::botCfg);
        exigir(m_programa.esperarVisible(IdControl::botOk), "it does not go in");
        if (cual % 4 != 3) abrir(HERRAMIENTAS[cual % 4]);
        if (cual / 4 % 2 == 1) m_programa.pulsar(IdControl::botCan);
        m_programa.pulsar(IdControl::botOk);
        exigir(m_programa.esperarVisible(IdControl::botRun), "it does not come out");
        exigir(m_programa.leerINI() == m_antes, "the file is not what it was");
        if (cual % ENTRE_PESOS != ENTRE_PESOS - 1) return;
        m_programa.pulsar(IdControl::botRun);
        for (int i = 0; i < VISORES; ++i) exigirPeso(m_programa, i + 1, m_puerto + i, cual + i);
    }
    bool terminar() { return m_programa.terminar(); }

private:
    void abrir(const Herramienta& una) {
        m_programa.pulsar(una.boton);
        exigir(VentanaHerramienta(m_programa, una.ventana).esperarAbierta(), "a tool does not open");
    }

    int m_puerto = puertosLibres(VISORES);
    Programa m_programa;
    std::string m_antes = m_programa.leerINI();
};

// As a program would that forgot some.
void perderManejadores(const Observado& observado) {
    const HANDLE suceso = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    const HANDLE suyo = OpenProcess(PROCESS_DUP_HANDLE, FALSE, GetProcessId(observado.manejador()));
    HANDLE copia = nullptr;
    for (int i = 0; i < 50; ++i)
        DuplicateHandle(GetCurrentProcess(), suceso, suyo, &copia, 0, FALSE, DUPLICATE_SAME_ACCESS);
    CloseHandle(suyo);
    CloseHandle(suceso);
}

}  // namespace

bool aguantarConfiguraciones(const Modo& modo) {
    exigir(cuentasFiables(), "objects or handles cannot be counted here");
    // Where buttons take turns at one place, the second is pressed no sooner than that.
    SetDoubleClickTime(50);
    const int vueltas = modo.veces(1000, 120), primeras = modo.veces(200, 40);
    Sala sala;
    const Observado observado(sala.programa().proceso().id(), sala.programa().ejecutable());
    int vuelta = 0;
    while (vuelta < primeras) sala.vuelta(vuelta++);
    const Recursos antes = mirar(observado);
    while (vuelta < vueltas) sala.vuelta(vuelta++);
    if (modo.romper) perderManejadores(observado);
    const bool bien = comparar(antes, mirar(observado));
    exigir(sala.terminar(), "it does not end well");
    nota("= " + std::to_string(vueltas) + " entries, half of them cancelled" +
         (bien ? ": nothing grew after the first " + std::to_string(primeras) : ": SOMETHING GREW"));
    return bien;
}

}  // namespace sorvanel::medidas
