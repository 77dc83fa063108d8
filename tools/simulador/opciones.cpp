#include "simulador/opciones.h"

#include <algorithm>
#include <limits>

#include "simulador/trama.h"
#include "simulador/valores.h"

namespace sorvanel::simulador {

namespace {

using Valor = std::string_view;
using Tipo = Tropiezo::Tipo;

constexpr std::int64_t MAXENTERO = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t MAXJUNTAS = 100;  // well within a datagram

enum class Familia { Ambas, Tessel, Pavona };

struct Opcion {
    Familia familia;
    std::string_view nombre;
    std::string_view valor;  // what it is called in the help; empty where it takes none
    std::string_view ayuda;
    void (*aplicar)(Opciones&, Valor);
};

void ponerPeso(Opciones& o, Valor v) {
    using Modo = OrigenPeso::Modo;
    o.peso.modo = v == (o.concentrador ? "direccion" : "puerto") ? Modo::Numero : Modo::Fijo;
    const std::int64_t minimo = o.concentrador ? -MAXMILESIMAS / 10 : 0;
    if (o.peso.modo == Modo::Fijo) o.peso.fijo = leerMilesimas(v, minimo, MAXMILESIMAS);
}

void ponerMarcas(Opciones& o, Valor v) {
    o.marcas = o.concentrador ? leerMarcas(v, LETRASPAVONA) : leerMarcas(v, LETRASTESSEL);
}

void ponerMalas(Opciones& o, Valor v) {
    o.faltas.malas = o.concentrador ? leerMalas(v, CLASESLINEA) : leerMalas(v, CLASESTRAMA);
}

void ponerTrozos(Opciones& o, Valor v) {
    const auto partes = partir(v, ':');
    if (partes.size() != 2) throw ErrorUso(entreComillas(v) + " no tiene la forma N:SEGUNDOS");
    o.faltas.trozo = static_cast<std::size_t>(leerEntero(partes[0], 1, MAXCADA));
    o.faltas.pausa = leerSegundos(partes[1]);
}

void ponerEscucha(Opciones& o, Valor v) {
    if (v != "local" && v != "todas") throw ErrorUso(entreComillas(v) + " no es «local» ni «todas»");
    o.todas = v == "todas";
}

template <Tipo TIPO>
void ponerTropiezo(Opciones& o, Valor v) {
    o.faltas.tropiezos.push_back(leerTropiezo(v, TIPO));
}

constexpr Opcion OPCIONES[] = {
    {Familia::Ambas, "--ritmo", "N", "tramas o lecturas por segundo de cada uno, de 0.1 a 1000 (10)",
     [](Opciones& o, Valor v) { o.ritmo = static_cast<double>(leerMilesimas(v, 100, 1'000'000)) / 1000; }},
    {Familia::Ambas, "--duracion", "SEGUNDOS", "terminar al cabo de ese tiempo",
     [](Opciones& o, Valor v) { o.duracion = leerSegundos(v); }},
    {Familia::Ambas, "--peso", "PESO",
     "siempre ese peso; con «puerto» (el concentrador, con «direccion»)\n"
     "cada uno da su número: así se comprueba cuál es cuál",
     ponerPeso},
    {Familia::Ambas, "--contar", "", "cada vez una unidad más de la última cifra",
     [](Opciones& o, Valor) { o.peso.modo = OrigenPeso::Modo::Cuenta; }},
    {Familia::Ambas, "--capacidad", "LISTA", "de cada báscula (6000); si faltan, se repite la lista",
     [](Opciones& o, Valor v) { o.peso.capacidades = leerListaMilesimas(v); }},
    {Familia::Ambas, "--division", "LISTA", "división mínima de cada báscula (1)",
     [](Opciones& o, Valor v) { o.peso.divisiones = leerListaMilesimas(v); }},
    {Familia::Ambas, "--marcas", "MARCAS",
     "siempre esas letras, en vez de lo que haga la báscula: E o X (estable),\n"
     "C, N o X (cargando) y D, Z o X (descargando); el concentrador, C o - y D o -",
     ponerMarcas},
    {Familia::Ambas, "--callar", "I:S", "el indicador I calla a los S segundos; con I:S-S, solo un rato",
     [](Opciones& o, Valor v) { o.calladas.push_back(leerCallada(v)); }},
    {Familia::Ambas, "--malas", "N[:CLASES]",
     "antes de cada N-ésima trama o lectura, una mala; las clases van por turno:\n"
     "letras, signo, corta, larga, cifras, basura; las del concentrador son\n"
     "media, larga, direccion, marcas, separador, valor, basura",
     ponerMalas},
    {Familia::Ambas, "--semilla", "N", "repite el azar de otra ejecución",
     [](Opciones& o, Valor v) { o.semilla = leerEntero(v, 0, MAXENTERO); }},
    {Familia::Ambas, "--mostrar", "", "escribe lo que se envía y lo que se recibe",
     [](Opciones& o, Valor) { o.mostrar = true; }},

    {Familia::Tessel, "--puertos", "LISTA",
     "un indicador por puerto (9001-9004): puertos e intervalos separados por comas",
     [](Opciones& o, Valor v) { o.puertos = leerPuertos(v); }},
    {Familia::Tessel, "--destino", "EQUIPO", "adónde: nombre o dirección IPv4 (127.0.0.1)",
     [](Opciones& o, Valor v) { o.destino = v; }},
    {Familia::Tessel, "--partir", "N", "cada N-ésimo datagrama, en dos",
     [](Opciones& o, Valor v) { o.partir = leerEntero(v, 1, MAXCADA); }},
    {Familia::Tessel, "--juntar", "N", "N tramas en cada datagrama, de 2 a 100",
     [](Opciones& o, Valor v) { o.juntar = leerEntero(v, 2, MAXJUNTAS); }},

    {Familia::Pavona, "--escucha", "DE", "«local», solo este equipo, o «todas» sus direcciones (local)", ponerEscucha},
    {Familia::Pavona, "--puerto", "N", "puerto TCP (9084); con 0, uno libre, que se escribe",
     [](Opciones& o, Valor v) { o.puerto = static_cast<std::uint16_t>(leerEntero(v, 0, 65535)); }},
    {Familia::Pavona, "--direcciones", "LISTA", "indicadores e intervalos separados por comas (12/1-12/4)",
     [](Opciones& o, Valor v) { o.direcciones = leerDirecciones(v); }},
    {Familia::Pavona, "--decimales", "N", "de 0 a 3 (1)",
     [](Opciones& o, Valor v) { o.decimales = static_cast<int>(leerEntero(v, 0, 3)); }},
    {Familia::Pavona, "--fin", "FIN", "de línea: cr, lf o crlf (cr)",
     [](Opciones& o, Valor v) { o.finLinea = leerFinLinea(v); }},
    {Familia::Pavona, "--saludo", "TEXTO", "en vez de LIN>; admite \\xHH, un byte cualquiera",
     [](Opciones& o, Valor v) { o.faltas.saludo = leerTexto(v); }},
    {Familia::Pavona, "--segundo", "TEXTO", "en vez de XXX>",
     [](Opciones& o, Valor v) { o.faltas.segundo = leerTexto(v); }},
    {Familia::Pavona, "--aparte", "", "la primera lectura va una décima de segundo después de XXX>",
     [](Opciones& o, Valor) { o.faltas.aparte = true; }},
    {Familia::Pavona, "--trozos", "N:SEGUNDOS", "todo va de N en N bytes, con esa pausa", ponerTrozos},
    {Familia::Pavona, "--enmudece", "MOMENTO", "calla en ese MOMENTO para siempre, o MOMENTO:SEGUNDOS y sigue",
     ponerTropiezo<Tipo::Calla>},
    {Familia::Pavona, "--cierra", "MOMENTO", "cierra la conexión", ponerTropiezo<Tipo::Cierra>},
    {Familia::Pavona, "--reinicia", "MOMENTO", "la corta (RST); lo último enviado puede perderse",
     ponerTropiezo<Tipo::Reinicia>},
    {Familia::Pavona, "--veces", "N", "faltas solo en las N primeras sesiones; las demás van bien",
     [](Opciones& o, Valor v) { o.veces = leerEntero(v, 1, MAXCADA); }},
    {Familia::Pavona, "--ausente", "S-S", "entre esos segundos no escucha y corta las sesiones",
     [](Opciones& o, Valor v) { o.ausencia = leerVentana(v); }},
};

const Opcion& buscar(std::string_view nombre, bool concentrador) {
    const Familia otra = concentrador ? Familia::Tessel : Familia::Pavona;
    for (const auto& opcion : OPCIONES)
        if (opcion.nombre == nombre && opcion.familia != otra) return opcion;
    throw ErrorUso("opción desconocida: " + entreComillas(nombre));
}

// What can only be told once all is read.
void comprobar(const Opciones& o) {
    for (const auto& callada : o.calladas)
        if (callada.indicador >= o.indicadores())
            throw ErrorUso("--callar: no hay indicador " + std::to_string(callada.indicador + 1) + ", solo " +
                           std::to_string(o.indicadores()));
    if (!o.concentrador) return;
    const auto& capacidades = o.peso.capacidades;
    const std::int64_t mayor = o.peso.modo == OrigenPeso::Modo::Bascula
                                   ? *std::max_element(capacidades.begin(), capacidades.end())
                                   : o.peso.fijo;
    if (mayor > maximo(o.decimales)) throw ErrorUso("--decimales: el peso o la capacidad no caben con tantos");
}

std::string textoOpciones(Familia familia) {
    constexpr std::size_t SANGRIA = 25;
    std::string texto;
    for (const auto& opcion : OPCIONES) {
        if (opcion.familia != familia) continue;
        std::string linea = "  " + std::string(opcion.nombre) + " " + std::string(opcion.valor);
        for (const auto parte : partir(opcion.ayuda, '\n')) {
            linea.resize(SANGRIA, ' ');
            texto += linea + std::string(parte) + "\n";
            linea.clear();
        }
    }
    return texto;
}

}  // namespace

Opciones leerOpciones(std::span<const std::string> argumentos) {
    Opciones opciones;
    for (const auto& argumento : argumentos)
        if (argumento == "--help" || argumento == "-h" || argumento == "/?") opciones.ayuda = true;
    if (opciones.ayuda) return opciones;
    opciones.concentrador = !argumentos.empty() && argumentos.front() == "concentrador";
    if (opciones.concentrador) argumentos = argumentos.subspan(1);
    opciones.puertos = leerPuertos("9001-9004");
    opciones.direcciones = leerDirecciones("12/1-12/4");
    for (std::size_t i = 0; i < argumentos.size(); ++i) {
        const Opcion& opcion = buscar(argumentos[i], opciones.concentrador);
        std::string_view valor;
        if (!opcion.valor.empty()) {
            if (++i == argumentos.size() || argumentos[i].starts_with("--"))
                throw ErrorUso(std::string(opcion.nombre) + " necesita un valor");
            valor = argumentos[i];
        }
        try {
            opcion.aplicar(opciones, valor);
        } catch (const ErrorUso& error) {
            throw ErrorUso(std::string(opcion.nombre) + ": " + error.what());
        }
    }
    comprobar(opciones);
    return opciones;
}

std::string textoAyuda() {
    return R"(simulador: hace de indicadores de peso, para probar Sorvanel sin báscula.

Uso: simulador [opciones]                 indicadores de la familia Tessel, cada uno por UDP
     simulador concentrador [opciones]    el concentrador de la familia Pavona, por TCP

Sin opciones hace de cuatro básculas que se cargan y se descargan y envían diez tramas por
segundo cada una, a los puertos 9001 a 9004 de este mismo equipo, hasta que se pulse Ctrl+C.
El concentrador saluda a cada cliente con «LIN>», espera «REP» y un retorno de carro, contesta
«XXX>» y, en el mismo envío, empieza con las lecturas: dirección, marcas, peso y acumulado.

De los dos
)" + textoOpciones(Familia::Ambas) +
           "\nDe los indicadores\n" + textoOpciones(Familia::Tessel) + "\nDel concentrador\n" +
           textoOpciones(Familia::Pavona) + R"(
MOMENTO es «saludo» (antes de saludar), «rep» (tras recibir REP), «abierta» (tras XXX>),
«lecturas:N» (tras N lecturas) o «media:N» (y media línea más). Los decimales van con punto.
Los indicadores se numeran desde 1, en el orden de --puertos o de --direcciones.

Ejemplos
  simulador --destino 192.168.1.20 --puertos 9001-9008 --peso puerto
      en cada visor se lee su puerto
  simulador --puertos 9001,9002 --capacidad 60000,1500 --division 20,0.5
      una báscula de camiones y otra de palés
  simulador --callar 2:5 --malas 5:signo,corta
      el segundo enmudece a los cinco segundos; las tramas malas no deben verse
  simulador concentrador --escucha todas --direcciones 12/1-12/8,13/5 --peso direccion
      en cada visor se lee su dirección
  simulador concentrador --saludo LIM> --veces 3
      las tres primeras sesiones saludan mal
  simulador concentrador --reinicia media:100 --ausente 20-25
      corta a mitad de una línea, y a los veinte segundos falta durante cinco

Termina con 0, con 1 si no pudo enviar o escuchar o con 2 si una opción no es válida.
)";
}

}  // namespace sorvanel::simulador
