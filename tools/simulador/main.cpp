#include <array>
#include <cstdio>
#include <exception>
#include <random>
#include <span>
#include <string>
#include <utility>

#include "simulador/concentrador.h"
#include "simulador/sistema.h"

namespace {

using namespace sorvanel::simulador;

void escribir(std::FILE* donde, std::string_view texto) {
    std::fwrite(texto.data(), 1, texto.size(), donde);
}

std::string momento(Instante cuando) {
    std::array<char, 32> texto{};
    std::snprintf(texto.data(), texto.size(), "%10.3f s  ", std::chrono::duration<double>(cuando).count());
    return texto.data();
}

// Chance that can be told, so that a run worth repeating can be repeated.
std::uint64_t semillaDe(const OpcionesComunes& opciones) {
    return opciones.semilla ? *opciones.semilla : std::random_device{}();
}

// Tells the first failure, and each frame if that was asked for.
class Narrador : public Testigo {
public:
    explicit Narrador(const Opciones& opciones) : m_opciones(opciones) {}

    void alEnviar(Instante vence, std::size_t indicador, std::string_view datos) override {
        if (!m_opciones.mostrar) return;
        const Destino& destino = m_opciones.destinos[indicador];
        // A plain frame without its end, anything else to the last byte.
        const bool llana = datos.find('\r') == datos.size() - 1;
        escribir(stdout, momento(vence) + destino.host + ":" + std::to_string(destino.puerto) + "  " +
                             visible(llana ? datos.substr(0, datos.size() - 1) : datos) + "\n");
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
    const std::uint64_t semilla = semillaDe(opciones);
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

// Tells of sessions as they come and go, and of all that is said if that was asked for.
class NarradorConcentrador : public TestigoConcentrador {
public:
    explicit NarradorConcentrador(bool mostrar) : m_mostrar(mostrar) {}

    void alEscuchar(Instante cuando, const std::string& donde) override { decir(cuando, "escuchando en " + donde); }
    void alCallar(Instante cuando) override { decir(cuando, "ya no se escucha"); }
    void alFallar(Instante, const std::string& motivo) override { escribir(stderr, "simulador: " + motivo + "\n"); }
    void alLlegar(Instante cuando, std::int64_t sesion, const std::string& quien) override {
        decir(cuando, "sesión " + std::to_string(sesion) + ": " + quien);
    }
    void alRecibir(Instante cuando, std::int64_t sesion, std::string_view datos) override {
        if (m_mostrar) decir(cuando, std::to_string(sesion) + " < " + visible(datos));
    }
    void alEnviar(Instante cuando, std::int64_t sesion, std::string_view datos) override {
        if (m_mostrar) decir(cuando, std::to_string(sesion) + " > " + visible(datos));
    }
    void alTerminar(Instante cuando, std::int64_t sesion, std::string_view motivo,
                    const CuentaSesion& cuenta) override {
        decir(cuando, "sesión " + std::to_string(sesion) + ": " + std::string(motivo) + ", " +
                          std::to_string(cuenta.lineas) + " lecturas");
    }

private:
    // At once: whoever starts it waits to read that it listens, and on which port.
    static void decir(Instante cuando, const std::string& texto) {
        escribir(stdout, momento(cuando) + texto + "\n");
        std::fflush(stdout);
    }

    bool m_mostrar;
};

int concentrar(const OpcionesConcentrador& opciones) {
    const std::uint64_t semilla = semillaDe(opciones);
    const auto red = crearRed(opciones.escucha, opciones.puerto);
    const auto reloj = crearReloj();
    escribir(stdout, "Direcciones: " + std::to_string(opciones.direcciones.size()) +
                         ". Semilla: " + std::to_string(semilla) + ". Ctrl+C para terminar.\n");
    NarradorConcentrador narrador(opciones.mostrar);
    const ResumenConcentrador resumen = Concentrador(opciones, semilla, *red, *reloj, narrador).correr();
    escribir(stdout, textoResumen(resumen));
    std::fflush(stdout);
    return resumen.fallo ? 1 : 0;
}

int ejecutar(const std::vector<std::string>& dadas) {
    if (!dadas.empty() && dadas.front() == "concentrador") {
        const OpcionesConcentrador opciones = leerOpcionesConcentrador(std::span(dadas).subspan(1));
        if (!opciones.ayuda) return concentrar(opciones);
        escribir(stdout, textoAyudaConcentrador());
        return 0;
    }
    const Opciones opciones = leerOpciones(dadas);
    if (!opciones.ayuda) return simular(opciones);
    escribir(stdout, textoAyuda());
    return 0;
}

}  // namespace

int main(int cuantos, char** valores) {
    const Consola consola;
    try {
        return ejecutar(argumentos(cuantos, valores));
    } catch (const ErrorUso& error) {
        escribir(stderr, "simulador: " + std::string(error.what()) + "\nCon --help se ven las opciones.\n");
        return 2;
    } catch (const std::exception& error) {
        escribir(stderr, "simulador: " + std::string(error.what()) + "\n");
        return 1;
    }
}
