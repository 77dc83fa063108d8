#include "display/silencio.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace sorvanel {

namespace {

constexpr std::int32_t PORT_MAXIMO = 65535;
constexpr const char* PUNTO = " · ";

std::string hora(const Silencio& silencio) {
    std::array<char, 64> texto{};
    const HoraLocal& d = silencio.desde;
    if (silencio.conDia) {
        std::snprintf(texto.data(), texto.size(), "%02d/%02d %02d:%02d", d.dia, d.mes, d.hora, d.minuto);
    } else {
        std::snprintf(texto.data(), texto.size(), "%02d:%02d", d.hora, d.minuto);
    }
    return texto.data();
}

}  // namespace

std::string errorOrigen(const std::string& escrito) {
    constexpr std::size_t MAXIMO = 40;  // bytes, so that a box has room for it
    std::size_t corte = std::min(escrito.size(), MAXIMO);
    // Not within a character.
    while (corte < escrito.size() && (static_cast<unsigned char>(escrito[corte]) & 0xC0U) == 0x80U) --corte;
    const char* const resto = corte < escrito.size() ? "…" : "";
    return "Origen no es una dirección: «" + escrito.substr(0, corte) + resto + "»";
}

std::vector<std::string> textosSilencio(const Familia& familia, std::int32_t port, const Silencio& silencio) {
    // Nothing can reach it, whatever the link says.
    if (port == 0) return {familia.compartida ? "Sin dirección" : "Sin port"};
    const std::string suyo = familia.textoPort(port), cuando = hora(silencio);
    const auto desde = [&](const std::string& motivo, const std::string& breve) {
        return std::vector{motivo + PUNTO + "desde " + cuando, motivo, breve};
    };
    switch (silencio.motivo) {
        // It has never worked: since when says nothing.
        case MotivoSilencio::sinArrancar:
        case MotivoSilencio::portEnUso:
            if (familia.compartida) return {"Host o port del concentrador no válidos", "Sin concentrador"};
            if (port > PORT_MAXIMO) return {"Port " + suyo + " no válido", "Port no válido"};
            if (silencio.motivo == MotivoSilencio::sinArrancar)
                return {"Port " + suyo + " no disponible", suyo + " no disponible"};
            if (silencio.gemelo != 0)
                return {"El visor #" + std::to_string(silencio.gemelo) + " tiene el mismo port " + suyo,
                        "Port " + suyo + " repetido"};
            return {"Port " + suyo + " en uso por otro programa", "Port " + suyo + " en uso"};
        case MotivoSilencio::origenNoValido:
            return {"Origen no es una dirección", "Origen no válido"};
        case MotivoSilencio::sinRespuesta:
            return desde("El concentrador no responde", "Sin concentrador");
        case MotivoSilencio::noOido:
            return desde("Dirección " + suyo + " no oída", suyo + " no oída");
        case MotivoSilencio::otroEquipo:
            return {"Sin datos desde " + cuando + PUNTO + "UDP " + suyo + ", llega de otro equipo",
                    "UDP " + suyo + ": llega de otro equipo", "Llega de otro equipo"};
        case MotivoSilencio::callado:
            break;
    }
    const std::string origen = (familia.compartida ? "" : "UDP ") + suyo;
    return {"Sin datos desde " + cuando + PUNTO + origen, cuando + PUNTO + origen, "Desde " + cuando};
}

}  // namespace sorvanel
