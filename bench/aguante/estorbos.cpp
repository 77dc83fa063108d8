// The settings cannot be written: the disk is full, the folder or the file is read-only. The operator is told once, the
// old file stays as it is to the byte, weights go on; and what was entered is in the file once it can be written again.

#include "escena.h"
#include "estado.h"
#include "harness/red.h"
#include "linux.h"
#include "modo.h"
#include "tabla.h"

namespace sorvanel::medidas {
namespace {

using namespace pruebas;

constexpr int REINTENTO = 5000;  // ms: how often the program tries again
constexpr const char* NO_SE_GUARDA = "No se puede guardar la configuración";
constexpr const char* SIN_COPIA = "Error al hacer copia de configuración";

struct Estorbo {
    const char* nombre;
    // Commands of Linux. What stands for %c and %a: the folder of the settings, and their file.
    const char* preparar;
    const char* poner;
    const char* quitar;
    bool tambienLaCopia;  // it cannot be made either
};

// A small disk of its own, which another file fills; the folder once more, to write or only to read; the file's right.
constexpr Estorbo ESTORBOS[] = {
    {"a full disk", "mv %a %c.aparte && mount -t tmpfs -o size=64k tmpfs %c && mv %c.aparte %a",
     "dd if=/dev/zero of=%c/relleno bs=4096; test -s %c/relleno", "rm %c/relleno", true},
    {"a read-only folder", "mount --bind %c %c", "mount -o remount,ro,bind %c", "mount -o remount,rw,bind %c", true},
    {"a read-only file", "true", "chmod a-w %a", "chmod u+w %a", false}};

class Sala {
public:
    Sala(const Estorbo& estorbo, bool romper) : m_estorbo(estorbo), m_romper(romper), m_programa(ajustesDe()) {
        en(estorbo.preparar);
        exigir(m_programa.marchar(), "it does not start");
    }
    ~Sala() {
        try {
            enLinux("umount -l " + m_carpeta);
        } catch (const std::exception&) {
            nota("left mounted: " + m_carpeta);
        }
    }
    Sala(const Sala&) = delete;
    Sala& operator=(const Sala&) = delete;

    void vuelta(int cual);
    void acabar() { exigir(m_programa.terminar(), "it does not end well"); }

private:
    std::string ajustesDe() {
        return Configuracion().reticula(1, 2).visor(m_puerto, 1, 1).clave("Etiqueta", "0").visor(m_puerto + 1, 1, 2);
    }

    void en(std::string orden) const {
        for (const auto& [marca, valor] : {std::pair<std::string, std::string>{"%c", m_carpeta}, {"%a", m_archivo}})
            for (std::size_t lugar = 0; (lugar = orden.find(marca)) != std::string::npos;)
                orden.replace(lugar, marca.size(), valor);
        enLinuxBien(orden);
    }
    void poner() const {
        if (!m_romper) en(m_estorbo.poner);
    }
    void quitar() const {
        if (!m_romper) en(m_estorbo.quitar);
    }

    void exigirAviso(const char* texto) {
        const std::string dicho = m_programa.caja().contestar();
        exigir(dicho.starts_with(texto), "said instead of \"" + std::string(texto) + "\": \"" + dicho + "\"");
    }

    void exigirIntacto() const { exigir(m_programa.leerINI() == m_antes, "THE OLD FILE IS NOT WHAT IT WAS"); }

    void copiaImposible();

    int m_puerto = puertosLibres(2);
    const Estorbo& m_estorbo;
    bool m_romper;
    Programa m_programa;
    VentanaHerramienta m_visores{m_programa, IdControl::cfgVisor};
    std::string m_archivo = "\"" + rutaLinux(m_programa.rutaINI()) + "\"";
    std::string m_carpeta = m_archivo.substr(0, m_archivo.rfind('/')) + "\"";
    std::string m_antes;
};

// From pause, which it leaves no more than that.
void Sala::copiaImposible() {
    m_programa.pulsar(IdControl::botCfg);
    exigirAviso(SIN_COPIA);
    exigir(m_programa.seVe(IdControl::botRun), "it configures without a copy");
}

void Sala::vuelta(int cual) {
    m_antes = m_programa.leerINI();
    poner();
    exigirPeso(m_programa, 2, m_puerto + 1, 1000 + cual);
    exigir(m_programa.pausar(), "it does not pause");
    if (m_estorbo.tambienLaCopia) copiaImposible();
    exigirIntacto();
    quitar();
    abrirVisores(m_programa, m_visores);
    poner();
    numerar(m_visores, 1, cual * 10);
    exigirAviso(NO_SE_GUARDA);
    numerar(m_visores, 1, cual * 10 + 1);
    // Tried again once at least, and told no more.
    exigir(!esperar([&] { return m_programa.caja().ventana() != nullptr; }, REINTENTO + REINTENTO / 2),
           "told more than once");
    exigirIntacto();
    quitar();
    const std::string nuevo = "Etiqueta=" + std::to_string(cual * 10 + 1) + "\r\n";
    exigir(esperar([&] { return m_programa.leerINI().find(nuevo) != std::string::npos; }, 3 * REINTENTO),
           "LOST: what was entered does not come to the file");
    m_programa.pulsar(IdControl::botOk);
    exigir(m_programa.esperarVisible(IdControl::botRun), "it does not accept");
    m_programa.pulsar(IdControl::botRun);
    exigirPeso(m_programa, 2, m_puerto + 1, 2000 + cual);
}

}  // namespace

bool aguantarEstorbos(const Modo& modo) {
    if (!somosRoot()) {
        nota("= left out: disks are mounted by root alone");
        return true;
    }
    const int vueltas = modo.veces(20, 1);
    for (const Estorbo& estorbo : ESTORBOS) {
        Sala sala(estorbo, modo.romper);
        for (int i = 1; i <= vueltas; ++i) sala.vuelta(i);
        sala.acabar();
        nota(std::string(estorbo.nombre) + ": " + std::to_string(vueltas) + " times");
    }
    nota("= a full disk, a read-only folder, a read-only file, " + std::to_string(vueltas) +
         " times each: told once each time, the old file as it was, nothing entered lost");
    return true;
}

}  // namespace sorvanel::medidas
