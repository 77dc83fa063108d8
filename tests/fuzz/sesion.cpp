// The concentrator, the network, the displays and the clock do what they like, in any order: the link
// stays in a state that agrees with its socket and its timer, tells subscribers only, all of them the
// same, and keeps nothing that has no end.

#include <algorithm>
#include <array>
#include <cstdlib>

#include "doubles/entornoDoble.h"
#include "links/frTCP.h"

namespace {

using namespace sorvanel;
using Estado = frTCP::Estado;

void exigir(bool cierto) {
    if (!cierto) std::abort();
}

// The n-th reading: no two that follow each other are alike.
std::string lectura(int n) {
    std::string linea = "12/03 C- 0001.250 0000.500";
    for (std::size_t i = 25; n > 0 && i > 22; --i, n /= 10) linea[i] = static_cast<char>('0' + n % 10);
    return linea;
}
constexpr std::size_t LARGO_LECTURA = 26;

class VisorFuzz : public SuscriptorPeso {
public:
    frTCP* enlace = nullptr;
    bool suscrito = false;
    bool cerrarAlOir = false;
    bool toma = false;
    std::vector<std::string> lecturas;
    int avisos = 0;

    std::int32_t port() const override { return 1203; }
    std::int16_t modoBulk() const override { return 4; }
    bool frWsk_refrescoPeso(std::string_view) override { std::abort(); }
    bool mmTCP_refrescoPeso(std::int16_t primero, std::int16_t segundo, std::string_view carga) override {
        exigir(suscrito);
        exigir(carga.size() == 57 || (carga.empty() && primero == 0 && segundo == 0));
        ++avisos;
        if (!carga.empty()) lecturas.push_back(std::to_string(primero * 100 + segundo).append(carga));
        if (cerrarAlOir) {
            suscrito = cerrarAlOir = false;
            enlace->Cerrar(*this);
        }
        return toma;
    }
};

class Sesion {
public:
    Sesion(const std::uint8_t* datos, std::size_t largo) : m_datos(datos), m_fin(datos + largo) {
        m_e.archivos.poner(m_e.rutaINI(), "[PAVONA]\r\nHost=equipo\r\n");
        for (VisorFuzz& v : m_visores) v.enlace = &m_enlace;
        m_enlace.hola();
    }

    void correr() {
        while (m_datos != m_fin) {
            for (VisorFuzz& v : m_visores) v.avisos = 0;
            m_cabida = 1;
            paso(*m_datos++ % 16);
            comprobar();
        }
        terminar();
    }

private:
    std::uint8_t octeto() { return m_datos != m_fin ? *m_datos++ : std::uint8_t{0}; }
    ZocaloDoble& zocalo() { return *m_e.fabrica.ultimoZocalo(); }

    // Each piece of 26 characters may be a reading, each reading may find somebody silent for long.
    void llegar(const std::string& texto) {
        m_cabida = 2 + texto.size() / LARGO_LECTURA * 2 + 4;
        zocalo().llegar(texto);
    }
    void llegarCortado(const std::string& texto) {
        const std::size_t corte = octeto() % (texto.size() + 1);
        zocalo().llegar(texto.substr(0, corte));
        if (corte < texto.size()) zocalo().llegar(texto.substr(corte));
        m_cabida = 8;
    }
    void suscribir(VisorFuzz& v) {
        if (v.suscrito) {
            v.suscrito = false;
            m_enlace.Cerrar(v);
        } else {
            v.suscrito = m_enlace.enMarcha(v);
            v.lecturas.clear();
        }
    }
    std::string octetos(int n) {
        std::string texto;
        for (; n > 0 && m_datos != m_fin; --n) texto += static_cast<char>(octeto());
        return texto;
    }
    void paso(int orden) {
        const std::uint8_t cual = octeto();
        VisorFuzz& visor = m_visores[cual % m_visores.size()];
        if (orden == 0) return llegar(octetos(cual));
        if (orden == 1) return llegarCortado("LIN>");
        if (orden == 2) return llegarCortado("XXX>");
        if (orden <= 4) return llegarCortado(lectura(++m_leidas) + ((cual & 1U) != 0 ? "\r\n" : "\r"));
        if (orden == 5) return llegar(std::string(cual * 32U, 'x'));
        if (orden == 6) zocalo().conectado();
        if (orden == 7) zocalo().fallar();
        if (orden == 8) zocalo().cerrarse();
        if (orden == 9) avanzar(cual * 50);
        if (orden == 10) m_e.reloj.saltar(cual * 100);
        if (orden == 11) suscribir(visor);
        if (orden == 12) visor.cerrarAlOir = true;
        if (orden == 13) visor.toma = (cual & 8U) != 0;
        if (orden == 14) m_e.fabrica.red().fallarConectar = (cual & 1U) != 0;
        if (orden == 15 && !zocalo().abierto()) tarde(cual % 3);
    }
    void avanzar(int milisegundos) {
        m_cabida = 60;
        m_e.reloj.avanzar(milisegundos);
    }
    // Messages that were under way when the socket was closed.
    void tarde(int cual) {
        if (cual == 0) return zocalo().oyente().alConectar();
        if (cual == 1) return zocalo().oyente().alLlegarDatos();
        if (m_enlace.estado() == Estado::cerrado) zocalo().oyente().alCerrarse();
    }
    bool alguien() const {
        return std::any_of(m_visores.begin(), m_visores.end(), [](const VisorFuzz& v) { return v.suscrito; });
    }
    void comprobar() {
        const Estado estado = m_enlace.estado();
        const bool conectado = estado >= Estado::esperaLinea && estado <= Estado::leyendo;
        exigir(zocalo().estaConectado() == conectado);
        exigir(zocalo().estaConectando() == (estado == Estado::conectando));
        exigir(m_e.fabrica.ultimoTemporizador()->habilitado() == alguien());
        exigir(alguien() ? estado != Estado::cerrado : estado == Estado::cerrado || estado == Estado::fallado);
        for (const VisorFuzz& v : m_visores) exigir(static_cast<std::size_t>(v.avisos) <= m_cabida);
        igualesLecturas();
    }
    // Who came later has heard the end of what the others have heard.
    void igualesLecturas() {
        const std::vector<std::string>* larga = nullptr;
        for (const VisorFuzz& v : m_visores) {
            if (v.suscrito && (larga == nullptr || v.lecturas.size() > larga->size())) larga = &v.lecturas;
        }
        for (const VisorFuzz& v : m_visores) {
            if (v.suscrito) exigir(std::equal(v.lecturas.rbegin(), v.lecturas.rend(), larga->rbegin()));
        }
    }
    // A reading that begins a line is taken before its end comes: only when nothing is kept before it.
    void terminar() {
        const Estado estado = m_enlace.estado();
        if ((estado == Estado::abierta || estado == Estado::leyendo) && alguien()) {
            for (VisorFuzz& v : m_visores) v.cerrarAlOir = false;
            zocalo().llegar(std::string(frTCP::BUFER_MAXIMO, 'x'));
            for (VisorFuzz& v : m_visores) v.lecturas.clear();
            zocalo().llegar(lectura(++m_leidas));
            for (const VisorFuzz& v : m_visores) exigir(v.lecturas.size() == (v.suscrito ? 1U : 0U));
        }
        m_enlace.adios();
        exigir(m_enlace.estado() == Estado::cerrado && !zocalo().abierto());
        for (VisorFuzz& v : m_visores) m_enlace.Cerrar(v);
        exigir(!m_e.fabrica.ultimoTemporizador()->habilitado());
    }

    const std::uint8_t* m_datos;
    const std::uint8_t* m_fin;
    EntornoDoble m_e;
    frTCP m_enlace{m_e.entorno};
    std::array<VisorFuzz, 4> m_visores;
    std::size_t m_cabida = 1;  // how often a display may be told by one step
    int m_leidas = 0;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t largo) {
    Sesion(datos, largo).correr();
    return 0;
}
