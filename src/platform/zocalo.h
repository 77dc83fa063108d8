#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/direccionIP.h"

namespace sorvanel {

enum class ProtocoloZocalo { TCP = 0, UDP = 1 };

// Why a connection did not come about: nothing there has answered, the name has no address, or it was refused. Of a
// binding: somebody has the port; whatever else is sinRespuesta.
enum class MotivoFallo { sinRespuesta, noEncontrado, rechazado, ocupado };

// Told on the one thread; never from within a call to the socket itself. Nothing is told of a
// connection or a binding that has been closed since.
class OyenteZocalo {
public:
    virtual ~OyenteZocalo() = default;

    virtual void alConectar() {}
    // Something can be read: one leer() a call is enough, more will be told again.
    virtual void alLlegarDatos() = 0;
    virtual void alFallar() {}
    virtual void alCerrarse() {}
};

// A socket that never blocks.
class Zocalo {
public:
    virtual ~Zocalo() = default;

    virtual void cerrar() = 0;
    // For the next enlazar or conectar.
    virtual void protocolo(ProtocoloZocalo protocolo) = 0;
    // Binds to a local port for its own use alone; 0 means any free one. False when the port is
    // taken or is no port (above 65535: it is never truncated).
    virtual bool enlazar(std::int32_t puerto) = 0;
    // Starts connecting to a name or an address. False only for a host or port that no attempt can
    // be made with; all else is told by alConectar or alFallar.
    virtual bool conectar(const std::string& host, std::int32_t puerto) = 0;
    // Sends all of it, later if it must. False when the connection is not open.
    virtual bool enviar(std::string_view datos) = 0;
    // Appends what one read gives (for UDP, one datagram) and says how many bytes that was.
    virtual std::size_t leer(std::string& destino) = 0;
    // The same, and from whom a datagram came; 0 for a connection, or where nothing was read.
    virtual std::size_t leerDe(std::string& destino, DireccionIP& remitente) = 0;
    // Of the attempt that alFallar told last, or of the last enlazar, if that came later.
    virtual MotivoFallo motivo() const = 0;
};

}  // namespace sorvanel
