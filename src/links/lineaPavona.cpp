#include "links/lineaPavona.h"

#include <algorithm>

#include "config/texto.h"

namespace sorvanel {

namespace {

constexpr std::size_t LARGO_LINEA = 26;
constexpr std::size_t LARGO_VALOR = 8;
constexpr std::size_t LARGO_GRUPO = LARGO_VALOR + 1;  // with its sign
constexpr std::size_t LARGO_MARCAS = 3;
constexpr std::size_t PRIMER_VALOR = 9;
constexpr std::size_t SEGUNDO_VALOR = 18;
constexpr std::int64_t MAGNITUD_MAXIMA = 99'999'999;

bool tieneForma(std::string_view l) {
    return l.size() == LARGO_LINEA && esCifra(l[0]) && esCifra(l[1]) && l[2] == '/' && esCifra(l[3]) && esCifra(l[4]) &&
           l[5] == ' ' && (l[6] == 'C' || l[6] == '-') && (l[7] == 'D' || l[7] == '-') && l[8] == ' ' && l[17] == ' ';
}

std::int16_t dosCifras(std::string_view texto) {
    return static_cast<std::int16_t>((texto[0] - '0') * 10 + (texto[1] - '0'));
}

// Blanks around it, a sign, and digits, its points left out.
std::optional<std::int64_t> leerSinPuntos(std::string_view texto) {
    texto = recortar(texto, " .");
    if (texto.empty()) return std::nullopt;
    const bool negativo = texto.front() == '-';
    if (negativo || texto.front() == '+') texto.remove_prefix(1);
    std::int64_t valor = 0;
    bool hayCifra = false;
    for (const char c : texto) {
        if (c == '.') continue;
        if (!esCifra(c)) return std::nullopt;
        valor = valor * 10 + (c - '0');
        hayCifra = true;
    }
    if (!hayCifra) return std::nullopt;
    return negativo ? -valor : valor;
}

// How many digits follow the first point; more than four count as none.
int decimales(std::string_view valor) {
    const auto punto = valor.find('.');
    if (punto == std::string_view::npos) return 0;
    const auto n = static_cast<int>(LARGO_VALOR - 1 - punto);
    return n > 4 ? 0 : n;
}

std::int64_t aMilesimas(std::int64_t valor, int decimales) {
    constexpr std::array<std::int64_t, 4> FACTOR{1000, 100, 10, 1};
    if (decimales < 4) return valor * FACTOR[static_cast<std::size_t>(decimales)];
    return (valor + (valor < 0 ? -5 : 5)) / 10;  // half away from zero
}

char* escribirGrupo(std::int64_t milesimas, char* destino) {
    std::int64_t magnitud = milesimas < 0 ? -milesimas : milesimas;
    if (magnitud > MAGNITUD_MAXIMA) return std::copy(GRUPO_SIN_DATO.begin(), GRUPO_SIN_DATO.end(), destino);
    *destino = milesimas < 0 ? '-' : '+';
    for (std::size_t i = LARGO_VALOR; i >= 1; --i, magnitud /= 10) destino[i] = static_cast<char>('0' + magnitud % 10);
    return destino + LARGO_VALOR + 1;
}

}  // namespace

std::optional<LecturaPavona> leerLineaPavona(std::string_view linea) {
    if (!tieneForma(linea)) return std::nullopt;
    const std::string_view textoF = linea.substr(PRIMER_VALOR, LARGO_VALOR);
    const auto leidoF = leerSinPuntos(textoF);
    const auto leidoS = leerSinPuntos(linea.substr(SEGUNDO_VALOR, LARGO_VALOR));
    if (!leidoF || !leidoS) return std::nullopt;
    const int d = decimales(textoF);
    const std::int64_t f = aMilesimas(*leidoF, d);
    const std::int64_t s = aMilesimas(*leidoS, d);

    // An indicator that says it loads and unloads at once counts as loading.
    const bool cargando = linea[6] == 'C';
    const bool descargando = linea[7] == 'D' && !cargando;
    const std::array<std::int64_t, 6> valores{
        f, s, f + s, descargando ? s : f + s, cargando ? f + s : s, descargando ? s - f : s};
    LecturaPavona lectura;
    lectura.primero = dosCifras(linea);
    lectura.segundo = dosCifras(linea.substr(3));
    char* destino = lectura.carga.data();
    *destino++ = 'X';
    *destino++ = cargando ? 'C' : 'X';
    *destino++ = descargando ? 'D' : 'X';
    for (const std::int64_t valor : valores) destino = escribirGrupo(valor, destino);
    return lectura;
}

std::optional<std::string> tramaPavona(std::string_view carga, std::size_t valor) {
    if (carga.empty()) return std::string();
    const std::size_t inicio = LARGO_MARCAS + LARGO_GRUPO * valor;
    if (carga.size() < inicio + LARGO_GRUPO) return std::nullopt;
    const std::string_view grupo = carga.substr(inicio, LARGO_GRUPO);
    if (grupo == GRUPO_SIN_DATO) return std::string();
    return std::string(carga.substr(0, LARGO_MARCAS)).append(grupo);
}

// What is missing is zeros, or blanks to the end of the value that has begun: where neither makes a line, nothing does.
bool empiezaLineaPavona(std::string_view principio) {
    constexpr std::array<std::string_view, 3> LINEAS{"00/00 -- 00000000 00000000", "00/00 --          00000000",
                                                     "00/00 --                  "};
    return principio.size() <= LARGO_LINEA && std::any_of(LINEAS.begin(), LINEAS.end(), [&](std::string_view linea) {
               return leerLineaPavona(std::string(principio).append(linea.substr(principio.size()))).has_value();
           });
}

}  // namespace sorvanel
