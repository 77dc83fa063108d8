#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "display/familia.h"
#include "links/enlacePeso.h"
#include "platform/sistema.h"

namespace sorvanel {

// Since when a display has no data, and why.
struct Silencio {
    // So long it takes until that is said.
    static constexpr std::int64_t PLAZO = 10'000;           // milliseconds
    static constexpr std::int64_t UN_DIA = 24 * 3'600'000;  // then the hour alone does not say which

    static constexpr std::int64_t ENTRE_MIRADAS = 500;  // told more often, it asks no more often than that

    std::int64_t inicio = 0;  // milliseconds of the program's clock
    std::int64_t mirado = 0;  // when the reason was asked for last
    HoraLocal desde{};
    // What was said last; nothing yet.
    std::vector<std::string> textos{};
    MotivoSilencio motivo = MotivoSilencio::callado;
    std::int16_t gemelo = 0;  // of a port in use: another display that is to be seen, and has the same; 0: none
    bool conDia = false;

    bool dicho() const { return !textos.empty(); }
};

// Of a display that cannot know whose datagrams are its: what stands there instead of an address.
std::string errorOrigen(const std::string& escrito);

// In the operator's words, on one line: the whole first, then shorter ones for where that has no room.
std::vector<std::string> textosSilencio(const Familia& familia, std::int32_t port, const Silencio& silencio);
// Of that the reason alone: "UDP 9001, nada recibido".
std::string textoMotivo(const Familia& familia, std::int32_t port, const Silencio& silencio);
// "10:42", with its day "22/11 10:42".
std::string textoHora(const HoraLocal& d, bool conDia);

}  // namespace sorvanel
