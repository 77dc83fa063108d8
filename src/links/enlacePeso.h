#pragma once

#include <cstdint>
#include <limits>
#include <string_view>

#include "platform/direccionIP.h"

namespace sorvanel {

// What a link knows of the display that it feeds.
class SuscriptorPeso {
public:
    virtual ~SuscriptorPeso() = default;

    // The local UDP port, or for the shared link the address AABB.
    static constexpr std::int32_t TODAS = std::numeric_limits<std::int32_t>::min();  // every address: who only looks on
    virtual std::int32_t port() const = 0;
    virtual std::int16_t modoBulk() const = 0;
    // On a port of its own: whose datagrams alone are its. Asked when its link is started.
    static constexpr DireccionIP CUALQUIERA = 0;
    static constexpr DireccionIP NADIE = std::numeric_limits<DireccionIP>::max();
    virtual DireccionIP origen() const { return CUALQUIERA; }

    // A line without its carriage return, or the empty text when no reading is available. True when
    // the text was a reading that the display took, also when it shows that weight already.
    virtual bool frWsk_refrescoPeso(std::string_view linea) = 0;
    // The same from the shared link, for the address primero/segundo; primero below 1: for everybody.
    virtual bool mmTCP_refrescoPeso(std::int16_t primero, std::int16_t segundo, std::string_view carga) = 0;
};

// Why a display has no weight.
enum class MotivoSilencio : std::uint8_t {
    callado,         // its indicator says none, or nothing
    otroEquipo,      // the same, and somebody else sends to its port
    sinLectura,      // something comes, but no reading
    sinArrancar,     // its link could not be started
    portEnUso,       // the same, for somebody has its port
    origenNoValido,  // the same, for nobody knows whose datagrams are its
    sinRespuesta,    // the other end of the shared link does not answer, or tells nothing
    noOido           // it does, but nothing of that address
};

// A connection that displays share, as it is at one moment.
struct EstadoConexion {
    // The last two: the other end has closed it; it talks, but brings no readings.
    enum class Motivo : std::uint8_t { sinRespuesta, noEncontrado, rechazada, cerrada, sinLecturas };

    bool enUso = false;                    // somebody listens
    bool abierta = false;                  // and readings have come over it
    std::uint32_t veces = 0;               // how often they have begun to come since it is in use
    Motivo motivo = Motivo::sinRespuesta;  // why it is down
};

// A link as a display sees it. All displays of the concentrator's family share one, which the program owns.
class EnlacePeso {
public:
    virtual ~EnlacePeso() = default;

    // A display counts itself in before it uses the link, and out when it does so no more.
    virtual void hola() {}
    virtual void adios() {}
    // Feeds that display from now on; false when the link cannot be started. The display must call Cerrar before it
    // goes.
    virtual bool enMarcha(SuscriptorPeso& visor) = 0;
    virtual void Cerrar(SuscriptorPeso& visor) = 0;
    // Why that display, which it feeds, is told that there is no weight; and when it took the last one, or began to
    // wait for it, by the program's clock.
    virtual MotivoSilencio motivo(const SuscriptorPeso& /*visor*/) const { return MotivoSilencio::callado; }
    virtual std::int64_t ultimaAceptada(const SuscriptorPeso& visor) const = 0;
    virtual EstadoConexion conexion() const { return {}; }
};

}  // namespace sorvanel
