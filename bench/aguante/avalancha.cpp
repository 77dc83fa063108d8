// As many datagrams and lines as the machine can send, good ones and rubbish, from three sides at once. Meanwhile the
// window answers, and an indicator that has fallen silent leaves no weight on its display; afterwards every display
// says the last value, and nothing has grown.

#include <algorithm>
#include <atomic>
#include <cmath>
#include <memory>
#include <random>
#include <thread>

#include "crecimiento.h"
#include "escena.h"
#include "harness/red.h"
#include "linux.h"
#include "modo.h"
#include "pesos.h"
#include "recursos.h"
#include "tabla.h"

namespace sorvanel::medidas {
namespace {

using namespace pruebas;

constexpr int TESSEL = 8;  // the last but one gets rubbish, the last falls silent
constexpr int PAVONA = 8;
constexpr double RESPUESTA = 2;  // seconds, at most
constexpr int SILENCIO = 5000;   // ms: two beats of a second, and a busy machine

class Sala {
public:
    Sala() : m_programa(ajustes(TESSEL, m_puerto, PAVONA, m_concentrador.puerto()) + ajustesBanda(textoVariado(300))) {
        arrancarEnMarcha(m_programa);
        m_pesos = std::make_unique<Pesos>(m_programa, TESSEL + PAVONA);
        exigir(m_concentrador.abrirSesion() && m_concentrador.decir(lineas(PAVONA, 1)), "no session");
    }
    const Programa& programa() const { return m_programa; }
    long long enviados() const { return m_enviados; }
    double peorRespuesta() const { return m_peor; }
    int silencios() const { return m_silencios; }

    void inundar(double segundos);
    void exigirUltimo(int valor);
    bool terminar() { return m_programa.terminar(); }

private:
    template <class Envio>
    std::thread sinParar(Envio envio) {
        return std::thread([this, envio]() mutable {
            try {
                for (int i = 0; !m_fin; ++i, ++m_enviados) envio(i);
            } catch (const std::exception& fallo) {
                nota(std::string("a sender ended: ") + fallo.what());
                m_roto = true;
            }
        });
    }
    std::vector<std::thread> remitentes();
    void vigilar();

    int m_puerto = puertosLibres(TESSEL);
    Concentrador m_concentrador;
    EmisorUDP m_bueno, m_malo, m_callado;
    Programa m_programa;
    std::unique_ptr<Pesos> m_pesos;
    std::atomic<bool> m_fin = false, m_roto = false;
    std::atomic<long long> m_enviados = 0;
    double m_peor = 0;
    int m_silencios = 0;
};

std::vector<std::thread> Sala::remitentes() {
    std::vector<std::thread> todos;
    todos.push_back(sinParar([this](int i) { m_bueno.enviar(m_puerto + i % (TESSEL - 2), trama(i % 9999 * 1000)); }));
    todos.push_back(sinParar([this, azar = std::mt19937(1)](int i) mutable {
        std::string bytes(azar() % 1400, '\0');
        for (char& uno : bytes) uno = static_cast<char>(azar());
        m_malo.enviar(m_puerto + i % (TESSEL - 1), bytes);
    }));
    todos.push_back(sinParar([this](int i) {
        const char* const mala = i % 5 == 0 ? "01/0x --+9 \x02\xff\x80 garbage 00\r\n" : "";
        if (!m_concentrador.decir(mala + lineas(PAVONA, i % 9999))) throw std::runtime_error("the session was lost");
    }));
    return todos;
}

// A reading to the last display, then its silence; the window is asked all the time.
void Sala::vigilar() {
    const auto preguntar = [&] {
        const double inicio = ahora();
        DWORD_PTR nada = 0;
        SendMessageTimeoutW(m_programa.ventana(), WM_NULL, 0, 0, SMTO_NORMAL, 10000, &nada);
        m_peor = std::max(m_peor, ahora() - inicio);
    };
    const auto dice = [&](const char* que) {
        preguntar();
        return m_pesos->texto(TESSEL) == que;
    };
    exigir(insistir([&] { m_callado.enviar(m_puerto + TESSEL - 1, trama(77000)); }, [&] { return dice("77"); }),
           "an indicator is not heard in the flood");
    exigir(esperar([&] { return dice("-----"); }, SILENCIO), "STALE: a silent indicator's weight stays in the flood");
    ++m_silencios;
}

void Sala::inundar(double segundos) {
    m_fin = false;
    std::vector<std::thread> todos = remitentes();
    std::string motivo;
    try {
        for (const double fin = ahora() + segundos; ahora() < fin;) vigilar();
    } catch (const std::exception& fallo) {
        motivo = fallo.what();
    }
    m_fin = true;
    for (std::thread& uno : todos) uno.join();
    exigir(motivo.empty() && !m_roto, motivo.empty() ? "a sender ended early" : motivo);
}

void Sala::exigirUltimo(int valor) {
    // What the flood left in the queues goes first.
    exigir(esperar(
               [&] {
                   for (int i = 0; i < TESSEL; ++i) m_bueno.enviar(m_puerto + i, trama(valor * 1000));
                   exigir(m_concentrador.decir(lineas(PAVONA, valor)), "the session was lost");
                   Sleep(100);
                   return m_pesos->distintos(std::to_string(valor)).empty();
               },
               2 * PLAZO),
           "a display does not say the last value");
}

}  // namespace

bool aguantarAvalancha(const Modo& modo) {
    exigir(cuentasFiables(), "objects or handles cannot be counted here");
    const double segundos = modo.veces(300, 15);
    Sala sala;
    const Observado observado(sala.programa().proceso().id(), sala.programa().ejecutable());
    sala.inundar(segundos / 5);
    sala.exigirUltimo(4321);
    const Recursos antes = mirar(observado);
    if (modo.romper) enLinux("n=" + procesoLinux(sala.programa()) + "; (kill -STOP $n; sleep 4; kill -CONT $n) & :");
    const double inicio = ahora();
    const long long deAntes = sala.enviados();
    sala.inundar(segundos);
    const double porSegundo = static_cast<double>(sala.enviados() - deAntes) / (ahora() - inicio);
    sala.exigirUltimo(1234);
    fila("sent", {porSegundo}, "1/s");
    fila("the window's slowest answer", {sala.peorRespuesta() * 1000}, "ms");
    bool bien = comparar(antes, mirar(observado));
    if (sala.peorRespuesta() > RESPUESTA) bien = false;
    exigir(sala.terminar(), "it does not end well");
    nota("= " + std::to_string(sala.enviados()) + " datagrams and lots of lines in " +
         std::to_string(std::lround(segundos * 1.2)) + " s, " + std::to_string(sala.silencios()) +
         " silences meanwhile, none of them with a weight" + (bien ? ": nothing grew" : ": FAILED"));
    return bien;
}

}  // namespace sorvanel::medidas
