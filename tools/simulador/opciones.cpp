#include "simulador/opciones.h"

#include <set>
#include <utility>

#include "simulador/lectorOpciones.h"

namespace sorvanel::simulador {

namespace {

struct Borrador {
    Opciones opciones;
    std::string host = "127.0.0.1";
    std::vector<Destino> destinos = leerPuertos("9001-9004");
    std::string_view opcionDePeso;
};

constexpr std::int64_t MAXJUNTAS = 100;  // well within a datagram

void ponerHost(Borrador& b, std::string_view v) {
    if (v.empty() || v.find(':') != std::string_view::npos)
        throw ErrorUso("«" + std::string(v) + "» no es un nombre ni una dirección IPv4 (los puertos van en --puertos)");
    b.host = v;
}

void ponerMalas(Borrador& b, std::string_view v) {
    DefectosTrama& defectos = b.opciones.defectos;
    defectos.malas = leerCadaClases(v, CLASESTRAMA, defectos.clases);
}

constexpr Opcion<Borrador> PROPIAS[] = {
    {"--destino", true, false, ponerHost},
    {"--puertos", true, false, [](Borrador& b, std::string_view v) { b.destinos = leerPuertos(v); }},
    {"--peso", true, true, [](Borrador& b, std::string_view v) { leerPeso(v, "puerto", b.opciones.peso); }},
    {"--marcas", true, false, [](Borrador& b, std::string_view v) { b.opciones.marcas = leerMarcas(v); }},
    {"--malas", true, false, ponerMalas},
    {"--basura", true, false,
     [](Borrador& b, std::string_view v) { b.opciones.defectos.basura = leerEntero(v, 1, MAXTRAMAS); }},
    {"--partir", true, false,
     [](Borrador& b, std::string_view v) { b.opciones.defectos.partir = leerEntero(v, 1, MAXTRAMAS); }},
    {"--juntar", true, false,
     [](Borrador& b, std::string_view v) { b.opciones.defectos.juntar = leerEntero(v, 2, MAXJUNTAS); }},
};

Opciones terminar(Borrador borrador) {
    Opciones& opciones = borrador.opciones;
    opciones.destinos = std::move(borrador.destinos);
    std::set<std::pair<std::string_view, std::uint16_t>> vistos;
    for (auto& destino : opciones.destinos) {
        if (destino.host.empty()) destino.host = borrador.host;
        if (!vistos.emplace(destino.host, destino.puerto).second)
            throw ErrorUso("--puertos: " + destino.host + ":" + std::to_string(destino.puerto) + " está dos veces");
    }
    comprobarComunes(opciones, opciones.destinos.size());
    return std::move(opciones);
}

}  // namespace

void comprobarComunes(const OpcionesComunes& opciones, std::size_t indicadores) {
    for (const auto& callada : opciones.silencios.calladas)
        if (callada.indicador >= indicadores)
            throw ErrorUso("--callar: no hay indicador " + std::to_string(callada.indicador + 1) + ", solo " +
                           std::to_string(indicadores));
    const auto& capacidades = opciones.peso.capacidades;
    const auto& divisiones = opciones.peso.divisiones;
    for (std::size_t i = 0; i < indicadores; ++i)
        if (divisiones[i % divisiones.size()] > capacidades[i % capacidades.size()] / 10)
            throw ErrorUso("--division: la del indicador " + std::to_string(i + 1) +
                           " pasa de la décima parte de su capacidad");
}

Opciones leerOpciones(const std::vector<std::string>& argumentos) {
    Borrador borrador;
    if (leerArgumentos<Borrador>(argumentos, PROPIAS, borrador)) return terminar(std::move(borrador));
    borrador.opciones.ayuda = true;
    return std::move(borrador.opciones);
}

}  // namespace sorvanel::simulador
