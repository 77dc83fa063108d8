// From the click on the tool's button until the displays' dialog stands with its rows: with 64 displays beside with
// one. And how long a key holds the program up while it edits one of 64.

#include <stdexcept>
#include <string>
#include <vector>

#include "escena.h"
#include "harness/programa.h"
#include "harness/red.h"
#include "harness/sistema.h"
#include "partes.h"
#include "tabla.h"

namespace sorvanel::medidas {
namespace {

constexpr int FILAS_A_LA_VISTA = 8;
constexpr int APERTURAS = 5;  // of each program
constexpr int TECLAS = 200;
constexpr UINT PLAZO = 10000;  // milliseconds

// Answered only when what was sent before is done, painting too once it is asked for.
void alDia(HWND ventana) {
    DWORD_PTR respuesta = 0;
    RedrawWindow(ventana, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
    if (SendMessageTimeoutW(ventana, WM_NULL, 0, 0, SMTO_NORMAL, PLAZO, &respuesta) == 0)
        throw std::runtime_error("the tool does not answer");
}

class Taller {
public:
    explicit Taller(int visores)
        : m_visores(visores),
          m_ultimaFila(visores < FILAS_A_LA_VISTA ? visores : FILAS_A_LA_VISTA),
          m_programa(ajustes(visores, pruebas::puertosLibres(VISORES), 0, 0)) {
        arrancarEnMarcha(m_programa);
        m_programa.pulsar(IdControl::botPau);
        exigir(m_programa.esperarVisible(IdControl::botCfg), "the program does not pause");
        m_programa.pulsar(IdControl::botCfg);
        exigir(m_programa.esperarVisible(IdControl::botVisores), "it does not configure");
    }

    // Milliseconds until it is there, with all rows of its page and all displays behind it.
    double abrir() {
        const double inicio = ahora();
        pulsar();
        exigir(pruebas::esperar([&] { return pruebas::seVe(m_herramienta.control(IdControl::txPort, m_ultimaFila)); }),
               "the tool does not open");
        exigir(m_programa.esperarVisible(IdControl::picRep, m_visores), "the displays do not stand behind it");
        alDia(m_herramienta.ventana());
        return (ahora() - inicio) * 1000;
    }

    void cerrar() {
        pulsar();
        exigir(m_herramienta.esperarCerrada(), "the tool does not close");
        // Seen no longer is not yet gone: what is left to do would be measured with the next one's opening.
        alDia(m_programa.ventana());
    }

    void abrirYCerrar(std::vector<double>& serie) {
        for (int i = 0; i < APERTURAS; ++i) {
            serie.push_back(abrir());
            cerrar();
        }
    }

    // Milliseconds that each key of a caption took until the program was ready for the next.
    std::vector<double> teclear() {
        const HWND caja = m_herramienta.control(IdControl::txEtq, 1);
        pruebas::pulsar(caja);
        std::vector<double> cada;
        for (int i = 0; i < TECLAS; ++i) {
            // Each caption is left again, which saves it.
            const bool fin = i % 10 == 9;
            const double inicio = ahora();
            SendMessageW(caja, fin ? WM_KEYDOWN : WM_CHAR, fin ? VK_RETURN : static_cast<WPARAM>('a' + i % 26), 1);
            cada.push_back((ahora() - inicio) * 1000);
            Sleep(5);
        }
        return cada;
    }

private:
    // In one message: where the window's activation comes between the mouse's two, the system may take it for none.
    void pulsar() const { PostMessageW(m_programa.control(IdControl::botVisores), BM_CLICK, 0, 0); }

    int m_visores;
    int m_ultimaFila;
    pruebas::Programa m_programa;
    pruebas::VentanaHerramienta m_herramienta{m_programa, IdControl::cfgVisor};
};

}  // namespace

bool medirHerramienta(int veces) {
    std::vector<double> conUno, conMuchos;
    std::vector<double> teclas, peores;
    for (int vuelta = 0; vuelta < veces; ++vuelta) {
        // One program after the other: each covers the whole monitor, and what is covered is not painted.
        Taller(1).abrirYCerrar(conUno);
        Taller muchos(VISORES);
        muchos.abrirYCerrar(conMuchos);
        muchos.abrir();
        const std::vector<double> cada = muchos.teclear();
        teclas.push_back(mediana(cada));
        peores.push_back(mayor(cada));
    }
    titulo("The displays' dialog");
    fila("complete, with 64 displays beside 1", conMuchos, conUno, "ms");
    fila("a key in it, with 64 displays", teclas, "ms");
    fila("the slowest of " + std::to_string(TECLAS) + " keys", peores, "ms");
    return true;
}

}  // namespace sorvanel::medidas
