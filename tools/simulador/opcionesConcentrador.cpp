#include "simulador/opcionesConcentrador.h"

#include <algorithm>
#include <utility>

#include "simulador/lectorOpciones.h"
#include "simulador/valoresConcentrador.h"

namespace sorvanel::simulador {

namespace {

using Valor = std::string_view;

struct Borrador {
    OpcionesConcentrador opciones;
    std::string_view opcionDePeso;
};

// "N:SECONDS"
std::pair<std::int64_t, std::chrono::milliseconds> leerConPausa(Valor texto, std::int64_t maximo) {
    const auto partes = partir(texto, ':');
    if (partes.size() != 2) throw ErrorUso(entreComillas(texto) + " no tiene la forma N:SEGUNDOS");
    return {leerEntero(partes[0], 1, maximo), leerSegundos(partes[1], true)};
}

void ponerTrozos(Borrador& b, Valor v) {
    const auto [trozo, pausa] = leerConPausa(v, 1000);
    b.opciones.faltas.trozo = static_cast<std::size_t>(trozo);
    b.opciones.faltas.pausaTrozos = pausa;
}

void ponerPartir(Borrador& b, Valor v) {
    const auto [cada, pausa] = leerConPausa(v, MAXTRAMAS);
    b.opciones.faltas.partir = cada;
    b.opciones.faltas.pausaPartir = pausa;
}

void ponerAusencias(Borrador& b, Valor v) {
    b.opciones.ausencias.clear();
    for (const auto parte : partir(v, ',')) b.opciones.ausencias.push_back(leerVentana(parte));
}

constexpr Opcion<Borrador> PROPIAS[] = {
    {"--escucha", true, false, [](Borrador& b, Valor v) { b.opciones.escucha = leerEscucha(v); }},
    {"--puerto", true, false,
     [](Borrador& b, Valor v) { b.opciones.puerto = static_cast<std::uint16_t>(leerEntero(v, 0, 65535)); }},
    {"--direcciones", true, false, [](Borrador& b, Valor v) { b.opciones.direcciones = leerDirecciones(v); }},
    {"--decimales", true, false, [](Borrador& b, Valor v) { b.opciones.decimales = leerDecimales(v); }},
    {"--peso", true, true, [](Borrador& b, Valor v) { leerPeso(v, "direccion", b.opciones.peso); }},
    {"--acumulado", true, false,
     [](Borrador& b, Valor v) { b.opciones.acumulado = leerMilesimas(v, 0, MAXMILESIMAS); }},
    {"--marcas", true, false, [](Borrador& b, Valor v) { b.opciones.marcas = leerMarcasPavona(v); }},
    {"--fin", true, false, [](Borrador& b, Valor v) { b.opciones.finLinea = leerFinLinea(v); }},
    {"--saludo", true, false, [](Borrador& b, Valor v) { b.opciones.faltas.saludo = leerTexto(v); }},
    {"--segundo", true, false, [](Borrador& b, Valor v) { b.opciones.faltas.segundo = leerTexto(v); }},
    {"--trozos", true, false, ponerTrozos},
    {"--pegada", false, false, [](Borrador& b, Valor) { b.opciones.faltas.pegada = true; }},
    {"--enmudece", true, false, [](Borrador& b, Valor v) { b.opciones.faltas.mudeces = leerMudeces(v); }},
    {"--cierra", true, false, [](Borrador& b, Valor v) { b.opciones.faltas.cierre = leerEtapa(v); }},
    {"--reinicia", true, false, [](Borrador& b, Valor v) { b.opciones.faltas.reinicio = leerEtapa(v); }},
    {"--malas", true, false,
     [](Borrador& b, Valor v) { b.opciones.faltas.malas = leerCadaClases(v, CLASESLINEA, b.opciones.faltas.clases); }},
    {"--basura", true, false, [](Borrador& b, Valor v) { b.opciones.faltas.basura = leerEntero(v, 1, MAXTRAMAS); }},
    {"--partir", true, false, ponerPartir},
    {"--veces", true, false, [](Borrador& b, Valor v) { b.opciones.veces = leerEntero(v, 1, MAXTRAMAS); }},
    {"--sesiones", true, false, [](Borrador& b, Valor v) { b.opciones.sesiones = leerEntero(v, 1, MAXTRAMAS); }},
    {"--ausente", true, false, ponerAusencias},
    {"--sin-aceptar", false, false, [](Borrador& b, Valor) { b.opciones.sinAceptar = true; }},
};

[[noreturn]] void noCabe(const OpcionesConcentrador& opciones, std::size_t indicador, const char* opcion,
                         const char* que) {
    const Direccion direccion = opciones.direcciones[indicador];
    throw ErrorUso(std::string(opcion) + ": " + que + " no cabe con los decimales de " +
                   std::to_string(direccion.primero) + "/" + std::to_string(direccion.segundo));
}

void comprobarPesos(const OpcionesConcentrador& opciones) {
    const OrigenPeso& peso = opciones.peso;
    using Modo = OrigenPeso::Modo;
    for (std::size_t i = 0; i < opciones.direcciones.size(); ++i) {
        const std::int64_t maximo = opciones.decimales[i % opciones.decimales.size()].maximo();
        if (peso.modo == Modo::Bascula && peso.capacidades[i % peso.capacidades.size()] > maximo)
            noCabe(opciones, i, "--capacidad", "la capacidad");
        const std::int64_t propio =
            peso.modo == Modo::Numero ? std::int64_t{opciones.direcciones[i].numero()} * 1000 : peso.fijo;
        if ((peso.modo == Modo::Fijo || peso.modo == Modo::Numero) && propio > maximo)
            noCabe(opciones, i, "--peso", "el peso");
        if (opciones.acumulado && *opciones.acumulado > maximo) noCabe(opciones, i, "--acumulado", "el acumulado");
    }
}

// A sweep that is rounded would repeat weights: each address counts by its own last digit, or as told.
void comprobarBarrido(const OpcionesConcentrador& opciones, std::string_view opcionDePeso) {
    if (opcionDePeso != "--barrido") return;
    for (std::size_t i = 0; i < opciones.direcciones.size(); ++i) {
        const Decimales decimales = opciones.decimales[i % opciones.decimales.size()];
        if (opciones.peso.maximo > decimales.maximo()) noCabe(opciones, i, "--barrido", "el máximo");
        if (opciones.peso.minimo % decimales.unidad() != 0 || opciones.peso.paso % decimales.unidad() != 0)
            noCabe(opciones, i, "--barrido", "el paso");
    }
}

void comprobarFaltas(const OpcionesConcentrador& opciones) {
    const Faltas& faltas = opciones.faltas;
    if (faltas.cierre && faltas.reinicio) throw ErrorUso("--reinicia no puede ir con --cierra");
    if (opciones.sinAceptar && (faltas.cierre || faltas.reinicio || !faltas.mudeces.empty()))
        throw ErrorUso("--sin-aceptar no puede ir con --enmudece, --cierra ni --reinicia: no hay sesiones");
}

}  // namespace

OpcionesConcentrador leerOpcionesConcentrador(std::span<const std::string> argumentos) {
    Borrador borrador;
    OpcionesConcentrador& opciones = borrador.opciones;
    opciones.direcciones = leerDirecciones("12/1-12/4");
    if (!leerArgumentos<Borrador>(argumentos, PROPIAS, borrador)) {
        opciones.ayuda = true;
        return std::move(opciones);
    }
    comprobarComunes(opciones, opciones.direcciones.size());
    comprobarPesos(opciones);
    comprobarBarrido(opciones, borrador.opcionDePeso);
    comprobarFaltas(opciones);
    return std::move(opciones);
}

}  // namespace sorvanel::simulador
