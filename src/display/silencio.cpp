#include "display/silencio.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace sorvanel {

namespace {

constexpr std::int32_t PORT_MAXIMO = 65535;
constexpr const char* PUNTO = " · ";
constexpr const char* DESDE = "desde ";

std::string origen(const Familia& familia, std::int32_t port) {
    return (familia.compartida ? "" : "UDP ") + familia.textoPort(port);
}

}  // namespace

std::string textoHora(const HoraLocal& d, bool conDia) {
    std::array<char, 64> texto{};
    if (conDia) {
        std::snprintf(texto.data(), texto.size(), "%02d/%02d %02d:%02d", d.dia, d.mes, d.hora, d.minuto);
    } else {
        std::snprintf(texto.data(), texto.size(), "%02d:%02d", d.hora, d.minuto);
    }
    return texto.data();
}

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
    const std::string suyo = familia.textoPort(port), cuando = textoHora(silencio.desde, silencio.conDia);
    const auto desde = [&](const std::string& motivo, const std::string& breve) {
        return std::vector{motivo + PUNTO + DESDE + cuando, motivo, breve};
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
        case MotivoSilencio::sinLectura:
            break;
    }
    const std::string suyos = PUNTO + origen(familia, port);
    return {"Sin datos desde " + cuando + suyos, cuando + suyos, "Desde " + cuando};
}

std::string textoMotivo(const Familia& familia, std::int32_t port, const Silencio& silencio) {
    const bool callado = silencio.motivo == MotivoSilencio::callado;
    if (port != 0 && (callado || silencio.motivo == MotivoSilencio::sinLectura)) {
        if (familia.compartida) return origen(familia, port) + ", sin lectura";
        return origen(familia, port) + (callado ? ", nada recibido" : ", llegan datos pero ninguna lectura");
    }
    if (silencio.motivo == MotivoSilencio::otroEquipo) return origen(familia, port) + ", llega de otro equipo";
    const std::string dicho = textosSilencio(familia, port, silencio).front();
    return dicho.substr(0, dicho.find(std::string(PUNTO) + DESDE));
}

}  // namespace sorvanel
