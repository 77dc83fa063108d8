#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "simulador/fuentePeso.h"
#include "simulador/linea.h"

namespace sorvanel::simulador {

// A stretch of time without end where there is no `hasta`; its last moment is outside.
struct Ventana {
    std::chrono::milliseconds desde{};
    std::optional<std::chrono::milliseconds> hasta;

    bool contiene(Instante instante) const { return instante >= desde && (!hasta || instante < *hasta); }
};

// One indicator, from 0, that says nothing.
struct Callada {
    std::size_t indicador = 0;
    Ventana cuando;
};

// A wrong frame or line before each so many good ones; 0 is never. The classes, as places in the family's list, take
// turns.
struct Malas {
    std::int64_t cada = 0;
    std::vector<std::size_t> clases;

    // Which class comes before number `numero`, from 0, if any.
    std::optional<std::size_t> toca(std::int64_t numero) const {
        if (cada == 0 || numero % cada != cada - 1) return std::nullopt;
        return clases[static_cast<std::size_t>(numero / cada) % clases.size()];
    }
};

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

// What a session does at a stage instead of going on; it falls silent for ever where there is no `dura`.
struct Tropiezo {
    enum class Tipo { Calla, Cierra, Reinicia };
    Etapa etapa;
    Tipo tipo = Tipo::Calla;
    std::optional<std::chrono::milliseconds> dura;
};

// What goes wrong within a session; by default nothing.
struct Faltas {
    std::string saludo = "LIN>";
    std::string segundo = "XXX>";
    bool aparte = false;    // the first line comes a while after the second prompt, not in one piece with it
    std::size_t trozo = 0;  // most bytes that are sent at a time; 0 is all
    std::chrono::milliseconds pausa{};
    std::vector<Tropiezo> tropiezos;
    Malas malas;
};

struct Opciones {
    bool ayuda = false;
    bool concentrador = false;
    // Of both families.
    double ritmo = 10;  // frames a second, each indicator
    OrigenPeso peso;
    std::string marcas;  // empty: what the scale does
    std::vector<Callada> calladas;
    std::optional<std::chrono::milliseconds> duracion;
    std::optional<std::int64_t> semilla;
    bool mostrar = false;
    Faltas faltas;  // of the indicators only `malas`
    // Of the indicators.
    std::string destino = "127.0.0.1";
    std::vector<int> puertos;
    std::int64_t partir = 0;  // each so many in two datagrams; 0 is never
    std::int64_t juntar = 1;  // good frames in each datagram
    // Of the concentrator.
    bool todas = false;           // listens for other machines too
    std::uint16_t puerto = 9084;  // 0: any free one
    std::vector<Direccion> direcciones;
    int decimales = 1;
    std::string finLinea = "\r";
    std::optional<std::int64_t> veces;  // sessions that have faults; the later ones have none
    std::optional<Ventana> ausencia;    // when it does not listen, and holds no session

    std::size_t indicadores() const { return concentrador ? direcciones.size() : puertos.size(); }
    bool callado(std::size_t indicador, Instante instante) const {
        return std::any_of(calladas.begin(), calladas.end(), [&](const Callada& callada) {
            return callada.indicador == indicador && callada.cuando.contiene(instante);
        });
    }
};

// Bad usage, told in Spanish.
class ErrorUso : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// `argumentos` without the program's name. Throws ErrorUso. With `ayuda` the rest is left as it comes.
Opciones leerOpciones(std::span<const std::string> argumentos);

// In Spanish: the options of both families, with examples.
std::string textoAyuda();

}  // namespace sorvanel::simulador
