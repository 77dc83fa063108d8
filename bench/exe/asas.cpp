// Dragging the grid's handle as a quick hand does, 125 moves a second: how long after each move the handle stands under
// the pointer, how many moves the next one overtakes, and whether the grid, which is painted anew with each, flickers.
// With an application colour, and with none, where each move also cuts the window's shape anew.

#include <windows.h>

#include <algorithm>
#include <string>
#include <vector>

#include "escena.h"
#include "harness/configuracion.h"
#include "harness/pantalla.h"
#include "harness/sistema.h"
#include "partes.h"
#include "tabla.h"

namespace sorvanel::medidas {
namespace {

constexpr double MOVIMIENTOS_POR_SEGUNDO = 125;
constexpr int MOVIMIENTOS = 500;
constexpr double TURNO = 1000 / MOVIMIENTOS_POR_SEGUNDO;  // milliseconds between two moves
constexpr int PASO = 3;                                   // pixels each
constexpr int VUELTA = 60;                                // moves one way, then as many back

struct Cifras {
    std::vector<double> mediana;  // milliseconds until the handle is there
    std::vector<double> tarde;    // percent of the moves that the next one overtook
    int parpadeos = 0;
};

// The mouse as the system has it: the pointer moves, and the button that goes down is the real one.
class Mano {
public:
    explicit Mano(HWND asa) : m_asa(asa) {
        const RECT sitio = pruebas::lugar(asa);
        m_x = (sitio.left + sitio.right) / 2;
        m_y = (sitio.top + sitio.bottom) / 2;
        llevar(0);
        boton(MOUSEEVENTF_LEFTDOWN);
        exigir(pruebas::esperar([&] { return conCaptura(); }), "the handle is not grabbed");
    }
    ~Mano() { boton(MOUSEEVENTF_LEFTUP); }
    Mano(const Mano&) = delete;
    Mano& operator=(const Mano&) = delete;

    // So many pixels to the left of where it grabbed, and as many up.
    void llevar(int pixeles) const { SetCursorPos(m_x - pixeles, m_y - pixeles); }

private:
    static void boton(DWORD cual) {
        INPUT entrada{};
        entrada.type = INPUT_MOUSE;
        entrada.mi.dwFlags = cual;
        SendInput(1, &entrada, sizeof entrada);
    }

    bool conCaptura() const {
        GUITHREADINFO hilo{};
        hilo.cbSize = sizeof hilo;
        return GetGUIThreadInfo(GetWindowThreadProcessId(m_asa, nullptr), &hilo) && hilo.hwndCapture == m_asa;
    }

    HWND m_asa;
    int m_x = 0, m_y = 0;
};

// Pixels away from the start at move i: there and back again.
int recorrido(int i) {
    const int dentro = i % (2 * VUELTA);
    return PASO * (dentro < VUELTA ? dentro : 2 * VUELTA - dentro);
}

// A part of the first cell that no handle covers, and that stays cell however the corner moves.
class Vigia {
public:
    explicit Vigia(const RECT& ventana)
        : m_zona{ventana.left + MARGEN, ventana.top + MARGEN, ventana.left + MARGEN + LADO,
                 ventana.top + MARGEN + LADO},
          m_fondo(pruebas::Fotografia(m_zona).en(0, 0)) {}

    bool igual() const { return pruebas::Fotografia(m_zona).cuantos(m_fondo) == LADO * LADO; }

private:
    static constexpr int MARGEN = 40, LADO = 8;  // pixels

    RECT m_zona;
    std::int32_t m_fondo;
};

void medirUna(const std::string& ini, Cifras& cifras) {
    pruebas::Programa programa(ini);
    programa.arrancar();
    // Without displays it begins with the configuration.
    exigir(programa.esperarVisible(IdControl::botSize), "it does not configure");
    programa.pulsar(IdControl::botSize);
    exigir(programa.esperarVisible(IdControl::imDrgWH), "no handle comes");
    const HWND asa = programa.control(IdControl::imDrgWH);
    const RECT inicio = pruebas::lugar(asa);
    const Mano mano(asa);
    const auto recorridos = [&] { return static_cast<int>(inicio.left - pruebas::lugar(asa).left); };
    std::vector<double> esperas;
    int tarde = 0;
    const double cero = ahora();
    aRitmo(MOVIMIENTOS, MOVIMIENTOS_POR_SEGUNDO, [&](int i) {
        const double salida = ahora(), limite = cero + (i + 1) / MOVIMIENTOS_POR_SEGUNDO;
        mano.llevar(recorrido(i));
        const auto llegada = [&] { return recorridos() == recorrido(i); };
        bool llego = llegada();
        for (; !llego && ahora() < limite; llego = llegada()) Sleep(1);
        if (!llego) ++tarde;
        esperas.push_back((ahora() - salida) * 1000);
    });
    exigir(pruebas::esperar([&] { return recorridos() == recorrido(MOVIMIENTOS - 1); }),
           "the handle does not end where the pointer does");
    // Looking takes time: it is done with moves of its own.
    const Vigia vigia(pruebas::lugar(programa.ventana()));
    for (int i = 0; i < VUELTA; ++i) {
        mano.llevar(recorrido(i));
        if (!vigia.igual()) ++cifras.parpadeos;
    }
    cifras.mediana.push_back(mediana(esperas));
    cifras.tarde.push_back(100.0 * tarde / MOVIMIENTOS);
}

bool escribir(const std::string& nombre, const Cifras& cifras) {
    fila(nombre + ", handle under the pointer after", cifras.mediana, "ms");
    fila(nombre + ", moves that the next one overtook", cifras.tarde, "%");
    if (cifras.parpadeos > 0) nota(nombre + ", looks that saw it flicker: " + std::to_string(cifras.parpadeos));
    return cifras.parpadeos == 0 && mediana(cifras.mediana) < TURNO;
}

}  // namespace

bool medirAsas(int veces) {
    const std::string opaca = ajustes(0, 0, 0, 0);
    const std::string transparente = pruebas::Configuracion().reticula(8, 8).clave("colorAplicacion", "Transparente");
    Cifras conColor, sinColor;
    for (int vuelta = 0; vuelta < veces; ++vuelta) {
        medirUna(opaca, conColor);
        medirUna(transparente, sinColor);
    }
    titulo("The grid's handle at 125 moves a second");
    const bool bien = escribir("application colour", conColor);
    return escribir("transparent", sinColor) && bien;
}

}  // namespace sorvanel::medidas
