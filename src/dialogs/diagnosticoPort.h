#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "display/familia.h"
#include "links/frTCP.h"

// What stands in words about what comes to a display: of what was seen, nothing else.

namespace sorvanel {

// Which display it is about.
struct ConsultaPort {
    const Familia* familia = nullptr;  // null: none is selected
    std::int32_t port = 0;
    std::int16_t modo = 0;
    std::int16_t gemelo = 0;                          // another display with the same port of its own; 0: none
    DestinoPavona destino;                            // of a family that shares a connection
    DireccionIP origen = SuscriptorPeso::CUALQUIERA;  // whose datagrams are its
    std::string origenEscrito;                        // what names it
};

// How far its link has come; of a connection, at its best try of the last two.
enum class AvanceEnlace {
    espera,
    sinPort,     // somebody else has it
    portNegado,  // nobody may have it
    oyendo,      // the port is ours
    inutil,      // a host or port that no attempt can be made with
    conectando,
    sinRespuesta,
    noEncontrado,
    rechazado,
    cortado,   // answered and hung up
    mudo,      // connected, and nothing was said
    extrano,   // connected, and something was said that is no greeting
    saludado,  // greeted, and no reading has come
    lecturas,
};

struct Sintomas {
    ConsultaPort consulta;
    AvanceEnlace enlace = AvanceEnlace::espera;
    bool asentado = false;                   // open for so long that silence means something
    bool recibiendo = false;                 // the display would show a weight
    bool sinPeso = false;                    // its indicator is spoken of, without a weight
    std::optional<std::int64_t> porSegundo;  // readings, rounded; nothing until that can be told
    std::vector<std::string> remitentes;     // of those
    std::string muestra;                     // the bytes that came last and were no reading; empty: none
    std::vector<std::int32_t> otras;         // addresses that are spoken of besides
    std::string ajeno;                       // who sent something last that is not its origin's; empty: nobody
};

struct DiagnosticoPort {
    std::string linea;
    std::string consejo;  // more of it, and what to do
};

// `equipo`: this computer's addresses, in one text.
DiagnosticoPort diagnosticar(const Sintomas& sintomas, const std::string& equipo);

// The bytes with what cannot be seen made visible ("<CR>", "<1F>"), cut with "…" where more than so many would stand
// there.
std::string hacerVisible(std::string_view bytes, std::size_t caracteres);

}  // namespace sorvanel
