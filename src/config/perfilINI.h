#pragma once

#include <list>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace sorvanel {

// The text of one settings file, read and edited without disturbing what is not edited: comments,
// blank lines, unknown keys and sections, their order, the encoding and the line ends all stay.
//
// "[section]", then lines "key=value"; lines that begin with ";" or "#" are comments, any other line
// means nothing and is kept. Names match in any case. Blanks and tabs around names and values do not
// count, but for a value in double quotes. Of sections or keys of one name the first is the one
// that is read and written.
//
// Without a mark the file is Windows-1252, with one UTF-8. All arguments and answers are UTF-8. No
// input, however broken, is refused.
class PerfilINI {
public:
    explicit PerfilINI(std::string_view bytes = {});
    PerfilINI(PerfilINI&&) = default;
    PerfilINI& operator=(PerfilINI&&) = default;

    // Empty optional when the section or the key is missing. Always valid UTF-8 and one line.
    std::optional<std::string> leer(std::string_view seccion, std::string_view clave) const;

    // Each answers whether the text changed.
    //
    // What is read back is the value as it was given, but that each line break and NUL has become
    // a blank: a value is one line. A name that no line could hold (an empty one, "=" in a key, "]" in
    // a section, a line break) changes nothing. A character outside Windows-1252 turns the file
    // into UTF-8.
    bool escribir(std::string_view seccion, std::string_view clave, std::string_view valor);
    bool borrarClave(std::string_view seccion, std::string_view clave);
    // All sections of that name. A comment that stands apart, just above the next section, stays.
    bool borrarSeccion(std::string_view seccion);

    // The file's bytes.
    std::string bytes() const;

private:
    // One line with a key, or a run of lines without one. Text with its line ends.
    struct Pieza {
        std::string texto;
        std::string clave = {};  // folded; empty for a run
        std::size_t valor = 0;   // where the value begins, and its length, both without outer blanks
        std::size_t largo = 0;
    };
    using Piezas = std::list<Pieza>;

    struct Seccion {
        std::string cabecera = {};  // its line; empty for what comes before the first section
        std::string nombre = {};    // folded
        Piezas piezas = {};
        std::unordered_map<std::string, Piezas::iterator> claves = {};
    };
    using Secciones = std::list<Seccion>;

    void leerLinea(std::string_view linea);
    Seccion& nuevaSeccion(std::string_view nombre);
    void nuevaClave(Seccion& seccion, std::string_view clave, std::string_view valor);

    Secciones m_secciones;
    std::unordered_map<std::string, Secciones::iterator> m_indice;
    bool m_utf8 = false;
};

}  // namespace sorvanel
