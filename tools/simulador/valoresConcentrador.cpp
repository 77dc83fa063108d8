#include "simulador/valoresConcentrador.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <set>
#include <utility>

#include "simulador/valores.h"

namespace sorvanel::simulador {

namespace {

Direccion leerDireccion(std::string_view texto) {
    const auto numeros = partir(texto, '/');
    if (numeros.size() != 2) throw ErrorUso(entreComillas(texto) + " no es una dirección como 12/3");
    return {static_cast<int>(leerEntero(numeros[0], 0, 99)), static_cast<int>(leerEntero(numeros[1], 0, 99))};
}

// A stage, and what follows it in `partes`.
Etapa leerEtapa(std::string_view texto, std::vector<std::string_view>& partes) {
    using Punto = Etapa::Punto;
    constexpr std::array<std::pair<std::string_view, Punto>, 5> PUNTOS = {{{"saludo", Punto::Saludo},
                                                                           {"rep", Punto::Rep},
                                                                           {"abierta", Punto::Abierta},
                                                                           {"lecturas", Punto::Lecturas},
                                                                           {"media", Punto::Media}}};
    partes = partir(texto, ':');
    const auto hallado =
        std::find_if(PUNTOS.begin(), PUNTOS.end(), [&](const auto& p) { return p.first == partes[0]; });
    if (hallado == PUNTOS.end())
        throw ErrorUso(entreComillas(texto) + " no es un momento: saludo, rep, abierta, lecturas:N o media:N");
    Etapa etapa{hallado->second};
    partes.erase(partes.begin());
    if (etapa.punto == Punto::Lecturas || etapa.punto == Punto::Media) {
        if (partes.empty()) throw ErrorUso("en " + entreComillas(texto) + " falta cuántas lecturas");
        etapa.lineas = leerEntero(partes[0], etapa.punto == Punto::Lecturas ? 1 : 0, MAXTRAMAS);
        partes.erase(partes.begin());
    }
    return etapa;
}

}  // namespace

std::vector<Direccion> leerDirecciones(std::string_view texto) {
    std::vector<Direccion> direcciones;
    std::set<int> vistas;
    for (const auto parte : partir(texto, ',')) {
        const auto extremos = partir(parte, '-');
        if (extremos.size() > 2) throw ErrorUso(entreComillas(parte) + " no es un intervalo como 12/1-12/8");
        const int primera = leerDireccion(extremos.front()).numero();
        const int ultima = leerDireccion(extremos.back()).numero();
        if (ultima < primera) throw ErrorUso("el intervalo " + entreComillas(parte) + " está al revés");
        for (int numero = primera; numero <= ultima; ++numero) {
            if (!vistas.insert(numero).second)
                throw ErrorUso(std::to_string(numero / 100) + "/" + std::to_string(numero % 100) + " está dos veces");
            direcciones.push_back({numero / 100, numero % 100});
        }
    }
    return direcciones;
}

std::vector<Decimales> leerDecimales(std::string_view texto) {
    std::vector<Decimales> decimales;
    for (const auto parte : partir(texto, ',')) {
        if (parte == "0.")
            decimales.push_back({0, true});
        else
            decimales.push_back({static_cast<int>(leerEntero(parte, 0, 4)), false});
    }
    return decimales;
}

Marcas leerMarcasPavona(std::string_view texto) {
    if (texto == "modelo") return {Marcas::Modo::Lectura, ""};
    if (texto == "azar") return {Marcas::Modo::Azar, ""};
    if (!sonMarcasPavona(texto))
        throw ErrorUso(entreComillas(texto) + " no son marcas: «modelo», «azar» o dos letras (C o -, D o -)");
    return {Marcas::Modo::Fijas, std::string(texto)};
}

std::vector<std::string> leerEscucha(std::string_view texto) {
    if (texto == "local") return {"127.0.0.1", "::1"};
    if (texto == "todas") return {"0.0.0.0", "::"};
    if (texto.empty()) throw ErrorUso("falta dónde: «local», «todas» o una dirección de este equipo");
    return {std::string(texto)};
}

std::string leerTexto(std::string_view texto) {
    std::string leido;
    for (std::size_t i = 0; i < texto.size(); ++i) {
        if (texto[i] != '\\') {
            leido += texto[i];
            continue;
        }
        constexpr std::string_view LETRAS = "rnt\\";
        constexpr std::string_view VALORES = "\r\n\t\\";
        const std::string_view resto = texto.substr(i + 1);
        unsigned valor = 0;
        if (const auto lugar = resto.empty() ? std::string_view::npos : LETRAS.find(resto[0]);
            lugar != std::string_view::npos) {
            leido += VALORES[lugar];
            i += 1;
        } else if (resto.size() >= 3 && resto[0] == 'x' &&
                   std::from_chars(resto.data() + 1, resto.data() + 3, valor, 16).ptr == resto.data() + 3) {
            leido += static_cast<char>(valor);
            i += 3;
        } else {
            throw ErrorUso("en " + entreComillas(texto) + " tras «\\» va r, n, t, \\ o xHH");
        }
    }
    return leido;
}

std::string leerFinLinea(std::string_view texto) {
    if (texto == "cr") return "\r";
    if (texto == "lf") return "\n";
    if (texto == "crlf") return "\r\n";
    throw ErrorUso(entreComillas(texto) + " no es un fin de línea: cr, lf o crlf");
}

Etapa leerEtapa(std::string_view texto) {
    std::vector<std::string_view> resto;
    const Etapa etapa = leerEtapa(texto, resto);
    if (!resto.empty()) throw ErrorUso("en " + entreComillas(texto) + " sobra " + entreComillas(resto[0]));
    return etapa;
}

std::vector<Mudez> leerMudeces(std::string_view texto) {
    std::vector<Mudez> mudeces;
    for (const auto parte : partir(texto, ',')) {
        std::vector<std::string_view> resto;
        Mudez mudez{leerEtapa(parte, resto), {}};
        if (!resto.empty()) mudez.dura = leerSegundos(resto[0]);
        if (resto.size() > 1) throw ErrorUso("en " + entreComillas(parte) + " sobra " + entreComillas(resto[1]));
        mudeces.push_back(mudez);
    }
    return mudeces;
}

}  // namespace sorvanel::simulador
