#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/temporizador.h"
#include "platform/zocalo.h"

namespace sorvanel {

// A moment as the clock on the wall says it.
struct HoraLocal {
    int dia = 1;
    int mes = 1;
    int hora = 0;
    int minuto = 0;
};

class Reloj {
public:
    virtual ~Reloj() = default;
    // Time that only goes forward, milliseconds since some moment.
    virtual std::int64_t ahora() const = 0;
    // As it was so many milliseconds ago.
    virtual HoraLocal horaLocal(std::int64_t hace) const = 0;
};

struct PuntoPixel {
    std::int32_t x = 0;
    std::int32_t y = 0;

    bool operator==(const PuntoPixel&) const = default;
};

// The mouse cursor on the virtual screen, device pixels.
class Cursor {
public:
    virtual ~Cursor() = default;
    virtual PuntoPixel posicion() const = 0;
    virtual void posicion(PuntoPixel punto) = 0;
};

// Message boxes. Each disables the program's windows while it is open.
class Avisos {
public:
    virtual ~Avisos() = default;
    // Critical-error icon and OK. Returns when the user has answered.
    virtual void critico(const std::string& texto) = 0;
    // The same with the information icon.
    virtual void informacion(const std::string& texto) = 0;
    // Answers the box that has been open for longest, from within its own loop: from a timer, say. Nothing
    // where none is open; the system's windows for colours and fonts are none.
    virtual void cerrar() = 0;
};

// What runs later on the one thread.
class Cola {
public:
    virtual ~Cola() = default;
    // Runs the action once, when what is being handled now is done.
    virtual void despues(std::function<void()> accion) = 0;
};

class Fabrica {
public:
    virtual ~Fabrica() = default;
    virtual std::unique_ptr<Temporizador> crearTemporizador() = 0;
    // The listener must outlive the socket.
    virtual std::unique_ptr<Zocalo> crearZocalo(OyenteZocalo& oyente) = 0;
    // This computer's own IPv4 addresses as text, but for those that no other reaches it by. Never blocks.
    virtual std::vector<std::string> direcciones() = 0;
};

// Keeps the computer awake and the screen saver away while on.
class Reposo {
public:
    virtual ~Reposo() = default;
    virtual void impedir(bool si) = 0;
};

}  // namespace sorvanel
