// A long run of the real program, shortened. 32 displays on ports of their own and 32 of the concentrator, the message
// scrolling, and readings in lots of a hundred for each display. What is checked:
// - Each display must be seen to say the last value of a lot before the next lot goes, and without its being sent
// again.
//   One that does not within ten seconds is a reading lost, and only then is the value sent again, so that the run goes
//   on. What a display said before the last value of a lot is not looked at; but the datagrams that the system threw
//   away are counted as lost too (where it tells, which is under Wine).
// - Now and then everybody falls silent: then none of the 64 may say a weight.
// - Now and then the concentrator hangs up, and must be called again.
// - What the program holds after the first minute and at the end is compared.

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "crecimiento.h"
#include "escena.h"
#include "harness/red.h"
#include "partes.h"
#include "pesos.h"
#include "recursos.h"
#include "tabla.h"

namespace sorvanel::medidas {
namespace {

using namespace pruebas;

constexpr int TESSEL = 32;
constexpr int PAVONA = 32;
constexpr int RONDAS_POR_TANDA = 100;  // what a port's receive buffer holds with room to spare
constexpr int TANDAS_ENTRE_SILENCIOS = 50;
constexpr int TANDAS_ENTRE_CORTES = 70;
constexpr DWORD SILENCIO = 1500;  // milliseconds: the link's second, and some
constexpr const char* SIN_DATOS = "-----";
constexpr double PRIMER_MINUTO = 60;

class Remojo {
public:
    Remojo()
        : m_puerto(puertosLibres(TESSEL)),
          m_programa(ajustes(TESSEL, m_puerto, PAVONA, m_concentrador.puerto()) + ajustesBanda(textoVariado(300))) {
        arrancarEnMarcha(m_programa);
        m_pesos = std::make_unique<Pesos>(m_programa, TESSEL + PAVONA);
        abrirSesion();
    }

    const Programa& programa() const { return m_programa; }
    long long lecturas() const { return m_lecturas; }
    int tandas() const { return m_tandas; }
    int silencios() const { return m_silencios; }
    int cortes() const { return m_cortes; }
    bool terminar() { return m_programa.terminar(); }

    // Last values that a display did not say unless they were sent again, and datagrams that the system dropped.
    long perdidas() const { return m_repetidas + descartados(m_puerto, TESSEL); }

    void tanda() {
        for (int ronda = 0; ronda < RONDAS_POR_TANDA; ++ronda) {
            m_valor = m_valor % 99999 + 1;
            enviar();
        }
        m_lecturas += static_cast<long long>(RONDAS_POR_TANDA) * (TESSEL + PAVONA);
        comprobar();
        ++m_tandas;
        if (m_tandas % TANDAS_ENTRE_SILENCIOS == 0) callar();
        if (m_tandas % TANDAS_ENTRE_CORTES == 0) {
            m_concentrador.despedir();
            abrirSesion();
            ++m_cortes;
        }
    }

private:
    void abrirSesion() {
        exigir(m_concentrador.abrirSesion(), "no session with the concentrator");
        // At once: a session without a reading in its first second is begun anew.
        enviar();
    }

    // Throws when a display does not even come to say the value when it is sent again.
    void comprobar() {
        const std::string ultimo = std::to_string(m_valor);
        const std::vector<int> faltan = m_pesos->sinDecir(ultimo);
        if (faltan.empty()) return;
        nota("LOST   " + ultimo + " to be said: " + quienes(faltan, *m_pesos));
        m_repetidas += static_cast<long>(faltan.size());
        enviar();
        const std::vector<int> nunca = m_pesos->sinDecir(ultimo);
        exigir(nunca.empty(), "never shown: " + quienes(nunca, *m_pesos));
    }

    void enviar() {
        const std::string suya = trama(m_valor * 1000);
        for (int i = 0; i < TESSEL; ++i) m_indicadores.enviar(m_puerto + i, suya);
        exigir(m_concentrador.decir(lineas(PAVONA, m_valor)), "the session was lost");
    }

    void callar() {
        Sleep(SILENCIO);
        const std::vector<int> viejos = m_pesos->distintos(SIN_DATOS);
        exigir(viejos.empty(), "a weight stays in the silence: " + quienes(viejos, *m_pesos));
        ++m_silencios;
    }

    int m_puerto;
    Concentrador m_concentrador;
    EmisorUDP m_indicadores;
    Programa m_programa;
    std::unique_ptr<Pesos> m_pesos;
    int m_valor = 0;
    long long m_lecturas = 0;
    long m_repetidas = 0;
    int m_tandas = 0;
    int m_silencios = 0;
    int m_cortes = 0;
};

}  // namespace

bool medirRemojo(int millones) {
    exigir(cuentasFiables(), "objects or handles cannot be counted here");
    const long long lecturas = millones * 1'000'000LL;
    Remojo remojo;
    const Observado observado(remojo.programa().proceso().id(), remojo.programa().ejecutable());
    const double inicio = ahora();
    // A short run has no first minute: then its first quarter.
    while (ahora() < inicio + PRIMER_MINUTO && remojo.lecturas() * 4 < lecturas) remojo.tanda();
    const Recursos primeros = mirar(observado);
    while (remojo.lecturas() < lecturas) remojo.tanda();
    titulo("A soak of " + std::to_string(remojo.lecturas()) + " readings of both families");
    fila("readings", {static_cast<double>(remojo.lecturas()) / (ahora() - inicio)}, "1/s");
    fila("processor", {observado.segundosCPU()}, "s");
    const bool bien = comparar(primeros, mirar(observado));
    nota(std::to_string(remojo.tandas()) +
         " lots, the last value of each looked for on all displays: " + std::to_string(remojo.perdidas()) + " lost");
    nota(std::to_string(remojo.silencios()) + " silences without a weight on any display, " +
         std::to_string(remojo.cortes()) + " sessions begun anew");
    const bool perdidas = remojo.perdidas() > 0;
    exigir(remojo.terminar(), "the program did not end well");
    return bien && !perdidas;
}

}  // namespace sorvanel::medidas
