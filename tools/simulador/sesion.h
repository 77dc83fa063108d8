#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>

#include "simulador/calendario.h"
#include "simulador/generadorLineas.h"
#include "simulador/opcionesConcentrador.h"

namespace sorvanel::simulador {

// What a session has done so far.
struct CuentaSesion {
    std::int64_t lineas = 0;       // good ones
    std::int64_t avalancha = 0;    // of them, beyond the rate
    std::int64_t defectuosas = 0;  // bad lines and pieces of garbage
    std::int64_t inesperadas = 0;  // answers to the greeting that were not the right one
    std::int64_t bytesDeMas = 0;   // that the client sent when nothing was expected of it
    std::int64_t retrasos = 0;     // times that more than a second was lost, and not made up for
    std::int64_t respuestas = 0;   // right answers to the greeting
};

// One client's session: it is handed bytes and the time, and gives bytes. Knows neither sockets nor a
// clock. What it says depends on the options and the seed alone.
class Sesion {
public:
    enum class Fin { Sigue, Cierra, Reinicia };

    // `opciones` and `faltas` must outlive it.
    Sesion(const OpcionesConcentrador& opciones, const Faltas& faltas, std::uint64_t semilla);

    void alRecibir(std::string_view datos);
    // Does what is due, as long as the output has room: past `CABIDA` it waits, and loses nothing.
    void avanzar(Instante ahora);
    // To be sent; whoever sends takes away what went.
    std::string& salida() { return m_salida; }
    // Once the output has gone.
    Fin fin() const { return m_fin; }
    // When `avanzar` has more to do; nothing if only the client, or room in the output, can bring it on.
    std::optional<Instante> proximo(Instante ahora) const;
    const CuentaSesion& cuenta() const { return m_cuenta; }

    static constexpr std::size_t CABIDA = 16'384;

private:
    struct Paso {
        enum class Tipo { Texto, Pausa, Mudez, Cierre, Reinicio };
        Tipo tipo = Tipo::Texto;
        std::string texto;
        Instante dura{};
    };

    void encolar(std::string texto);
    void encolarAviso(const std::string& aviso);
    void encolarEtapa(Etapa etapa);
    // The first half of the line that comes next; the other half is handed back.
    std::string encolarMedia();
    void contarLinea();
    void encolarLinea(std::size_t indicador, Instante instante);
    void estropear(std::size_t indicador, Instante instante);
    // True if it can be gone past.
    bool hacer(const Paso& paso, Instante ahora);
    // True if there was a line to give.
    bool leer(Instante ahora);
    bool enAvalancha(Instante ahora) const;
    void atender(std::string_view respuesta);

    const OpcionesConcentrador& m_opciones;
    const Faltas& m_faltas;
    GeneradorLineas m_lineas;
    Calendario m_calendario;
    std::deque<Paso> m_pasos;
    std::optional<Instante> m_pausaHasta;
    std::string m_entrada;
    std::string m_salida;
    bool m_esperaRespuesta = true;
    bool m_muda = false;   // for good
    bool m_llena = false;  // stopped for want of room in the output
    Fin m_fin = Fin::Sigue;
    std::optional<Instante> m_abierta;  // when its first line was due
    Instante m_origen{};                // the same, less what was lost
    std::int64_t m_turno = 0;
    std::size_t m_siguienteExtra = 0;
    CuentaSesion m_cuenta;
};

}  // namespace sorvanel::simulador
