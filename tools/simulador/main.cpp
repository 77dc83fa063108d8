#include <cstdio>
#include <exception>
#include <random>
#include <string>
#include <utility>

#include "simulador/sistema.h"

namespace {

using namespace sorvanel::simulador;

void escribir(std::FILE* donde, std::string_view texto) {
    std::fwrite(texto.data(), 1, texto.size(), donde);
}

// Tells the first failure, and each frame if that was asked for.
class Narrador : public Testigo {
public:
    explicit Narrador(const Opciones& opciones) : m_opciones(opciones) {}

    void alEnviar(Instante vence, std::size_t indicador, std::string_view trama) override {
        if (!m_opciones.mostrar) return;
        const double segundos = std::chrono::duration<double>(vence).count();
        const Destino& destino = m_opciones.destinos[indicador];
        std::printf("%10.3f s  %s:%d  %.*s\n", segundos, destino.host.c_str(), int{destino.puerto},
                    static_cast<int>(trama.find('\r')), trama.data());
    }
    void alFallar(std::size_t indicador) override {
        if (std::exchange(m_fallo, true)) return;
        const Destino& destino = m_opciones.destinos[indicador];
        escribir(stderr, "simulador: no se puede enviar a " + destino.host + ":" + std::to_string(destino.puerto) +
                             "; se sigue intentando\n");
    }
    void alEsperar() override {
        if (m_opciones.mostrar) std::fflush(stdout);
    }

private:
    const Opciones& m_opciones;
    bool m_fallo = false;
};

int simular(const Opciones& opciones) {
    // Chance that can be told, so that a run worth repeating can be repeated.
    const std::uint64_t semilla = opciones.semilla ? *opciones.semilla : std::random_device{}();
    const auto emisor = crearEmisorUDP(opciones.destinos);
    const auto reloj = crearReloj();
    escribir(stdout, "Indicadores: " + std::to_string(opciones.destinos.size()) +
                         ". Semilla: " + std::to_string(semilla) + ". Ctrl+C para terminar.\n");
    std::fflush(stdout);
    Narrador narrador(opciones);
    const Resumen resumen = reproducir(opciones, semilla, *emisor, *reloj, narrador);
    escribir(stdout, textoResumen(resumen, opciones.destinos));
    std::fflush(stdout);
    return resumen.fallidas > 0 ? 1 : 0;
}

}  // namespace

int main(int cuantos, char** valores) {
    const Consola consola;
    try {
        const Opciones opciones = leerOpciones(argumentos(cuantos, valores));
        if (!opciones.ayuda) return simular(opciones);
        escribir(stdout, textoAyuda());
        return 0;
    } catch (const ErrorUso& error) {
        escribir(stderr, "simulador: " + std::string(error.what()) + "\nCon --help se ven las opciones.\n");
        return 2;
    } catch (const std::exception& error) {
        escribir(stderr, "simulador: " + std::string(error.what()) + "\n");
        return 1;
    }
}
