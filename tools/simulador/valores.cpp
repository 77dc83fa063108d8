#include "simulador/valores.h"

#include <algorithm>
#include <charconv>

namespace sorvanel::simulador {

namespace {

std::string textoMilesimas(std::int64_t milesimas) {
    std::string texto = std::to_string(milesimas / 1000);
    if (milesimas % 1000 == 0) return texto;
    std::string decimales = std::to_string(1000 + milesimas % 1000).substr(1);
    decimales.erase(decimales.find_last_not_of('0') + 1);
    return texto + "." + decimales;
}

[[noreturn]] void fueraDeMargen(std::string_view texto, const std::string& minimo, const std::string& maximo) {
    throw ErrorUso(entreComillas(texto) + " está fuera de margen: de " + minimo + " a " + maximo);
}

// Digits only: neither sign nor blanks nor exponent.
bool leerCifras(std::string_view texto, std::int64_t& valor) {
    if (texto.empty() || texto.find_first_not_of("0123456789") != std::string_view::npos) return false;
    return std::from_chars(texto.data(), texto.data() + texto.size(), valor).ec == std::errc{};
}

}  // namespace

std::string entreComillas(std::string_view texto) {
    return "«" + std::string(texto) + "»";
}

std::vector<std::string_view> partir(std::string_view texto, char separador) {
    std::vector<std::string_view> partes;
    for (;;) {
        const std::size_t corte = texto.find(separador);
        partes.push_back(texto.substr(0, corte));
        if (corte == std::string_view::npos) return partes;
        texto.remove_prefix(corte + 1);
    }
}

std::int64_t leerEntero(std::string_view texto, std::int64_t minimo, std::int64_t maximo) {
    std::int64_t valor = 0;
    if (!leerCifras(texto, valor)) throw ErrorUso(entreComillas(texto) + " no es un número entero");
    if (valor < minimo || valor > maximo) fueraDeMargen(texto, std::to_string(minimo), std::to_string(maximo));
    return valor;
}

std::int64_t leerMilesimas(std::string_view texto, std::int64_t minimo, std::int64_t maximo) {
    const std::size_t punto = texto.find('.');
    std::string cifras = "0";  // so that ".5" has a whole part too
    cifras += texto.substr(0, punto);
    const std::string_view decimales = punto == std::string_view::npos ? "" : texto.substr(punto + 1);
    const bool bienCortado = punto == std::string_view::npos || (!decimales.empty() && decimales.size() <= 3);
    cifras += decimales;
    cifras.append(3 - (bienCortado ? decimales.size() : 0), '0');
    std::int64_t valor = 0;
    if (!bienCortado || texto.empty() || !leerCifras(cifras, valor))
        throw ErrorUso(entreComillas(texto) + " no es un número (con punto decimal y tres decimales como mucho)");
    if (valor < minimo || valor > maximo) fueraDeMargen(texto, textoMilesimas(minimo), textoMilesimas(maximo));
    return valor;
}

std::vector<std::int64_t> leerListaMilesimas(std::string_view texto, std::int64_t minimo, std::int64_t maximo) {
    std::vector<std::int64_t> valores;
    for (const auto parte : partir(texto, ',')) valores.push_back(leerMilesimas(parte, minimo, maximo));
    return valores;
}

std::chrono::milliseconds leerSegundos(std::string_view texto, bool admiteCero) {
    constexpr std::int64_t AÑO = std::int64_t{365} * 24 * 3600 * 1000;
    return std::chrono::milliseconds{leerMilesimas(texto, admiteCero ? 0 : 1, AÑO)};
}

std::vector<Destino> leerPuertos(std::string_view texto) {
    std::vector<Destino> destinos;
    for (auto parte : partir(texto, ',')) {
        std::string host;
        if (const std::size_t corte = parte.find(':'); corte != std::string_view::npos) {
            host = parte.substr(0, corte);
            if (host.empty()) throw ErrorUso("falta el equipo en " + entreComillas(parte));
            parte.remove_prefix(corte + 1);
        }
        const std::size_t guion = parte.find('-');
        const std::int64_t primero = leerEntero(parte.substr(0, guion), 1, 65535);
        const std::int64_t ultimo =
            guion == std::string_view::npos ? primero : leerEntero(parte.substr(guion + 1), 1, 65535);
        if (ultimo < primero) throw ErrorUso("el intervalo " + entreComillas(parte) + " está al revés");
        for (std::int64_t puerto = primero; puerto <= ultimo; ++puerto)
            destinos.push_back({host, static_cast<std::uint16_t>(puerto)});
    }
    return destinos;
}

std::vector<Callada> leerCalladas(std::string_view texto) {
    std::vector<Callada> calladas;
    for (const auto parte : partir(texto, ',')) {
        const std::size_t corte = parte.find(':');
        if (corte == std::string_view::npos)
            throw ErrorUso(entreComillas(parte) + " no tiene la forma INDICADOR:SEGUNDOS");
        Callada callada;
        callada.indicador = static_cast<std::size_t>(leerEntero(parte.substr(0, corte), 1, 65535) - 1);
        const auto momentos = partir(parte.substr(corte + 1), '-');
        callada.desde = leerSegundos(momentos[0], true);
        if (momentos.size() > 1) callada.hasta = leerSegundos(momentos[1]);
        if (momentos.size() > 2 || (callada.hasta && *callada.hasta <= callada.desde))
            throw ErrorUso("en " + entreComillas(parte) + " el silencio termina antes de comenzar");
        calladas.push_back(callada);
    }
    return calladas;
}

Pausas leerPausas(std::string_view texto) {
    constexpr std::string_view AZAR = "azar:";
    Pausas pausas;
    pausas.azar = texto.starts_with(AZAR);
    const auto partes = partir(pausas.azar ? texto.substr(AZAR.size()) : texto, ':');
    if (partes.size() != 2) throw ErrorUso(entreComillas(texto) + " no tiene la forma CADA:DURA o azar:CADA:DURA");
    pausas.cada = leerSegundos(partes[0]);
    pausas.dura = leerSegundos(partes[1]);
    if (pausas.dura >= pausas.cada) throw ErrorUso("en " + entreComillas(texto) + " la pausa dura más que su turno");
    return pausas;
}

void leerPeso(std::string_view texto, std::string_view palabra, OrigenPeso& peso) {
    peso.modo = texto == palabra ? OrigenPeso::Modo::Numero : OrigenPeso::Modo::Fijo;
    if (peso.modo == OrigenPeso::Modo::Fijo) peso.fijo = leerMilesimas(texto, 0, MAXMILESIMAS);
}

void leerBarrido(std::string_view texto, OrigenPeso& peso) {
    const auto partes = partir(texto, ':');
    if (partes.size() != 3) throw ErrorUso(entreComillas(texto) + " no tiene la forma MÍNIMO:MÁXIMO:PASO");
    peso.modo = OrigenPeso::Modo::Barrido;
    peso.minimo = leerMilesimas(partes[0], 0, MAXMILESIMAS);
    peso.maximo = leerMilesimas(partes[1], 0, MAXMILESIMAS);
    peso.paso = leerMilesimas(partes[2], 1, MAXMILESIMAS);
    if (peso.maximo - peso.minimo < peso.paso)
        throw ErrorUso("el barrido " + entreComillas(texto) + " no deja sitio para un paso");
}

Marcas leerMarcas(std::string_view texto) {
    if (texto == "modelo") return {Marcas::Modo::Lectura, ""};
    if (texto == "azar") return {Marcas::Modo::Azar, ""};
    if (!sonMarcas(std::string(texto)))
        throw ErrorUso(entreComillas(texto) +
                       " no son marcas: «modelo», «azar» o tres letras (E o X, C N o X, D Z o X)");
    return {Marcas::Modo::Fijas, std::string(texto)};
}

Ventana leerVentana(std::string_view texto) {
    const auto momentos = partir(texto, ':');
    if (momentos.size() != 2) throw ErrorUso(entreComillas(texto) + " no tiene la forma DESDE:HASTA");
    const Ventana ventana{leerSegundos(momentos[0], true), leerSegundos(momentos[1])};
    if (ventana.hasta <= ventana.desde) throw ErrorUso(entreComillas(texto) + " termina antes de comenzar");
    return ventana;
}

Ventana leerAvalancha(std::string_view texto) {
    const Ventana ventana = leerVentana(texto);
    if (ventana.hasta - ventana.desde > MAXAVALANCHA)
        throw ErrorUso(entreComillas(texto) + " dura más de " + std::to_string(MAXAVALANCHA.count()) + " segundos");
    return ventana;
}

std::int64_t leerCada(std::string_view texto, std::span<const std::string_view> nombres,
                      std::vector<std::size_t>& elegidos) {
    const std::size_t corte = texto.find(':');
    const std::int64_t cada = leerEntero(texto.substr(0, corte), 1, MAXTRAMAS);
    if (corte == std::string_view::npos) {
        for (std::size_t i = 0; i < nombres.size(); ++i) elegidos.push_back(i);
        return cada;
    }
    for (const auto nombre : partir(texto.substr(corte + 1), ',')) {
        const auto hallado = std::find(nombres.begin(), nombres.end(), nombre);
        if (hallado == nombres.end()) {
            std::string todos;
            for (const auto posible : nombres) todos += (todos.empty() ? "" : ", ") + std::string(posible);
            throw ErrorUso(entreComillas(nombre) + " no es ninguna de estas clases: " + todos);
        }
        elegidos.push_back(static_cast<std::size_t>(hallado - nombres.begin()));
    }
    return cada;
}

}  // namespace sorvanel::simulador
