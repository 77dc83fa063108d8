#include "simulador/sistema.h"

#ifdef _WIN32
// clang-format off
#include <windows.h>
#include <mmsystem.h>
// clang-format on
#endif

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <thread>

namespace sorvanel::simulador {

namespace {

// A signal handler is handed nothing, so this has to be found without it.
volatile std::sig_atomic_t g_finPedido = 0;

constexpr int SENALES[] = {
    SIGINT,
    SIGTERM,
#ifdef _WIN32
    SIGBREAK,
#else
    SIGHUP,
#endif
};

#ifdef _WIN32
UINT g_paginaAnterior = 0;
#endif

void escribir(std::FILE* donde, std::string_view texto) {
    std::fwrite(texto.data(), 1, texto.size(), donde);
    std::fflush(donde);
}

}  // namespace

Consola::Consola() {
    for (const int senal : SENALES) std::signal(senal, [](int) { g_finPedido = 1; });
#ifdef _WIN32
    g_paginaAnterior = GetConsoleOutputCP();
    SetConsoleOutputCP(CP_UTF8);
    // Else waits last up to 16 ms more than they should.
    timeBeginPeriod(1);
#endif
}

Consola::~Consola() {
    for (const int senal : SENALES) std::signal(senal, SIG_DFL);
#ifdef _WIN32
    timeEndPeriod(1);
    if (g_paginaAnterior != 0) SetConsoleOutputCP(g_paginaAnterior);
#endif
}

void decir(std::string_view texto) {
    escribir(stdout, texto);
}

void quejarse(std::string_view texto) {
    escribir(stderr, texto);
}

bool finPedido() {
    return g_finPedido != 0;
}

Instante ahora() {
    return std::chrono::steady_clock::now().time_since_epoch();
}

void esperarHasta(Instante instante) {
    // In slices: what asks for the end does not cut a wait short.
    constexpr Instante REBANADA = std::chrono::milliseconds{100};
    for (Instante falta = instante - ahora(); falta > Instante{0} && !finPedido(); falta = instante - ahora())
        std::this_thread::sleep_for(std::min(falta, REBANADA));
}

}  // namespace sorvanel::simulador
