// The concentrator hangs up, or its program is killed, again and again; each time the program must call again, and
// every display say the reading of the new session.

#include <memory>

#include "crecimiento.h"
#include "escena.h"
#include "harness/red.h"
#include "modo.h"
#include "pesos.h"
#include "recursos.h"
#include "tabla.h"

namespace sorvanel::medidas {
namespace {

using namespace pruebas;

constexpr int PAVONA = 4;
constexpr int ENTRE_MUERTES = 25;  // all others are a hanging up

class Sala {
public:
    explicit Sala(bool romper)
        : m_romper(romper),
          m_concentrador(std::make_unique<Concentrador>()),
          m_puerto(m_concentrador->puerto()),
          m_programa(ajustes(0, 0, PAVONA, m_puerto)) {
        arrancarEnMarcha(m_programa);
        m_pesos = std::make_unique<Pesos>(m_programa, PAVONA);
        leer();
    }
    const Programa& programa() const { return m_programa; }
    int muertes() const { return m_muertes; }
    int otraVez() const { return m_otraVez; }
    int repetidas() const { return m_repetidas; }

    void vuelta(int cual) {
        if (cual % ENTRE_MUERTES == 0) {
            m_concentrador.reset();
            m_concentrador = std::make_unique<Concentrador>(m_puerto);
            ++m_muertes;
        } else {
            m_concentrador->despedir();
        }
        leer();
    }
    bool terminar() { return m_programa.terminar(); }

private:
    void leer() {
        ++m_sesiones;
        m_valor = m_valor % 99999 + 1;
        const std::string suyas = lineas(PAVONA, m_romper ? m_valor + 1 : m_valor);
        exigir(m_concentrador->abrirSesion(), "the program does not call again");
        // On a busy machine this side may be too slow: the program gives up who says nothing for a second.
        for (; !m_concentrador->decir(suyas); ++m_otraVez)
            exigir(m_otraVez < 100 && m_concentrador->abrirSesion(), "the program does not call again");
        const std::string debido = std::to_string(m_valor);
        std::vector<int> faltan = m_pesos->sinDecir(debido);
        if (faltan.empty()) return;
        // Said for a second only, which a busy machine may spend elsewhere: not lost unless it is missed again.
        nota("sent again, not seen in " + std::to_string(m_sesiones) + ": " + quienes(faltan, *m_pesos));
        m_repetidas += static_cast<int>(faltan.size());
        exigir(m_concentrador->abrirSesion() && m_concentrador->decir(suyas), "the program does not call again");
        faltan = m_pesos->sinDecir(debido);
        exigir(faltan.empty(), "no reading after the connection: " + quienes(faltan, *m_pesos));
    }

    bool m_romper;
    std::unique_ptr<Concentrador> m_concentrador;
    int m_puerto;
    Programa m_programa;
    std::unique_ptr<Pesos> m_pesos;
    int m_valor = 0;
    int m_muertes = 0, m_sesiones = 0, m_repetidas = 0;
    int m_otraVez = 0;  // sessions that this side was too slow for
};

}  // namespace

bool aguantarReconexiones(const Modo& modo) {
    exigir(cuentasFiables(), "objects or handles cannot be counted here");
    const int vueltas = modo.veces(10'000, 200), primeras = vueltas / 20;
    Sala sala(modo.romper);
    const Observado observado(sala.programa().proceso().id(), sala.programa().ejecutable());
    int vuelta = 0;
    const double inicio = ahora();
    while (vuelta < primeras) sala.vuelta(++vuelta);
    const Recursos antes = mirar(observado);
    while (vuelta < vueltas) sala.vuelta(++vuelta);
    fila("connections", {vueltas / (ahora() - inicio)}, "1/s");
    nota("given up by the program before this side spoke: " + std::to_string(sala.otraVez()) +
         "; displays that were not seen to say a reading within its second: " + std::to_string(sala.repetidas()));
    const bool bien = comparar(antes, mirar(observado));
    exigir(sala.terminar(), "it does not end well");
    nota("= " + std::to_string(vueltas) + " connections, " + std::to_string(sala.muertes()) +
         " of them after a kill of the concentrator, each with its reading on every display" +
         (bien ? ": nothing grew after the first " + std::to_string(primeras) : ": SOMETHING GREW"));
    return bien;
}

}  // namespace sorvanel::medidas
