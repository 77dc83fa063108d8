// Sends what indicators send, and looks at the screen as a person would: the same for whatever program stands there.
// It reads orders from its input and answers each with one line; between orders it goes on sending, since a silent
// indicator is one whose weight must go.
//   observador WIDTH HEIGHT ROWS COLUMNS PORT udp|tcp
//   arranca COMMAND   milliseconds until the first and until all weights are seen, and the process's number
//   envia RATE SECS   readings sent
//   aprende           "bien", or what is wrong: how each reading of the cycle looks
//   mide RATE SECS    the looks' median gap, how many readings never came, and milliseconds from sending to the screen,
//                     one a reading
//   inunda RATE SECS  datagrams thrown away, and displays that do not show the last reading without a resend

#include <X11/Xlib.h>
#include <X11/extensions/XShm.h>
#include <poll.h>
#include <sys/ipc.h>
#include <sys/shm.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "emisor.h"

using namespace comparar;

namespace {

constexpr int BARRA = 32;   // pixels that the button bar of the measured program takes, below the grid
constexpr int FRANJA = 16;  // rows of pixels looked at, in the middle of a cell
constexpr std::uint32_t VERDE = 0x00FF00;
constexpr double OJEADA = 0.0005;             // seconds between two looks
constexpr double OJEADA_AL_ARRANCAR = 0.002;  // at all displays: more often would take a processor from who starts

struct Reticula {
    int ancho, alto, filas, columnas;
    int visores() const { return filas * columnas; }
    int x(int columna) const { return ancho * columna / columnas; }
    int yFranja(int fila) const { return (alto - BARRA) * (2 * fila + 1) / (2 * filas) - FRANJA / 2; }
};

// Strips of the X screen, as wide as asked.
class Pantalla {
public:
    explicit Pantalla(int ancho) : m_visual(XOpenDisplay(nullptr)), m_ancho(ancho) {
        if (m_visual == nullptr) throw std::runtime_error("no screen");
        const int pantalla = DefaultScreen(m_visual);
        m_imagen = XShmCreateImage(m_visual, DefaultVisual(m_visual, pantalla), 24, ZPixmap, nullptr, &m_memoria,
                                   static_cast<unsigned>(ancho), FRANJA);
        if (m_imagen == nullptr || m_imagen->bytes_per_line != ancho * 4) throw std::runtime_error("no 32-bit picture");
        m_memoria.shmid = shmget(IPC_PRIVATE, static_cast<std::size_t>(ancho) * 4 * FRANJA, IPC_CREAT | 0600);
        m_memoria.shmaddr = m_imagen->data = static_cast<char*>(shmat(m_memoria.shmid, nullptr, 0));
        XShmAttach(m_visual, &m_memoria);
        XSync(m_visual, False);
        shmctl(m_memoria.shmid, IPC_RMID, nullptr);
    }
    ~Pantalla() { XCloseDisplay(m_visual); }
    Pantalla(const Pantalla&) = delete;
    Pantalla& operator=(const Pantalla&) = delete;

    std::vector<std::uint32_t> tomar(int x, int y) {
        XShmGetImage(m_visual, DefaultRootWindow(m_visual), m_imagen, x, y, AllPlanes);
        const auto* const puntos = reinterpret_cast<const std::uint32_t*>(m_imagen->data);
        return {puntos, puntos + static_cast<std::ptrdiff_t>(m_ancho) * FRANJA};
    }

private:
    Display* m_visual;
    int m_ancho;
    XImage* m_imagen = nullptr;
    XShmSegmentInfo m_memoria{};
};

class Observador {
public:
    Observador(const Reticula& reticula, int puerto, bool tcp)
        : m_reticula(reticula),
          m_puerto(puerto),
          m_emisor(reticula.visores(), puerto, tcp),
          m_todo(reticula.ancho),
          m_celda(reticula.ancho / reticula.columnas),
          m_visor(reticula.filas / 2 * reticula.columnas + reticula.columnas / 2) {}

    void obedecer() {
        for (std::string orden; leer(orden);) {
            std::istringstream palabras(orden);
            std::string que;
            double ritmo = 0, segundos = 0;
            palabras >> que;
            if (que == "arranca") {
                std::getline(palabras >> std::ws, orden);
                arrancar(orden);
            } else if (que == "aprende") {
                std::cout << (aprender() ? "bien" : "two readings look alike") << std::endl;
            } else if (palabras >> ritmo >> segundos; que == "envia") {
                const long enviadas = m_emisor.aRitmo(ritmo, segundos, [](int, int) {});
                dormirHasta(ahora() + 0.05);
                std::cout << enviadas << std::endl;
            } else if (que == "mide") {
                medir(ritmo, segundos);
            } else if (que == "inunda") {
                inundar(ritmo, segundos);
            }
        }
    }

private:
    using Franja = std::vector<std::uint32_t>;

    bool leer(std::string& orden) {
        pollfd entrada{0, POLLIN, 0};
        while (poll(&entrada, 1, 200) == 0)
            if (m_arrancado) m_emisor.ronda();
        return static_cast<bool>(std::getline(std::cin, orden));
    }

    std::vector<Franja> celdas() {
        std::vector<Franja> todas(static_cast<std::size_t>(m_reticula.visores()));
        for (int fila = 0; fila < m_reticula.filas; ++fila) {
            const Franja franja = m_todo.tomar(0, m_reticula.yFranja(fila));
            for (int columna = 0; columna < m_reticula.columnas; ++columna)
                for (int y = 0; y < FRANJA; ++y) {
                    const auto linea = franja.begin() + static_cast<std::ptrdiff_t>(y) * m_reticula.ancho;
                    Franja& celda = todas[static_cast<std::size_t>(fila * m_reticula.columnas + columna)];
                    celda.insert(celda.end(), linea + m_reticula.x(columna), linea + m_reticula.x(columna + 1));
                }
        }
        return todas;
    }

    static bool seVe(const Franja& celda) {
        return std::any_of(celda.begin(), celda.end(), [](std::uint32_t punto) { return (punto & 0xFFFFFF) == VERDE; });
    }

    long cuantasSeVen() {
        const std::vector<Franja> todas = celdas();
        return std::count_if(todas.begin(), todas.end(), seVe);
    }

    void arrancar(const std::string& orden) {
        for (const double fin = ahora() + 10; cuantasSeVen() > 0; dormirHasta(ahora() + 0.01))
            if (ahora() > fin) throw std::runtime_error("the screen still shows the last program");
        const double inicio = ahora();
        const pid_t hijo = fork();
        if (hijo == 0) {
            setsid();
            const int nada = open("/dev/null", O_RDWR);
            for (int i = 0; i < 3; ++i) dup2(nada, i);
            for (int i = 3; i < 256; ++i) close(i);
            execl("/bin/bash", "bash", "-c", ("exec " + orden).c_str(), nullptr);
            _exit(127);
        }
        m_arrancado = true;
        double primera = 0, ronda = inicio, mirada = inicio;
        for (long vistas = 0; vistas < m_reticula.visores();) {
            dormirHasta(mirada + OJEADA_AL_ARRANCAR);
            mirada = ahora();
            if (mirada > inicio + 30) {
                kill(-hijo, SIGTERM);
                throw std::runtime_error("weights seen after 30 seconds: " + std::to_string(vistas));
            }
            if (mirada >= ronda) m_emisor.ronda(), ronda = std::max(ronda + 0.02, mirada);
            vistas = cuantasSeVen();
            if (vistas > 0 && primera == 0) primera = ahora();
        }
        std::cout << (primera - inicio) * 1000 << ' ' << (ahora() - inicio) * 1000 << ' ' << hijo << std::endl;
    }

    Franja mirar() {
        return m_celda.tomar(m_reticula.x(m_visor % m_reticula.columnas),
                             m_reticula.yFranja(m_visor / m_reticula.columnas));
    }

    // The reading sent last, once its picture is a new one and stays: a busy machine may take its time.
    bool asentada(Franja& franja) {
        const Franja anterior = franja;
        for (const double fin = ahora() + 3; ahora() < fin;) {
            franja = mirar();
            const bool nueva = franja != anterior && !m_aspectos.contains(franja);
            dormirHasta(ahora() + 0.05);
            if (nueva && mirar() == franja) return true;
            m_emisor.ronda(false);
        }
        return false;
    }

    bool aprender() {
        for (int intento = 1; intento <= 3; ++intento) {
            m_aspectos.clear();
            dormirHasta(ahora() + 0.3 * intento);  // what was sent before comes to be shown
            m_emisor.ronda(false);
            Franja franja = mirar();
            for (int i = 0; i < CICLO; ++i) {
                m_emisor.ronda();
                if (!asentada(franja)) break;
                m_aspectos[franja] = m_emisor.lectura() % CICLO;
            }
            if (m_aspectos.size() == CICLO) return true;
        }
        return false;
    }

    // A reading is on the screen when it, or one sent after it, is; the time is that of the look that found it.
    void medir(double ritmo, double segundos) {
        const int primera = m_emisor.lectura() + 1;
        const auto cuantas = static_cast<int>(ritmo * segundos);
        std::vector<std::atomic<double>> enviadas(static_cast<std::size_t>(cuantas));
        std::atomic<int> ultima = primera - 1;
        std::thread envio([&] {
            m_emisor.aRitmo(ritmo, segundos, [&](int n, int visor) {
                if (visor != m_visor && !m_emisor.tcp()) return;
                enviadas[static_cast<std::size_t>(n - primera)] = ahora();
                ultima = n;
                ultima.notify_one();
            });
        });
        std::vector<double> tardanzas, huecos;
        Franja anterior;
        int vista = primera - 1;
        for (double fin = ahora() + segundos + 0.5, mirada = ahora(); ahora() < fin && vista < primera + cuantas - 1;) {
            // Where nothing is to be seen yet, looking would only take the processor from who is measured.
            if (ultima == vista) ultima.wait(vista), mirada = ahora();
            dormirHasta(mirada + OJEADA);
            Franja franja = mirar();
            const double instante = ahora();
            huecos.push_back((instante - mirada) * 1000);
            mirada = instante;
            if (franja == anterior) continue;
            if (const auto hallada = m_aspectos.find(franja); hallada != m_aspectos.end()) {
                int n = ultima;
                while (n > vista && n % CICLO != hallada->second) --n;
                for (; vista < n; ++vista)
                    tardanzas.push_back((instante - enviadas[static_cast<std::size_t>(vista + 1 - primera)]) * 1000);
            }
            anterior = std::move(franja);
        }
        envio.join();
        std::sort(huecos.begin(), huecos.end());
        std::cout << huecos[huecos.size() / 2] << ' ' << primera + cuantas - 1 - vista;
        for (const double una : tardanzas) std::cout << ' ' << una;
        std::cout << std::endl;
    }

    struct Colas {
        long esperan = 0, descartados = 0;
    };

    // Of the displays' ports: bytes that nobody has taken yet, and datagrams thrown away.
    Colas colas() const {
        std::ifstream tabla("/proc/net/udp");
        Colas todas;
        std::string linea;
        for (std::getline(tabla, linea); std::getline(tabla, linea);) {
            unsigned puerto = 0;
            unsigned long espera = 0;
            std::sscanf(linea.c_str(), " %*d: %*x:%x %*s %*x %*x:%lx", &puerto, &espera);
            const int visor = static_cast<int>(puerto) - m_puerto;
            if (visor < 0 || visor >= m_reticula.visores()) continue;
            linea.erase(linea.find_last_not_of(' ') + 1);
            todas.esperan += static_cast<long>(espera);
            todas.descartados += std::atol(linea.c_str() + linea.rfind(' '));
        }
        return todas;
    }

    void inundar(double ritmo, double segundos) {
        const long antes = colas().descartados;
        m_emisor.aRitmo(ritmo, segundos, [](int, int) {});
        for (const double fin = ahora() + 10; colas().esperan > 0 && ahora() < fin;) dormirHasta(ahora() + 0.01);
        dormirHasta(ahora() + 0.3);  // less than the second after which a weight is forgotten
        const std::vector<Franja> sinRepetir = celdas();
        m_emisor.ronda(false);
        dormirHasta(ahora() + 0.3);
        const std::vector<Franja> repetida = celdas();
        long callados = 0;
        for (std::size_t i = 0; i < repetida.size(); ++i)
            if (!seVe(sinRepetir[i]) || sinRepetir[i] != repetida[i]) ++callados;
        std::cout << colas().descartados - antes << ' ' << callados << std::endl;
    }

    Reticula m_reticula;
    int m_puerto;
    Emisor m_emisor;
    Pantalla m_todo, m_celda;
    int m_visor;
    bool m_arrancado = false;
    std::map<Franja, int> m_aspectos;
};

}  // namespace

int main(int cuantos, char** textos) {
    if (cuantos != 7) return 2;
    std::signal(SIGCHLD, SIG_IGN);
    const auto numero = [&](int i) { return std::atoi(textos[i]); };
    try {
        Observador({numero(1), numero(2), numero(3), numero(4)}, numero(5), std::string(textos[6]) == "tcp").obedecer();
    } catch (const std::exception& fallo) {
        std::cout << "error: " << fallo.what() << std::endl;
        return 1;
    }
}
