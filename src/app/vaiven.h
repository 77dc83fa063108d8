#pragma once

#include <array>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "platform/sistema.h"

namespace sorvanel {

// How a thing is now that comes and goes: a display's data, a connection.
struct VistaVaiven {
    enum class Estado { espera, viene, falta };

    Estado estado = Estado::espera;  // nothing known yet
    std::uint32_t vueltas = 0;       // how often it has come so far; the first time may count or not
    std::int64_t desde = 0;          // it is missing, milliseconds of the program's clock
    std::string motivo{};            // why it is, in the operator's words
};

struct PalabrasVaiven {
    const char* viene = "con datos";
    const char* falta = "sin datos";
    const char* cambios = "ha perdido y recuperado los datos";
};

// What the log says of it: each change, once, with its reason, and how long it was missing. Where changes come thick
// and fast they are summed up, in ever longer intervals, until there is calm; nothing is said twice.
class Vaiven {
public:
    using Lineas = std::vector<std::string>;

    // Milliseconds. Three losses within a minute are too many, and so are ten within an hour; after so long without a
    // change there is calm again.
    static constexpr std::int64_t MINUTO = 60'000;
    static constexpr std::int64_t HORA = 60 * MINUTO;
    static constexpr std::int64_t CALMA = MINUTO;
    static constexpr std::int64_t CALMA_LARGA = 10 * MINUTO;
    static constexpr std::int64_t RESUMEN = 10 * MINUTO;    // the longest time between two sums
    static constexpr std::int64_t FIRMEZA = 10'000;         // so long another reason holds until it is said
    static constexpr std::int64_t FIRMEZA_2 = 10 * MINUTO;  // the same when one has been said already

    // The clock must outlive it.
    explicit Vaiven(const Reloj& reloj, PalabrasVaiven palabras = {}) : m_reloj(reloj), m_palabras(palabras) {
        m_perdidas.fill(NUNCA);
    }

    // What there is to say, to be asked some times a second at most.
    Lineas mirar(const VistaVaiven& vista);
    // What is left to be said when nobody looks any more.
    Lineas terminar();
    // Since when it is missing and why; empty when it is not.
    std::string falta() const;

private:
    void perder(std::int64_t desde, const std::string& motivo);
    void volver();
    void atenderMotivo(const std::string& motivo);
    void resumir(bool calma);
    void contarPerdida();
    std::string conMotivo() const;
    std::string hora(std::int64_t momento) const;

    static constexpr std::int64_t NUNCA = std::numeric_limits<std::int64_t>::min() / 2;

    const Reloj& m_reloj;
    const PalabrasVaiven m_palabras;
    Lineas m_lineas;
    std::int64_t m_ahora = 0;
    bool m_conocido = false;  // something has been said of it
    bool m_falta = false;
    std::uint32_t m_vueltas = 0;
    std::int64_t m_desde = 0;  // it is missing
    std::string m_motivo;      // the one that was said
    std::string m_otroMotivo;  // the one that there is instead; empty: none
    std::int64_t m_conOtro = 0;
    int m_motivos = 0;                       // said in this absence
    std::array<std::int64_t, 9> m_perdidas;  // when, the oldest first
    // While changes are summed up:
    bool m_resumiendo = false;
    std::int64_t m_calma = CALMA;  // that ends it
    std::int64_t m_resumido = 0;   // when
    std::int64_t m_plazo = CALMA;
    std::int64_t m_cambio = 0;  // the last one
    int m_veces = 0;            // lost since the last sum
    std::int64_t m_sin = 0;     // missing since then, milliseconds
};

// "4 s", "14 min 32 s", "2 h 5 min", "3 d 4 h".
std::string textoDuracion(std::int64_t milisegundos);

}  // namespace sorvanel
