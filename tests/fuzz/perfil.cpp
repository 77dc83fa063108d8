// The settings file is bytes from outside: whatever it holds, and whatever is then edited, what was
// written reads back, the neighbours stay, and the text means the same when it is read again.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include "config/codificacion.h"
#include "config/perfilINI.h"

namespace {

using sorvanel::PerfilINI;

void exigir(bool cierto, const char* que) {
    if (cierto) return;
    std::fprintf(stderr, "%s\n", que);
    std::abort();
}

struct Nombre {
    std::string seccion, clave;
};

std::optional<std::string> valor(const PerfilINI& perfil, const Nombre& n) {
    return perfil.leer(n.seccion, n.clave);
}

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
    for (char& c : texto) c = c == '\r' || c == '\n' || c == '\0' ? ' ' : c;
    return texto;
}

// Runs the edit, which should touch that key alone, and compares all others before and after.
template <typename Edicion>
void editar(PerfilINI& perfil, const std::vector<Nombre>& vigilados, const Nombre& tocado, Edicion edicion) {
    const PerfilINI antes(perfil.bytes());
    const auto valorTocado = valor(antes, tocado);
    const bool cambio = edicion();
    exigir(cambio || perfil.bytes() == antes.bytes(), "changed without saying so");
    const PerfilINI otro(perfil.bytes());
    exigir(otro.bytes() == perfil.bytes(), "not stable");
    exigir(valor(otro, tocado) == valor(perfil, tocado), "edited key reads otherwise");
    for (const Nombre& n : vigilados) {
        exigir(valor(otro, n) == valor(perfil, n), "reads otherwise from the disk");
        // Only another spelling of the edited name may have changed.
        exigir(valor(perfil, n) == valor(antes, n) ||
                   (valor(antes, n) == valorTocado && valor(perfil, n) == valor(perfil, tocado)),
               "a neighbour changed");
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
    for (const std::string& nuevo : {'"' + dado + '"', ' ' + dado, dado}) {
        bool escrito = false;
        const auto escribir = [&] { return perfil.escribir(tocado.seccion, tocado.clave, nuevo); };
        editar(perfil, vigilados, tocado, [&] { return escrito = escribir(); });
        exigir(!escrito || valor(perfil, tocado) == esperado(nuevo), "value did not come back");
        exigir(!escrito || !escribir(), "the same value changed it again");
    }
    const bool estaba = valor(perfil, tocado).has_value();
    editar(perfil, vigilados, tocado, [&] { return perfil.borrarClave(tocado.seccion, tocado.clave); });
    exigir(!valor(perfil, tocado), "deleted key is there");
    exigir(estaba || perfil.bytes().size() >= resto.size(), "deleting nothing lost something");

    perfil.borrarSeccion(tocado.seccion);
    const PerfilINI otro(perfil.bytes());
    exigir(otro.bytes() == perfil.bytes(), "not stable after deleting a section");
    for (const Nombre& n : vigilados) {
        exigir(valor(otro, n) == valor(perfil, n), "section deleted, another reads otherwise");
        exigir(n.seccion != tocado.seccion || !valor(perfil, n), "deleted section is there");
    }
    return 0;
}
