#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "links/enlacePeso.h"
#include "platform/sistema.h"

namespace sorvanel {

// The receiving end of one indicator: a UDP port of its own whose bytes are lines ended by a
// carriage return, in datagrams of any cut. What a line means is the display's business. Where the display names
// its origin, a datagram from elsewhere is as if it had not come.
class frWsk final : public EnlacePeso, private OyenteZocalo {
public:
    // No whole line for this long is told as an empty one, and again every so long; half a line is dropped then.
    static constexpr int VIGILANCIA = 1000;  // milliseconds
    // Lines that the display does not take are no sign of life for longer than this: the port is its own.
    static constexpr std::int64_t PACIENCIA = 3000;  // milliseconds
    // Somebody else's datagrams say why there is no data for so long.
    static constexpr std::int64_t MEMORIA = 10000;  // milliseconds
    // No line is as long as this: what has no end by then is dropped.
    static constexpr std::size_t BUFER_MAXIMO = 64 * 1024;

    frWsk(Fabrica& fabrica, const Reloj& reloj);
    ~frWsk() override;
    frWsk(const frWsk&) = delete;
    frWsk& operator=(const frWsk&) = delete;

    // Receives on the display's port from now on, also when it was receiving on another. False when
    // the port cannot be had. The display must outlive this or call Cerrar.
    bool enMarcha(SuscriptorPeso& visor) override;
    void Cerrar(SuscriptorPeso&) override { Cerrar(); }
    std::int64_t ultimaAceptada(const SuscriptorPeso&) const override { return m_ultimaAceptada; }
    MotivoSilencio motivo(const SuscriptorPeso&) const override;
    void Cerrar();
    // The last enMarcha was refused because somebody has the port.
    bool portEnUso() const { return m_wsk->motivo() == MotivoFallo::ocupado; }

private:
    static constexpr std::int64_t NUNCA = -1'000'000;

    void alLlegarDatos() override;
    bool leer();
    void entregarLineas();
    void entregar(std::string_view linea);
    bool mostrar(std::string_view trama);
    void tic();
    void avisarSilencio();

    const Reloj& m_reloj;
    std::unique_ptr<Temporizador> m_tim;
    std::unique_ptr<Zocalo> m_wsk;
    SuscriptorPeso* m_visor = nullptr;
    bool m_enMarcha = false;
    std::string m_bufer;
    std::int64_t m_ultimaAceptada = 0;
    DireccionIP m_origen = SuscriptorPeso::CUALQUIERA;
    std::int64_t m_ultimoSuyo = NUNCA;  // a datagram from its origin, where it has one
    std::int64_t m_ultimoAjeno = NUNCA;
    bool m_sinLectura = false;  // what came last was no reading
};

}  // namespace sorvanel
