#include "dialogs/diagnosticoPort.h"

#include <algorithm>
#include <array>

#include "display/silencio.h"

namespace sorvanel {

namespace {

constexpr std::int32_t PORT_MAXIMO = 65535;
constexpr std::size_t MUESTRA_LINEA = 28;  // characters
constexpr std::size_t MUESTRA_CONSEJO = 160;
constexpr std::size_t OTRAS_LINEA = 3;
constexpr std::size_t OTRAS_CONSEJO = 30;

std::string nombreDe(unsigned char byte) {
    constexpr std::array<std::string_view, 32> NOMBRES{
        "NUL", "SOH", "STX", "ETX", "EOT", "ENQ", "ACK", "BEL", "BS",  "TAB", "LF",  "VT",  "FF", "CR", "SO", "SI",
        "DLE", "DC1", "DC2", "DC3", "DC4", "NAK", "SYN", "ETB", "CAN", "EM",  "SUB", "ESC", "FS", "GS", "RS", "US"};
    constexpr std::string_view CIFRAS = "0123456789ABCDEF";
    std::string nombre = "<";
    if (byte < NOMBRES.size()) {
        nombre += NOMBRES[byte];
    } else {
        nombre += CIFRAS[byte >> 4U];
        nombre += CIFRAS[byte & 0xFU];
    }
    return nombre + ">";
}

// "12/1, 12/2 y 4 más".
std::string lista(const Familia& familia, const std::vector<std::int32_t>& ports, std::size_t tope) {
    std::string texto;
    for (std::size_t i = 0; i < std::min(ports.size(), tope); ++i)
        texto.append(i > 0 ? ", " : "").append(familia.textoPort(ports[i]));
    if (ports.size() > tope) texto.append(" y ").append(std::to_string(ports.size() - tope)).append(" más");
    return texto;
}

std::string nombreEquipo(const DestinoPavona& destino) {
    return destino.host + ":" + std::to_string(destino.port);
}

DiagnosticoPort deLoRecibido(const Sintomas& s) {
    const bool compartida = s.consulta.familia->compartida;
    std::string linea = "Recibiendo", consejo = "Llegan pesos que este visor entiende.";
    if (compartida) {
        linea += " de " + s.consulta.destino.host;
    } else {
        for (std::size_t i = 0; i < s.remitentes.size(); ++i)
            linea.append(i > 0 ? " y " : " de ").append(s.remitentes[i]);
    }
    if (s.porSegundo) {
        const std::int64_t n = *s.porSegundo;
        linea += n < 1 ? ", menos de una por segundo" : ", " + std::to_string(n) + " por segundo";
        if (n < 2 && !compartida)
            consejo =
                "Llegan pesos, pero tan de tarde en tarde que el visor puede quedarse a ratos sin datos. Haga que "
                "el indicador envíe al menos dos por segundo.";
    }
    if (s.remitentes.size() > 1)
        consejo =
            "Varios indicadores envían al mismo port, y el visor muestra ya el peso de uno, ya el de otro. Dé a "
            "cada indicador un port distinto.";
    return {linea, consejo};
}

DiagnosticoPort deLoExtrano(const Sintomas& s) {
    const std::string que = s.consulta.familia->compartida ? "el concentrador" : "el indicador";
    const std::string quien = s.remitentes.empty() ? std::string() : " Llega de " + s.remitentes.front() + ".";
    return {"Llega algo que no es un peso: «" + hacerVisible(s.muestra, MUESTRA_LINEA) + "»",
            "«" + hacerVisible(s.muestra, MUESTRA_CONSEJO) + "»" + "\n" + "No es una trama de " +
                s.consulta.familia->nombre + "." + quien + " Revise el formato y el destino que tiene puestos " + que +
                ", y la familia de este visor."};
}

DiagnosticoPort deOtras(const Sintomas& s) {
    const Familia& familia = *s.consulta.familia;
    const std::string suya = familia.textoPort(s.consulta.port);
    if (s.sinPeso)
        return {"El concentrador habla de " + suya + ", pero sin peso en ese modo",
                "La lectura de " + suya +
                    " llega, pero el valor que muestra este visor no tiene dato. Pruebe con otro "
                    "modo, o mire el indicador."};
    return {
        "El concentrador contesta, pero no habla de " + suya + " (sí de " + lista(familia, s.otras, OTRAS_LINEA) + ")",
        "Direcciones que se oyen: " + lista(familia, s.otras, OTRAS_CONSEJO) +
            ".\nPonga una de ellas en este visor, o mire si el indicador " + suya +
            " está encendido y unido al concentrador."};
}

// Nothing has come over the connection that means anything.
DiagnosticoPort deLaConexion(const Sintomas& s) {
    const std::string donde = nombreEquipo(s.consulta.destino);
    const std::string revise = " Revise el equipo y el port en «Conexión Pavona».";
    switch (s.enlace) {
        case AvanceEnlace::inutil:
            return {"Con «" + donde + "» no se puede conectar",
                    "Falta el equipo, o el port no está entre 1 y 65535." + revise};
        case AvanceEnlace::sinRespuesta:
            return {"El concentrador no contesta en " + donde,
                    "Compruebe que está encendido y en la misma red, y que su dirección es esa." + revise};
        case AvanceEnlace::noEncontrado:
            return {"No se encuentra el equipo " + s.consulta.destino.host,
                    "Nadie en la red conoce ese nombre. Pruebe con su dirección IP." + revise};
        case AvanceEnlace::rechazado:
            return {
                "El equipo " + s.consulta.destino.host + " rechaza el port " + std::to_string(s.consulta.destino.port),
                "El equipo está, pero en ese port nadie atiende: será otro el port, u otro el equipo, o está apagado "
                "el servicio." +
                    revise};
        case AvanceEnlace::cortado:
            return {"El concentrador contesta y corta la conexión",
                    "Quizá atiende ya a otro, o no es el concentrador lo que hay en " + donde + "."};
        case AvanceEnlace::mudo:
        case AvanceEnlace::extrano:
            return {donde + " contesta, pero no saluda como un concentrador",
                    "Quizá no es el concentrador lo que hay ahí." + revise};
        case AvanceEnlace::saludado:
        case AvanceEnlace::lecturas:
            if (!s.asentado)
                return {"Conectado con " + donde + "…",
                        "Se espera a que hable de " + s.consulta.familia->textoPort(s.consulta.port) + "."};
            return {"El concentrador contesta, pero no envía pesos",
                    "La conexión está abierta. Mire si el concentrador tiene indicadores y los oye."};
        default:
            break;
    }
    return {"Conectando con " + donde + "…", "Se espera a que el concentrador conteste."};
}

// Of what no field of the tool shows.
std::string deLasClaves(const ConsultaPort& c) {
    if (!c.familia->compartida) {
        const bool suya = c.origen != SuscriptorPeso::CUALQUIERA;
        return suya ? "Solo se admite lo que envía " + textoDireccionIP(c.origen) + " (Origen)." : std::string();
    }
    const std::int64_t caducidad = c.destino.caducidad;
    if (caducidad == DestinoPavona::CADUCIDAD_OMISION) return {};
    const std::string que = "Una dirección que deja de oírse ";
    if (caducidad == DestinoPavona::SIN_CADUCIDAD)
        return que + "conserva su peso mientras viva la conexión (Caducidad 0).";
    return que + "se queda sin datos a los " + std::to_string(caducidad / 1000) + " s (Caducidad).";
}

DiagnosticoPort deOtroEquipo(const Sintomas& s) {
    return {
        "Llega de " + s.ajeno + ", pero solo se admite " + textoDireccionIP(s.consulta.origen) + " (Origen)",
        "Ponga en el archivo de configuración, en la clave Origen de este visor, la dirección del indicador, o quite "
        "esa clave. Si el que envía no es el suyo, dele otro port."};
}

DiagnosticoPort delPort(const Sintomas& s, const std::string& equipo) {
    const std::string port = std::to_string(s.consulta.port);
    if (s.enlace == AvanceEnlace::sinPort)
        return {
            "El port " + port + " lo tiene otro programa",
            "Mientras lo tenga, a este visor no le llega nada. Cierre el otro programa, o ponga otro port aquí y en "
            "el indicador."};
    if (s.enlace == AvanceEnlace::portNegado)
        return {"El port " + port + " no está disponible",
                "Windows no lo da: puede tenerlo reservado. Ponga otro port aquí y en el indicador."};
    if (!s.asentado) return {"Escuchando en el port " + port + "…", {}};
    return {"Nada recibido en el port " + port,
            "Compruebe que el indicador está encendido y en la misma red, que envía por UDP a este equipo (" + equipo +
                "), port " + port + ", y que el cortafuegos de Windows deja pasar a este programa."};
}

std::optional<DiagnosticoPort> deLaConsulta(const ConsultaPort& c) {
    if (c.familia == nullptr) return DiagnosticoPort{"Elija un visor para ver qué le llega", {}};
    const bool compartida = c.familia->compartida;
    if (c.port == 0)
        return DiagnosticoPort{compartida ? "El visor no tiene dirección" : "El visor no tiene port",
                               compartida ? "Escriba en su fila la dirección del indicador, como en 12/3."
                                          : "Escriba en su fila el port UDP al que envía el indicador."};
    if (compartida) return std::nullopt;
    const std::string port = std::to_string(c.port);
    if (c.port < 0 || c.port > PORT_MAXIMO)
        return DiagnosticoPort{"El port " + port + " no existe: van de 1 a 65535",
                               "Ponga uno de esos, y el mismo en el indicador."};
    if (c.origen == SuscriptorPeso::NADIE)
        return DiagnosticoPort{errorOrigen(c.origenEscrito),
                               "Este visor no arranca. Ponga en el archivo de configuración, en su clave Origen, la "
                               "dirección del indicador, como 192.168.1.40, o quite esa clave."};
    if (c.gemelo == 0) return std::nullopt;
    return DiagnosticoPort{"El visor #" + std::to_string(c.gemelo) + " tiene el mismo port " + port,
                           "Un port es de un solo visor: al otro no le llegaría nada. Cambie uno de los dos."};
}

DiagnosticoPort deLoOido(const Sintomas& s, const std::string& equipo) {
    if (s.recibiendo) return deLoRecibido(s);
    if (s.sinPeso || (s.asentado && !s.otras.empty())) return deOtras(s);
    if (!s.muestra.empty()) return deLoExtrano(s);
    if (!s.ajeno.empty()) return deOtroEquipo(s);
    return s.consulta.familia->compartida ? deLaConexion(s) : delPort(s, equipo);
}

}  // namespace

std::string hacerVisible(std::string_view bytes, std::size_t caracteres) {
    std::string texto;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        const std::string uno = byte < ' ' || byte > '~' ? nombreDe(byte) : std::string(1, c);
        if (texto.size() + uno.size() > caracteres) return texto + "…";
        texto += uno;
    }
    return texto;
}

DiagnosticoPort diagnosticar(const Sintomas& s, const std::string& equipo) {
    if (const auto sinMirar = deLaConsulta(s.consulta)) return *sinMirar;
    DiagnosticoPort dicho = deLoOido(s, equipo);
    const std::string claves = deLasClaves(s.consulta);
    if (!claves.empty()) dicho.consejo.append(dicho.consejo.empty() ? "" : "\n").append(claves);
    return dicho;
}

}  // namespace sorvanel
