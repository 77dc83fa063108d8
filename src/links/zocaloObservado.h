#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/sistema.h"

namespace sorvanel {

// What befalls a socket: bound, or its port cannot be had; an attempt to connect is begun, cannot be begun, succeeds;
// something is sent; a connection or an attempt fails; the other side closes.
enum class SucesoZocalo { enlazado, sinPort, intento, inutil, conectado, enviado, fallado, cerrado };

// Looks on while a link uses its socket. Told before the link is, and of what it asks once that is done.
class ObservadorZocalo {
public:
    virtual ~ObservadorZocalo() = default;
    virtual void alSuceder(SucesoZocalo suceso, MotivoFallo motivo) = 0;
    // What one read gave, and who sent it; 0 for a connection.
    virtual void alLeer(std::string_view datos, DireccionIP remitente) = 0;
};

// Makes sockets that somebody looks on at; all else is as ever. Both must outlive what it makes.
class FabricaObservada final : public Fabrica {
public:
    FabricaObservada(Fabrica& fabrica, ObservadorZocalo& observador) : m_fabrica(fabrica), m_observador(observador) {}

    std::unique_ptr<Temporizador> crearTemporizador() override { return m_fabrica.crearTemporizador(); }
    std::unique_ptr<Zocalo> crearZocalo(OyenteZocalo& oyente) override;
    std::vector<std::string> direcciones() override { return m_fabrica.direcciones(); }

private:
    Fabrica& m_fabrica;
    ObservadorZocalo& m_observador;
};

}  // namespace sorvanel
