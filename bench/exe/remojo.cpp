// remojo [--lecturas N] [--minutos N]: a long run of the real program, shortened. 32 displays on ports of their own and
// 32 of the concentrator, the message scrolling, and readings in lots of a hundred for each display. What is checked:
// - Each display must be seen to say the last value of a lot before the next lot goes, and without its being sent
// again.
//   One that does not within ten seconds is a reading lost, and only then is the value sent again, so that the run goes
//   on. What a display said before the last value of a lot is not looked at; but the datagrams that the system threw
//   away are counted as lost too (where it tells, which is under Wine).
// - Now and then everybody falls silent: then none of the 64 may say a weight.
// - Now and then the concentrator hangs up, and must be called again.
// - What the program holds after the first minute and at the end is compared.
// Ends with 0; with 1 when it grew, lost a reading, kept a weight or did not end well, with 2 for bad usage.

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "escena.h"
#include "harness/concentrador.h"
#include "harness/emisorUDP.h"
#include "harness/trama.h"
#include "objetos.h"
#include "pesos.h"

namespace {

using namespace sorvanel::medidas;
using namespace sorvanel::pruebas;

constexpr int TESSEL = 32;
constexpr int PAVONA = 32;
constexpr int RONDAS_POR_TANDA = 100;  // what a port's receive buffer holds with room to spare
constexpr int TANDAS_ENTRE_SILENCIOS = 50;
constexpr int TANDAS_ENTRE_CORTES = 70;
constexpr DWORD SILENCIO = 1500;  // milliseconds: the link's second, and some
constexpr const char* SIN_DATOS = "-----";
constexpr double PRIMER_MINUTO = 60;

// How much more there may be at the end than after the first minute. One lost with each reading, display, silence or
// session would be tens at least.
constexpr long long KIB_DE_MAS = 1024;
constexpr long OBJETOS_DE_MAS = 4;
constexpr long MANEJADORES_DE_MAS = 4;

struct Recursos {
    long long privada = 0, residente = 0;  // KiB
    long gdi = 0, user = 0, manejadores = 0;
};

Recursos mirar(const Observado& programa) {
    const ContadorObjetos objetos(programa);
    return {programa.memoriaPrivada(), programa.memoriaResidente(), objetos.gdi(), objetos.user(),
            manejadores(programa.manejador())};
}

void escribir(const char* cuando, double segundos, long long lecturas, const Recursos& r) {
    std::printf(
        "%-9s %7.0f s %11lld readings   private %7lld KiB, resident %7lld KiB, GDI %4ld, USER %4ld, handles %4ld\n",
        cuando, segundos, lecturas, r.privada, r.residente, r.gdi, r.user, r.manejadores);
    std::fflush(stdout);
}

// True when it did not grow by more than that.
bool cabe(const char* nombre, long long antes, long long despues, long long deMas) {
    const bool bien = despues - antes <= deMas;
    std::printf("%-6s %-10s %8lld to %8lld, %+lld (at most %+lld)\n", bien ? "ok" : "GREW", nombre, antes, despues,
                despues - antes, deMas);
    return bien;
}

bool comparar(const Recursos& antes, const Recursos& despues) {
    bool bien = cabe("private", antes.privada, despues.privada, KIB_DE_MAS);
    bien = cabe("resident", antes.residente, despues.residente, KIB_DE_MAS) && bien;
    bien = cabe("GDI", antes.gdi, despues.gdi, OBJETOS_DE_MAS) && bien;
    bien = cabe("USER", antes.user, despues.user, OBJETOS_DE_MAS) && bien;
    return cabe("handles", antes.manejadores, despues.manejadores, MANEJADORES_DE_MAS) && bien;
}

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
    long perdidas() const { return m_repetidas + std::max(descartados(m_puerto, TESSEL), 0L); }

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
        if (!m_concentrador.abrirSesion()) throw std::runtime_error("no session with the concentrator");
        // At once: a session without a reading in its first second is begun anew.
        enviar();
    }

    // Throws when a display does not even come to say the value when it is sent again.
    void comprobar() {
        const std::string ultimo = std::to_string(m_valor);
        const std::vector<int> faltan = m_pesos->sinDecir(ultimo);
        if (faltan.empty()) return;
        std::printf("LOST   %s to be said: %s\n", ultimo.c_str(), quienes(faltan, *m_pesos).c_str());
        std::fflush(stdout);
        m_repetidas += static_cast<long>(faltan.size());
        enviar();
        const std::vector<int> nunca = m_pesos->sinDecir(ultimo);
        if (!nunca.empty()) throw std::runtime_error("never shown: " + quienes(nunca, *m_pesos));
    }

    void enviar() {
        const std::string suya = trama(m_valor * 1000);
        for (int i = 0; i < TESSEL; ++i) m_indicadores.enviar(m_puerto + i, suya);
        if (!m_concentrador.decir(lineas(PAVONA, m_valor))) throw std::runtime_error("the session was lost");
    }

    void callar() {
        Sleep(SILENCIO);
        const std::vector<int> viejos = m_pesos->distintos(SIN_DATOS);
        if (!viejos.empty()) throw std::runtime_error("a weight stays in the silence: " + quienes(viejos, *m_pesos));
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

struct Opciones {
    long long lecturas = 10'000'000;
    double segundos = 1e9;
};

bool remojar(const Opciones& opciones) {
    if (!ContadorObjetos::fiable()) throw std::runtime_error("objects or handles cannot be counted here");
    Remojo remojo;
    const Observado observado(remojo.programa().proceso().id(), remojo.programa().ejecutable());
    const double inicio = ahora();
    const auto pasados = [&] { return ahora() - inicio; };
    Recursos primeros;
    bool hayPrimeros = false;
    // A short run has no first minute: then its first quarter.
    const auto enMarcha = [&] { return pasados() > PRIMER_MINUTO || remojo.lecturas() * 4 > opciones.lecturas; };
    double siguiente = 0;
    while (remojo.lecturas() < opciones.lecturas && pasados() < opciones.segundos) {
        remojo.tanda();
        if (!hayPrimeros && enMarcha()) {
            hayPrimeros = true;
            escribir("first", pasados(), remojo.lecturas(), primeros = mirar(observado));
            siguiente = pasados() * 2;
        } else if (hayPrimeros && pasados() > siguiente) {
            escribir("on", pasados(), remojo.lecturas(), mirar(observado));
            siguiente += PRIMER_MINUTO * 2;
        }
    }
    if (!hayPrimeros) throw std::runtime_error("too short to compare anything");
    const Recursos ultimos = mirar(observado);
    escribir("last", pasados(), remojo.lecturas(), ultimos);
    std::printf("%.0f readings a second; processor %.1f s\n", static_cast<double>(remojo.lecturas()) / pasados(),
                observado.segundosCPU());
    const long perdidas = remojo.perdidas();
    std::printf("%-6s %d lots, the last value of each looked for on all displays: %ld lost\n",
                perdidas == 0 ? "ok" : "LOST", remojo.tandas(), perdidas);
    std::printf("%-6s %d silences without a weight on any display, %d sessions begun anew\n",
                remojo.silencios() > 0 && remojo.cortes() > 0 ? "ok" : "none", remojo.silencios(), remojo.cortes());
    const bool bien = comparar(primeros, ultimos) && perdidas == 0;
    if (!remojo.terminar()) throw std::runtime_error("the program did not end well");
    return bien;
}

int uso() {
    std::puts("remojo [--lecturas N] [--minutos N]");
    return 2;
}

}  // namespace

int main(int argc, char** argv) {
    Opciones opciones;
    for (int i = 1; i < argc; i += 2) {
        const std::string nombre = argv[i];
        const double valor = i + 1 < argc ? std::atof(argv[i + 1]) : 0;
        if (valor <= 0) return uso();
        if (nombre == "--lecturas") {
            opciones.lecturas = static_cast<long long>(valor);
        } else if (nombre == "--minutos") {
            opciones.segundos = valor * 60;
            opciones.lecturas = 1LL << 60;
        } else {
            return uso();
        }
    }
    try {
        const Winsock winsock;
        return remojar(opciones) ? 0 : 1;
    } catch (const std::exception& fallo) {
        std::printf("failed: %s\n", fallo.what());
        return 1;
    }
}
