#include "config/perfilINI.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

#include "config/codificacion.h"
#include "config/texto.h"

namespace sorvanel {
namespace {

constexpr std::string_view MARCA_UTF8 = "\xEF\xBB\xBF";
constexpr std::string_view FIN_LINEA = "\r\n";
constexpr std::string_view BLANCOS = " \t";
// What would end a line, or a text in the hands of Windows.
constexpr std::string_view ROMPEN = std::string_view("\r\n\0", 3);

std::string_view sinFin(std::string_view linea) {
    const std::size_t ultimo = linea.find_last_not_of("\r\n");
    return ultimo == std::string_view::npos ? std::string_view() : linea.substr(0, ultimo + 1);
}

// Takes the first line, with its end, off the text. CR LF, LF and CR all end a line.
std::string_view sacarLinea(std::string_view& texto) {
    std::size_t fin = texto.find_first_of("\r\n");
    if (fin == std::string_view::npos) {
        fin = texto.size();
    } else {
        fin += texto.substr(fin, 2) == FIN_LINEA ? 2 : 1;
    }
    const std::string_view linea = texto.substr(0, fin);
    texto.remove_prefix(fin);
    return linea;
}

bool esComentario(std::string_view linea) {
    const std::string_view texto = recortar(linea);
    return !texto.empty() && (texto[0] == ';' || texto[0] == '#');
}

// The name by which sections and keys are found: trimmed, in lower case, accented letters too.
std::string plegar(std::string_view nombre) {
    return minusculas(utf8Valido(recortar(nombre)));
}

std::string enUnaLinea(std::string_view texto) {
    std::string linea = utf8Valido(texto);
    std::replace_if(
        linea.begin(), linea.end(), [](char c) { return ROMPEN.find(c) != std::string_view::npos; }, ' ');
    return linea;
}

bool entreComillas(std::string_view valor) {
    return valor.size() >= 2 && valor.front() == '"' && valor.back() == '"';
}

std::string comoSeEscribe(std::string_view valor) {
    if (recortar(valor).size() == valor.size() && !entreComillas(valor)) return std::string(valor);
    return '"' + std::string(valor) + '"';
}

bool vale(std::string_view nombre, std::string_view prohibidos) {
    return !nombre.empty() && nombre.find_first_of(ROMPEN) == std::string_view::npos &&
           nombre.find_first_of(prohibidos) == std::string_view::npos;
}

bool valeComoSeccion(std::string_view nombre) {
    return vale(nombre, "]");
}
bool valeComoClave(std::string_view nombre) {
    return vale(nombre, "=") && nombre[0] != '[' && !esComentario(nombre);
}

// The comment lines at the end of the text that a blank line separates from what is before.
std::string_view comentarioAparte(std::string_view texto) {
    std::vector<std::string_view> lineas;
    for (std::string_view resto = texto; !resto.empty();) {
        lineas.push_back(sinFin(sacarLinea(resto)));
    }
    std::size_t primera = lineas.size();
    while (primera > 0 && esComentario(lineas[primera - 1])) --primera;
    if (primera == lineas.size() || primera == 0 || !recortar(lineas[primera - 1]).empty()) {
        return {};
    }
    return texto.substr(static_cast<std::size_t>(lineas[primera].data() - texto.data()));
}

}  // namespace

PerfilINI::PerfilINI(std::string_view bytes) : m_utf8(bytes.substr(0, MARCA_UTF8.size()) == MARCA_UTF8) {
    m_secciones.emplace_back();
    // The bytes of a UTF-8 file are kept as they are, also those that are not valid.
    const std::string texto = m_utf8 ? std::string(bytes.substr(MARCA_UTF8.size())) : deWindows1252(bytes);
    for (std::string_view resto = texto; !resto.empty();) leerLinea(sacarLinea(resto));
}

void PerfilINI::leerLinea(std::string_view linea) {
    const std::string_view cuerpo = sinFin(linea);
    const std::string_view texto = recortar(cuerpo);
    const std::size_t cierre = texto.find(']');
    if (!texto.empty() && texto[0] == '[' && cierre != std::string_view::npos) {
        m_secciones.push_back({std::string(linea), plegar(texto.substr(1, cierre - 1))});
        m_indice.emplace(m_secciones.back().nombre, std::prev(m_secciones.end()));
        return;
    }
    Seccion& seccion = m_secciones.back();
    const std::size_t igual = cuerpo.find('=');
    if (igual != std::string_view::npos && valeComoClave(plegar(cuerpo.substr(0, igual)))) {
        const std::string_view tras = cuerpo.substr(igual + 1);
        const std::size_t blancos = std::min(tras.find_first_not_of(BLANCOS), tras.size());
        seccion.piezas.push_back(
            {std::string(linea), plegar(cuerpo.substr(0, igual)), igual + 1 + blancos, recortar(tras).size()});
        seccion.claves.emplace(seccion.piezas.back().clave, std::prev(seccion.piezas.end()));
        return;
    }
    if (seccion.piezas.empty() || !seccion.piezas.back().clave.empty()) {
        seccion.piezas.emplace_back();
    }
    seccion.piezas.back().texto += linea;
}

std::optional<std::string> PerfilINI::leer(std::string_view seccion, std::string_view clave) const {
    const auto s = m_indice.find(plegar(seccion));
    if (s == m_indice.end()) return std::nullopt;
    const auto k = s->second->claves.find(plegar(clave));
    if (k == s->second->claves.end()) return std::nullopt;
    const Pieza& pieza = *k->second;
    std::string_view valor = std::string_view(pieza.texto).substr(pieza.valor, pieza.largo);
    if (entreComillas(valor)) valor = valor.substr(1, valor.size() - 2);
    return enUnaLinea(valor);
}

bool PerfilINI::escribir(std::string_view seccion, std::string_view clave, std::string_view valor) {
    const std::string nombreSeccion = utf8Valido(recortar(seccion));
    const std::string nombreClave = utf8Valido(recortar(clave));
    const std::string nuevo = enUnaLinea(valor);
    if (!valeComoSeccion(nombreSeccion) || !valeComoClave(nombreClave) || leer(seccion, clave) == nuevo) {
        return false;
    }
    const auto s = m_indice.find(plegar(nombreSeccion));
    Seccion& destino = s == m_indice.end() ? nuevaSeccion(nombreSeccion) : *s->second;
    const std::string escrito = comoSeEscribe(nuevo);
    if (const auto k = destino.claves.find(plegar(nombreClave)); k != destino.claves.end()) {
        Pieza& pieza = *k->second;
        const std::size_t fin = sinFin(pieza.texto).size();
        pieza.texto.replace(pieza.valor, fin - pieza.valor, escrito);
        pieza.largo = escrito.size();
    } else {
        nuevaClave(destino, nombreClave, escrito);
    }
    m_utf8 = m_utf8 || !cabeEnWindows1252(nombreSeccion + nombreClave + nuevo);
    return true;
}

PerfilINI::Seccion& PerfilINI::nuevaSeccion(std::string_view nombre) {
    Seccion& ultima = m_secciones.back();
    const std::string& previo = ultima.piezas.empty() ? ultima.cabecera : ultima.piezas.back().texto;
    std::string_view linea;
    for (std::string_view resto = previo; !resto.empty();) linea = sacarLinea(resto);
    if (!recortar(sinFin(linea)).empty()) {
        ultima.piezas.push_back({std::string(FIN_LINEA)});
    }
    m_secciones.push_back({"[" + std::string(nombre) + "]" + std::string(FIN_LINEA), plegar(nombre)});
    m_indice.emplace(m_secciones.back().nombre, std::prev(m_secciones.end()));
    return m_secciones.back();
}

// After the last key, so that what separates the section from the next one stays where it is.
void PerfilINI::nuevaClave(Seccion& seccion, std::string_view clave, std::string_view valor) {
    auto lugar = seccion.piezas.end();
    while (lugar != seccion.piezas.begin() && std::prev(lugar)->clave.empty()) --lugar;
    std::string texto = std::string(clave) + "=";
    const std::size_t inicio = texto.size();
    texto.append(valor).append(FIN_LINEA);
    const auto nueva = seccion.piezas.insert(lugar, {std::move(texto), plegar(clave), inicio, valor.size()});
    seccion.claves.emplace(nueva->clave, nueva);
}

bool PerfilINI::borrarClave(std::string_view seccion, std::string_view clave) {
    const auto s = m_indice.find(plegar(seccion));
    const std::string nombre = plegar(clave);
    if (s == m_indice.end() || s->second->claves.erase(nombre) == 0) return false;
    // Its repetitions too: else the next one would come to light.
    s->second->piezas.remove_if([&](const Pieza& pieza) { return pieza.clave == nombre; });
    return true;
}

bool PerfilINI::borrarSeccion(std::string_view seccion) {
    const std::string nombre = plegar(seccion);
    if (m_indice.erase(nombre) == 0) return false;
    for (auto s = std::next(m_secciones.begin()); s != m_secciones.end();) {
        if (s->nombre != nombre) {
            ++s;
            continue;
        }
        std::string cola;
        for (auto p = s->piezas.rbegin(); p != s->piezas.rend() && p->clave.empty(); ++p) {
            cola.insert(0, p->texto);
        }
        if (const std::string_view aparte = comentarioAparte(cola); !aparte.empty()) {
            std::prev(s)->piezas.push_back({std::string(aparte)});
        }
        s = m_secciones.erase(s);
    }
    return true;
}

std::string PerfilINI::bytes() const {
    std::string texto(m_utf8 ? MARCA_UTF8 : std::string_view());
    const std::size_t inicio = texto.size();
    const auto anadir = [&](std::string_view linea) {
        // What was the last line of the file may have had no end.
        if (!linea.empty() && texto.size() > inicio && texto.back() != '\n' && texto.back() != '\r') {
            texto += FIN_LINEA;
        }
        texto += linea;
    };
    for (const Seccion& seccion : m_secciones) {
        anadir(seccion.cabecera);
        for (const Pieza& pieza : seccion.piezas) anadir(pieza.texto);
    }
    return m_utf8 ? texto : aWindows1252(texto);
}

}  // namespace sorvanel
