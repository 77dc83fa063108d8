#pragma once

#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "simulador/opciones.h"
#include "simulador/valores.h"

// Reads a command line against a table. A Borrador has `opciones` (some OpcionesComunes) and
// `opcionDePeso`, the name of the one option that said where the weights come from.
namespace sorvanel::simulador {

template <class Borrador>
struct Opcion {
    std::string_view nombre;
    bool conValor;
    bool daPeso;  // one such option a run
    void (*aplicar)(Borrador&, std::string_view);
};

// The options of both families.
template <class B>
std::span<const Opcion<B>> opcionesComunes() {
    using Valor = std::string_view;
    static constexpr std::int64_t MAXENTERO = std::numeric_limits<std::int64_t>::max();
    static constexpr Opcion<B> TABLA[] = {
        {"--ritmo", true, false, [](B& b, Valor v) { b.opciones.ritmo = leerMilesimas(v, 100, 1'000'000); }},
        {"--capacidad", true, false,
         [](B& b, Valor v) { b.opciones.peso.capacidades = leerListaMilesimas(v, 10, MAXMILESIMAS); }},
        {"--division", true, false,
         [](B& b, Valor v) { b.opciones.peso.divisiones = leerListaMilesimas(v, 1, MAXMILESIMAS); }},
        {"--ciclo", true, false,
         [](B& b, Valor v) { b.opciones.peso.ciclo = std::chrono::milliseconds{leerMilesimas(v, 5'000, 3'600'000)}; }},
        {"--barrido", true, true, [](B& b, Valor v) { leerBarrido(v, b.opciones.peso); }},
        {"--contar", false, true, [](B& b, Valor) { b.opciones.peso.modo = OrigenPeso::Modo::Barrido; }},
        {"--callar", true, false, [](B& b, Valor v) { b.opciones.silencios.calladas = leerCalladas(v); }},
        {"--pausas", true, false, [](B& b, Valor v) { b.opciones.silencios.pausas = leerPausas(v); }},
        {"--avalancha", true, false, [](B& b, Valor v) { b.opciones.avalancha = leerAvalancha(v); }},
        {"--duracion", true, false, [](B& b, Valor v) { b.opciones.duracion = leerSegundos(v); }},
        {"--tramas", true, false, [](B& b, Valor v) { b.opciones.tramas = leerEntero(v, 1, MAXTRAMAS); }},
        {"--semilla", true, false,
         [](B& b, Valor v) { b.opciones.semilla = static_cast<std::uint64_t>(leerEntero(v, 0, MAXENTERO)); }},
        {"--mostrar", false, false, [](B& b, Valor) { b.opciones.mostrar = true; }},
    };
    return TABLA;
}

template <class B>
const Opcion<B>& buscarOpcion(std::string_view nombre, std::span<const Opcion<B>> propias) {
    for (const auto tabla : {propias, opcionesComunes<B>()})
        for (const auto& opcion : tabla)
            if (opcion.nombre == nombre) return opcion;
    throw ErrorUso("opción desconocida: «" + std::string(nombre) + "»");
}

template <class B>
void aplicarOpcion(B& borrador, const Opcion<B>& opcion, std::string_view valor) {
    if (opcion.daPeso) {
        if (!borrador.opcionDePeso.empty() && borrador.opcionDePeso != opcion.nombre)
            throw ErrorUso(std::string(opcion.nombre) + " no puede ir con " + std::string(borrador.opcionDePeso));
        borrador.opcionDePeso = opcion.nombre;
    }
    try {
        opcion.aplicar(borrador, valor);
    } catch (const ErrorUso& error) {
        throw ErrorUso(std::string(opcion.nombre) + ": " + error.what());
    }
}

// False when help was asked for, and then nothing else is read.
template <class B>
bool leerArgumentos(std::span<const std::string> argumentos, std::span<const Opcion<B>> propias, B& borrador) {
    for (const auto& argumento : argumentos)
        if (argumento == "--help" || argumento == "-h" || argumento == "--ayuda" || argumento == "/?") return false;
    for (std::size_t i = 0; i < argumentos.size(); ++i) {
        const std::string_view argumento = argumentos[i];
        const std::size_t igual = argumento.find('=');
        const Opcion<B>& opcion = buscarOpcion<B>(argumento.substr(0, igual), propias);
        if (!opcion.conValor && igual != std::string_view::npos)
            throw ErrorUso(std::string(opcion.nombre) + " no lleva valor");
        std::string_view valor;
        if (igual != std::string_view::npos) {
            valor = argumento.substr(igual + 1);
        } else if (opcion.conValor) {
            if (++i == argumentos.size() || argumentos[i].starts_with("--"))
                throw ErrorUso(std::string(opcion.nombre) + " necesita un valor");
            valor = argumentos[i];
        }
        aplicarOpcion(borrador, opcion, valor);
    }
    return true;
}

// What can only be told once all is read. Throws ErrorUso.
void comprobarComunes(const OpcionesComunes& opciones, std::size_t indicadores);

}  // namespace sorvanel::simulador
