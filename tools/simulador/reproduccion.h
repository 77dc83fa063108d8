#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "simulador/opciones.h"

namespace sorvanel::simulador {

// Where the bytes of an indicator go.
class Emisor {
public:
    virtual ~Emisor() = default;
    // False when they could not be sent; what follows may be.
    virtual bool enviar(std::size_t indicador, std::string_view datos) = 0;
};

// A steady clock that can be waited on.
class Reloj {
public:
    virtual ~Reloj() = default;
    // Since any fixed moment; never goes back.
    virtual Instante ahora() = 0;
    // Returns at that moment, sooner if the user asks for the end.
    virtual void esperarHasta(Instante instante) = 0;
    virtual bool finPedido() = 0;
};

// Told of each datagram that was sent or could not be, and before each wait.
class Testigo {
public:
    virtual ~Testigo() = default;
    virtual void alEnviar(Instante vence, std::size_t indicador, std::string_view datos) = 0;
    virtual void alFallar(std::size_t indicador) = 0;
    virtual void alEsperar() = 0;
};

struct Resumen {
    std::vector<std::int64_t> enviadas;  // of each indicator
    std::int64_t calladas = 0;
    std::int64_t fallidas = 0;
    std::int64_t defectuosas = 0;  // datagrams without a good frame
    std::int64_t avalancha = 0;    // of the frames sent, those beyond the rate
    std::int64_t retrasos = 0;     // times that more than a second was lost, and not made up for
    Instante tiempo{};

    std::int64_t total() const;
};

// Plays the indicators until the options' end or the user's. What is sent depends on the options and
// the seed alone, not on how punctually it can be sent; only how many frames a flood adds is the
// machine's doing.
Resumen reproducir(const Opciones& opciones, std::uint64_t semilla, Emisor& emisor, Reloj& reloj, Testigo& testigo);

// `numero` things in that time, so many a second, in Spanish.
std::string textoRitmo(std::int64_t numero, std::string_view cosas, Instante tiempo);

// In Spanish, a line each.
std::string textoResumen(const Resumen& resumen, const std::vector<Destino>& destinos);

}  // namespace sorvanel::simulador
