#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace sorvanel {

// Only a file that the system does not find is absent; of one that it may not look at nothing is known.
enum class Presencia { ausente, presente, incierta };

// Tells one state of a file from another without reading it.
struct SelloArchivo {
    Presencia presencia = Presencia::ausente;
    std::uint64_t tamano = 0;
    std::uint64_t modificado = 0;  // the system's own time unit

    bool operator==(const SelloArchivo&) const = default;
};

// How a replacement ended, and the state of the file that it left.
struct Reemplazo {
    bool bien = false;
    SelloArchivo sello = {};
};

// What reading a file gave.
struct Lectura {
    std::optional<std::string> contenido = std::nullopt;  // empty: there is no file, or it cannot be read
    bool ausente = false;
    std::string motivo = {};  // why it cannot be read, in the user's words
};

// Files as the program needs them. Paths are UTF-8. Nothing throws: a failure is an answer, and what was
// there before stands.
class Archivos {
public:
    virtual ~Archivos() = default;

    virtual Lectura leer(const std::string& ruta) = 0;
    // An empty file where there is none: one that is there is never touched.
    virtual bool crearVacio(const std::string& ruta) = 0;
    // Replaces (or makes) the file in one step: whatever happens meanwhile, the old content or the
    // new one is there, whole and on the disk.
    virtual bool reemplazar(const std::string& ruta, std::string_view contenido) = 0;
    // The same beside the one thread, which goes on meanwhile; one at a time: the one before must have been
    // fetched by terminado() or esperar().
    virtual void reemplazarAparte(const std::string& ruta, std::string contenido) = 0;
    // How it ended, once; empty while it is under way and when there is none.
    virtual std::optional<Reemplazo> terminado() = 0;
    // As terminado(), but waits for it.
    virtual std::optional<Reemplazo> esperar() = 0;
    virtual SelloArchivo sello(const std::string& ruta) = 0;
    // True also when the folder was there already.
    virtual bool crearCarpeta(const std::string& ruta) = 0;
    // Joins with exactly one separator.
    virtual std::string unir(const std::string& carpeta, const std::string& nombre) const = 0;
};

}  // namespace sorvanel
