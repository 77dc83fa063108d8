// The settings file is bytes from outside: whatever it holds, and whatever is then edited, what was
// written reads back, the neighbours stay, and the text means the same when it is read again.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "config/codificacion.h"
#include "config/perfilINI.h"

namespace {

using sorvanel::PerfilINI;

void exigir(bool cierto, const char* que) {
    if (!cierto) {
        std::fprintf(stderr, "%s\n", que);
        std::abort();
    }
}

struct Nombre {
    std::string seccion;
    std::string clave;
};

// The names that a plain look at the text finds, to be watched while others are edited.
std::vector<Nombre> nombresDe(std::string_view texto) {
    std::vector<Nombre> nombres;
    std::string seccion;
    while (!texto.empty() && nombres.size() < 16) {
        const std::size_t fin = std::min(texto.find_first_of("\r\n"), texto.size());
        const std::string_view linea = texto.substr(0, fin);
        texto.remove_prefix(std::min(fin + 1, texto.size()));
        if (!linea.empty() && linea[0] == '[') {
            seccion = linea.substr(1, linea.find(']') - 1);
        } else if (const std::size_t igual = linea.find('='); igual != std::string_view::npos) {
            nombres.push_back({seccion, std::string(linea.substr(0, igual))});
        }
    }
    return nombres;
}

std::string esperado(std::string_view valor) {
    std::string texto = sorvanel::utf8Valido(valor);
    for (char& c : texto) {
        c = c == '\r' || c == '\n' || c == '\0' ? ' ' : c;
    }
    return texto;
}

// Runs the edit, which should touch that key alone, and compares all others before and after.
template <typename Edicion>
void editar(PerfilINI& perfil, const std::vector<Nombre>& vigilados, const Nombre& tocado, Edicion edicion) {
    std::vector<std::optional<std::string>> antes;
    const auto valorTocado = perfil.leer(tocado.seccion, tocado.clave);
    for (const Nombre& n : vigilados) {
        antes.push_back(perfil.leer(n.seccion, n.clave));
    }
    const std::string textoAntes = perfil.bytes();
    const bool cambio = edicion();
    exigir(cambio || perfil.bytes() == textoAntes, "changed without saying so");
    const PerfilINI otro(perfil.bytes());
    exigir(otro.bytes() == perfil.bytes(), "not stable");
    exigir(otro.leer(tocado.seccion, tocado.clave) == perfil.leer(tocado.seccion, tocado.clave),
           "edited key reads otherwise");
    for (std::size_t i = 0; i < vigilados.size(); ++i) {
        const auto ahora = perfil.leer(vigilados[i].seccion, vigilados[i].clave);
        exigir(otro.leer(vigilados[i].seccion, vigilados[i].clave) == ahora, "reads otherwise from the disk");
        if (ahora != antes[i]) {
            // Only another spelling of the edited name may have changed.
            exigir(antes[i] == valorTocado && ahora == perfil.leer(tocado.seccion, tocado.clave),
                   "a neighbour changed");
        }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* datos, std::size_t largo) {
    std::string_view resto(reinterpret_cast<const char*>(datos), largo);
    // Four pieces, cut at 0x1F: section, key, value, file.
    std::string_view piezas[3];
    for (std::string_view& pieza : piezas) {
        const std::size_t fin = std::min(resto.find('\x1F'), resto.size());
        pieza = resto.substr(0, fin);
        resto.remove_prefix(std::min(fin + 1, resto.size()));
    }
    PerfilINI perfil(resto);
    exigir(perfil.bytes() == resto, "unedited, and not the same bytes");
    const std::vector<Nombre> vigilados = nombresDe(resto);
    const Nombre tocado{std::string(piezas[0]), std::string(piezas[1])};

    const std::string dado(piezas[2]);
    for (const std::string& valor : {'"' + dado + '"', ' ' + dado, dado}) {
        bool escrito = false;
        editar(perfil, vigilados, tocado,
               [&] { return escrito = perfil.escribir(tocado.seccion, tocado.clave, valor); });
        if (escrito) {
            exigir(perfil.leer(tocado.seccion, tocado.clave) == esperado(valor), "value did not come back");
            exigir(!perfil.escribir(tocado.seccion, tocado.clave, valor), "the same value changed it again");
        }
    }
    const bool estaba = perfil.leer(tocado.seccion, tocado.clave).has_value();
    editar(perfil, vigilados, tocado, [&] { return perfil.borrarClave(tocado.seccion, tocado.clave); });
    exigir(!perfil.leer(tocado.seccion, tocado.clave), "deleted key is there");
    exigir(estaba || perfil.bytes().size() >= resto.size(), "deleting nothing lost something");

    perfil.borrarSeccion(tocado.seccion);
    const PerfilINI otro(perfil.bytes());
    exigir(otro.bytes() == perfil.bytes(), "not stable after deleting a section");
    for (const Nombre& n : vigilados) {
        exigir(otro.leer(n.seccion, n.clave) == perfil.leer(n.seccion, n.clave),
               "section deleted, another reads otherwise");
        exigir(n.seccion != tocado.seccion || !perfil.leer(n.seccion, n.clave), "deleted section is there");
    }
    return 0;
}
