// From the start of the program's process until a weight stands on the screen, beside the start of a program that
// only shows a window and paints a number on it.

#include <stdexcept>
#include <vector>

#include "escena.h"
#include "harness/configuracion.h"
#include "harness/pantalla.h"
#include "harness/red.h"
#include "partes.h"
#include "tabla.h"

namespace sorvanel::medidas {
namespace {

constexpr std::int32_t VERDE = 0x00FF00;
constexpr double PLAZO_ARRANQUE = 30;  // seconds
constexpr int PESO = 88888;            // its digits cross the middle whatever they are placed on
constexpr int BARRA = 32;              // pixels below the grid

// A band over the monitor's width, in the middle of the grid's last row.
RECT zona(int filas) {
    const int ancho = GetSystemMetrics(SM_CXSCREEN), alto = GetSystemMetrics(SM_CYSCREEN) - BARRA;
    const int centro = alto - alto / filas / 2;
    return {0, centro - 20, ancho, centro + 20};
}

bool seVeVerde(const RECT& donde) {
    return pruebas::Fotografia(donde).cuantos(VERDE) > 0;
}

void esperarPantallaLimpia(const RECT& donde) {
    for (const double fin = ahora() + PLAZO_ARRANQUE; seVeVerde(donde); Sleep(5))
        if (ahora() > fin) throw std::runtime_error("the screen still shows the last run");
}

// Milliseconds until the number is seen; `turno` runs each time before a look.
template <class Arrancar, class Turno>
double hastaVerlo(const RECT& donde, Arrancar arrancar, Turno turno) {
    esperarPantallaLimpia(donde);
    const double inicio = ahora();
    arrancar();
    for (; ahora() < inicio + PLAZO_ARRANQUE; Sleep(1)) {
        turno();
        if (seVeVerde(donde)) return (ahora() - inicio) * 1000;
    }
    throw std::runtime_error("nothing is seen after the start");
}

double arranqueDesnudo() {
    Desnudo desnudo(Desnudo::Modo::ventana);
    return hastaVerlo(
        zona(1), [&] { desnudo.arrancar(); }, [] {});
}

// The indicator sends all the time, so the weight is there as soon as the port listens.
double arranqueReal(const pruebas::Programa& programa, const RECT& donde, int puerto) {
    pruebas::EmisorUDP indicador;
    std::unique_ptr<pruebas::Proceso> proceso;
    return hastaVerlo(
        donde, [&] { proceso = std::make_unique<pruebas::Proceso>(programa.ejecutable()); },
        [&] { indicador.enviar(puerto, pruebas::trama(PESO * 1000)); });
}

std::string deVerde(std::string ajustes) {
    return ajustes +
           std::string(
               pruebas::Configuracion().seccion("VISORES").clave("textoPeso", "00FF00").clave("fondoPeso", "000000"));
}

}  // namespace

bool medirArranque(int veces) {
    const int puerto = pruebas::puertosLibres(VISORES);
    const pruebas::Programa uno(deVerde(pruebas::Configuracion().reticula(1, 1).visor(puerto, 1, 1)));
    const pruebas::Programa muchos(deVerde(ajustes(VISORES, puerto, 0, 0)));
    std::vector<double> desnudo, conUno, conMuchos;
    // The first run of each finds nothing in the system's caches: it does not count.
    for (int vuelta = -1; vuelta < veces; ++vuelta) {
        const double ventana = arranqueDesnudo();
        const double primero = arranqueReal(uno, zona(1), puerto);
        const double ultimo = arranqueReal(muchos, zona(8), puerto + VISORES - 1);
        if (vuelta < 0) continue;
        desnudo.push_back(ventana);
        conUno.push_back(primero);
        conMuchos.push_back(ultimo);
    }
    titulo("Start until the first weight is seen, beside an empty window");
    fila("1 display", conUno, desnudo, "ms");
    fila("64 displays, the last one's weight", conMuchos, desnudo, "ms");
    return true;
}

}  // namespace sorvanel::medidas
