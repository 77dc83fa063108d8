#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <string>

#include "harness/programa.h"
#include "observado.h"

namespace sorvanel::medidas {

constexpr int VISORES = 64;

// Settings of a grid of 8 by 8 with that many displays of each family. The first ones listen on ports from `puerto`
// on; the others read the concentrator of this machine at `concentrador`, at the addresses 01/01, 01/02 ...
std::string ajustes(int tessel, int puerto, int pavona, int concentrador);
// The message band, at 4 pixels each 10 ms.
std::string ajustesBanda(const std::string& texto);
// So many characters, of which no two stretches look alike.
std::string textoVariado(int caracteres);

// One reading for each of `pavona` displays, as the concentrator writes them: all the same whole number.
std::string lineas(int pavona, int valor);

// Throws with that text unless it holds.
void exigir(bool seCumple, const std::string& que);

// Seconds, of no known origin.
double ahora();
// Calls `turno` with 0, 1, 2 ... at that rate in each second, without drift; as late as it must, never early.
void aRitmo(int turnos, double porSegundo, const std::function<void(int)>& turno);

// Starts it and waits until its run button says that it runs.
void arrancarEnMarcha(pruebas::Programa& programa);

// The bare program beside which the real one stands; ended when this is dropped.
class Desnudo {
public:
    enum class Modo { ventana, udp, tcp };

    // `puerto`: the first of the 64 that it listens on, or the concentrator's.
    explicit Desnudo(Modo modo, int puerto = 0);
    ~Desnudo();
    Desnudo(const Desnudo&) = delete;
    Desnudo& operator=(const Desnudo&) = delete;

    // Returns at once; the time until something is seen is what some measure.
    void arrancar();
    // Throws if no window comes.
    void esperarVentana();
    // Readings that it has printed.
    long recibidas() const;
    const Observado& observado() const { return *m_observado; }
    void terminar();

private:
    std::wstring m_ejecutable;  // a copy, so that its name is no other's
    std::wstring m_orden;
    std::unique_ptr<pruebas::Proceso> m_proceso;
    std::unique_ptr<Observado> m_observado;
    HWND m_ventana = nullptr;
};

}  // namespace sorvanel::medidas
