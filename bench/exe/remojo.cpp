// remojo [--lecturas N] [--minutos N]: a long run of the real program, shortened. 32 displays on ports of their own and
// 32 of the concentrator, the message scrolling, and readings as fast as all of them are shown: the next lot goes only
// when every display says the last value of this one, so none can be dropped unseen. Now and then everybody falls
// silent, and the concentrator hangs up. What the program holds after the first minute and at the end is compared. Ends
// with 0; with 1 when it grew, lost a reading or did not end well, with 2 for bad usage.

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <stdexcept>
#include <string>
#include <vector>

#include "escena.h"
#include "harness/concentrador.h"
#include "harness/emisorUDP.h"
#include "harness/trama.h"
#include "objetos.h"

namespace {

using namespace sorvanel::medidas;
using namespace sorvanel::pruebas;

constexpr int TESSEL = 32;
constexpr int PAVONA = 32;
constexpr int RONDAS_POR_TANDA = 100;  // what a port's receive buffer holds with room to spare
constexpr int TANDAS_ENTRE_SILENCIOS = 50;
constexpr int TANDAS_ENTRE_CORTES = 70;
constexpr DWORD SILENCIO = 1500;  // milliseconds: the link's second, and some
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
        abrirSesion();
    }

    const Programa& programa() const { return m_programa; }
    long long lecturas() const { return m_lecturas; }
    bool terminar() { return m_programa.terminar(); }

    // Throws when a display does not come to say the last value, or the system dropped a frame.
    void tanda() {
        for (int ronda = 0; ronda < RONDAS_POR_TANDA; ++ronda) {
            m_valor = m_valor % 99999 + 1;
            enviar();
        }
        m_lecturas += static_cast<long long>(RONDAS_POR_TANDA) * (TESSEL + PAVONA);
        const std::vector<int> faltan =
            sinMostrar(m_programa, TESSEL + PAVONA, std::to_string(m_valor), [this] { enviar(); });
        if (!faltan.empty()) fallar(faltan);
        if (descartados(m_puerto, TESSEL) > 0) throw std::runtime_error("the system dropped frames");
        ++m_tandas;
        if (m_tandas % TANDAS_ENTRE_SILENCIOS == 0) callar();
        if (m_tandas % TANDAS_ENTRE_CORTES == 0) {
            m_concentrador.despedir();
            abrirSesion();
        }
    }

private:
    void abrirSesion() {
        if (!m_concentrador.abrirSesion()) throw std::runtime_error("no session with the concentrator");
        // At once: a session without a reading in its first second is begun anew.
        enviar();
    }

    [[noreturn]] void fallar(const std::vector<int>& faltan) const {
        const int primero = faltan.front(), ultimo = faltan.back();
        throw std::runtime_error(std::to_string(faltan.size()) + " displays, " + std::to_string(primero) + " to " +
                                 std::to_string(ultimo) + ", do not show the last reading, " + std::to_string(m_valor) +
                                 "; the first of them says \"" +
                                 m_programa.texto(sorvanel::IdControl::picRep, primero) + "\"");
    }

    void enviar() {
        const std::string suya = trama(m_valor * 1000);
        for (int i = 0; i < TESSEL; ++i) m_indicadores.enviar(m_puerto + i, suya);
        if (!m_concentrador.decir(lineas(PAVONA, m_valor))) throw std::runtime_error("the session was lost");
    }

    // No weight may stay: what a display says changes when it shows that there is none.
    void callar() {
        Sleep(SILENCIO);
        const std::string ultimo = std::to_string(m_valor);
        for (int i = 1; i <= TESSEL; ++i)
            if (m_programa.texto(sorvanel::IdControl::picRep, i) == ultimo)
                throw std::runtime_error("a display still shows its weight in the silence");
    }

    int m_puerto;
    Concentrador m_concentrador;
    EmisorUDP m_indicadores;
    Programa m_programa;
    int m_valor = 0;
    long long m_lecturas = 0;
    int m_tandas = 0;
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
    std::printf("%.0f readings a second, each lot seen on all displays; processor %.1f s\n",
                static_cast<double>(remojo.lecturas()) / pasados(), observado.segundosCPU());
    const bool bien = comparar(primeros, ultimos);
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
