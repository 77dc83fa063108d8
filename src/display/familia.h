#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "config/texto.h"
#include "display/trama.h"
#include "platform/control.h"

namespace sorvanel {

// A port as the plain number, empty for 0; and back: nothing when it is no number or fits no port's type, 0 for the
// empty text. Whether the display takes it is the display's to say.
std::string textoPort(std::int32_t port);
std::optional<std::int32_t> leerPort(std::string_view texto);

constexpr const char* PORT_INADECUADO = "Port @ inadecuado. Posiblemente en uso";

// A family of indicators: all that sets it apart, in one file each. Texts are the operator's.
struct Familia {
    std::int16_t protocolo = 0;
    const char* nombre = "";  // in the settings file too, where any case will do
    Dibujo dibujo = Dibujo::ninguno;

    // Its displays read through the one shared link; else each has a UDP port of its own.
    bool compartida = false;
    const char* enlace = "port propio";
    const char* sinEnlace = "Error en reconexión TCP/IP";  // why one has not started; "@" is its port

    // What a line says, and the marks that are shown of it: the others are left as they are.
    std::optional<Trama> (*leer)(std::string_view linea) = leerTrama;
    MarcasVisor marcas;
    bool conModo = false;  // a line has more than one value

    // How a port stands in the box in which it is edited, and what that takes of each character (0: nothing).
    std::string (*textoPort)(std::int32_t port) = sorvanel::textoPort;
    std::optional<std::int32_t> (*leerPort)(std::string_view texto) = sorvanel::leerPort;
    char32_t (*filtroPort)(char32_t caracter) = filtroNumerico;
    // Where it is more than a number: the form in which it is typed, and what the tool tip says besides.
    const char* formaPort = "";
    const char* ayudaPort = "";
    bool conForma() const { return *formaPort != '\0'; }
};

// In the order in which the operator comes by them. The first one is that of a display that names none, or an unknown.
std::span<const Familia* const> familias();
const Familia& familiaDe(std::int16_t protocolo);
const Familia& familiaDe(std::string_view nombre);
// After the last one comes the first.
const Familia& familiaSiguiente(const Familia& familia);

extern const Familia FAMILIA_TESSEL;
extern const Familia FAMILIA_PAVONA;

}  // namespace sorvanel
