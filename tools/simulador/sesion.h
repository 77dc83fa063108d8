#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "simulador/fuentePeso.h"
#include "simulador/opciones.h"

namespace sorvanel::simulador {

// One client's session with the concentrator: it is handed bytes and the time, and gives bytes. Knows neither sockets
// nor a clock. Each session gets the same lines, whenever it comes; they depend on the options and the seed alone.
class Sesion {
public:
    enum class Fin { Sigue, Cierra, Reinicia };

    // `opciones` must outlive it.
    Sesion(const Opciones& opciones, Faltas faltas, std::uint64_t semilla);

    void alRecibir(std::string_view datos);
    // Does what is due, as long as the output has room: past `CABIDA` it waits, and loses nothing. Answers when there
    // is more to do; Instante::max() if only the client, or room in the output, can bring it on.
    Instante avanzar(Instante ahora);
    // To be sent; whoever sends takes away what went.
    std::string& salida() { return m_salida; }
    // Once the output has gone.
    Fin fin() const { return m_fin; }

    bool abierta() const { return !m_esperaRespuesta; }
    // Good ones so far; one of which only the half was sent counts.
    std::int64_t lineas() const { return m_lineas; }
    // Bytes that came when nothing was expected, or that were another answer.
    std::int64_t bytesInesperados() const { return m_inesperados; }

    static constexpr std::size_t CABIDA = 16'384;

private:
    struct Paso {
        enum class Tipo { Texto, Pausa, Cierre, Reinicio };
        Tipo tipo = Tipo::Texto;
        std::string texto;
        Instante dura{};  // max() for ever
    };

    void encolar(std::string_view texto);
    bool falla(Etapa etapa) const;
    void llegar(Etapa etapa);
    // Both: nothing when it is done; else when it can be, Instante::max() if that takes something else than time.
    std::optional<Instante> hacer(const Paso& paso, Instante ahora);
    std::optional<Instante> leer(Instante ahora);
    void encolarLinea(std::size_t indicador, Instante instante);

    const Opciones& m_opciones;
    Faltas m_faltas;
    std::uint64_t m_semilla;
    std::vector<FuentePeso> m_fuentes;
    std::vector<std::int64_t> m_cuentas;  // lines of each address
    std::deque<Paso> m_pasos;
    std::optional<Instante> m_pausaHasta;
    std::string m_entrada;
    std::string m_salida;
    bool m_esperaRespuesta = true;
    Fin m_fin = Fin::Sigue;
    std::optional<Instante> m_origen;  // when its first line was due, and later by what was lost
    std::int64_t m_turno = 0;
    std::int64_t m_lineas = 0;
    std::int64_t m_inesperados = 0;
};

}  // namespace sorvanel::simulador
