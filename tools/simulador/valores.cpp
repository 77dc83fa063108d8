#include "simulador/valores.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace sorvanel::simulador {

namespace {

[[noreturn]] void fueraDeMargen(std::string_view texto) {
    throw ErrorUso(entreComillas(texto) + " está fuera de margen");
}

// Digits only: neither sign nor blanks nor exponent.
bool leerCifras(std::string_view texto, std::int64_t& valor) {
    if (texto.empty() || texto.find_first_not_of("0123456789") != std::string_view::npos) return false;
    return std::from_chars(texto.data(), texto.data() + texto.size(), valor).ec == std::errc{};
}

int leerDireccion(std::string_view texto) {
    const auto numeros = partir(texto, '/');
    if (numeros.size() != 2) throw ErrorUso(entreComillas(texto) + " no es una dirección como 12/3");
    return static_cast<int>(leerEntero(numeros[0], 0, 99) * 100 + leerEntero(numeros[1], 0, 99));
}

int leerPuerto(std::string_view texto) {
    return static_cast<int>(leerEntero(texto, 1, 65535));
}

// "3" or "3-7", of what `leer` reads.
template <class Leer, class Poner>
void leerIntervalo(std::string_view texto, Leer leer, Poner poner) {
    const auto extremos = partir(texto, '-');
    if (extremos.size() > 2) throw ErrorUso(entreComillas(texto) + " no es un intervalo");
    const int primero = leer(extremos.front());
    const int ultimo = leer(extremos.back());
    if (ultimo < primero) throw ErrorUso("el intervalo " + entreComillas(texto) + " está al revés");
    for (int numero = primero; numero <= ultimo; ++numero) poner(numero);
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
    if (valor < minimo || valor > maximo) fueraDeMargen(texto);
    return valor;
}

std::int64_t leerMilesimas(std::string_view texto, std::int64_t minimo, std::int64_t maximo) {
    const bool negativo = texto.starts_with('-');
    const auto partes = partir(texto.substr(negativo ? 1 : 0), '.');
    std::string cifras{partes.front()};
    const std::string_view decimales = partes.size() == 2 ? partes.back() : "";
    cifras += decimales;
    cifras.append(3 - std::min<std::size_t>(decimales.size(), 3), '0');
    std::int64_t valor = 0;
    if (partes.front().empty() || partes.size() > 2 || decimales.size() > 3 || !leerCifras(cifras, valor))
        throw ErrorUso(entreComillas(texto) + " no es un número (con punto decimal y tres decimales como mucho)");
    if (negativo) valor = -valor;
    if (valor < minimo || valor > maximo) fueraDeMargen(texto);
    return valor;
}

std::vector<std::int64_t> leerListaMilesimas(std::string_view texto) {
    std::vector<std::int64_t> valores;
    for (const auto parte : partir(texto, ',')) valores.push_back(leerMilesimas(parte, 1, MAXMILESIMAS));
    return valores;
}

std::chrono::milliseconds leerSegundos(std::string_view texto) {
    constexpr std::int64_t AÑO = std::int64_t{365} * 24 * 3600 * 1000;
    return std::chrono::milliseconds{leerMilesimas(texto, 0, AÑO)};
}

Ventana leerVentana(std::string_view texto, bool admiteAbierta) {
    const auto momentos = partir(texto, '-');
    Ventana ventana{leerSegundos(momentos.front()), {}};
    if (momentos.size() == 2) ventana.hasta = leerSegundos(momentos.back());
    if (momentos.size() > 2 || (momentos.size() == 1 && !admiteAbierta))
        throw ErrorUso(entreComillas(texto) + " no tiene la forma DESDE-HASTA");
    if (ventana.hasta && *ventana.hasta <= ventana.desde)
        throw ErrorUso(entreComillas(texto) + " termina antes de comenzar");
    return ventana;
}

std::vector<int> leerPuertos(std::string_view texto) {
    std::vector<int> puertos;
    for (const auto parte : partir(texto, ',')) leerIntervalo(parte, leerPuerto, [&](int n) { puertos.push_back(n); });
    return puertos;
}

std::vector<Direccion> leerDirecciones(std::string_view texto) {
    std::vector<Direccion> direcciones;
    for (const auto parte : partir(texto, ','))
        leerIntervalo(parte, leerDireccion, [&](int n) { direcciones.push_back({n / 100, n % 100}); });
    return direcciones;
}

Callada leerCallada(std::string_view texto) {
    const auto partes = partir(texto, ':');
    if (partes.size() != 2) throw ErrorUso(entreComillas(texto) + " no tiene la forma INDICADOR:SEGUNDOS");
    return {static_cast<std::size_t>(leerEntero(partes[0], 1, 65535) - 1), leerVentana(partes[1], true)};
}

std::string leerMarcas(std::string_view texto, std::span<const std::string_view> letras) {
    bool valen = texto.size() == letras.size();
    for (std::size_t i = 0; valen && i < letras.size(); ++i) valen = letras[i].find(texto[i]) != std::string_view::npos;
    if (!valen) throw ErrorUso(entreComillas(texto) + " no son marcas");
    return std::string(texto);
}

Malas leerMalas(std::string_view texto, std::span<const std::string_view> clases) {
    const std::size_t corte = texto.find(':');
    Malas malas{leerEntero(texto.substr(0, corte), 1, MAXCADA), {}};
    if (corte == std::string_view::npos) {
        for (std::size_t i = 0; i < clases.size(); ++i) malas.clases.push_back(i);
        return malas;
    }
    for (const auto nombre : partir(texto.substr(corte + 1), ',')) {
        const auto hallado = std::find(clases.begin(), clases.end(), nombre);
        if (hallado == clases.end()) throw ErrorUso(entreComillas(nombre) + " no es una clase");
        malas.clases.push_back(static_cast<std::size_t>(hallado - clases.begin()));
    }
    return malas;
}

std::string leerTexto(std::string_view texto) {
    const auto partes = partir(texto, '\\');
    std::string leido{partes.front()};
    for (const auto parte : std::span(partes).subspan(1)) {
        unsigned valor = 0;
        if (parte.size() < 3 || parte[0] != 'x' ||
            std::from_chars(parte.data() + 1, parte.data() + 3, valor, 16).ptr != parte.data() + 3)
            throw ErrorUso("en " + entreComillas(texto) + " tras «\\» va xHH");
        leido += static_cast<char>(valor);
        leido += parte.substr(3);
    }
    return leido;
}

std::string leerFinLinea(std::string_view texto) {
    if (texto == "cr") return "\r";
    if (texto == "lf") return "\n";
    if (texto == "crlf") return "\r\n";
    throw ErrorUso(entreComillas(texto) + " no es un fin de línea: cr, lf o crlf");
}

Tropiezo leerTropiezo(std::string_view texto, Tropiezo::Tipo tipo) {
    using Punto = Etapa::Punto;
    constexpr std::array<std::string_view, 5> PUNTOS = {"saludo", "rep", "abierta", "lecturas", "media"};
    const auto partes = partir(texto, ':');
    const auto hallado = std::find(PUNTOS.begin(), PUNTOS.end(), partes[0]);
    if (hallado == PUNTOS.end())
        throw ErrorUso(entreComillas(texto) + " no es un momento: saludo, rep, abierta, lecturas:N o media:N");
    Tropiezo tropiezo{{static_cast<Punto>(hallado - PUNTOS.begin())}, tipo, {}};
    const Punto punto = tropiezo.etapa.punto;
    std::size_t leidas = 1;
    if (punto == Punto::Lecturas || punto == Punto::Media) {
        if (partes.size() < 2) throw ErrorUso("en " + entreComillas(texto) + " falta cuántas lecturas");
        tropiezo.etapa.lineas = leerEntero(partes[leidas++], punto == Punto::Lecturas ? 1 : 0, MAXCADA);
    }
    if (tipo == Tropiezo::Tipo::Calla && leidas < partes.size()) tropiezo.dura = leerSegundos(partes[leidas++]);
    if (leidas < partes.size()) throw ErrorUso("en " + entreComillas(texto) + " sobra algo");
    return tropiezo;
}

}  // namespace sorvanel::simulador
