#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "simulador/linea.h"

namespace sorvanel::simulador {

// How far a session of the concentrator has got.
struct Etapa {
    enum class Punto {
        Saludo,    // connected, nothing said yet
        Rep,       // the client answered the greeting
        Abierta,   // the second prompt was sent
        Lecturas,  // so many lines were sent
        Media,     // and half of the next one
    };
    Punto punto = Punto::Saludo;
    std::int64_t lineas = 0;

    bool operator==(const Etapa&) const = default;
};

// Silence at a stage, for a while or for ever.
struct Mudez {
    Etapa etapa;
    std::optional<std::chrono::milliseconds> dura;
};

// What goes wrong within a session; by default nothing. What comes each so many lines is 0 for never.
struct Faltas {
    std::string saludo = "LIN>";
    std::string segundo = "XXX>";
    std::size_t trozo = 0;  // bytes of a prompt sent at a time; 0 is all
    std::chrono::milliseconds pausaTrozos{};
    bool pegada = false;  // the first line comes in one piece with the second prompt
    std::vector<Mudez> mudeces;
    std::optional<Etapa> cierre;
    std::optional<Etapa> reinicio;
    std::int64_t malas = 0;
    std::vector<ClaseLinea> clases;  // in turn; not empty where `malas` is above 0
    std::int64_t basura = 0;
    std::int64_t partir = 0;  // a line in two pieces
    std::chrono::milliseconds pausaPartir{};
};

}  // namespace sorvanel::simulador
