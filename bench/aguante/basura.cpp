// Rubbish where the settings should be, before the start and while weights come. The program neither crashes nor
// replaces what stands there; it waits, or offers to configure, or runs with what it understood; and with the good file
// it runs.

#include <filesystem>
#include <optional>
#include <random>
#include <stdexcept>

#include "escena.h"
#include "estado.h"
#include "harness/red.h"
#include "modo.h"
#include "muestrario.h"
#include "tabla.h"

namespace sorvanel::medidas {
namespace {

using namespace pruebas;

constexpr ULONGLONG PACIENCIA = 1500;  // ms, with a button

enum class Donde { esperando, marcha, configurando };

class Sala {
public:
    explicit Sala(bool romper) : m_romper(romper), m_programa(m_buena) {}

    const std::string& buena() const { return m_buena; }
    Donde alEmpezar(const Basura& basura);
    void enMarcha(const Basura& basura, bool legible);

private:
    void quitar() {
        if (std::filesystem::is_directory(m_programa.rutaINI())) std::filesystem::remove(m_programa.rutaINI());
    }
    void reponer() {
        quitar();
        m_programa.escribirINI(m_buena);
    }
    void poner(const Basura& basura) {
        if (!basura.carpeta) return m_programa.escribirINI(basura.bytes);
        std::filesystem::remove(m_programa.rutaINI());
        std::filesystem::create_directory(m_programa.rutaINI());
    }

    void exigirIntacta(const Basura& basura) {
        if (m_romper && !basura.carpeta) m_programa.escribirINI(basura.bytes + "x");
        const bool intacta =
            basura.carpeta ? std::filesystem::is_directory(m_programa.rutaINI()) : m_programa.leerINI() == basura.bytes;
        exigir(intacta, "REPLACED: " + basura.nombre);
    }

    bool ve(IdControl id) const { return m_programa.seVe(id); }
    bool dice(const char* inicio) const { return m_programa.texto(IdControl::picRep).starts_with(inicio); }

    // Answers the boxes that come until that holds.
    template <class Condicion>
    void hasta(Condicion condicion, const std::string& que) {
        std::string dicho;
        const auto atendiendo = [&] {
            if (m_programa.caja().ventana() == nullptr) return condicion();
            dicho = m_programa.caja().contestar();
            return false;
        };
        if (esperar(atendiendo, 2 * PLAZO)) return;
        std::string botones;
        for (int id = numero(IdControl::botOff); id <= numero(IdControl::botMensaje); ++id)
            if (pruebas::seVe(hijo(m_programa.ventana(), id))) botones += " " + std::to_string(id);
        throw std::runtime_error(que + "; buttons" + botones + "; it says \"" + m_programa.texto(IdControl::picRep) +
                                 "\", the last box said \"" + dicho + "\"");
    }
    void pulsarHasta(IdControl boton, IdControl despues, const Basura& basura) {
        // Pressed again where a box has swallowed it.
        ULONGLONG pulsado = 0;
        const auto insistiendo = [&] {
            if (ve(despues) && !ve(boton)) return true;  // the bar may be half changed
            if (ve(boton) && GetTickCount64() - pulsado > PACIENCIA) {
                m_programa.pulsar(boton);
                pulsado = GetTickCount64();
            }
            return false;
        };
        hasta(insistiendo, "button " + std::to_string(numero(boton)) + " does nothing: " + basura.nombre);
    }

    // A box that tells of an error may come just now.
    void acabar(const Basura& basura) {
        const Proceso& proceso = m_programa.proceso();
        const auto cerrando = [&] {
            if (m_programa.caja().ventana() != nullptr) m_programa.caja().cerrar();
            PostMessageW(m_programa.ventana(), WM_CLOSE, 0, 0);
            return proceso.esperarFin(500).has_value();
        };
        exigir(esperar(cerrando, 2 * PLAZO) && proceso.esperarFin(0) == 0U, "it does not end well: " + basura.nombre);
    }

    bool m_romper;
    int m_puerto = puertosLibres(2);
    std::string m_buena = Configuracion()
                              .reticula(2, 1)
                              .visor(m_puerto, 1, 1)
                              .clave("Etiqueta", "Tolva n\xba 1")
                              .visor(m_puerto + 1, 2, 1)
                              .clave("formatoPeso", "##,##0.0")
                              .seccion("PAVONA")
                              .clave("Host", "localhost");
    Programa m_programa;
};

Donde Sala::alEmpezar(const Basura& basura) {
    poner(basura);
    m_programa.arrancar();
    std::optional<Donde> donde;
    hasta(
        [&] {
            if (dice("No se puede leer")) donde = Donde::esperando;
            if (ve(IdControl::botPau)) donde = Donde::marcha;
            if (ve(IdControl::botOk)) donde = Donde::configurando;
            return donde.has_value();
        },
        "it neither waits nor runs nor configures: " + basura.nombre);
    exigirIntacta(basura);
    if (donde == Donde::esperando) {
        reponer();
        hasta([&] { return ve(IdControl::botPau); }, "it waits on with the good file: " + basura.nombre);
        exigirPeso(m_programa, 1, m_puerto, 11);
    }
    acabar(basura);
    if (donde != Donde::esperando) exigirIntacta(basura);
    return *donde;
}

void Sala::enMarcha(const Basura& basura, bool legible) {
    reponer();
    exigir(m_programa.marchar(), "it does not run with the good file");
    exigirPeso(m_programa, 1, m_puerto, 12);
    poner(basura);
    exigirPeso(m_programa, 1, m_puerto, 13);
    pulsarHasta(IdControl::botPau, IdControl::botRun, basura);
    // What can be read is taken for what somebody wrote; of the rest no copy can be made.
    m_programa.pulsar(IdControl::botCfg);
    bool entro = false;
    exigir(esperar([&] { return (entro = ve(IdControl::botOk)) || m_programa.caja().ventana() != nullptr; }),
           "neither in nor refused: " + basura.nombre);
    if (!entro) exigir(m_programa.caja().cerrar(), "the box does not close");
    exigir(legible || !entro, "it configures what it cannot read: " + basura.nombre);
    exigirIntacta(basura);
    reponer();
    if (entro) pulsarHasta(IdControl::botOk, IdControl::botRun, basura);
    pulsarHasta(IdControl::botRun, IdControl::botPau, basura);
    exigirPeso(m_programa, 1, m_puerto, 14);
    acabar(basura);
    exigir(m_programa.leerINI() == m_buena, "the good file is not what it was");
}

}  // namespace

bool aguantarBasura(const Modo& modo) {
    Sala sala(modo.romper);
    const unsigned semilla = std::random_device{}();
    nota("seed " + std::to_string(semilla));
    int cuenta[3] = {}, todas = 0;
    for (const Basura& basura : muestrario(sala.buena(), modo.veces(100, 5), semilla)) {
        const Donde donde = sala.alEmpezar(basura);
        sala.enMarcha(basura, donde != Donde::esperando);
        ++cuenta[static_cast<int>(donde)];
        ++todas;
    }
    nota("at the start it waited " + std::to_string(cuenta[0]) + " times, ran with what it understood " +
         std::to_string(cuenta[1]) + " times, offered to configure " + std::to_string(cuenta[2]) + " times");
    nota("= " + std::to_string(todas) +
         " kinds of rubbish, each at the start and while running: no crash, nothing replaced, the good file runs");
    return true;
}

}  // namespace sorvanel::medidas
