// Power cut, as far as a program can be cut off: SIGKILL at random moments of a configuration whose changes are
// numbered. After each kill the file must be, byte for byte, one of the states that were entered, none older than what
// was seen on the disk before; and the program must start with it. What a disk itself loses with its power is not
// played.

#include <algorithm>
#include <random>

#include "escena.h"
#include "estado.h"
#include "harness/red.h"
#include "linux.h"
#include "modo.h"
#include "tabla.h"

namespace sorvanel::medidas {
namespace {

using namespace pruebas;

constexpr int VISORES = 4;
constexpr int CAMBIOS = 12;           // in each configuration
constexpr int MAS_TARDE = 120;        // ms, at most, from the last thing done to the kill: a change waits up to 100 ms
constexpr int LINEAS_AJENAS = 20000;  // of another program's section: the longer the file, the longer its writing

std::string primeraINI(int puerto) {
    Configuracion ini;
    ini.reticula(2, 2);
    for (int i = 0; i < VISORES; ++i) ini.visor(puerto + i, i / 2 + 1, i % 2 + 1).clave("Etiqueta", "0");
    ini.seccion("OTRO_PROGRAMA");
    for (int i = 0; i < LINEAS_AJENAS; ++i) ini.clave("Linea" + std::to_string(i), "no se toca nunca, ni una letra");
    return ini;
}

std::wstring otroNombre(const Programa& programa, const wchar_t* final) {
    const std::wstring ini = programa.rutaINI();
    return ini.substr(0, ini.size() - 4) + final;
}

class Corte {
public:
    explicit Corte(bool romper)
        : m_romper(romper), m_puerto(puertosLibres(VISORES)), m_programa(primeraINI(m_puerto)), m_azar(m_semilla) {
        normalizar();
    }

    void configuracion(int cual);

    void contar() const {
        nota("seed " + std::to_string(m_semilla) + ", file of " + std::to_string(m_programa.leerINI().size()) +
             " bytes");
        nota("changes seen on the disk one by one: " + std::to_string(m_escrituras));
        nota("the last change before the kill: " + std::to_string(m_llegaron) + " times on the disk, " +
             std::to_string(m_cortes - m_llegaron) + " times not yet");
        nota("the new file was left beside the old one, unfinished or not yet in its place: " +
             std::to_string(m_aMedias) + " times");
    }
    int escrituras() const { return m_escrituras; }
    int cortes() const { return m_cortes; }

private:
    // Once to the end, so that each section has all the keys that the program writes.
    void normalizar() {
        exigir(m_programa.marchar() && m_programa.pausar(), "it does not start");
        abrirVisores(m_programa, m_visores);
        m_estados = {std::vector<int>(VISORES, 0)};
        for (int i = 1; i <= VISORES; ++i) {
            cambiar();
            exigir(esperar([&] { return leerEstado(m_programa.leerINI()).numeros == m_estados.back(); }),
                   "a change does not come to the file");
        }
        exigir(m_programa.terminar(), "it does not end well");
        m_resto = leerEstado(m_programa.leerINI()).resto;
    }

    void cambiar() {
        ++m_numero;
        const int visor = m_numero % VISORES;
        m_estados.push_back(m_estados.back());
        m_estados.back()[static_cast<std::size_t>(visor)] = m_numero;
        numerar(m_visores, visor + 1, m_numero);
    }

    // Takes in what the file holds: which of the states, never one before that seen last.
    void mirarArchivo() {
        const Estado ahora = leerEstado(m_programa.leerINI());
        exigir(ahora.resto == m_resto, "TORN OR LOST: the file has " + std::to_string(m_programa.leerINI().size()) +
                                           " bytes that are no state entered");
        const auto hallado = std::find(m_estados.begin() + m_visto, m_estados.end(), ahora.numeros);
        exigir(hallado != m_estados.end(), "LOST: the file went back, or mixes two states");
        m_visto = hallado - m_estados.begin();
    }

    bool alDia() const { return m_visto + 1 == static_cast<std::ptrdiff_t>(m_estados.size()); }

    void mirarCopia(const std::vector<int>& alEntrar) {
        const Estado copia = leerEstado(leerArchivo(otroNombre(m_programa, L"_copia.ini")));
        exigir(copia.resto == m_resto && (copia.numeros == alEntrar || copia.numeros == m_copia),
               "TORN: the copy is no state that was entered");
        m_copia = copia.numeros;
    }

    void cambiarHastaElDisco() {
        cambiar();
        exigir(esperar([&] {
                   mirarArchivo();
                   return alDia();
               }),
               "a change does not come to the file");
        ++m_escrituras;
    }

    void cortar(const std::string& proceso) {
        Sleep(std::uniform_int_distribution<DWORD>(0, MAS_TARDE)(m_azar));
        matarDeGolpe(m_programa, proceso);
        ++m_cortes;
        m_aMedias += leerArchivo(m_programa.rutaINI() + L"~").empty() ? 0 : 1;
        if (!m_romper || m_cortes < 2) return;
        const std::string entera = m_programa.leerINI();
        m_programa.escribirINI(entera.substr(0, entera.size() / 2));
    }

    bool m_romper;
    int m_puerto;
    Programa m_programa;
    VentanaHerramienta m_visores{m_programa, IdControl::cfgVisor};
    unsigned m_semilla = std::random_device{}();
    std::mt19937 m_azar;
    std::vector<std::vector<int>> m_estados;  // captions, in the order in which they were entered
    std::ptrdiff_t m_visto = 0;               // the state last seen in the file
    std::vector<int> m_copia;
    std::string m_resto;
    int m_numero = 0, m_escrituras = 0, m_cortes = 0, m_llegaron = 0, m_aMedias = 0;
};

void Corte::configuracion(int cual) {
    const std::vector<int> base = leerEstado(m_programa.leerINI()).numeros;
    m_estados = {base};
    m_visto = 0;
    exigir(m_programa.marchar(), "it does not start after a cut");
    const std::string proceso = procesoLinux(m_programa);
    for (int i = 0; i < VISORES; ++i)
        exigir(m_programa.esperarTexto(IdControl::picCap, i + 1, std::to_string(base[static_cast<std::size_t>(i)])),
               "a display does not have the caption that the file has");
    exigir(m_programa.pausar(), "it does not pause");
    if (cual % 10 == 0) {
        // While the copy is made.
        m_programa.pulsar(IdControl::botCfg);
    } else {
        abrirVisores(m_programa, m_visores);
        for (int i = 0; i < CAMBIOS; ++i) cambiarHastaElDisco();
        cambiar();
        if (cual % 3 == 1) m_programa.pulsar(IdControl::botOk);
        if (cual % 3 == 2) {
            m_programa.pulsar(IdControl::botCan);
            m_estados.push_back(base);
        }
    }
    cortar(proceso);
    mirarArchivo();
    if (alDia()) ++m_llegaron;
    if (cual % 10 != 0 || !m_copia.empty()) mirarCopia(base);
}

}  // namespace

bool aguantarCorte(const Modo& modo) {
    const int configuraciones = modo.veces(100, 11);
    Corte corte(modo.romper);
    for (int i = 1; i <= configuraciones; ++i) corte.configuracion(i);
    corte.contar();
    const bool bastan = corte.escrituras() >= modo.veces(1000, 50);
    nota("= " + std::to_string(corte.escrituras()) + " sections rewritten in " + std::to_string(corte.cortes()) +
         " configurations, each ended by a kill: no file torn, none lost" + (bastan ? "" : ", but too few"));
    return bastan;
}

}  // namespace sorvanel::medidas
